#include "session/initialize_data_manager.h"

#include "Common/log.h"
#include "session/datamanager.h"
#include "session/keyword.h"

#include <array>

void InitializeDataManager() {
    ExportedFunc_InitializeDataManager();
    std::array<char, 260> name{};
    ExportedFunc_CreateDataSettingRegistryKeyName(name.data());
    const std::array<char, 260> copy = name;
    ExportedFunc_CreateDataSettingRegistryKey(copy.data(), kKeywordCount);
    ZR_LOG("key=%s\n", copy.data());
}
