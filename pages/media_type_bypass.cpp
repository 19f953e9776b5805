// What the dialog of the bypass tray has beyond the other one.
#include "Common/log.h"
#include "pages/MediaTypeDlg.h"
#include "pages/controls.h"
#include "pages/pspage.h"
#include "resources/resource.h"
#include "session/bank_values.h"
#include "session/datamanager.h"

#include <array>

CMediaTypeBypassTrayDlgPRMT::CMediaTypeBypassTrayDlgPRMT(SessionBlock* sessionBlock,
                                                         CProfileInfo* deviceProfile, int dialogTemplate)
    : CMediaTypeDlg(sessionBlock, deviceProfile, dialogTemplate) {
    kwPaperType = keyword::PaperTypeBypass;
    kwTabbed = keyword::MediaTypeTabbedBypass;
    kwWeight = keyword::MediaTypeWeightBypass;
    // kwWeightValue stays that of the automatic trays, so this dialog never writes
    // MediaTypeWeightValueBypass.
    kwAutoTray = keyword::AutoTraySettingToBypass;
    kwPaperColor = keyword::PaperColorBypass;
    kwCoating = keyword::MediaTypeCoatingMaterialBypass;
    kwDrilled = keyword::MediaTypeDrilledBypass;
    kwGloss = keyword::MediaTypeGlossFineBypass;
    kwPreprinted = keyword::MediaTypePreprintedBypass;
    kwCustomNumber = media_value::PaperTypeCustomNumberBypass;
    kwSequence = media_value::MediaTypeSequenceBypass;
}

int CMediaTypeBypassTrayDlgPRMT::OnInitDialog() {
    ZR_LOG_ENTRY();
    if (!CMediaTypeDlg::OnInitDialog())
        return 0;
    // One that is there is hidden even if the other is missing.
    Hide(IDC_MEDIA_DUPLEX);
    Hide(IDC_MEDIA_DUPLEX_LABEL);
    if (!GetDlgItem(m_hwnd, IDC_MEDIA_DUPLEX) || !GetDlgItem(m_hwnd, IDC_MEDIA_DUPLEX_LABEL))
        return 0;
    InitManualFeedDuplex();
    InitAutoTraySetting(0);
    return 1;
}

void CMediaTypeBypassTrayDlgPRMT::InitManualFeedDuplex() {
    SetItemLabel(m_hwnd, IDC_MEDIA_DUPLEX_LABEL, keyword::MsiDuplexMode);
    InitOptions(IDC_MEDIA_DUPLEX, keyword::MsiDuplexMode);
}

void CMediaTypeBypassTrayDlgPRMT::InitAutoTraySetting(int useDefault) {
    std::array<char, 64> label;
    if (CPSPageDlg::GetKeywordTranslation(kwAutoTray, label.data(), label.size()))
        SetCaption(m_hwnd, IDC_MEDIA_FROM_AUTO_TRAY, label.data());
    const bool isOn = useDefault || CurrentOf(kwAutoTray) != 0;
    CheckDlgButton(m_hwnd, IDC_MEDIA_FROM_AUTO_TRAY, isOn ? BST_CHECKED : BST_UNCHECKED);
    EnablePaperControls();
}

void CMediaTypeBypassTrayDlgPRMT::EnablePaperControls() {
    const BOOL enabled = IsDlgButtonChecked(m_hwnd, IDC_MEDIA_FROM_AUTO_TRAY) != BST_CHECKED;
    for (const int control : {IDC_MEDIA_PAPER_TYPE, IDC_MEDIA_NUMBER_LABEL, IDC_MEDIA_NUMBER_SPIN,
                              IDC_MEDIA_WEIGHT, IDC_MEDIA_COLOR})
        EnableWindow(GetDlgItem(m_hwnd, control), enabled);
}

int CMediaTypeBypassTrayDlgPRMT::OnButtonClick(WORD controlId) {
    if (controlId != IDC_MEDIA_FROM_AUTO_TRAY)
        return CMediaTypeDlg::OnButtonClick(controlId);
    EnablePaperControls();
    return 1;
}

int CMediaTypeBypassTrayDlgPRMT::OnDefault() {
    ZR_LOG_ENTRY();
    // The dialog's template has not all the controls that the base asks for, so the check box keeps its
    // state.
    if (!CMediaTypeDlg::OnDefault()) {
        ZR_LOG("result = 0\n");
        return 0;
    }
    InitAutoTraySetting(1);
    return 1;
}

int CMediaTypeBypassTrayDlgPRMT::ApplyValues() {
    ZR_LOG_ENTRY();
    if (!CMediaTypeDlg::ApplyValues())
        return 0;
    ApplyOption(IDC_MEDIA_DUPLEX, keyword::MsiDuplexMode);
    if (GetDlgItem(m_hwnd, IDC_MEDIA_FROM_AUTO_TRAY))
        ExportedFunc_SetCurrent(kwAutoTray, IsDlgButtonChecked(m_hwnd, IDC_MEDIA_FROM_AUTO_TRAY));
    return 1;
}
