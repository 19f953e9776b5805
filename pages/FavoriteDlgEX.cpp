#include "pages/FavoriteDlgEX.h"

#include "Common/ask_user.h"
#include "Common/log.h"
#include "Common/platform_files.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "Common/win_handles.h"
#include "options/restriction_message.h"
#include "pages/controls.h"
#include "pages/favorite_file_dialogs.h"
#include "pages/pspage.h"
#include "pages/same_text.h"
#include "resources/resource.h"
#include "settings/FavoriteFileManager.h"
#include "settings/SettingManager.h"
#include "settings/favorite_path.h"
#include "settings/favorite_version.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

namespace {

constexpr Caption kCaptions[]{
    {IDCANCEL, IDS_CANCEL},
    {IDC_FAVORITE_LOAD, IDS_FAVORITE_LOAD},
    {IDC_FAVORITE_SAVE, IDS_FAVORITE_SAVE},
    {IDC_FAVORITE_LIST_LABEL, IDS_FAVORITE_LIST},
    {IDC_FAVORITE_NAME_LABEL, IDS_FAVORITE_NAME},
    {IDC_FAVORITE_COMMENT_LABEL, IDS_FAVORITE_COMMENT},
};

// What is of use only with a favourite.
constexpr std::array kFavoriteControls{IDC_FAVORITE_NAME, IDC_FAVORITE_COMMENT, IDC_FAVORITE_SAVE,
                                       IDC_FAVORITE_LIST};

bool IsOfPresentFormat(const CFavoriteSetting& favorite) {
    return favorite.FileVer == kFavoriteFileVer && favorite.IotVer == kFavoriteIotVer;
}

std::optional<BY_HANDLE_FILE_INFORMATION> IdentityOf(const char* path) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const UniqueHandle file =
        OpenedFile(CreateFileA(path, 0, kShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    BY_HANDLE_FILE_INFORMATION identity{};
    if (!file || !GetFileInformationByHandle(file.Get(), &identity))
        return std::nullopt;
    return identity;
}

// True if both paths lead to the same file, as a long name and its short form do.
bool IsOneFile(const char* a, const char* b) {
    const auto one = IdentityOf(a);
    const auto other = IdentityOf(b);
    return one && other && one->dwVolumeSerialNumber == other->dwVolumeSerialNumber &&
           one->nFileIndexHigh == other->nFileIndexHigh && one->nFileIndexLow == other->nFileIndexLow;
}

} // namespace

INT_PTR DoFavoriteDialog(SessionBlock* session, FavoriteName& name, HWND page) {
    ZR_LOG_ENTRY();
    return CFavoriteDlgEX(session, name, page).Run(page, IDD_FAVORITES);
}

CSettingManager* CFavoriteDlgEX::Manager() const {
    return IsLiveSession(session) ? CSettingManager::Existing() : nullptr;
}

CFavoriteSetting* CFavoriteDlgEX::Selected() const {
    CSettingManager* const manager = Manager();
    if (!manager || selected < 0 || static_cast<std::size_t>(selected) >= manager->Count())
        return nullptr;
    return &manager->Favorite(selected);
}

std::string CFavoriteDlgEX::EditText(int controlId) const {
    return ControlText(GetDlgItem(m_hwnd, controlId));
}

int CFavoriteDlgEX::RowCount() const {
    const HWND list = GetDlgItem(m_hwnd, IDC_FAVORITE_LIST);
    return static_cast<int>(SendMessageA(list, LB_GETCOUNT, 0, 0));
}

int CFavoriteDlgEX::OnInitDialog() {
    ZR_LOG_ENTRY();
    selected = -1;
    SetWindowTextA(m_hwnd, LoadText(IDS_FAVORITES_TITLE).c_str());
    SetCaptions(m_hwnd, kCaptions);
    const CSettingManager* const manager = Manager();
    // The text of a row that is marked as changed is no favourite's name.
    const int row = manager ? std::max(manager->IndexOf(FieldText(name)), 0) : 0;
    FillList(row);
    ShowRow(row);
    return 1;
}

void CFavoriteDlgEX::FillList(int select) {
    ZR_LOG_ENTRY();
    const HWND list = GetDlgItem(m_hwnd, IDC_FAVORITE_LIST);
    CSettingManager* const manager = Manager();
    const int count = manager ? static_cast<int>(manager->Count()) : 0;
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    for (int index = 0; index < count; ++index) {
        const std::string text(FieldText(manager->Favorite(index).Name));
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    SelectRow(select);
    if (count == 0)
        EnableWindow(list, FALSE);
}

void CFavoriteDlgEX::SelectRow(int row) {
    SendMessageA(GetDlgItem(m_hwnd, IDC_FAVORITE_LIST), LB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

void CFavoriteDlgEX::ShowRow(int row) {
    selected = row < RowCount() ? row : -1;
    for (const int control : kFavoriteControls)
        EnableWindow(GetDlgItem(m_hwnd, control), selected >= 0);
    const CFavoriteSetting* const favorite = Selected();
    SetCaption(m_hwnd, IDC_FAVORITE_NAME, favorite ? std::string(FieldText(favorite->Name)) : "");
    SetCaption(m_hwnd, IDC_FAVORITE_COMMENT, favorite ? std::string(FieldText(favorite->Comment)) : "");
}

void CFavoriteDlgEX::Relist(std::string_view favoriteName, int otherwise) {
    CSettingManager* const manager = Manager();
    if (!manager)
        return;
    manager->LoadFavoriteSettingList();
    int row = manager->IndexOf(favoriteName);
    if (row < 0)
        row = std::clamp(otherwise, 0, std::max(static_cast<int>(manager->Count()) - 1, 0));
    FillList(row);
    ShowRow(row);
}

int CFavoriteDlgEX::IsChanged(int controlId) {
    const CFavoriteSetting* const favorite = Selected();
    if (!favorite)
        return 0;
    const std::string_view stored =
        controlId == IDC_FAVORITE_NAME ? FieldText(favorite->Name) : FieldText(favorite->Comment);
    return !IsSameButForCase(EditText(controlId), std::string(stored));
}

int CFavoriteDlgEX::CheckValues(int controlId) {
    const std::string text = EditText(controlId);
    std::optional<NameRefusal> refusal;
    if (controlId == IDC_FAVORITE_COMMENT)
        refusal = RefuseFavoriteComment(text);
    else if (controlId == IDC_FAVORITE_NAME && selected >= 0)
        refusal = RefuseFavoriteName(NamePlace::FavoriteDialog, text);
    if (!refusal)
        return 0;
    ShowRefusal(m_hwnd, *refusal);
    return 1;
}

int CFavoriteDlgEX::IsNameTaken() {
    const std::string text = EditText(IDC_FAVORITE_NAME);
    if (SendDlgItemMessageA(m_hwnd, IDC_FAVORITE_LIST, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                            reinterpret_cast<LPARAM>(text.c_str())) == LB_ERR &&
        !IsThere(FavoritePath(text)))
        return 0;
    ShowRefusal(m_hwnd, {IDS_NAME_TAKEN, text});
    return 1;
}

bool CFavoriteDlgEX::IsEdited() {
    return IsChanged(IDC_FAVORITE_NAME) || IsChanged(IDC_FAVORITE_COMMENT);
}

bool CFavoriteDlgEX::EditsPass() {
    if (IsChanged(IDC_FAVORITE_NAME) && (CheckValues(IDC_FAVORITE_NAME) || IsNameTaken()))
        return false;
    return !IsChanged(IDC_FAVORITE_COMMENT) || !CheckValues(IDC_FAVORITE_COMMENT);
}

void CFavoriteDlgEX::ApplyChange() {
    ZR_LOG_ENTRY();
    CFavoriteSetting* const favorite = Selected();
    if (!favorite)
        return;
    const auto oldName = favorite->Name;
    const auto oldComment = favorite->Comment;
    const bool isRenamed = IsChanged(IDC_FAVORITE_NAME) != 0;
    if (!SaveEdits(isRenamed)) {
        ZR_LOG("SaveFavoriteSetting Error\n");
        favorite->Name = oldName;
        favorite->Comment = oldComment;
        return;
    }
    if (!isRenamed)
        return;
    const auto oldPath = FavoritePath(FieldText(oldName));
    const auto newPath = FavoritePath(FieldText(favorite->Name));
    // The old name can be the short form of the new one.
    if (oldPath && newPath && !IsOneFile(oldPath->data(), newPath->data()))
        DeleteFavorite(FieldText(oldName));
}

bool CFavoriteDlgEX::SaveEdits(bool isRenamed) {
    CFavoriteSetting& favorite = *Selected();
    if (isRenamed)
        CopyText(favorite.Name, EditText(IDC_FAVORITE_NAME));
    CopyText(favorite.Comment, OneLineComment(EditText(IDC_FAVORITE_COMMENT)));
    // Other programs put files into the directory as well.
    if (isRenamed && IsThere(FavoritePath(favorite, IDS_FAVORITE_EXTENSION)))
        return false;
    return Manager()->SaveFavoriteSetting(selected, 0) != 0;
}

void CFavoriteDlgEX::DeleteFavorite(std::string_view favoriteName) {
    ZR_LOG_ENTRY();
    const std::optional<PathBuffer> path = FavoritePath(favoriteName);
    if (IsThere(path) && !DeleteFileA(path->data()))
        ZR_LOG("not deleted: %s error=%lu\n", path->data(), GetLastError());
}

int CFavoriteDlgEX::OnCommand(WORD notifyCode, WORD controlId, HWND) {
    switch (notifyCode) {
    case BN_CLICKED: return OnButtonClick(controlId);
    case LBN_SELCHANGE: return controlId == IDC_FAVORITE_LIST ? OnSelChange() : 0;
    case LBN_DBLCLK:
    case LBN_SELCANCEL:
    case LBN_SETFOCUS:
    case LBN_KILLFOCUS:
    case EN_KILLFOCUS:
    // A text is checked when it is to be taken, not while it is typed.
    case EN_CHANGE:
    case EN_UPDATE: return 1;
    default: return 0;
    }
}

int CFavoriteDlgEX::OnButtonClick(WORD controlId) {
    ZR_LOG("%u\n", controlId);
    switch (controlId) {
    case IDOK: OnOk(); return 1;
    case IDCANCEL: EndDialog(m_hwnd, IDCANCEL); return 1;
    case IDC_FAVORITE_SAVE: OnSave(); return 1;
    case IDC_FAVORITE_LOAD: OnLoad(); return 1;
    default: return 0;
    }
}

void CFavoriteDlgEX::OnOk() {
    if (RowCount() > 0) {
        if (!EditsPass())
            return;
        if (IsEdited())
            ApplyChange();
        // Not the edit's text: after a failed save, and by case alone, it is the name of no favourite.
        if (const CFavoriteSetting* const favorite = Selected())
            CopyText(std::span(name).first<kMaxFavoriteName + 1>(), FieldText(favorite->Name));
    }
    EndDialog(m_hwnd, IDOK);
}

int CFavoriteDlgEX::OnSelChange() {
    ZR_LOG_ENTRY();
    CSettingManager* const manager = Manager();
    const auto row = static_cast<int>(SendDlgItemMessageA(m_hwnd, IDC_FAVORITE_LIST, LB_GETCURSEL, 0, 0));
    if (!manager || row < 0 || static_cast<std::size_t>(row) >= manager->Count())
        return 1;
    if (!EditsPass()) {
        SelectRow(selected);
        return 1;
    }
    if (!IsEdited()) {
        ShowRow(row);
        return 1;
    }
    ApplyChange();
    // A renamed favourite may change its place in the list, and with it the one that the user went to.
    Relist(std::string(FieldText(manager->Favorite(row).Name)), row);
    return 1;
}

void CFavoriteDlgEX::OnSave() {
    if (!EditsPass())
        return;
    const std::optional<PathBuffer> path = AskForFileToSave(m_hwnd, EditText(IDC_FAVORITE_NAME));
    if (path && Selected())
        WriteSelected(path->data());
}

void CFavoriteDlgEX::WriteSelected(const char* path) {
    ZR_LOG_ENTRY();
    // An export copies a file of the favourite's name with an extension that favourites are not saved with.
    // Where there is none, what the list holds is written. Neither takes the place of a file.
    if (Manager()->ExportFavoriteFile(selected, path, 1))
        return;
    if (platform_files::IsThere(path) || !CFavoriteFileManager({}).SaveFavoriteFromPath(*Selected(), path))
        ZR_LOG("not written: %s\n", path);
}

void CFavoriteDlgEX::OnLoad() {
    const std::optional<PathBuffer> path = AskForFileToLoad(m_hwnd);
    CSettingManager* const manager = Manager();
    if (!path || !manager)
        return;
    const std::optional<PathBuffer> directory = WholeFavoriteDirectory();
    if (!directory)
        return;
    CFavoriteSetting loaded;
    manager->AddFavoriteFromPath(loaded, path->data());
    CopyText(loaded.Name, NameInPath(path->data()));
    loaded.CharCode = 0;
    loaded.Directory = *directory;
    if (!IsOfPresentFormat(loaded)) {
        AskUser(m_hwnd, LoadText(IDS_OTHER_FORMAT).c_str(), LoadText(IDS_LOAD_TITLE).c_str(), AskButtons::Ok);
        return;
    }
    // One that was not there when the file was chosen.
    if (IsThere(FavoritePath(loaded, IDS_FAVORITE_EXTENSION))) {
        ShowRefusal(m_hwnd, {IDS_NAME_TAKEN, std::string(FieldText(loaded.Name))});
        return;
    }
    const std::string warning = PageSizeWarning(loaded);
    TakeOver(loaded);
    if (!warning.empty())
        AskUser(m_hwnd, warning.c_str(), LoadText(IDS_WARNING_TITLE).c_str(), AskButtons::Ok);
}

std::string CFavoriteDlgEX::PageSizeWarning(const CFavoriteSetting& loaded) const {
    const std::string size(FieldText(loaded.PageSize));
    if (size.empty())
        return LoadText(IDS_NO_PAGE_SIZE);
    const HWND sizes = GetDlgItem(page, IDC_PAGE_SIZE);
    if (sizes && SendMessageA(sizes, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                              reinterpret_cast<LPARAM>(size.c_str())) != CB_ERR)
        return {};
    const std::string_view favorite = FieldText(loaded.Name);
    return FillPlaceholders(LoadText(IDS_PAGE_SIZE_UNKNOWN), std::span(&favorite, 1));
}

void CFavoriteDlgEX::TakeOver(const CFavoriteSetting& loaded) {
    CSettingManager* const manager = Manager();
    const int before = selected;
    manager->SaveFavoriteSetting(manager->AddFavorite(loaded), 0);
    Relist(FieldText(loaded.Name), before);
}
