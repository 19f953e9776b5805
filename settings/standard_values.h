// What the named values are in the standard settings: the constants that a reset writes, and for a value that
// the reset leaves alone the default of the private DEVMODE.
#pragma once

#include <cstdint>
#include <string_view>

// In the store's units. A name that is no named value's, or one of the other kind, has 0 or "".
std::int64_t StandardNumber(std::string_view name);
std::string_view StandardText(std::string_view name);
