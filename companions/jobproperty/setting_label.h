// What users know a setting as.
#pragma once

#include "companions/jobproperty/key_value.h"
#include "host/ppd.h"

#include <string>
#include <string_view>

namespace jobproperty {

// The plug-in's label of a keyword; else what the setting's tag in favourite files says; else what the device
// description says; and what settings.def has in place of all these.
std::string LabelOf(std::string_view name, const ppd::PpdFile& device);

} // namespace jobproperty
