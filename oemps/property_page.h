// The driver's first call for a sheet.
#pragma once

#include "oemps/printoem.h"

// Finds the printer's user data key and prepares the document sheet (OEMCUIP_DOCPROP) or the device sheet
// (OEMCUIP_PRNPROP). Another mode is refused with ERROR_INVALID_PARAMETER, a printer that can't be asked with
// E_FAIL.
HRESULT hrOEMPropertyPage(DWORD mode, OEMCUIPPARAM* param);
