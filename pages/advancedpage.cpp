#include "pages/advancedpage.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "pages/controls.h"
#include "resources/resource.h"
#include "session/datamanager.h"
#include "session/session.h"

#include <optional>
#include <vector>

namespace {

// What a control's notification comes to: a result at once, or nothing if it is a change.
std::optional<int> ResultOfOtherNotification(WORD notifyCode) {
    switch (notifyCode) {
    case CBN_DROPDOWN:
    case CBN_CLOSEUP:
    case CBN_SELENDOK: return 1;
    case BN_CLICKED:
    case CBN_SELCHANGE:
    case EN_KILLFOCUS:
    case EN_CHANGE: return std::nullopt;
    default: return 0;
    }
}

} // namespace

INT_PTR CALLBACK AdvancedPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CAdvancedSettingPageDlg(dialog, ProcessProfile()).DlgProc(message, wParam, lParam);
}

int CAdvancedSettingPageDlg::OnInitDialog(WPARAM, const PROPSHEETPAGEA* page) {
    ZR_LOG_ENTRY();
    return Initialize(StoreSession(page), 0);
}

int CAdvancedSettingPageDlg::Initialize(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    SetCaption(m_hwnd, IDC_RESTORE_DEFAULTS, LoadText(IDS_RESTORE_DEFAULTS));
    InitResolution(session, useDefault);
    return 1;
}

void CAdvancedSettingPageDlg::InitResolution(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    InitCmbBox(GetDlgItem(m_hwnd, IDC_RESOLUTION), keyword::Resolution, IDC_RESOLUTION_LABEL, session,
               useDefault);
    UpdateResolution(session, useDefault);
}

void CAdvancedSettingPageDlg::InitCmbBox(HWND combo, int keyword, int labelId, SessionBlock*,
                                         int useDefault) {
    if (!combo) {
        WriteLog("%s() ctl == NULL\n", __func__);
        return;
    }
    SetLabel(labelId, keyword);
    std::vector<std::string> rows(static_cast<std::size_t>(GetKeywordOptionCount(keyword)));
    GetKeywordOptionString(keyword, rows);
    ClearRows(combo);
    for (const std::string& row : rows)
        AppendRow(combo, row);

    const std::uint32_t value = ReadKeyword(keyword, useDefault);
    // One row short of the value's own, and none for 0.
    SelectRow(combo, LOWORD(value) - 1u);
    if (useDefault)
        ExportedFunc_SetCurrent(keyword, value);
}

void CAdvancedSettingPageDlg::UpdateResolution(SessionBlock*, int useDefault) {
    ZR_LOG_ENTRY();
    const HWND combo = GetDlgItem(m_hwnd, IDC_RESOLUTION);
    if (!combo)
        return;
    const std::uint32_t value = ReadKeyword(keyword::Resolution, useDefault);
    if (useDefault)
        ExportedFunc_SetCurrent(keyword::Resolution, value);
    SelectRow(combo, value);
}

void CAdvancedSettingPageDlg::ApplyResolution(SessionBlock*) {
    ZR_LOG_ENTRY();
    if (const int row = SelectedRow(GetDlgItem(m_hwnd, IDC_RESOLUTION)); row >= 0)
        ExportedFunc_SetCurrent(keyword::Resolution, static_cast<std::uint32_t>(row));
}

int CAdvancedSettingPageDlg::OnCommand(WORD notifyCode, WORD controlId, HWND) {
    ZR_LOG_ENTRY();
    if (const auto result = ResultOfOtherNotification(notifyCode))
        return *result;
    if (controlId == IDC_RESTORE_DEFAULTS) {
        InitResolution(Session(), 1);
        return 1;
    }
    if (controlId == IDC_RESOLUTION)
        ApplyResolution(Session());
    NotifyPageChanged(m_hwnd);
    return 1;
}

int CAdvancedSettingPageDlg::OnNotify_setActive() {
    ZR_LOG_ENTRY();
    ExportedFunc_SetActive(m_hwnd);
    UpdateResolution(Session(), 0);
    return 1;
}

int CAdvancedSettingPageDlg::OnNotify_killActive() {
    ZR_LOG_ENTRY();
    CSession(Session()).ApplyAll();
    return 1;
}

int CAdvancedSettingPageDlg::OnNotify_apply(int) {
    ZR_LOG_ENTRY();
    CSession(Session()).NotifyApplied(kResultPage);
    return 1;
}

int CAdvancedSettingPageDlg::OnDrawItem(int, const DRAWITEMSTRUCT*) {
    return 1;
}
int CAdvancedSettingPageDlg::OnClose() {
    return 1;
}
int CAdvancedSettingPageDlg::OnUserMessage(UINT, WPARAM, LPARAM) {
    return 1;
}
