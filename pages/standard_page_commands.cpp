// What the standard page's controls and buttons do.
#include "Common/ProfileInfo.h"
#include "Common/ask_user.h"
#include "Common/log.h"
#include "Common/strings.h"
#include "pages/CustomPageEditDlg.h"
#include "pages/MediaTypeDlg.h"
#include "pages/SettingPreview.h"
#include "pages/controls.h"
#include "pages/own_changes.h"
#include "pages/punch_rows.h"
#include "pages/standardpage.h"
#include "resources/resource.h"
#include "session/bank_values.h"
#include "session/datamanager.h"
#include "session/keyword.h"
#include "session/session.h"

#include <algorithm>
#include <array>

namespace {

// Which notifications of any control are a command.
enum class Notification { Ignored, DropDown, Chosen, Command };

Notification KindOf(WORD notifyCode) {
    switch (notifyCode) {
    case CBN_CLOSEUP:
    case CBN_SELENDOK: return Notification::Chosen;
    case CBN_DROPDOWN: return Notification::DropDown;
    case BN_CLICKED:
    case CBN_SELCHANGE:
    case EN_KILLFOCUS:
    case EN_CHANGE: return Notification::Command;
    default: return Notification::Ignored;
    }
}

// What an edit tells while the page itself writes into its controls is no change by the user.
bool IsOwnChange(WORD notifyCode) {
    return OwnChanges::InProgress() && (notifyCode == EN_CHANGE || notifyCode == EN_KILLFOCUS);
}

enum class Follows { Nothing, Mark, PreviewAndMark };

constexpr int kNoGate = -1;

struct Command {
    WORD controlId;
    // The keyword of a combo box with rows that the device cannot do.
    int gate;
    void (*run)(CStandardPageDlg& page, SessionBlock* session, WORD controlId, WORD notifyCode);
    Follows follows;
};

void EditCustomSize(CStandardPageDlg&, SessionBlock* session, WORD controlId, WORD) {
    CCustomPageEditDlg(controlId, session).DoModal();
}

void ApplyOrientation(CStandardPageDlg& page, SessionBlock* session, WORD controlId, WORD) {
    page.ApplyOrientation(controlId);
    page.UpdateNUP(session, 0);
    page.UpdateDuplex(session, 0);
}

void ApplyOutputPaperSize(CStandardPageDlg& page, SessionBlock* session, WORD, WORD) {
    page.ApplyOutputPaperSize(session);
    if (IsLiveSession(session))
        page.UpdateOnCenter(session, 0);
}

void AskJobName(CStandardPageDlg& page, SessionBlock* session, WORD, WORD) {
    page.TakeOverJobName(session, page.DoModalJobName());
}

void ApplyCopies(CStandardPageDlg& page, SessionBlock*, WORD, WORD notifyCode) {
    page.ApplyCopies(notifyCode == EN_KILLFOCUS);
}

template <auto Function>
void Apply(CStandardPageDlg& page, SessionBlock* session, WORD, WORD) {
    (page.*Function)(session);
}

template <auto Function>
void Press(CStandardPageDlg& page, SessionBlock*, WORD, WORD) {
    (page.*Function)();
}

using Page = CStandardPageDlg;

// By number.
constexpr auto kCommands = std::to_array<Command>({
    {IDC_PUNCH, keyword::Punch, Apply<&Page::ApplyPunch>, Follows::PreviewAndMark},
    {IDC_FOLD, keyword::Fold, Apply<&Page::ApplyFold>, Follows::PreviewAndMark},
    {IDC_SAVE_PRESET, kNoGate, Press<&Page::OnSavePreset>, Follows::Nothing},
    {IDC_DELETE_PRESET, kNoGate, Press<&Page::OnDeletePreset>, Follows::Nothing},
    {IDC_JOB_NAME_BUTTON, kNoGate, AskJobName, Follows::Nothing},
    {IDC_ON_CENTER, kNoGate, Apply<&Page::ApplyOnCenter>, Follows::Mark},
    {IDC_JOG, kNoGate, Apply<&Page::ApplyJog>, Follows::Mark},
    {IDC_STAPLE, keyword::StapleMode, Apply<&Page::ApplyStaple>, Follows::PreviewAndMark},
    {IDC_SORT, kNoGate, Apply<&Page::ApplySort>, Follows::PreviewAndMark},
    {IDC_OUTPUT_TRAY, keyword::OutputTray, Apply<&Page::ApplyOutputTray>, Follows::Mark},
    {IDC_PAGE_ORDER, kNoGate, Apply<&Page::ApplyPageOrder>, Follows::PreviewAndMark},
    {IDC_MEDIA_TYPE_BYPASS, kNoGate, Press<&Page::OnMediaTypeBypass>, Follows::Mark},
    {IDC_MEDIA_TYPE, kNoGate, Press<&Page::OnMediaType>, Follows::Mark},
    {IDC_SOURCE, keyword::Tray, Apply<&Page::ApplySource>, Follows::Mark},
    {IDC_COLOR_MODEL, kNoGate, Apply<&Page::ApplyColorModel>, Follows::PreviewAndMark},
    {IDC_EDIT_PAGE_SIZE, kNoGate, EditCustomSize, Follows::Mark},
    {IDC_EDIT_OUTPUT_PAPER_SIZE, kNoGate, EditCustomSize, Follows::Mark},
    {IDC_FAVORITE_EXPORT_IMPORT, kNoGate, Press<&Page::OnFavoriteExportImport>, Follows::Nothing},
    {IDC_PAGE_SIZE, kNoGate, Apply<&Page::ApplyPageSize>, Follows::Mark},
    {IDC_OUTPUT_PAPER_SIZE, kNoGate, ApplyOutputPaperSize, Follows::Mark},
    {IDC_FIT_SIZE, kNoGate, Apply<&Page::ApplyFitSize>, Follows::Mark},
    {IDC_ORIENTATION_ROTATED, kNoGate, ApplyOrientation, Follows::PreviewAndMark},
    {IDC_ORIENTATION_PORTRAIT, kNoGate, ApplyOrientation, Follows::PreviewAndMark},
    {IDC_ORIENTATION_LANDSCAPE, kNoGate, ApplyOrientation, Follows::PreviewAndMark},
    {IDC_COPIES, kNoGate, ApplyCopies, Follows::Mark},
    {IDC_DUPLEX, kNoGate, Apply<&Page::ApplyDuplex>, Follows::PreviewAndMark},
    {IDC_NUP, kNoGate, Apply<&Page::ApplyNUP>, Follows::PreviewAndMark},
});

const Command* FindCommand(WORD controlId) {
    const auto found = std::ranges::find(kCommands, controlId, &Command::controlId);
    return found == kCommands.end() ? nullptr : &*found;
}

void Follow(CStandardPageDlg& page, Follows follows) {
    if (follows == Follows::PreviewAndMark)
        UpdatePreview(page.m_hwnd, 0);
    if (follows != Follows::Nothing)
        page.UpdateChangeItemPresetCombo();
}

// The punch control's rows stand for two settings, so what the gate has selected is another row. Values
// without a row leave none selected.
void RestorePunch(CStandardPageDlg& page, SessionBlock* session) {
    SelectRow(GetDlgItem(page.m_hwnd, IDC_PUNCH), static_cast<std::uint32_t>(-1));
    page.UpdatePunch(session, 0);
    ExportedFunc_SetCurrent(keyword::PunchHoles, CurrentOf(keyword::PunchHoles));
}

// The change comes once more with the row that is back. A row that the device cannot do either would be
// turned back for ever.
void RepeatChange(CStandardPageDlg& page, WORD controlId) {
    const HWND combo = GetDlgItem(page.m_hwnd, controlId);
    if (CPSPageDlg::IsMarkedRow(combo, SelectedRow(combo)))
        return;
    PostMessageA(page.m_hwnd, WM_COMMAND, MAKEWPARAM(controlId, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
}

void Run(CStandardPageDlg& page, SessionBlock* session, const Command& command, WORD notifyCode) {
    if (command.gate == kNoGate || page.IsSelectableOption(command.controlId, command.gate, session)) {
        command.run(page, session, command.controlId, notifyCode);
        if (IsLiveSession(session))
            Follow(page, command.follows);
        return;
    }
    if (command.controlId == IDC_PUNCH)
        RestorePunch(page, session);
    RepeatChange(page, command.controlId);
}

// Keeps a button from being pressed again while what it has started runs. A disabled window loses the
// keyboard.
class DisabledControl {
  public:
    explicit DisabledControl(HWND control)
        : m_control(control), m_hadFocus(control && GetFocus() == control) {
        EnableWindow(m_control, FALSE);
    }
    ~DisabledControl() {
        EnableWindow(m_control, TRUE);
        if (m_hadFocus && !GetFocus())
            SetFocus(m_control);
    }
    DisabledControl(const DisabledControl&) = delete;
    DisabledControl& operator=(const DisabledControl&) = delete;

  private:
    HWND m_control;
    bool m_hadFocus;
};

int RestoreDefaults(CStandardPageDlg& page, SessionBlock* session) {
    const int result = page.OnDefault();
    if (!IsLiveSession(session))
        return 0;
    ExportedFunc_SetActive(page.m_hwnd);
    Follow(page, Follows::PreviewAndMark);
    return result;
}

constexpr std::uint32_t kAutomaticTray = 0;
// As the page asks for it and stores it, though the list of trays has the bypass tray one row further.
constexpr std::uint32_t kBypassTray = 4;

// Offers to change to the tray whose paper is about to be told. The paper can be told whatever the answer.
void OfferTray(CStandardPageDlg& page, SessionBlock* session, std::uint32_t tray, unsigned question) {
    if (CurrentOf(keyword::Tray) == tray)
        return;
    const int answer = AskUser(page.m_hwnd, LoadText(question).c_str(), LoadText(IDS_WARNING_TITLE).c_str(),
                               AskButtons::YesNo);
    if (answer != ask_answer::Yes || !IsLiveSession(session))
        return;
    ExportedFunc_SetCurrent(keyword::Tray, tray);
    page.UpdateSource(session, 0);
}

template <typename Dialog>
void RunMediaDialog(CStandardPageDlg& page, SessionBlock* session, int templateId, const char* caller) {
    if (Dialog(session, page.profile, templateId).DoModal() <= 0) {
        WriteLog("%s() dlg=0\n", caller);
        return;
    }
    if (IsLiveSession(session))
        page.UpdateSource(session, 0);
}

} // namespace

int CStandardPageDlg::OnCommand(WORD notifyCode, WORD controlId, HWND) {
    // The preview tells of clicks only because its tooltips need the mouse.
    if (controlId == IDC_PREVIEW || IsOwnChange(notifyCode))
        return 0;
    switch (KindOf(notifyCode)) {
    case Notification::Ignored: return 0;
    case Notification::DropDown: return 1;
    case Notification::Chosen:
        // One choice in the combo box tells both.
        if (controlId != IDC_PRESET)
            return 0;
        OnPresetSelChange();
        return 1;
    case Notification::Command: break;
    }
    SessionBlock* session = Session();
    if (controlId == IDC_STANDARD_DEFAULTS)
        return RestoreDefaults(*this, session);
    if (controlId == IDC_CONFIG) {
        const DisabledControl button(GetDlgItem(m_hwnd, IDC_CONFIG));
        return OnConfig();
    }
    if (const Command* command = FindCommand(controlId))
        Run(*this, session, *command, notifyCode);
    if (!IsLiveSession(session))
        return 0;
    NotifyPageChanged(m_hwnd);
    return 1;
}

int CStandardPageDlg::OnConfig() {
    ZR_LOG_ENTRY();
    SessionBlock* session = Session();
    SaveData();
    if (DoModalPrintOptionUI() == 0 || !IsLiveSession(session))
        return 0;
    TakeOverFromApplication(session);
    return 1;
}

void CStandardPageDlg::TakeOverFromApplication(SessionBlock* session) {
    ZR_LOG_ENTRY();
    LoadData();
    ExportedFunc_SetActive(m_hwnd);
    ExportedFunc_GetProfile(session->Profile);
    if (profile)
        profile->UpdateProfile(session->Profile);
    EnableByMixedSizes();
    UpdateChangeItemPresetCombo();
}

void CStandardPageDlg::TakeOverJobName(SessionBlock* session, int dialogResult) {
    if (dialogResult == IDOK && IsLiveSession(session))
        ShowJobName(session);
}

void CStandardPageDlg::OnMediaTypeBypass() {
    ZR_LOG_ENTRY();
    SessionBlock* session = Session();
    OfferTray(*this, session, kBypassTray, IDS_ASK_BYPASS_TRAY);
    if (IsLiveSession(session))
        RunMediaDialog<CMediaTypeBypassTrayDlgPRMT>(*this, session, IDD_MEDIA_TYPE_BYPASS, __func__);
}

void CStandardPageDlg::OnMediaType() {
    ZR_LOG_ENTRY();
    SessionBlock* session = Session();
    OfferTray(*this, session, kAutomaticTray, IDS_ASK_AUTO_TRAY);
    if (IsLiveSession(session))
        RunMediaDialog<CMediaTypeDlgAutoTrayPRMT>(*this, session, IDD_MEDIA_TYPE_AUTO_TRAY, __func__);
}
