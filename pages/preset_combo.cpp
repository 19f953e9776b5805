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
#include <optional>
#include <string>
#include <vector>

namespace {

// In the place of an index in the manager's list, as a row's data word.
constexpr int kStandard = -1;

constexpr int kStandardImage = 1;
constexpr int kFavoriteImage = 2;

constexpr int kAtEnd = -1;
constexpr int kNoRow = -1;

void InsertPreset(HWND presets, int row, const NumberedRow& preset) {
    InsertNumberedRow(presets, row, preset.text, preset.number == kStandard ? kStandardImage : kFavoriteImage,
                      preset.number);
}

// The standard settings and the manager's favourites.
std::vector<NumberedRow> PresetRows() {
    std::vector<NumberedRow> rows{{LoadText(IDS_PRESET_STANDARD), kStandard}};
    CSettingManager* manager = CSettingManager::Existing();
    const int count = manager ? static_cast<int>(manager->Count()) : 0;
    for (int favorite = 0; favorite < count; ++favorite)
        rows.push_back({std::string(FieldText(manager->Favorite(favorite).Name)), favorite});
    return rows;
}

bool Shows(HWND presets, const std::vector<NumberedRow>& rows) {
    int row = 0;
    for (const NumberedRow& preset : rows) {
        if (NumberedRowAt(presets, row++) != preset)
            return false;
    }
    return !NumberedRowAt(presets, row);
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
    int row = 0;
    while (const auto preset = NumberedRowAt(presets, row)) {
        if (row != except && BeginsWithMark(preset->text, mark))
            return row;
        ++row;
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
    AttachImages(presets, ProcessPageImages().Of(ImageStrip::FavoriteMarks, nullptr));
    const std::vector<NumberedRow> rows = PresetRows();
    // A page that opens comes here twice.
    if (Shows(presets, rows))
        return;
    ClearRows(presets);
    for (const NumberedRow& preset : rows)
        InsertPreset(presets, kAtEnd, preset);
}

void CStandardPageDlg::SelectPreset(const std::string& name) {
    ZR_LOG_ENTRY();
    const HWND presets = GetDlgItem(m_hwnd, IDC_PRESET);
    // From the top down: a file from elsewhere may have the name of the standard settings.
    int row = 0;
    auto preset = NumberedRowAt(presets, row);
    while (preset && preset->text != name)
        preset = NumberedRowAt(presets, ++row);
    const bool isThere = !name.empty() && preset;
    SelectRow(presets, static_cast<std::uint32_t>(isThere ? row : 0));
}

std::string CStandardPageDlg::SelectedPreset() const {
    const HWND presets = GetDlgItem(m_hwnd, IDC_PRESET);
    return NumberedRowAt(presets, SelectedRow(presets)).value_or(NumberedRow{}).text;
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
    const auto preset = NumberedRowAt(presets, row);
    if (!manager || !preset)
        return;
    if (!manager->ChangeFavorite(preset->number)) {
        RemoveMarkedRow();
    } else {
        const std::string mark = LoadText(IDS_PRESET_CHANGED);
        if (BeginsWithMark(preset->text, mark))
            return;
        InsertPreset(presets, row + 1, {MarkedText(mark, preset->text), preset->number});
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
