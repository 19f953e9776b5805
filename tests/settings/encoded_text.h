// Text as bytes of Unicode's encodings.
#pragma once

#include <array>
#include <string>
#include <string_view>

enum class Encoding { Utf8, Utf16Little, Utf16Big, Utf32Little, Utf32Big };
inline constexpr std::array kEncodings{Encoding::Utf8, Encoding::Utf16Little, Encoding::Utf16Big,
                                       Encoding::Utf32Little, Encoding::Utf32Big};

inline std::string Encoded(std::u16string_view text, Encoding encoding, bool hasMark) {
    std::string bytes;
    if (hasMark && encoding == Encoding::Utf8)
        bytes = "\xEF\xBB\xBF";
    const std::u16string marked =
        (hasMark && encoding != Encoding::Utf8 ? std::u16string(u"\xFEFF") : std::u16string()).append(text);
    for (const char16_t unit : marked) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        switch (encoding) {
        case Encoding::Utf8: bytes += low; break;
        case Encoding::Utf16Little: (bytes += low) += high; break;
        case Encoding::Utf16Big: (bytes += high) += low; break;
        case Encoding::Utf32Little: ((bytes += low) += high).append(2, '\0'); break;
        case Encoding::Utf32Big: (bytes.append(2, '\0') += high) += low; break;
        }
    }
    return bytes;
}
