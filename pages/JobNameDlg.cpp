#include "pages/JobNameDlg.h"

#include "Common/ask_user.h"
#include "Common/log.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "pages/ModalDlg.h"
#include "pages/controls.h"
#include "pages/pspage.h"
#include "resources/resource.h"
#include "session/datamanager.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace {

constexpr std::size_t kStoreWidth = 512;     // bytes of the store's JobName
constexpr std::size_t kMostBytesTyped = 512; // that are kept
constexpr std::size_t kMostBytesAtOk = 513;  // that are looked at
constexpr int kMostCharactersTyped = 256;    // the end mark included
constexpr int kMostCharactersAtOk = 511;

constexpr std::uint32_t kEntered = 1;

// By the value of SpecificJobName.
constexpr std::array kRadios{IDC_JOB_NAME_AUTOMATIC, IDC_JOB_NAME_ENTERED};

class CJobNameDlg final : public CModalDlg {
  public:
    using CModalDlg::CModalDlg;

    int OnInitDialog() override;
    int OnCommand(WORD notifyCode, WORD controlId, HWND control) override;

  private:
    void OnRadio(int radio);
    void OnCharJobName();
    // 0 if the dialog is to stay open.
    int Apply();
    std::string TextOfEdit() const;
    void ShowName(const std::string& name);

    bool m_isShowingName = false;
};

constexpr Caption kCaptions[]{{IDC_JOB_NAME_AUTOMATIC, IDS_JOB_NAME_BY_ITSELF},
                              {IDC_JOB_NAME_ENTERED, IDS_JOB_NAME_TO_ENTER},
                              {IDC_JOB_NAME_LABEL, IDS_JOB_NAME_LABEL},
                              {IDCANCEL, IDS_CANCEL}};

// What the edit shows again once too much was typed. One dialog is open at a time.
std::array<char, kMostBytesTyped + 1> lastGoodText;

std::uint32_t SpecificJobName() {
    std::uint32_t value = 0;
    ExportedFunc_GetSpecificJobName(&value);
    return value;
}

std::string StoredJobName() {
    std::array<char, kStoreWidth> name{};
    ExportedFunc_GetJobName(name.data());
    return std::string(FieldText(name));
}

// Wide characters, the end mark included.
int CountCharacters(const std::string& text) {
    return MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, nullptr, 0);
}

int CJobNameDlg::OnInitDialog() {
    ZR_LOG_ENTRY();
    SetWindowTextA(m_hwnd, LoadText(IDS_JOB_NAME_TITLE).c_str());
    SetCaptions(m_hwnd, kCaptions);
    ShowName(StoredJobName());
    // A stored name may be longer than one that is typed; it stands until it is replaced as a whole.
    CopyText(lastGoodText, TextOfEdit());
    const std::uint32_t choice = SpecificJobName();
    if (choice >= kRadios.size()) {
        // Neither button is checked, and the edit stays disabled as the template has it. A radio button that
        // is not checked takes the focus for a click.
        SetFocus(GetDlgItem(m_hwnd, IDOK));
        return 0;
    }
    CheckRadioButton(m_hwnd, kRadios.front(), kRadios.back(), kRadios[choice]);
    OnRadio(kRadios[choice]);
    return 1;
}

int CJobNameDlg::OnCommand(WORD notifyCode, WORD controlId, HWND) {
    if (notifyCode != BN_CLICKED && notifyCode != EN_CHANGE && notifyCode != EN_UPDATE)
        return 0;
    switch (controlId) {
    case IDOK:
        if (Apply())
            EndDialog(m_hwnd, IDOK);
        return 1;
    case IDCANCEL: EndDialog(m_hwnd, IDCANCEL); return 1;
    case IDC_JOB_NAME_AUTOMATIC:
    case IDC_JOB_NAME_ENTERED: OnRadio(controlId); return 1;
    case IDC_JOB_NAME_EDIT: OnCharJobName(); return 1;
    default: return 0;
    }
}

void CJobNameDlg::OnRadio(int radio) {
    EnableWindow(GetDlgItem(m_hwnd, IDC_JOB_NAME_EDIT), radio == IDC_JOB_NAME_ENTERED);
}

std::string CJobNameDlg::TextOfEdit() const {
    return ControlText(GetDlgItem(m_hwnd, IDC_JOB_NAME_EDIT));
}

// The edit reports this like a user's change.
void CJobNameDlg::ShowName(const std::string& name) {
    m_isShowingName = true;
    SetCaption(m_hwnd, IDC_JOB_NAME_EDIT, name);
    m_isShowingName = false;
}

void CJobNameDlg::OnCharJobName() {
    if (m_isShowingName)
        return;
    // All of it: cut where a double-byte character begins, a text that grew would equal the last good one.
    const std::string text = TextOfEdit();
    // The last good text may itself be too long, when it is the store's.
    if (text == FieldText(lastGoodText))
        return;
    if (CountCharacters(text) <= kMostCharactersTyped) {
        CopyText(lastGoodText, text);
        return;
    }
    MessageBeep(MB_ICONASTERISK);
    const HWND edit = GetDlgItem(m_hwnd, IDC_JOB_NAME_EDIT);
    DWORD caret = 0;
    SendMessageA(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&caret), 0);
    ShowName(lastGoodText.data());
    const DWORD before = caret > 0 ? caret - 1 : 0;
    SendMessageA(edit, EM_SETSEL, before, before);
}

int CJobNameDlg::Apply() {
    ZR_LOG_ENTRY();
    const auto checked = std::find_if(kRadios.rbegin(), kRadios.rend(), [this](int radio) {
        return IsDlgButtonChecked(m_hwnd, radio) == BST_CHECKED;
    });
    // The choice is stored before the name is looked at, and stays even if the dialog is cancelled then.
    if (checked != kRadios.rend())
        ExportedFunc_SetSpecificJobName(static_cast<std::uint32_t>(kRadios.rend() - checked - 1));
    if (SpecificJobName() != kEntered)
        return 1;
    std::string name = TextOfEdit();
    name.resize(CutLength(name, kMostBytesAtOk));
    const int count = CountCharacters(name) - 1;
    if (count > kMostCharactersAtOk || count <= 0) {
        AskUser(m_hwnd, LoadText(IDS_NO_JOB_NAME).c_str(), LoadText(IDS_WARNING_TITLE).c_str(),
                AskButtons::Ok);
        return 0;
    }
    ExportedFunc_SetJobName(name.c_str());
    return 1;
}

} // namespace

INT_PTR DoJobNameDialog(HWND owner, SessionBlock* session) {
    ZR_LOG_ENTRY();
    CJobNameDlg dialog(session);
    return dialog.Run(owner, IDD_JOB_NAME);
}

void ChangeJobName(HWND page, SessionBlock* session) {
    if (!IsLiveSession(session))
        return;
    SetCaption(page, IDC_JOB_NAME,
               SpecificJobName() == kEntered ? StoredJobName() : LoadText(IDS_JOB_NAME_AUTOMATIC));
}
