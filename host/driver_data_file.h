// What the spooler has of a printer's driver.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

// The path of the data file of the printer's driver, which is its description; "" if the driver names none,
// nothing if the spooler does not tell.
std::optional<std::wstring> DriverDataFile(HANDLE printer);

// The path of its configuration module, in the same way.
std::optional<std::wstring> DriverConfigFile(HANDLE printer);
