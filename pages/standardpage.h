// The page "基本", the first of the sheet.
#pragma once

#include "pages/pspage.h"

INT_PTR CALLBACK StandardPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

class CStandardPageDlg : public CPSPageDlg {
  public:
    using CPSPageDlg::CPSPageDlg;

    int OnCommand(WORD notifyCode, WORD controlId, HWND control) override;
    int OnNotify_apply(int sheetStaysOpen) override;
    int OnNotify_setActive() override;
    int OnNotify_killActive() override;
    int Initialize(SessionBlock* session, int useDefault) override;
    int OnDrawItem(int controlId, const DRAWITEMSTRUCT* item) override;

  private:
    // Brings the profile's records up to the data files of the print server. What they hold of a reading that
    // failed stays, and the page opens with it.
    void LoadDeviceDataFiles();
};
