// Showing the settings' values on the standard page, and reading them off it.
#include "pages/standard_page_rows.h"

#include "Common/log.h"
#include "pages/controls.h"
#include "pages/own_changes.h"
#include "pages/page_images.h"
#include "pages/punch_rows.h"
#include "pages/standardpage.h"
#include "resources/resource.h"
#include "session/bank_values.h"
#include "session/datamanager.h"
#include "session/keyword.h"

#include <algorithm>
#include <array>
#include <string>

namespace {

constexpr PageRow kRows[] = {
#define ZR_PAGE_ROW(name, transferName, setting, control, label, shows)                                      \
    {PageRowKind::shows, keyword::setting, control, label},
#include "pages/standard_page_rows.def"
};

constexpr std::array kNUPImages{0, 1, 2, 3, 5, 6, 7};

constexpr std::array kButtonsByValue{IDC_ORIENTATION_PORTRAIT, IDC_ORIENTATION_LANDSCAPE,
                                     IDC_ORIENTATION_ROTATED};

int SpinPosition(std::uint32_t copies) {
    // While a number is being typed the bank has the spin's error flag above it.
    return std::clamp<int>(LOWORD(copies), kLeastCopies, kMostCopies);
}

void GiveTabStop(HWND control) {
    SetWindowLongPtrA(control, GWL_STYLE, GetWindowLongPtrA(control, GWL_STYLE) | WS_TABSTOP);
}

// What a control gives for a value that it shows as well as it can.
std::uint32_t ShownAs(PageRowKind kind, std::uint32_t value) {
    switch (kind) {
    case PageRowKind::Check: return value != 0;
    case PageRowKind::Copies: return static_cast<std::uint32_t>(SpinPosition(value));
    default: return LOWORD(value);
    }
}

void SavePunch(HWND combo, std::uint32_t shownRow) {
    const auto current = PunchControlRow(CurrentOf(keyword::Punch), CurrentOf(keyword::PunchHoles));
    const auto rowCount = static_cast<std::uint32_t>(SendMessageA(combo, CB_GETCOUNT, 0, 0));
    const auto& pairs = ProcessPunchTable().Rows();
    // A pair without a row is not what the control shows, so it stays.
    if (current.value_or(kNoShownValue) >= rowCount || shownRow >= pairs.size())
        return;
    const PunchRow& pair = pairs[shownRow];
    ExportedFunc_SetCurrent(keyword::Punch, static_cast<std::uint32_t>(pair.punch));
    ExportedFunc_SetCurrent(keyword::PunchHoles, static_cast<std::uint32_t>(pair.holes));
    ZR_LOG("Punch=%d PunchHoles=%d\n", pair.punch, pair.holes);
}

} // namespace

const PageRow& RowOf(PageRowId id) {
    return kRows[static_cast<std::size_t>(id)];
}

bool CStandardPageDlg::HasControl(const PageRow& row) const {
    if (row.shows == PageRowKind::Orientation)
        return std::ranges::all_of(kButtonsByValue, [this](int id) { return GetDlgItem(m_hwnd, id); });
    return GetDlgItem(m_hwnd, row.control) != nullptr;
}

bool CStandardPageDlg::IsActivePage() const {
    void* active = nullptr;
    ExportedFunc_GetActive(&active);
    return active == m_hwnd;
}

void CStandardPageDlg::ShowOutputPaperSize(std::uint32_t value, int showCommand) {
    SelectRow(GetDlgItem(m_hwnd, IDC_OUTPUT_PAPER_SIZE), value);
    const bool isCustom = value == static_cast<std::uint32_t>(m_customOutputSizeIndex);
    ShowWindow(GetDlgItem(m_hwnd, IDC_EDIT_OUTPUT_PAPER_SIZE), isCustom ? showCommand : SW_HIDE);
}

void CStandardPageDlg::FillNUP(HWND combo) {
    std::vector<std::string> texts(static_cast<std::size_t>(GetKeywordOptionCount(keyword::NUP)));
    const HIMAGELIST images = ProcessPageImages().Of(ImageStrip::NUP, m_hIconWarning_24);
    // The rows are always the same; to make them anew would cost each click its time and a flicker. Rows that
    // were made without images get them once there are some.
    const auto rowCount = static_cast<std::size_t>(SendMessageA(combo, CB_GETCOUNT, 0, 0));
    if (rowCount == texts.size() && AttachedImages(combo) == images)
        return;
    GetKeywordOptionString(keyword::NUP, texts);
    ClearRows(combo);
    AttachImages(combo, images);
    for (std::size_t row = 0; row < texts.size(); ++row) {
        if (images && row < kNUPImages.size())
            AppendRow(combo, texts[row], kNUPImages[row]);
        else
            AppendRow(combo, texts[row]);
    }
}

void CStandardPageDlg::ShowNUP(std::uint32_t value) {
    const HWND combo = GetDlgItem(m_hwnd, IDC_NUP);
    FillNUP(combo);
    SelectRow(combo, value);
}

void CStandardPageDlg::ShowOrientation(std::uint32_t value) {
    const HWND focused = GetFocus();
    for (const int button : kButtonsByValue)
        CheckDlgButton(m_hwnd, button, BST_UNCHECKED);
    HWND checked = nullptr;
    if (value < kButtonsByValue.size()) {
        CheckDlgButton(m_hwnd, kButtonsByValue[value], BST_CHECKED);
        checked = GetDlgItem(m_hwnd, kButtonsByValue[value]);
    }
    if (checked && checked == focused)
        SetFocus(checked);
    // The tab stop goes with the check. Where no button has it that can be worked, the keyboard would not
    // come here.
    if (!checked || !IsWindowEnabled(checked))
        GiveTabStop(GetDlgItem(m_hwnd, IDC_ORIENTATION_PORTRAIT));
}

void CStandardPageDlg::UpdatePunchPair(const PageRow& row, int useDefault) {
    const std::uint32_t punch = ReadKeyword(keyword::Punch, useDefault);
    const std::uint32_t holes = ReadKeyword(keyword::PunchHoles, useDefault);
    if (const auto shown = PunchControlRow(punch, holes))
        SelectRow(GetDlgItem(m_hwnd, row.control), *shown);
    if (!useDefault)
        return;
    ExportedFunc_SetCurrent(keyword::Punch, punch);
    ExportedFunc_SetCurrent(keyword::PunchHoles, holes);
    ZR_LOG("Punch=%u PunchHoles=%u\n", punch, holes);
}

void CStandardPageDlg::ShowRow(const PageRow& row, std::uint32_t value) {
    const HWND control = GetDlgItem(m_hwnd, row.control);
    switch (row.shows) {
    case PageRowKind::Row:
    case PageRowKind::RowKeptInBank: SelectRow(control, value); break;
    case PageRowKind::OutputPaperSize: ShowOutputPaperSize(value, SW_SHOW); break;
    case PageRowKind::NUP: ShowNUP(value); break;
    case PageRowKind::Check: SendMessageA(control, BM_SETCHECK, value != 0, 0); break;
    case PageRowKind::Orientation: ShowOrientation(value); break;
    case PageRowKind::Copies: SendMessageA(control, UDM_SETPOS, 0, MAKELPARAM(SpinPosition(value), 0)); break;
    case PageRowKind::Punch: break;
    }
}

void CStandardPageDlg::UpdateRow(const PageRow& row, int useDefault) {
    if (!HasControl(row))
        return;
    const OwnChanges writing;
    if (row.shows == PageRowKind::Punch) {
        UpdatePunchPair(row, useDefault);
        return;
    }
    const std::uint32_t value = ReadKeyword(row.keyword, useDefault);
    ShowRow(row, value);
    if (!useDefault || row.shows == PageRowKind::RowKeptInBank)
        return;
    ExportedFunc_SetCurrent(row.keyword, value);
    ZR_LOG("keyword=%d value=%u\n", row.keyword, value);
}

std::uint32_t CStandardPageDlg::GetRow(const PageRow& row) const {
    const HWND control = GetDlgItem(m_hwnd, row.control);
    if (!HasControl(row))
        return kNoShownValue;
    if (row.shows == PageRowKind::Punch)
        return static_cast<std::uint32_t>(std::max(SelectedRow(control), 0));
    if (!IsActivePage())
        return ReadKeyword(row.keyword, 0);
    switch (row.shows) {
    case PageRowKind::Check: return static_cast<std::uint32_t>(SendMessageA(control, BM_GETCHECK, 0, 0));
    case PageRowKind::Copies: return LOWORD(SendMessageA(control, UDM_GETPOS, 0, 0));
    case PageRowKind::Orientation:
        for (const std::uint32_t value : {1u, 0u, 2u}) {
            if (IsDlgButtonChecked(m_hwnd, kButtonsByValue[value]) == BST_CHECKED)
                return value;
        }
        return kNoShownValue;
    default: return static_cast<std::uint32_t>(SelectedRow(control));
    }
}

void CStandardPageDlg::SetRow(const PageRow& row, std::uint32_t value) {
    if (!HasControl(row))
        return;
    const OwnChanges writing;
    switch (row.shows) {
    case PageRowKind::Punch: UpdatePunchPair(row, 0); break;
    case PageRowKind::OutputPaperSize: ShowOutputPaperSize(value, SW_SHOWNORMAL); break;
    case PageRowKind::NUP: SelectRow(GetDlgItem(m_hwnd, row.control), value); break;
    default: ShowRow(row, value); break;
    }
}

void CStandardPageDlg::SaveRow(const PageRow& row, std::uint32_t shown) {
    if (shown == kNoShownValue)
        return;
    if (row.shows == PageRowKind::Punch) {
        SavePunch(GetDlgItem(m_hwnd, row.control), shown);
        return;
    }
    // The bank may hold what the control can only come near to; that is no change.
    if (shown != ShownAs(row.shows, ReadKeyword(row.keyword, 0)))
        ExportedFunc_SetCurrent(row.keyword, shown);
}

void CStandardPageDlg::LoadData() {
    ZR_LOG_ENTRY();
#define ZR_PAGE_ROW(name, transferName, setting, control, label, shows)                                      \
    Set##transferName(ReadKeyword(keyword::setting, 0));
#include "pages/standard_page_rows.def"
}

void CStandardPageDlg::SaveData() {
    ZR_LOG_ENTRY();
#define ZR_PAGE_ROW(name, transferName, setting, control, label, shows)                                      \
    SaveRow(RowOf(PageRowId::name), Get##transferName());
#include "pages/standard_page_rows.def"
}

#define ZR_PAGE_ROW(name, transferName, setting, control, label, shows)                                      \
    std::uint32_t CStandardPageDlg::Get##transferName() {                                                    \
        ZR_LOG_ENTRY();                                                                                      \
        return GetRow(RowOf(PageRowId::name));                                                               \
    }                                                                                                        \
    void CStandardPageDlg::Set##transferName(std::uint32_t value) {                                          \
        ZR_LOG_ENTRY();                                                                                      \
        SetRow(RowOf(PageRowId::name), value);                                                               \
    }                                                                                                        \
    void CStandardPageDlg::Update##name(SessionBlock*, int useDefault) {                                     \
        ZR_LOG_ENTRY();                                                                                      \
        UpdateRow(RowOf(PageRowId::name), useDefault);                                                       \
    }
#include "pages/standard_page_rows.def"

std::uint32_t CStandardPageDlg::UpdateUnshown(int keyword, int useDefault) {
    const std::uint32_t value = ReadKeyword(keyword, useDefault);
    if (useDefault)
        ExportedFunc_SetCurrent(keyword, value);
    return value;
}

void CStandardPageDlg::UpdateSpotColorCorrect(SessionBlock*, int useDefault) {
    constexpr int kKeyword = keyword::SpotColorCorrection;
    const std::uint32_t value = UpdateUnshown(kKeyword, useDefault);
    ZR_LOG("keyword=%d value=%u\n", kKeyword, value);
}

void CStandardPageDlg::UpdateTwoColorPressSimulation(SessionBlock*, int useDefault) {
    constexpr int kKeyword = keyword::TwoColorPressSimulation;
    const std::uint32_t value = UpdateUnshown(kKeyword, useDefault);
    ZR_LOG("keyword=%d value=%u\n", kKeyword, value);
}
