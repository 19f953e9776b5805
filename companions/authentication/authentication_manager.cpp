#include "companions/authentication/authentication_manager.h"

#include "companions/authentication/authentication_dialog.h"
#include "companions/authentication/authentication_resource.h"
#include "companions/common/companion_module.h"
#include "companions/common/printer_state.h"

std::int32_t OnAuthenticationManagerDlg(HANDLE printer, const char* key, std::uint32_t permission) {
    ZR_LOG_ENTRY();
    return RunExported([=] {
        // An empty path would be that of HKEY_CURRENT_USER itself.
        if (PrinterGoneStatus(printer) != ERROR_SUCCESS || !key || !*key) {
            ZR_LOG("no printer or no key\n");
            return false;
        }
        return AuthenticationDialog(printer, key, permission != 0).Run(IDD_AUTHENTICATION);
    });
}
