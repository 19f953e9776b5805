#include "tests/pages/favorite_dialog_fixture.h"

#include "Common/text.h"
#include "settings/print_option_access.h"

#include <dlgs.h>

#include <algorithm>
#include <utility>

namespace {

constexpr int kPageSizes = 5000;

void RemoveAll(const std::string& path) {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

HWND FileNameEdit(HWND fileDialog) {
    return reinterpret_cast<HWND>(SendDlgItemMessageA(fileDialog, cmb13, CBEM_GETEDITCONTROL, 0, 0));
}

std::function<void()> whenClosed;

LRESULT CALLBACK ClosingProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == WM_DESTROY && whenClosed)
        std::exchange(whenClosed, nullptr)();
    return DefSubclassProc(window, message, wParam, lParam);
}

} // namespace

FavoriteDialogTest::FavoriteDialogTest() {
    directory = m_traces.MakeDirectories(FolderPath(CSIDL_COMMON_DOCUMENTS),
                                         {"Zephra", "KP Controller", "Orvane X100", "favorite"});
    // Others that were interrupted may have left files.
    RemoveAll(directory);
    m_traces.MakeDirectory(directory);
    folder = FolderPath(CSIDL_COMMON_DOCUMENTS) + "\\zr_favorite_dialog";
    RemoveAll(folder);
    m_traces.MakeDirectory(folder);

    CSettingManager::Destroy();
    CSettingManager::GetSettingManager();
    page = CreateWindowA("Static", "", WS_CHILD, 0, 0, 100, 100, Sheet(), nullptr, nullptr, nullptr);
    const HWND sizes =
        CreateWindowA("ComboBox", "", WS_CHILD | CBS_DROPDOWNLIST | CBS_SORT, 0, 0, 90, 90, page,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(kPageSizes)), nullptr, nullptr);
    for (const char* size : {"A4", "A3"})
        SendMessageA(sizes, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(size));
}

FavoriteDialogTest::~FavoriteDialogTest() {
    CSettingManager::Destroy();
    RemoveAll(directory);
    RemoveAll(folder);
}

CFavoriteSetting FavoriteDialogTest::MakeFavorite(const std::string& comment, const std::string& pageSize,
                                                  int copies) {
    CFavoriteSetting favorite;
    favorite.FileVer = 2;
    favorite.IotVer = 10;
    CopyText(favorite.Comment, comment);
    CopyText(favorite.PageSize, pageSize);
    ddb::SetI32(favorite.PrintOption(), ddb::FieldAt(ddb::FieldId::NumOfCopies), copies);
    return favorite;
}

void FavoriteDialogTest::WriteFavorite(const std::string& path, const CFavoriteSetting& favorite) {
    EXPECT_EQ(CFavoriteFileManager({}).SaveFavoriteFromPath(favorite, path.c_str()), 1) << path;
}

CFavoriteSetting FavoriteDialogTest::ReadFavorite(const std::string& path) {
    CFavoriteSetting favorite;
    EXPECT_EQ(CFavoriteFileManager({}).LoadFavoriteFromPath(favorite, path.c_str()), 1) << path;
    return favorite;
}

int FavoriteDialogTest::CopiesOf(const CFavoriteSetting& favorite) {
    return ddb::GetI32(favorite.PrintOption(), ddb::FieldAt(ddb::FieldId::NumOfCopies));
}

void FavoriteDialogTest::WriteBytes(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

void FavoriteDialogTest::AddFavorite(const std::string& favorite, const std::string& comment,
                                     int copies) const {
    WriteFavorite(PathOf(favorite), MakeFavorite(comment, "A4", copies));
}

std::vector<std::string> FavoriteDialogTest::Files() const {
    std::vector<std::string> files;
    WIN32_FIND_DATAA entry{};
    const HANDLE search = FindFirstFileA((directory + "\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE)
        return files;
    do {
        if (!(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
            files.emplace_back(entry.cFileName);
    } while (FindNextFileA(search, &entry));
    FindClose(search);
    std::ranges::sort(files);
    return files;
}

std::vector<std::string> FavoriteDialogTest::Listed() {
    std::vector<std::string> names;
    CSettingManager* const manager = CSettingManager::GetSettingManager();
    for (int index = 0; index < static_cast<int>(manager->Count()); ++index)
        names.emplace_back(FieldText(manager->Favorite(index).Name));
    return names;
}

INT_PTR FavoriteDialogTest::Run(Steps steps) {
    CSettingManager::GetSettingManager()->LoadFavoriteSettingList();
    return RunAsListed(std::move(steps));
}

INT_PTR FavoriteDialogTest::RunAsListed(Steps steps) {
    const ModalDialog user(std::move(steps));
    return DoFavoriteDialog(&block, chosen, page);
}

ModalDialog::Step FavoriteDialogTest::Press(int controlId) {
    return [controlId](HWND dialog) {
        MoveFocus(dialog, controlId);
        PostMessageA(GetDlgItem(dialog, controlId), BM_CLICK, 0, 0);
    };
}

ModalDialog::Step FavoriteDialogTest::Click(int row) {
    return [row](HWND dialog) {
        const HWND list = GetDlgItem(dialog, kList);
        RECT place{};
        ASSERT_NE(
            SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place)),
            LB_ERR);
        const LPARAM at = MAKELPARAM(place.left + 2, place.top + 2);
        PostMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
        PostMessageA(list, WM_LBUTTONUP, 0, at);
    };
}

ModalDialog::Step FavoriteDialogTest::Type(int controlId, const std::string& text) {
    return [=](HWND dialog) { TypeInto(dialog, controlId, text); };
}

ModalDialog::Step FavoriteDialogTest::Choose(const std::string& file) {
    return [file](HWND dialog) {
        SetWindowTextA(FileNameEdit(dialog), file.c_str());
        PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    };
}

std::vector<std::string> RowsOfList(HWND dialog) {
    const HWND list = GetDlgItem(dialog, kList);
    std::vector<std::string> rows;
    for (WPARAM row = 0; row < static_cast<WPARAM>(SendMessageA(list, LB_GETCOUNT, 0, 0)); ++row) {
        std::array<char, 300> text{};
        SendMessageA(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()));
        rows.emplace_back(text.data());
    }
    return rows;
}

int SelectedRowOf(HWND dialog) {
    return static_cast<int>(SendDlgItemMessageA(dialog, kList, LB_GETCURSEL, 0, 0));
}

std::string TextIn(HWND dialog, int controlId) {
    return CaptionOf(dialog, controlId);
}

bool IsEnabled(HWND dialog, int controlId) {
    return IsWindowEnabled(GetDlgItem(dialog, controlId)) != FALSE;
}

void CallWhenClosed(HWND dialog, std::function<void()> call) {
    whenClosed = std::move(call);
    SetWindowSubclass(dialog, ClosingProc, 1, 0);
}
