// The two sheets of a printer. Both are opened on the calling thread and return when they are closed.
#pragma once

#include "host/driverhost_driver.h"
#include "host/driverhost_settings_file.h"

#include <string>

namespace driverhost {

// The printing preferences, from the stored settings or the driver's defaults. OK stores what the sheet gives
// back. Returns "" or what went wrong; a cancelled sheet is not wrong.
std::string ShowDocumentSheet(const std::wstring& printerName, const DriverModule& driver,
                              const SettingsFile& settings);

// The printer's properties.
std::string ShowDeviceSheet(const std::wstring& printerName, const DriverModule& driver);

} // namespace driverhost
