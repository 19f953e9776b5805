// The plug-in's part of the printer's own sheet.
#pragma once

#include "oemps/printoem.h"

// Asks for one option item, and on the second call clears the items and sets the callback that stores the
// choice.
HRESULT hrPrinterPropertyPage(OEMCUIPPARAM* param);

// Stores the plug-in's choice in the printer's data when the sheet is applied.
LONG APIENTRY OEMPrinterUICallBack(PCPSUICBPARAM callback, OEMCUIPPARAM* param);

// Adds the device page. Refuses a missing `info` or one of another version with ERROR_INVALID_PARAMETER.
HRESULT hrOEMDevicePropertySheets(PROPSHEETUI_INFO* info, LPARAM param);
