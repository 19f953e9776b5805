// What the store's banks hold of a keyword, or of one of the items beyond the keyword table.
#pragma once

#include "session/datamanager.h"

#include <cstdint>

inline std::uint32_t CurrentOf(int keyword) {
    std::uint32_t value = 0;
    ExportedFunc_GetCurrent(keyword, &value);
    return value;
}

inline std::uint32_t DefaultOf(int keyword) {
    std::uint32_t value = 0;
    ExportedFunc_GetDefault(keyword, &value);
    return value;
}
