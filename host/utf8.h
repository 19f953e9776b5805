// Text in UTF-8, as device descriptions and scripts have it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The bytes of the well-formed sequence at the head of `text`, which must not be empty; 0 if there is none.
std::size_t Utf8SequenceLength(std::string_view text);

bool IsUtf8(std::string_view text);

// `text` must be UTF-8.
std::u16string Utf16(std::string_view text);
