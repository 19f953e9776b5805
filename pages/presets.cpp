// Choosing, saving and deleting the favourites of the standard page.
#include "Common/ask_user.h"
#include "Common/log.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "pages/FavoriteDlgEX.h"
#include "pages/SavePresetDlg.h"
#include "pages/controls.h"
#include "pages/favorite_names.h"
#include "pages/same_text.h"
#include "pages/standardpage.h"
#include "resources/resource.h"
#include "settings/SettingManager.h"
#include "settings/favorite_path.h"
#include "settings/favorite_version.h"
#include "settings/preset_settings.h"
#include "settings/print_option_access.h"

#include <span>
#include <string>
#include <string_view>

namespace {

// A preset's name without the mark before it.
std::string_view Unmarked(std::string_view text) {
    const std::size_t end = text.find('>');
    return text.starts_with('<') && end != std::string_view::npos ? text.substr(end + 1) : text;
}

CFavoriteSetting NewFavorite(std::string_view name, std::string_view comment) {
    CFavoriteSetting favorite;
    FillText(favorite.Name, name);
    FillText(favorite.Comment, comment);
    if (const auto directory = WholeFavoriteDirectory())
        favorite.Directory = *directory;
    favorite.FileVer = kFavoriteFileVer;
    favorite.IotVer = kFavoriteIotVer;
    return favorite;
}

// The favourite whose file has this name, whatever the case of its letters; -1 without one.
int IndexOfFile(CSettingManager& manager, std::string_view name) {
    if (const int exact = manager.IndexOf(name); exact >= 0)
        return exact;
    int index = static_cast<int>(manager.Count()) - 1;
    while (index >= 0 && !IsSameButForCase(FieldText(manager.Favorite(index).Name), name))
        --index;
    return index;
}

// Also true for a file that the list does not have: one of another device, a broken one, a later one.
bool IsNameTaken(CSettingManager& manager, std::string_view name) {
    return IndexOfFile(manager, name) >= 0 || IsThere(FavoritePath(name));
}

// The favourite that has the file of this name, with its own name and comment, or a new one.
CFavoriteSetting FavoriteToSave(CSettingManager& manager, std::string_view name, std::string_view comment) {
    const int known = IndexOfFile(manager, name);
    return known < 0 ? NewFavorite(name, comment) : manager.Favorite(known);
}

} // namespace

void CStandardPageDlg::OnPresetSelChange() {
    ZR_LOG_ENTRY();
    EnableDeletePreset();
    TakeSelectedPreset();
    RemoveUnselectedMarkedRow();
    UpdateControls(Session());
}

void CStandardPageDlg::TakeSelectedPreset() {
    CSettingManager* manager = CSettingManager::Existing();
    if (!manager)
        return;
    const std::string name = SelectedPreset();
    if (name == LoadText(IDS_PRESET_STANDARD)) {
        TakePreset(*manager, manager->Default().PrintOption());
        return;
    }
    // A marked row's text is no favourite's name: its settings are the present ones already.
    CFavoriteSetting* favorite = manager->GetFavoriteSettingFromName(name.c_str());
    if (!favorite)
        return;
    // What is put right here is so in the list as well, or the favourite would count as changed at once.
    FindPageSizeOf(*favorite);
    TurnCustomPage(favorite->PrintOption());
    TakePreset(*manager, favorite->PrintOption());
}

void CStandardPageDlg::FindPageSizeOf(CFavoriteSetting& favorite) const {
    const HWND forms = GetDlgItem(m_hwnd, IDC_PAGE_SIZE);
    const std::string name(FieldText(favorite.PageSize));
    if (!forms || name.empty())
        return;
    const LRESULT row = SendMessageA(forms, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                     reinterpret_cast<LPARAM>(name.c_str()));
    const int form = row < 0
                         ? m_customPageSizeIndex
                         : static_cast<int>(SendMessageA(forms, CB_GETITEMDATA, static_cast<WPARAM>(row), 0));
    // A printer without forms has no custom one either.
    if (form >= 0)
        ddb::SetI32(favorite.PrintOption(), ddb::FieldAt(ddb::FieldId::PageSize), form);
}

int CStandardPageDlg::AskAboutPreset(unsigned question) const {
    return AskUser(m_hwnd, LoadText(question).c_str(), LoadText(IDS_WARNING_TITLE).c_str(),
                   AskButtons::YesNo);
}

void CStandardPageDlg::OnSavePreset() {
    ZR_LOG_ENTRY();
    CSettingManager* manager = CSettingManager::Existing();
    if (!manager)
        return;
    manager->LoadCurrentSettingInfo();
    const std::string preset = SelectedPreset();
    const std::string_view offered = Unmarked(preset);
    FavoriteName name{};
    FavoriteComment comment{};
    CopyText(name, offered);
    if (const CFavoriteSetting* favorite = manager->GetFavoriteSettingFromName(name.data()))
        CopyText(comment, FieldText(favorite->Comment));
    const HWND forms = GetDlgItem(m_hwnd, IDC_PAGE_SIZE);
    const std::string pageSize = RowText(forms, SelectedRow(forms));
    if (pageSize.empty()) {
        ZR_LOG("no page size\n");
        return;
    }

    const SessionBlock* session = Session();
    if (DoSavePresetDialog(m_hwnd, name, comment) != IDOK || !IsLiveSession(session))
        return;
    if ((IsNameTaken(*manager, FieldText(name)) || FieldText(name) == offered) &&
        (AskAboutPreset(IDS_ASK_OVERWRITE_PRESET) != ask_answer::Yes || !IsLiveSession(session)))
        return;

    CFavoriteSetting favorite = FavoriteToSave(*manager, FieldText(name), FieldText(comment));
    PutPresentSettings(*manager, favorite);
    FillText(favorite.PageSize, pageSize);
    if (!manager->KeepFavorite(favorite)) {
        WriteLog("%s %d行目 %s SaveFavoriteSetting Error\n", __FILE__, __LINE__, __func__);
        return;
    }
    UpdatePresetCombo();
    SelectPreset(favorite.Name.data());
    OnPresetSelChange();
    UpdateChangeItemPresetCombo();
}

void CStandardPageDlg::OnDeletePreset() {
    ZR_LOG_ENTRY();
    const SessionBlock* session = Session();
    const int answer = AskAboutPreset(IDS_ASK_DELETE_PRESET);
    if (!IsLiveSession(session))
        return;
    if (answer != ask_answer::Yes) {
        ZR_LOG("cancelled\n");
        return;
    }
    CSettingManager* manager = CSettingManager::Existing();
    if (!manager)
        return;
    // A text that is no favourite's could lead to any file.
    const std::string name = SelectedPreset();
    const auto path = manager->IndexOf(name) < 0 ? std::nullopt : FavoritePath(name);
    // The list that is read anew shows a file that could not be removed.
    if (path)
        DeleteFileA(path->data());
    manager->LoadFavoriteSettingList();
    UpdatePresetCombo();
    SelectPreset({});
    OnPresetSelChange();
}

void CStandardPageDlg::OnFavoriteExportImport() {
    ZR_LOG_ENTRY();
    SessionBlock* session = Session();
    FavoriteName name{};
    CopyText(name, SelectedPreset());
    DoFavoriteDialog(session, name, m_hwnd);
    if (!IsLiveSession(session))
        return;
    UpdatePresetCombo();
    // After a dialog that was left without OK this is the text of before; a marked one has no row any more,
    // and the standard settings come back.
    SelectPreset(name.data());
    OnPresetSelChange();
}
