// Texts in the ANSI code page that differ in case alone, as the names of one file do.
#pragma once

#include <string_view>

// Knows the case of double-byte letters too.
bool IsSameButForCase(std::string_view a, std::string_view b);
