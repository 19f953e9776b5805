// The page "詳細設定": the print quality.
#pragma once

#include "pages/pspage.h"

INT_PTR CALLBACK AdvancedPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

class CAdvancedSettingPageDlg : public CPSPageDlg {
  public:
    using CPSPageDlg::CPSPageDlg;

    int OnInitDialog(WPARAM focus, const PROPSHEETPAGEA* page) override;
    int OnCommand(WORD notifyCode, WORD controlId, HWND control) override;
    int OnNotify_apply(int sheetStaysOpen) override;
    int OnNotify_setActive() override;
    int OnNotify_killActive() override;
    int Initialize(SessionBlock* session, int useDefault) override;
    int OnDrawItem(int controlId, const DRAWITEMSTRUCT* item) override;
    int OnClose() override;
    int OnUserMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    // Fills an extended combo box with the keyword's options and selects the row before that of its value;
    // UpdateX of the control puts it right.
    void InitCmbBox(HWND combo, int keyword, int labelId, SessionBlock* session, int useDefault);

    void InitResolution(SessionBlock* session, int useDefault);
    void UpdateResolution(SessionBlock* session, int useDefault);
    void ApplyResolution(SessionBlock* session);
};
