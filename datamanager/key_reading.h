// Reading a whole data setting key while other processes may be writing there.
#pragma once

#include "datamanager/setting_key.h"
#include "datamanager/values.h"

// Reads every section as it stood at one moment: a value that nobody touches is never missed because others
// come or go. `values` is whole only if the result is Done. A section that never stays still is Failed. Out
// of memory: std::bad_alloc.
KeyResult ReadValues(SettingKey& key, StoredValues& values);
