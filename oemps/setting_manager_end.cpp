#include "oemps/setting_manager_end.h"

#include "Common/log.h"

void EndSettingManager() {
    ZR_LOG_ENTRY();
}
