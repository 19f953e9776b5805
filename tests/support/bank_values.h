// What the store's banks hold of a keyword.
#pragma once

#include "session/datamanager.h"

#include <cstdint>

inline std::uint32_t Current(int keyword) {
    std::uint32_t value = 0;
    ExportedFunc_GetCurrent(keyword, &value);
    return value;
}

inline std::uint32_t Default(int keyword) {
    std::uint32_t value = 0;
    ExportedFunc_GetDefault(keyword, &value);
    return value;
}

inline std::uint32_t Preview(int keyword) {
    std::uint32_t value = 0;
    ExportedFunc_GetPreview(keyword, &value);
    return value;
}
