// A value of a key as the registry has it, to be put back as it was.
#pragma once

#include "companions/common/secret_buffer.h"

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

struct RawValue {
    DWORD type = REG_NONE;
    SecretBuffer<BYTE> data;

    // ERROR_SUCCESS with the value, or with nothing if the key has none of that name. Throws std::bad_alloc.
    static LSTATUS Read(HKEY key, const char* name, std::optional<RawValue>& value);
    // Deletes the value for nothing.
    static LSTATUS Restore(HKEY key, const char* name, const std::optional<RawValue>& value);
};

// Of plain ASCII, as the names of values are.
inline std::wstring WideName(std::string_view name) {
    return {name.begin(), name.end()};
}
