// A text several times over.
#pragma once

#include <string>
#include <string_view>

inline std::string Repeated(int count, std::string_view text) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}
