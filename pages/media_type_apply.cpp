// From the dialogs' controls into the store.
#include "Common/log.h"
#include "pages/MediaTypeDlg.h"
#include "pages/controls.h"
#include "pages/giving_way.h"
#include "pages/live_restrictions.h"
#include "pages/media_paper_types.h"
#include "resources/resource.h"
#include "session/bank_values.h"
#include "session/datamanager.h"

#include <commctrl.h>

namespace {

// Without the flag in the high word that the text beside it is no number of the range.
std::uint32_t SpinPosition(HWND spin) {
    return LOWORD(SendMessageA(spin, UDM_GETPOS, 0, 0));
}

constexpr int kDeclinedWeightValue = 90;

} // namespace

int CMediaTypeDlg::ApplyValues() {
    ZR_LOG_ENTRY();
    const HWND paperType = GetDlgItem(m_hwnd, IDC_MEDIA_PAPER_TYPE);
    if (!paperType)
        return 0;
    const PriorValues prior = ReadPriorValues();
    ApplyPaperType(SelectedNumber(paperType));
    if (!ApplyWeight() || !ApplySequence())
        return 0;
    ApplyOption(IDC_MEDIA_COLOR, kwPaperColor);
    if (templateId == IDD_MEDIA_TYPE && !ApplyPaperProperties())
        return 0;
    return ResolveConflicts(prior);
}

CMediaTypeDlg::PriorValues CMediaTypeDlg::ReadPriorValues() const {
    PriorValues prior{};
    prior.paperType = CurrentOf(kwPaperType);
    prior.weight = CurrentOf(kwWeight);
    ExportedFunc_GetMediaTypeWeightValue(&prior.weightValue);
    ExportedFunc_GetMediaTypeWeightValueBypass(&prior.weightValueBypass);
    return prior;
}

void CMediaTypeDlg::ApplyPaperType(int row) {
    if (row >= 0) {
        if (const auto paperType = PaperTypeOfRow(row))
            ExportedFunc_SetCurrent(kwPaperType, static_cast<std::uint32_t>(*paperType));
        for (const int property : {kwTabbed, kwCoating, kwPreprinted, kwDrilled})
            ExportedFunc_SetCurrent(property, 0);
        // The start values of the two numbers differ.
        if (kwCustomNumber == media_value::PaperTypeCustomNumber)
            ExportedFunc_SetPaperTypeCustomNumber(1);
        else
            ExportedFunc_SetPaperTypeCustomNumberBypass(0);
    }
    if (kwAutoTray)
        ExportedFunc_SetCurrent(kwAutoTray, row >= 0 ? 0 : 1);
}

int CMediaTypeDlg::ApplyWeight() {
    if (ApplyOption(IDC_MEDIA_WEIGHT, kwWeight))
        return 1;
    const HWND spin = GetDlgItem(m_hwnd, IDC_MEDIA_WEIGHT_VALUE_SPIN);
    if (!spin)
        return 0;
    // kwWeightValue is the automatic trays' in every dialog, so the first branch never runs.
    if (kwWeightValue == option_item::MediaTypeWeightValueBypass)
        ExportedFunc_SetMediaTypeWeightValueBypass(SpinPosition(spin));
    else
        ExportedFunc_SetMediaTypeWeightValue(SpinPosition(spin));
    return 1;
}

int CMediaTypeDlg::ApplySequence() {
    const HWND spin = GetDlgItem(m_hwnd, IDC_MEDIA_SEQUENCE_SPIN);
    if (!spin)
        return 0;
    if (kwSequence == media_value::MediaTypeSequence)
        ExportedFunc_SetMediaTypeSequence(SpinPosition(spin));
    else
        ExportedFunc_SetMediaTypeSequenceBypass(SpinPosition(spin));
    return 1;
}

int CMediaTypeDlg::ApplyOption(int comboId, int keyword) {
    const HWND combo = GetDlgItem(m_hwnd, comboId);
    if (!combo)
        return 0;
    if (const int option = SelectedNumber(combo); option >= 0)
        ExportedFunc_SetCurrent(keyword, static_cast<std::uint32_t>(option));
    return 1;
}

int CMediaTypeDlg::ApplyPaperProperties() {
    return ApplyOption(IDC_MEDIA_COATING, kwCoating) && ApplyOption(IDC_MEDIA_DRILLED, kwDrilled) &&
           ApplyOption(IDC_MEDIA_GLOSS, kwGloss) && ApplyOption(IDC_MEDIA_PREPRINTED, kwPreprinted);
}

int CMediaTypeDlg::ResolveConflicts(const PriorValues& prior) {
    const int group = kwAutoTray ? restriction_group::PaperTypeBypass : restriction_group::PaperTypeD;
    const RestrictionAnswers answers{
        [&](int setting) {
            GiveWayTo(group, setting);
            WriteLog("%s %d行目 ApplyValues() keyword=%d value=%u\n", __FILE__, __LINE__, setting,
                     CurrentOf(setting));
        },
        [&] { TakeBack(prior); },
    };
    // A conflict keeps the dialog open, also one that was settled, so that the user sees what came of it.
    return ResolveRestrictionsOfSheet(m_hwnd, session, {group, "ApplyValues", __FILE__, __LINE__}, answers)
        .Result();
}

void CMediaTypeDlg::TakeBack(const PriorValues& prior) {
    ExportedFunc_SetCurrent(kwPaperType, prior.paperType);
    ExportedFunc_SetCurrent(kwWeight, prior.weight);
    ExportedFunc_SetMediaTypeWeightValue(prior.weightValue);
    ExportedFunc_SetMediaTypeWeightValueBypass(prior.weightValueBypass);
    SelectPaperType(prior.paperType);
    SelectNumber(GetDlgItem(m_hwnd, IDC_MEDIA_WEIGHT), prior.weight);
    SendDlgItemMessageA(m_hwnd, IDC_MEDIA_WEIGHT_VALUE_SPIN, UDM_SETPOS, 0,
                        MAKELPARAM(kDeclinedWeightValue, 0));
}
