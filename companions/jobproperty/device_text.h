// Texts of the device description in the code page of all other texts.
#pragma once

#include <string>
#include <string_view>

namespace jobproperty {

// In code page 932; what the page lacks becomes '?'. `utf8` must be UTF-8.
std::string DeviceText(std::string_view utf8);

} // namespace jobproperty
