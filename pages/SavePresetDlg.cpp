#include "pages/SavePresetDlg.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "pages/controls.h"
#include "pages/modal_dialog.h"
#include "resources/resource.h"

#include <optional>
#include <string>
#include <string_view>

namespace {

// The order of the operations is the order of their slots.
class CSavePresetDlg final {
  public:
    CSavePresetDlg(FavoriteName& nameBuffer, FavoriteComment& commentBuffer)
        : name(nameBuffer), comment(commentBuffer) {}

    CSavePresetDlg(const CSavePresetDlg&) = delete;
    CSavePresetDlg& operator=(const CSavePresetDlg&) = delete;

    virtual int OnInitDialog();
    virtual int OnNotify() { return 0; }
    virtual int OnCommand(WORD notifyCode, WORD controlId, HWND control);

    HWND m_hwnd = nullptr;
    FavoriteName& name;
    FavoriteComment& comment;

  private:
    // The caller's buffer receives what passes; else the user is told and false is given.
    bool TakeName();
    bool TakeComment();
    void GoTo(int edit, int selectionEnd);
};

constexpr Caption kCaptions[]{{IDCANCEL, IDS_CANCEL},
                              {IDOK, IDS_SAVE_PRESET_SAVE},
                              {IDC_PRESET_NAME_LABEL, IDS_PRESET_NAME, true},
                              {IDC_PRESET_COMMENT_LABEL, IDS_PRESET_COMMENT, true}};

constexpr int kAll = -1; // end of a selection of the whole text

int CSavePresetDlg::OnInitDialog() {
    ZR_LOG_ENTRY();
    SetWindowTextA(m_hwnd, LoadText(IDS_SAVE_PRESET_TITLE).c_str());
    SetCaptions(m_hwnd, kCaptions);
    const std::string_view offered = FieldText(name);
    if (offered != LoadText(IDS_PRESET_STANDARD))
        SetCaption(m_hwnd, IDC_PRESET_NAME, std::string(offered));
    SetCaption(m_hwnd, IDC_PRESET_COMMENT, std::string(FieldText(comment)));
    return 1;
}

int CSavePresetDlg::OnCommand(WORD notifyCode, WORD controlId, HWND) {
    if (notifyCode != BN_CLICKED)
        return 0;
    switch (controlId) {
    case IDOK:
        if (TakeName() && TakeComment())
            EndDialog(m_hwnd, IDOK);
        return 1;
    case IDCANCEL: EndDialog(m_hwnd, IDCANCEL); return 1;
    default: return 0;
    }
}

bool CSavePresetDlg::TakeName() {
    const std::string text = ControlText(GetDlgItem(m_hwnd, IDC_PRESET_NAME));
    if (const std::optional<NameRefusal> refusal = RefuseFavoriteName(NamePlace::SaveDialog, text)) {
        ShowRefusal(m_hwnd, *refusal);
        GoTo(IDC_PRESET_NAME, refusal->text == IDS_NAME_LIMITS ? kAll : 0);
        return false;
    }
    CopyText(name, text);
    return true;
}

bool CSavePresetDlg::TakeComment() {
    const std::string text = ControlText(GetDlgItem(m_hwnd, IDC_PRESET_COMMENT));
    if (const std::optional<NameRefusal> refusal = RefuseFavoriteComment(text)) {
        ShowRefusal(m_hwnd, *refusal);
        GoTo(IDC_PRESET_COMMENT, kAll);
        return false;
    }
    CopyText(comment, text);
    return true;
}

// Gives the edit the focus and selects from the start of its text.
void CSavePresetDlg::GoTo(int edit, int selectionEnd) {
    const HWND control = GetDlgItem(m_hwnd, edit);
    SendMessageA(m_hwnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    SendMessageA(control, EM_SETSEL, 0, selectionEnd);
}

} // namespace

INT_PTR DoSavePresetDialog(HWND owner, FavoriteName& name, FavoriteComment& comment) {
    ZR_LOG_ENTRY();
    CSavePresetDlg dialog(name, comment);
    return RunModalDialog(dialog, owner, IDD_SAVE_PRESET);
}
