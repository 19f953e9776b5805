// Filling the controls of the dialogs.
#include "Common/ProfileInfo.h"
#include "Common/ask_user.h"
#include "Common/log.h"
#include "Common/strings.h"
#include "options/PrintOptionSetting.h"
#include "pages/MediaTypeDlg.h"
#include "pages/controls.h"
#include "pages/media_paper_types.h"
#include "pages/media_weight_table.h"
#include "pages/pspage.h"
#include "resources/resource.h"
#include "session/bank_values.h"
#include "session/datamanager.h"
#include "session/session.h"
#include "settings/InterchangeOptionTag.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

namespace {

constexpr int kStandardDpi = 96;
// At the standard resolution: the height of the row of controls that is hidden.
constexpr int kHiddenRowHeight = 50;

struct Range {
    int first;
    int last;
    int start;
};
constexpr Range kSequences{2, 255, 2};
constexpr Range kCustomNumbers{1, 40, 1};
constexpr Range kWeightValues{52, 400, 90};

std::vector<std::string> OptionTexts(int keyword, int count) {
    std::vector<std::string> texts(static_cast<std::size_t>(std::max(count, 0)));
    CPSPageDlg::GetKeywordOptionString(keyword, texts);
    return texts;
}

void SetSpin(HWND spin, const Range& range, int position) {
    SendMessageA(spin, UDM_SETRANGE, 0, MAKELPARAM(range.last, range.first));
    SendMessageA(spin, UDM_SETPOS, 0, MAKELPARAM(position, 0));
}

} // namespace

int CMediaTypeDlg::InitOptions(int comboId, int keyword) {
    const HWND combo = GetDlgItem(m_hwnd, comboId);
    if (!combo)
        return 0;
    ClearRows(combo);
    int row = 0;
    for (const std::string& text : OptionTexts(keyword, CPSPageDlg::GetKeywordOptionCount(keyword)))
        AppendNumberedRow(combo, text, row++);
    SelectNumber(combo, CurrentOf(keyword));
    return 1;
}

// Disabled as well, since the accelerator of a hidden label would still work.
void CMediaTypeDlg::Hide(int controlId) {
    const HWND control = GetDlgItem(m_hwnd, controlId);
    ShowWindow(control, SW_HIDE);
    EnableWindow(control, FALSE);
}

int CMediaTypeDlg::ArrangeControls() {
    for (const int control :
         {IDC_MEDIA_SEQUENCE_LABEL, IDC_MEDIA_SEQUENCE, IDC_MEDIA_SEQUENCE_SPIN, IDC_MEDIA_SEQUENCE_RANGE}) {
        if (!GetDlgItem(m_hwnd, control))
            return 0;
        Hide(control);
    }
    MoveUp(IDC_MEDIA_COLOR_LABEL);
    MoveUp(IDC_MEDIA_COLOR);
    if (templateId == IDD_MEDIA_TYPE) {
        for (const int control : {IDC_MEDIA_WEIGHT_LABEL, IDC_MEDIA_WEIGHT_VALUE, IDC_MEDIA_WEIGHT_VALUE_SPIN,
                                  IDC_MEDIA_WEIGHT_VALUE_RANGE})
            MoveUp(control);
        return 1;
    }
    // Hidden for good: nothing shows them again, and yet their row is what ApplyValues writes.
    ShowWindow(GetDlgItem(m_hwnd, IDC_MEDIA_WEIGHT_LABEL), SW_HIDE);
    ShowWindow(GetDlgItem(m_hwnd, IDC_MEDIA_WEIGHT), SW_HIDE);
    return 1;
}

void CMediaTypeDlg::MoveUp(int controlId) {
    const HWND control = GetDlgItem(m_hwnd, controlId);
    if (!control)
        return;
    const HDC screen = GetDC(m_hwnd);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(m_hwnd, screen);
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(HWND_DESKTOP, m_hwnd, reinterpret_cast<POINT*>(&place), 2);
    SetWindowPos(control, nullptr, place.left, place.top - MulDiv(kHiddenRowHeight, dpi, kStandardDpi), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

int CMediaTypeDlg::InitPaperType() {
    ZR_LOG_ENTRY();
    if (!GetDlgItem(m_hwnd, IDC_MEDIA_PAPER_TYPE))
        return 0;
    LogPaperValues();
    SetItemLabel(m_hwnd, IDC_MEDIA_PAPER_TYPE_LABEL, option_item::MediaDialogPaperType);
    ListPaperTypes(UpdateProfile() ? profile : nullptr);
    OnPaperTypeShown();
    return 1;
}

int CMediaTypeDlg::UpdateProfile() {
    ExportedFunc_GetProfile(session->Profile);
    return profile && profile->UpdateProfile(session->Profile);
}

void CMediaTypeDlg::ListPaperTypes(const CProfileInfo* names) {
    std::vector<std::string> rows =
        OptionTexts(kwPaperType, CPSPageDlg::GetKeywordOptionCount(kwPaperType) + extraRows);
    if (names)
        PutCustomPaperNames(rows, kwPaperType, customPaperCount, *names);
    const HWND combo = GetDlgItem(m_hwnd, IDC_MEDIA_PAPER_TYPE);
    ClearRows(combo);
    int row = 0;
    for (const std::string& text : rows)
        AppendNumberedRow(combo, text, row++);
    SelectPaperType(CurrentOf(kwPaperType));
}

void CMediaTypeDlg::SelectPaperType(std::uint32_t paperType) {
    SelectNumber(GetDlgItem(m_hwnd, IDC_MEDIA_PAPER_TYPE), RowOfPaperType(paperType).value_or(-1));
}

void CMediaTypeDlg::LogPaperValues() const {
    const std::uint32_t drilled = CurrentOf(kwDrilled);
    std::int32_t drilledTag = 0;
    GetTagNumberFromPreset(keyword::MediaTypeDrilled, static_cast<int>(drilled), &drilledTag);
    std::uint32_t number = 0;
    if (kwCustomNumber == media_value::PaperTypeCustomNumber)
        ExportedFunc_GetPaperTypeCustomNumber(&number);
    else
        ExportedFunc_GetPaperTypeCustomNumberBypass(&number);
    ZR_LOG("paperType=%u tabbed=%u coating=%u preprinted=%u drilled=%u tag=%d number=%u\n",
           CurrentOf(kwPaperType), CurrentOf(kwTabbed), CurrentOf(kwCoating), CurrentOf(kwPreprinted),
           drilled, drilledTag, number);
}

int CMediaTypeDlg::InitSequence() {
    ZR_LOG_ENTRY();
    SetItemLabel(m_hwnd, IDC_MEDIA_SEQUENCE_LABEL, option_item::MediaDialogSheetsPerSet);
    UpdateMediaTypeSequence(0);
    SetCaption(m_hwnd, IDC_MEDIA_SEQUENCE_RANGE, LoadText(IDS_SEQUENCE_RANGE));
    return 1;
}

int CMediaTypeDlg::InitPaperColor() {
    ZR_LOG_ENTRY();
    SetItemLabel(m_hwnd, IDC_MEDIA_COLOR_LABEL, option_item::MediaDialogColor);
    return InitOptions(IDC_MEDIA_COLOR, kwPaperColor);
}

void CMediaTypeDlg::InitCoatingMaterial() {
    SetItemLabel(m_hwnd, IDC_MEDIA_COATING_LABEL, option_item::MediaDialogCoating);
    InitOptions(IDC_MEDIA_COATING, kwCoating);
}

void CMediaTypeDlg::InitDrilled() {
    SetItemLabel(m_hwnd, IDC_MEDIA_DRILLED_LABEL, option_item::MediaDialogDrilled);
    InitOptions(IDC_MEDIA_DRILLED, kwDrilled);
}

void CMediaTypeDlg::InitGlossFine() {
    SetItemLabel(m_hwnd, IDC_MEDIA_GLOSS_LABEL, option_item::MediaDialogGloss);
    InitOptions(IDC_MEDIA_GLOSS, kwGloss);
}

void CMediaTypeDlg::InitPrePrinted() {
    SetItemLabel(m_hwnd, IDC_MEDIA_PREPRINTED_LABEL, option_item::MediaDialogPreprinted);
    InitOptions(IDC_MEDIA_PREPRINTED, kwPreprinted);
}

int CMediaTypeDlg::SelectDefaultPaperType() {
    if (!GetDlgItem(m_hwnd, IDC_MEDIA_PAPER_TYPE))
        return 0;
    SelectPaperType(DefaultOf(kwPaperType));
    return 1;
}

int CMediaTypeDlg::SelectDefault(int comboId, int keyword) {
    const HWND combo = GetDlgItem(m_hwnd, comboId);
    if (!combo)
        return 0;
    SelectNumber(combo, DefaultOf(keyword));
    return 1;
}

void CMediaTypeDlg::UpdateMediaTypeSequence(int useDefault) {
    // Also the dialog of the bypass tray shows the automatic trays' value here, though it writes its own.
    std::uint32_t value = kSequences.start;
    if (!useDefault)
        ExportedFunc_GetMediaTypeSequence(&value);
    const auto position = std::clamp<std::uint32_t>(value, kSequences.first, kSequences.last);
    SetSpin(GetDlgItem(m_hwnd, IDC_MEDIA_SEQUENCE_SPIN), kSequences, static_cast<int>(position));
}

void CMediaTypeDlg::UpdatePaperTypeCustomNumber() {
    SetSpin(GetDlgItem(m_hwnd, IDC_MEDIA_NUMBER_SPIN), kCustomNumbers, kCustomNumbers.start);
}

void CMediaTypeDlg::UpdateMediaTypeWeightValue() {
    SetSpin(GetDlgItem(m_hwnd, IDC_MEDIA_WEIGHT_VALUE_SPIN), kWeightValues, kWeightValues.start);
}

void CMediaTypeDlg::UpdateMediaTypeWeight(int useDefault) {
    ZR_LOG_ENTRY();
    const HWND paperType = GetDlgItem(m_hwnd, IDC_MEDIA_PAPER_TYPE);
    const HWND weight = GetDlgItem(m_hwnd, IDC_MEDIA_WEIGHT);
    if (!paperType || !weight)
        return;
    const WeightRows open = WeightRowsOf(SelectedNumber(paperType));
    EnableWindow(GetDlgItem(m_hwnd, IDC_MEDIA_WEIGHT_LABEL), !open.IsEmpty());
    EnableWindow(weight, !open.IsEmpty());
    if (open.IsEmpty())
        return;

    ClearRows(weight);
    const std::vector<std::string> texts = OptionTexts(kwWeight, open.end);
    for (int row = open.first; row < open.end; ++row)
        AppendNumberedRow(weight, texts[static_cast<std::size_t>(row)], row);
    SelectNumber(weight, useDefault ? open.defaultRow : ChooseWeight(open, CurrentOf(kwWeight)));
}

int CMediaTypeDlg::CheckWeightValue() {
    // A text that is no number of the range sets the high word, which makes the answer too large.
    const LRESULT value = SendDlgItemMessageA(m_hwnd, IDC_MEDIA_WEIGHT_VALUE_SPIN, UDM_GETPOS, 0, 0);
    if (value >= kWeightValues.first && value <= kWeightValues.last)
        return 1;
    AskUser(m_hwnd, LoadText(IDS_WEIGHT_RANGE).c_str(), LoadText(IDS_WEIGHT_TITLE).c_str(), AskButtons::Ok);
    return 0;
}

void CMediaTypeDlg::CheckSequence() {
    std::array<char, 4> text{};
    GetDlgItemTextA(m_hwnd, IDC_MEDIA_SEQUENCE, text.data(), static_cast<int>(text.size()));
    const int number = std::atoi(text.data());
    if (number < kSequences.first)
        SetDlgItemTextA(m_hwnd, IDC_MEDIA_SEQUENCE, "2");
    else if (number > kSequences.last)
        SetDlgItemTextA(m_hwnd, IDC_MEDIA_SEQUENCE, "255");
}
