#include "companions/communication/communication_setting.h"

#include "companions/common/companion_module.h"
#include "companions/common/printer_state.h"
#include "companions/communication/communication_dialog.h"
#include "companions/communication/communication_resource.h"

// All that is set here belongs to the printer, nothing to the user.
std::int32_t OnCommunicationSettingDlg(HANDLE printer, const char*) {
    ZR_LOG_ENTRY();
    return RunExported([printer] {
        if (PrinterGoneStatus(printer) != ERROR_SUCCESS) {
            ZR_LOG("no printer\n");
            return false;
        }
        return CommunicationDialog(printer).Run(IDD_COMMUNICATION);
    });
}
