// The pages' link to the job property application.
#include "Common/log.h"
#include "pages/standardpage.h"

// As long as the application is not started there is nothing to hand to it or to wait for.

// Stands where the print server's address is put into the store, which the device's data files are found by.
void CStandardPageDlg::SetServerAddress() {
    ZR_LOG_ENTRY();
}

// Stands where the setting manager is made and the standard settings are read.
void CStandardPageDlg::CreatePrintOptionList() {
    ZR_LOG_ENTRY();
}

int CStandardPageDlg::StartJobProperty() {
    ZR_LOG_ENTRY();
    return 1;
}

int CStandardPageDlg::DoModalPrintOptionUI() {
    ZR_LOG_ENTRY();
    return 0;
}
