// Plain literals are in the product's code page; these stay as they stand in the source.
#pragma once

#include <string>
#include <string_view>

inline std::string Utf8(std::u8string_view text) {
    return {text.begin(), text.end()};
}
