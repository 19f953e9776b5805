// The base of the dialogs: modal, in the middle of their owner, ended by OK with everything stored, or by
// Cancel, Escape or the close box with nothing.
#pragma once

#include "Common/ask_user.h"

#include <windows.h>

#include <string>

class CompanionDialog {
  public:
    CompanionDialog(const CompanionDialog&) = delete;
    CompanionDialog& operator=(const CompanionDialog&) = delete;

    // Runs the module's template above the thread's active window. True if something was stored.
    bool Run(int dialogTemplate);

  protected:
    enum class Stored { Nothing, Something, Refused };

    CompanionDialog() = default;
    ~CompanionDialog() = default;

    // Fills the controls, and gives the control that begins with the focus.
    virtual int OnInit() = 0;
    virtual void OnCommand(int /*controlId*/, int /*notification*/) {}
    virtual void OnPosted() {}
    // The dialog goes.
    virtual void OnEnd() {}
    // Stores what the controls have. Refused leaves the dialog open: the user has been told why.
    virtual Stored Store() = 0;

    HWND Control(int controlId) const { return GetDlgItem(m_dialog, controlId); }
    bool IsChecked(int controlId) const { return IsDlgButtonChecked(m_dialog, controlId) == BST_CHECKED; }
    // With its text selected, as the dialog's own keyboard does it.
    void MoveFocus(int controlId);
    // Has OnPosted called once the message in work is done.
    void Post();

    // Tells why the system did not store what was entered.
    Stored TellNotStored(DWORD status);
    // Tells what is wrong with a control's text and goes there.
    Stored Refuse(int controlId, const std::string& text);

    HWND m_dialog = nullptr;

  private:
    // The title is the dialog's.
    void Tell(const std::string& text, AskIcon icon);
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnMessage(UINT message, WPARAM wParam);
    void OnOk();

    bool m_isFilled = false;
};
