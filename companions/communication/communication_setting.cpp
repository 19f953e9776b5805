#include "companions/communication/communication_setting.h"

std::int32_t OnCommunicationSettingDlg(HANDLE, const char*) {
    return 0;
}
