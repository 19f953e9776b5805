// The background instance of a sheet: it stays, without a window, from -start to -exit or the sheet's end.
#pragma once

#include "companions/jobproperty/exit_code.h"

#include <string>

namespace jobproperty {

// Both take what ParseCommandLine has checked. They report failures to the standard error.
ExitCode StayInBackground(const std::string& id, const std::string& key);
ExitCode EndBackground(const std::string& id);

} // namespace jobproperty
