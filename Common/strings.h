// The string table: every text that a user sees, by number.
#pragma once

#include <cstddef>
#include <span>
#include <string>

// Writes the string with this number into `buffer`, cut on a character boundary, and returns its length in
// bytes. A number that the table lacks gives "" and 0.
std::size_t LoadText(unsigned id, std::span<char> buffer);

// The string with this number, at most 259 bytes of it; "" if the table lacks it.
std::string LoadText(unsigned id);

// Names the module, an HINSTANCE, whose resources are in use: texts, dialogs and images all come from it.
// Null, as at the start, stands for the program itself. Windows only.
void SetStringModule(void* module);
// The module in use, never null.
void* StringModule();
