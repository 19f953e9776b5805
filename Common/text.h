// Text in the process's ANSI code page: bounded copies that never split a double-byte character.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

// True if the byte is the first of a double-byte character. Every question about lead bytes is asked here.
bool IsLeadByte(unsigned char byte);

// The length of the longest beginning of `text` that has at most `limit` bytes and ends between two
// characters.
std::size_t CutLength(std::string_view text, std::size_t limit);

// Copies `text` into `field` with its NUL, cut on a character boundary, and returns the bytes copied without
// the NUL. Bytes behind the NUL are left as they are. An empty field receives nothing.
std::size_t CopyText(std::span<char> field, std::string_view text);

// The same, with zeros in the rest of the field: equal texts make equal fields.
std::size_t FillText(std::span<char> field, std::string_view text);

// The text that stands in `field`: up to its first NUL, or all of it if there is none.
std::string_view FieldText(std::span<const char> field);

// The offset of the last occurrence of a single-byte character, npos if there is none. A byte of the same
// value that is the second half of a double-byte character is no occurrence.
std::size_t FindLastCharacter(std::string_view text, char character);
