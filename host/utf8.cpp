#include "host/utf8.h"

std::size_t Utf8SequenceLength(std::string_view text) {
    auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    unsigned char lead = byte(0);
    if (lead < 0x80)
        return 1;
    std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0) != 0x80)
            return 0;
    // Overlong forms, surrogates and what lies behind the last code point.
    if ((lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) >= 0xA0) ||
        (lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) >= 0x90))
        return 0;
    return length;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        std::size_t length = Utf8SequenceLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::u16string Utf16(std::string_view text) {
    std::u16string out;
    for (std::size_t i = 0; i < text.size();) {
        auto lead = static_cast<unsigned char>(text[i]);
        std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        if (i + length > text.size())
            break;
        char32_t code = length == 1 ? lead : lead & (0x7Fu >> length);
        for (std::size_t k = 1; k < length; ++k)
            code = code << 6 | (static_cast<unsigned char>(text[i + k]) & 0x3F);
        if (code >= 0x10000) {
            out.push_back(static_cast<char16_t>(0xD7C0 + (code >> 10)));
            out.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
        } else {
            out.push_back(static_cast<char16_t>(code));
        }
        i += length;
    }
    return out;
}
