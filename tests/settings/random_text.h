// Texts of code page 932 that any field may hold.
#pragma once

#include <cstddef>
#include <string>

// At most `most` bytes, and that often: ASCII, half-width katakana and double-byte characters, some of which
// have a trail byte that looks like ASCII. All of them stand once in the code page; there are no control
// characters.
template <class Random>
std::string RandomText(Random& random, std::size_t most) {
    const std::size_t size = random() % 4 == 0 ? most : random() % (most + 1);
    std::string text;
    while (text.size() < size) {
        if (text.size() + 2 <= size && random() % 2) {
            const auto trail = 0x40 + random() % 188;
            text += static_cast<char>(0x89 + random() % 15);
            text += static_cast<char>(trail < 0x7F ? trail : trail + 1);
        } else {
            text += static_cast<char>(random() % 3 ? 0x20 + random() % 95 : 0xA1 + random() % 63);
        }
    }
    return text;
}
