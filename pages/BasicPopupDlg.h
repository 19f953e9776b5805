// The base of the modal dialogs that pages open.
#pragma once

#include <windows.h>

struct SessionBlock;

class CBasicPopupDlg {
  public:
    CBasicPopupDlg(SessionBlock* sessionBlock, int dialogTemplate)
        : session(sessionBlock), templateId(dialogTemplate) {}

    virtual ~CBasicPopupDlg() = default;
    CBasicPopupDlg(const CBasicPopupDlg&) = delete;
    CBasicPopupDlg& operator=(const CBasicPopupDlg&) = delete;

    // Runs the dialog above the active window until it is ended; gives what it was ended with, 2 by its close
    // box. 0 or -1 if there is no such template.
    virtual INT_PTR DoModal();
    virtual int OnInitDialog() = 0;
    virtual int OnCommand(WORD notifyCode, WORD controlId, HWND control) = 0;

    HWND m_hwnd = nullptr;
    SessionBlock* session; // unless it is that of the open sheet, every command closes the dialog
    int templateId;
};
