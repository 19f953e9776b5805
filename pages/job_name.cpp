// The job's name on the standard page.
#include "Common/log.h"
#include "pages/JobNameDlg.h"
#include "pages/standardpage.h"

int CStandardPageDlg::DoModalJobName() {
    ZR_LOG_ENTRY();
    return static_cast<int>(DoJobNameDialog(m_hwnd, Session()));
}

void CStandardPageDlg::ShowJobName(SessionBlock* session) {
    ZR_LOG_ENTRY();
    ChangeJobName(m_hwnd, session);
}
