// What the device description says of a keyword.
#pragma once

#include "host/ppd.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace jobproperty {

// "" if the description has no feature for the keyword.
std::string DeviceLabel(const ppd::PpdFile& device, int keyword);

// The options' names in option index order; of PageSize the custom page's is the last.
std::vector<std::string> DeviceOptions(const ppd::PpdFile& device, int keyword);

// Of a keyword that is a number: the value. Of a public setting that the description leaves to the driver:
// the driver's default.
std::uint32_t DeviceDefault(const ppd::PpdFile& device, int keyword);

} // namespace jobproperty
