// The driver's first call for a sheet.
#pragma once

#include "oemps/printoem.h"

#include <span>

// Finds the printer's user data key and prepares the document sheet (OEMCUIP_DOCPROP) or the device sheet
// (OEMCUIP_PRNPROP). Another mode is refused with ERROR_INVALID_PARAMETER, a printer that can't be asked with
// E_FAIL.
HRESULT hrOEMPropertyPage(DWORD mode, OEMCUIPPARAM* param);

// Reads the value "GuidPrinter" of a key below HKEY_CURRENT_USER, which is made if it is not there, as text
// whatever its type. Without a value of 1 to 256 bytes `out` is "".
void GetGuidPrinter(const char* key, std::span<char, 256> out);
