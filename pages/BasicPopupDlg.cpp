#include "pages/BasicPopupDlg.h"

#include "Common/log.h"
#include "pages/modal_dialog.h"

INT_PTR CBasicPopupDlg::DoModal() {
    ZR_LOG_ENTRY();
    return RunModalDialog(*this, GetActiveWindow(), templateId);
}
