// The dialogs' course: opening, notifications and the end.
#include "pages/MediaTypeDlg.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "pages/controls.h"
#include "pages/message_guard.h"
#include "pages/pspage.h"
#include "resources/resource.h"
#include "session/datamanager.h"

CMediaTypeDlg::CMediaTypeDlg(SessionBlock* sessionBlock, CProfileInfo* deviceProfile, int dialogTemplate)
    : session(sessionBlock), profile(deviceProfile), templateId(dialogTemplate) {}

INT_PTR CMediaTypeDlg::DoModal() {
    ZR_LOG_ENTRY();
    if (!IsLiveSession(session))
        return 0;
    RegisterPageControls();
    const INT_PTR result =
        DialogBoxParamA(static_cast<HINSTANCE>(StringModule()), MAKEINTRESOURCEA(templateId),
                        GetActiveWindow(), DialogProc, reinterpret_cast<LPARAM>(this));
    m_hwnd = nullptr;
    return result > 0 ? result : 0;
}

INT_PTR CALLBACK CMediaTypeDlg::DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return GuardMessage(message, [&]() -> INT_PTR {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrA(dialog, DWLP_USER, lParam);
            auto* opened = reinterpret_cast<CMediaTypeDlg*>(lParam);
            return opened ? opened->Open(dialog) : 0;
        }
        auto* self = reinterpret_cast<CMediaTypeDlg*>(GetWindowLongPtrA(dialog, DWLP_USER));
        if (!self)
            return 0;
        switch (message) {
        case WM_COMMAND: return self->RouteCommand(wParam, lParam);
        case WM_CLOSE: EndDialog(dialog, IDCANCEL); return 1;
        default: return 0;
        }
    });
}

int CMediaTypeDlg::Open(HWND dialog) {
    m_hwnd = dialog;
    OnInitDialog();
    // The first control of the template may have been disabled or hidden, so the focus is set here.
    if (const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE))
        SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first), TRUE);
    return 0;
}

int CMediaTypeDlg::RouteCommand(WPARAM wParam, LPARAM lParam) {
    const WORD controlId = LOWORD(wParam);
    if (IsLiveSession(session))
        return OnCommand(HIWORD(wParam), controlId, reinterpret_cast<HWND>(lParam));
    // Without its session the dialog has nothing to serve; it can only be left.
    if (controlId == IDOK || controlId == IDCANCEL)
        EndDialog(m_hwnd, IDCANCEL);
    return 0;
}

int CMediaTypeDlg::OnInitDialog() {
    ZR_LOG_ENTRY();
    SetWindowTextA(m_hwnd, LoadText(IDS_MEDIA_TYPE_TITLE).c_str());
    if (!ArrangeControls())
        return 0;
    SetCaption(m_hwnd, IDCANCEL, LoadText(IDS_CANCEL));
    SetCaption(m_hwnd, IDC_STANDARD_DEFAULTS, LoadText(IDS_RESTORE_DEFAULTS));
    if (!InitPaperType() || !InitSequence() || !InitPaperColor())
        return 0;
    if (templateId == IDD_MEDIA_TYPE) {
        Hide(IDC_MEDIA_GLOSS_LABEL);
        Hide(IDC_MEDIA_GLOSS);
        InitCoatingMaterial();
        InitDrilled();
        InitGlossFine();
        InitPrePrinted();
    }
    return 1;
}

int CMediaTypeDlg::OnCommand(WORD notifyCode, WORD controlId, HWND) {
    switch (notifyCode) {
    case BN_CLICKED: return OnButtonClick(controlId);
    case CBN_SELCHANGE: return OnSelChange(controlId);
    case EN_KILLFOCUS: return OnEditChange(controlId);
    default: return 1;
    }
}

int CMediaTypeDlg::OnButtonClick(WORD controlId) {
    switch (controlId) {
    case IDOK:
        if (ApplyValues())
            EndDialog(m_hwnd, IDOK);
        break;
    case IDCANCEL: EndDialog(m_hwnd, IDCANCEL); break;
    case IDC_STANDARD_DEFAULTS: OnDefault(); break;
    default: break;
    }
    return 1;
}

int CMediaTypeDlg::OnSelChange(WORD controlId) {
    if (controlId == IDC_MEDIA_PAPER_TYPE) {
        OnPaperTypeShown();
        UpdateMediaTypeWeight(0);
    }
    return 1;
}

int CMediaTypeDlg::OnEditChange(WORD controlId) {
    switch (controlId) {
    case IDC_MEDIA_WEIGHT_VALUE: return CheckWeightValue();
    case IDC_MEDIA_SEQUENCE: CheckSequence(); return 1;
    default: return 1;
    }
}

int CMediaTypeDlg::OnDefault() {
    ZR_LOG_ENTRY();
    if (!SelectDefaultPaperType())
        return 0;
    UpdateMediaTypeSequence(1);
    UpdatePaperTypeCustomNumber();
    UpdateMediaTypeWeight(1);
    UpdateMediaTypeWeightValue();
    // The dialogs of the two trays end here with 0: they have no control for the coating.
    return SelectDefault(IDC_MEDIA_COLOR, kwPaperColor) && SelectDefault(IDC_MEDIA_COATING, kwCoating) &&
           SelectDefault(IDC_MEDIA_DRILLED, kwDrilled) && SelectDefault(IDC_MEDIA_GLOSS, kwGloss) &&
           SelectDefault(IDC_MEDIA_PREPRINTED, kwPreprinted);
}
