#include "pages/standardpage.h"

#include "Common/ProfileInfo.h"
#include "Common/log.h"
#include "session/datamanager.h"
#include "session/session.h"

#include <exception>

INT_PTR CALLBACK StandardPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CStandardPageDlg(dialog, ProcessProfile()).DlgProc(message, wParam, lParam);
}

int CStandardPageDlg::Initialize(SessionBlock*, int) {
    ZR_LOG_ENTRY();
    LoadDeviceDataFiles();
    return 1;
}

void CStandardPageDlg::LoadDeviceDataFiles() {
    ZR_LOG_ENTRY();
    try {
        PathBuffer directory{};
        if (profile && GetDriverResourcePath(directory))
            profile->LoadDeviceDataFiles(directory.data());
    } catch (const std::exception& error) {
        ZR_LOG("%s\n", error.what());
    }
}

int CStandardPageDlg::OnCommand(WORD, WORD, HWND) {
    return 0;
}

int CStandardPageDlg::OnNotify_setActive() {
    ZR_LOG_ENTRY();
    ExportedFunc_SetActive(m_hwnd);
    return 1;
}

int CStandardPageDlg::OnNotify_killActive() {
    ZR_LOG_ENTRY();
    CSession(Session()).ApplyAll();
    return 1;
}

int CStandardPageDlg::OnNotify_apply(int) {
    ZR_LOG_ENTRY();
    CSession(Session()).NotifyApplied(kResultPage);
    return 1;
}

int CStandardPageDlg::OnDrawItem(int, const DRAWITEMSTRUCT*) {
    return 0;
}
