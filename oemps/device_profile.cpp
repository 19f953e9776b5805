#include "oemps/device_profile.h"

#include "Common/log.h"

void UpdateDeviceProfile(const char* profileName) {
    ZR_LOG("profile=%s\n", profileName);
}
