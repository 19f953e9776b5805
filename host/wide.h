// Between UTF-8 and the platform's wide characters.
#pragma once

#include "host/utf8.h"

#include <string>
#include <string_view>

static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline std::wstring Wide(std::u16string_view text) {
    return {text.begin(), text.end()};
}
// `utf8` must be UTF-8.
inline std::wstring Wide(std::string_view utf8) {
    return Wide(Utf16(utf8));
}
inline std::u16string Narrow16(std::wstring_view text) {
    return {text.begin(), text.end()};
}
// A surrogate without its other half becomes U+FFFD.
std::string Utf8(std::wstring_view text);
