// What the dialogs of all modules tell their user.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <string_view>

// Nothing was stored, with the reason that the system gave.
std::string NotStoredText(DWORD status);

// `text` with the number in place of the mark.
std::string WithNumber(std::string text, std::string_view mark, std::size_t number);

// `text`, and how many single-byte and double-byte characters are allowed.
std::string WithByteLimit(std::string text, std::size_t mostBytes);
