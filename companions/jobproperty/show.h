// The window of -show and -file, from the reading of the settings to their writing.
#pragma once

#include "companions/jobproperty/exit_code.h"

#include <string>

namespace jobproperty {

// Lets the user edit the settings in the key. Failures are told in message boxes.
ExitCode ShowSettingsOf(const std::string& id, const std::string& key);

// The device's defaults, of which nothing is stored.
ExitCode ShowDefaults();

} // namespace jobproperty
