// The rows of the favourites' combo box on the standard page, and the mark on them that the settings have
// changed.
#include "Common/log.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "options/PrintOptionSetting.h"
#include "pages/controls.h"
#include "pages/page_images.h"
#include "pages/standardpage.h"
#include "resources/resource.h"
#include "settings/SettingManager.h"

#include <array>
#include <string>

namespace {

// In the place of an index in the manager's list, as a row's data word.
constexpr int kStandard = -1;

constexpr int kStandardImage = 1;
constexpr int kFavoriteImage = 2;

constexpr int kAtEnd = -1;
constexpr int kNoRow = -1;

void InsertPreset(HWND presets, int row, const std::string& text, int preset) {
    InsertNumberedRow(presets, row, text, preset == kStandard ? kStandardImage : kFavoriteImage, preset);
}

bool BeginsWithMark(const std::string& text, const std::string& mark) {
    return _strnicmp(text.c_str(), mark.c_str(), mark.size()) == 0;
}

std::string MarkedText(const std::string& mark, const std::string& text) {
    std::array<char, 128> marked{};
    CopyText(marked, mark + text);
    return marked.data();
}

// The first marked row but for `except`.
int FindMarkedRow(HWND presets, int except = kNoRow) {
    const std::string mark = LoadText(IDS_PRESET_CHANGED);
    const auto count = static_cast<int>(SendMessageA(presets, CB_GETCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) {
        if (row != except && BeginsWithMark(RowText(presets, row), mark))
            return row;
    }
    return kNoRow;
}

} // namespace

void CStandardPageDlg::InitPresetCombo() {
    ZR_LOG_ENTRY();
    SetItemLabel(m_hwnd, IDC_PRESET_LABEL, option_item::Favorites);
    if (CSettingManager* manager = CSettingManager::Existing())
        manager->LoadFavoriteSettingList();
    UpdatePresetCombo();
    SelectRow(GetDlgItem(m_hwnd, IDC_PRESET), 0);
}

void CStandardPageDlg::UpdatePresetCombo() {
    ZR_LOG_ENTRY();
    const HWND presets = GetDlgItem(m_hwnd, IDC_PRESET);
    if (!presets)
        return;
    ClearRows(presets);
    AttachImages(presets, ProcessPageImages().Of(ImageStrip::FavoriteMarks, nullptr));
    InsertPreset(presets, kAtEnd, LoadText(IDS_PRESET_STANDARD), kStandard);
    CSettingManager* manager = CSettingManager::Existing();
    const int count = manager ? static_cast<int>(manager->Count()) : 0;
    for (int favorite = 0; favorite < count; ++favorite)
        InsertPreset(presets, kAtEnd, std::string(FieldText(manager->Favorite(favorite).Name)), favorite);
}

void CStandardPageDlg::SelectPreset(const std::string& name) {
    ZR_LOG_ENTRY();
    const HWND presets = GetDlgItem(m_hwnd, IDC_PRESET);
    // From the top down: a file from elsewhere may have the name of the standard settings.
    const auto count = static_cast<int>(SendMessageA(presets, CB_GETCOUNT, 0, 0));
    int row = 0;
    while (row < count && RowText(presets, row) != name)
        ++row;
    const bool isThere = !name.empty() && row < count;
    SelectRow(presets, static_cast<std::uint32_t>(isThere ? row : 0));
}

std::string CStandardPageDlg::SelectedPreset() const {
    const HWND presets = GetDlgItem(m_hwnd, IDC_PRESET);
    return RowText(presets, SelectedRow(presets));
}

void CStandardPageDlg::EnableDeletePreset() {
    const std::string preset = SelectedPreset();
    const bool isChanged = preset.find(LoadText(IDS_PRESET_CHANGED)) != std::string::npos;
    const bool isStandard = preset == LoadText(IDS_PRESET_STANDARD);
    EnableWindow(GetDlgItem(m_hwnd, IDC_DELETE_PRESET), !isChanged && !isStandard);
}

void CStandardPageDlg::UpdateChangeItemPresetCombo() {
    ZR_LOG_ENTRY();
    const HWND presets = GetDlgItem(m_hwnd, IDC_PRESET);
    CSettingManager* manager = CSettingManager::Existing();
    const int row = SelectedRow(presets);
    if (!manager || row < 0)
        return;
    const int preset = SelectedNumber(presets);
    const std::string text = RowText(presets, row);
    if (!manager->ChangeFavorite(preset)) {
        RemoveMarkedRow();
    } else {
        const std::string mark = LoadText(IDS_PRESET_CHANGED);
        if (BeginsWithMark(text, mark))
            return;
        InsertPreset(presets, row + 1, MarkedText(mark, text), preset);
        SelectRow(presets, static_cast<std::uint32_t>(row + 1));
    }
    EnableDeletePreset();
}

void CStandardPageDlg::RemoveMarkedRow() {
    ZR_LOG_ENTRY();
    const HWND presets = GetDlgItem(m_hwnd, IDC_PRESET);
    const int marked = FindMarkedRow(presets);
    if (marked == kNoRow)
        return;
    const bool wasSelected = marked == SelectedRow(presets);
    RemoveRow(presets, marked);
    if (wasSelected && marked > 0)
        SelectRow(presets, static_cast<std::uint32_t>(marked - 1));
}

void CStandardPageDlg::RemoveUnselectedMarkedRow() {
    ZR_LOG_ENTRY();
    const HWND presets = GetDlgItem(m_hwnd, IDC_PRESET);
    if (const int marked = FindMarkedRow(presets, SelectedRow(presets)); marked != kNoRow)
        RemoveRow(presets, marked);
}
