// The base of the small modal dialogs above the standard page.
#pragma once

#include <windows.h>

struct SessionBlock;

// The order of the operations is the order of their slots.
class CModalDlg {
  public:
    explicit CModalDlg(SessionBlock* sessionBlock) : session(sessionBlock) {}

    CModalDlg(const CModalDlg&) = delete;
    CModalDlg& operator=(const CModalDlg&) = delete;

    // Runs the template above `owner`; gives what the dialog was ended with, IDCANCEL by its close box, 0 or
    // -1 if there is no such template.
    INT_PTR Run(HWND owner, int dialogTemplate);

    virtual int OnInitDialog() = 0;
    virtual int OnNotify() { return 0; }
    virtual int OnCommand(WORD notifyCode, WORD controlId, HWND control) = 0;
    virtual int OnDrawItem() { return 0; }

    HWND m_hwnd = nullptr;
    SessionBlock* session; // unless it is that of the open sheet, every command closes the dialog

  protected:
    // A virtual one would take the first slot.
    ~CModalDlg() = default;
};
