// What the store's banks hold of a keyword, by the names that tests use.
#pragma once

#include "session/bank_values.h"

inline std::uint32_t Current(int keyword) {
    return CurrentOf(keyword);
}

inline std::uint32_t Default(int keyword) {
    return DefaultOf(keyword);
}

inline std::uint32_t Preview(int keyword) {
    std::uint32_t value = 0;
    ExportedFunc_GetPreview(keyword, &value);
    return value;
}
