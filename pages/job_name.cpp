// The job's name on the standard page.
#include "Common/log.h"
#include "pages/standardpage.h"

// Stands where the dialog for the job's name runs.
int CStandardPageDlg::DoModalJobName() {
    ZR_LOG_ENTRY();
    return IDCANCEL;
}

// Stands where the name, or how it is formed, is shown beside the button.
void CStandardPageDlg::ShowJobName(SessionBlock*) {
    ZR_LOG_ENTRY();
}
