// From the standard page's controls into the Current bank, for the settings that conflict with no other one.
//
// A combo box without a selection shows a value that has no row; the bank keeps that value.
#include "Common/log.h"
#include "pages/CustomPageEditDlg.h"
#include "pages/controls.h"
#include "pages/own_changes.h"
#include "pages/standardpage.h"
#include "resources/resource.h"
#include "session/datamanager.h"
#include "session/keyword.h"

namespace {

void StoreSelectedRow(HWND page, int controlId, int keyword) {
    const int row = SelectedRow(GetDlgItem(page, controlId));
    if (row >= 0)
        ExportedFunc_SetCurrent(keyword, static_cast<std::uint32_t>(row));
}

void StoreCheck(HWND page, int controlId, int keyword) {
    if (const HWND box = GetDlgItem(page, controlId))
        ExportedFunc_SetCurrent(keyword, SendMessageA(box, BM_GETCHECK, 0, 0) == BST_CHECKED);
}

} // namespace

void CStandardPageDlg::ApplyPageSize(SessionBlock* session) {
    ZR_LOG_ENTRY();
    const HWND combo = GetDlgItem(m_hwnd, IDC_PAGE_SIZE);
    const int row = SelectedRow(combo);
    if (row < 0)
        return;
    const LRESULT form = SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(row), 0);
    ExportedFunc_SetCurrent(keyword::PageSize, static_cast<std::uint32_t>(form));

    const bool isCustom = form == m_customPageSizeIndex;
    if (isCustom)
        CCustomPageEditDlg(IDC_EDIT_PAGE_SIZE, session).DoModal();
    if (!IsLiveSession(session))
        return;
    ShowWindow(GetDlgItem(m_hwnd, IDC_EDIT_PAGE_SIZE), isCustom ? SW_SHOW : SW_HIDE);
}

void CStandardPageDlg::ApplyFitSize(SessionBlock*) {
    ZR_LOG_ENTRY();
    StoreSelectedRow(m_hwnd, IDC_FIT_SIZE, keyword::FittenToPaper);
}

void CStandardPageDlg::ApplyOnCenter(SessionBlock*) {
    ZR_LOG_ENTRY();
    StoreCheck(m_hwnd, IDC_ON_CENTER, keyword::PagePrintOnCenter);
}

void CStandardPageDlg::ApplyOrientation(int buttonId) {
    ZR_LOG_ENTRY();
    // The button of the third value is never enabled.
    if (buttonId != IDC_ORIENTATION_PORTRAIT && buttonId != IDC_ORIENTATION_LANDSCAPE)
        return;
    if (IsDlgButtonChecked(m_hwnd, buttonId) == BST_CHECKED)
        ExportedFunc_SetCurrent(keyword::PageOrientation, buttonId == IDC_ORIENTATION_LANDSCAPE);
}

void CStandardPageDlg::ApplyCopies(bool onKillFocus) {
    ZR_LOG_ENTRY();
    const HWND spin = GetDlgItem(m_hwnd, IDC_COPIES_SPIN);
    // A spin without its edit has a position but flags it as an error.
    if (!spin || !GetDlgItem(m_hwnd, IDC_COPIES))
        return;
    LRESULT position = SendMessageA(spin, UDM_GETPOS, 0, 0);
    if (onKillFocus && HIWORD(position) != 0) {
        const OwnChanges ownChanges;
        SendMessageA(spin, UDM_SETPOS, 0, MAKELPARAM(LOWORD(position), 0));
        position = SendMessageA(spin, UDM_GETPOS, 0, 0);
    }
    // While a number is being typed the error flag is stored with it, until the edit loses the focus.
    ExportedFunc_SetCurrent(keyword::Copies, static_cast<std::uint32_t>(position));
}

void CStandardPageDlg::ApplySource(SessionBlock*) {
    ZR_LOG_ENTRY();
    StoreSelectedRow(m_hwnd, IDC_SOURCE, keyword::Tray);
}

void CStandardPageDlg::ApplyOutputTray(SessionBlock*) {
    ZR_LOG_ENTRY();
    StoreSelectedRow(m_hwnd, IDC_OUTPUT_TRAY, keyword::OutputTray);
}

void CStandardPageDlg::ApplyJog(SessionBlock*) {
    ZR_LOG_ENTRY();
    StoreSelectedRow(m_hwnd, IDC_JOG, keyword::OffsetMode);
}

void CStandardPageDlg::ApplySort(SessionBlock*) {
    ZR_LOG_ENTRY();
    StoreCheck(m_hwnd, IDC_SORT, keyword::Collate);
}

void CStandardPageDlg::ApplyPageOrder(SessionBlock*) {
    ZR_LOG_ENTRY();
    StoreCheck(m_hwnd, IDC_PAGE_ORDER, keyword::PageOrder);
}
