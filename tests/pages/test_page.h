// A page that records what is asked of it.
#pragma once

#include "pages/pspage.h"

#include <functional>
#include <string>
#include <vector>

struct PageLog {
    std::vector<std::string> calls;
    // What each operation gives back; OnCommand runs `onCommand` first, if there is one.
    int result = 1;
    std::function<void()> onCommand;
    SessionBlock* session = nullptr;
    int useDefault = -1;
    // How often the job property application was ended.
    int applicationsEnded = 0;
};

// Of the page that was opened last; a test clears it.
extern PageLog pageLog;

class TestPage : public CPSPageDlg {
  public:
    using CPSPageDlg::CPSPageDlg;
    using CPSPageDlg::m_hIconWarning_16;
    using CPSPageDlg::m_hIconWarning_24;
    using CPSPageDlg::m_hIconWarning_32;
    using CPSPageDlg::m_hImgWarningList_16;

    int OnCommand(WORD notifyCode, WORD controlId, HWND control) override;
    int OnNotify_apply(int sheetStaysOpen) override;
    int OnNotify_setActive() override;
    int OnNotify_killActive() override;
    int Initialize(SessionBlock* session, int useDefault) override;
    int OnDrawItem(int controlId, const DRAWITEMSTRUCT* item) override;
    int OnClose() override;
    int OnUserMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    int BaseOnClose() { return CPSPageDlg::OnClose(); }
    int BaseOnUserMessage() { return CPSPageDlg::OnUserMessage(1124, 0, 0); }
};

INT_PTR CALLBACK TestPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
