// The standard settings: what the sheet of a fresh printer shows, for the default settings file that stands
// beside the module.
#pragma once

#include "settings/setting_info.h"

class PrinterModel;

// A favourite in the present format with the settings that the printer's description and the private DEVMODE
// begin with. They pass through the store as a sheet's start sends them, and stay there.
CFavoriteSetting StandardSettings(const PrinterModel& model);
