// Between the portable texts of the description and the platform's wide characters.
#pragma once

#include "host/printer_model.h"

#include <string>
#include <string_view>

static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline std::wstring Wide(std::u16string_view text) {
    return {text.begin(), text.end()};
}
inline std::wstring Wide(std::string_view utf8) {
    return Wide(Utf16(utf8));
}
inline std::u16string Narrow16(std::wstring_view text) {
    return {text.begin(), text.end()};
}
std::string Utf8(std::wstring_view text);
