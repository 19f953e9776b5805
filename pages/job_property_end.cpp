// The end of the job property application, when a sheet ends.
#include "Common/log.h"
#include "pages/pspage.h"

// As long as the application is not started there is nothing to end; the data setting key through which it
// shares the store is left where it is.
void CPSPageDlg::DeleteRegistryKey() {
    ZR_LOG_ENTRY();
}
