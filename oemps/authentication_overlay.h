// The job owner's data, laid over a merged record: whatever a stored record holds, its owner follows the
// printer's and the user's present settings.
#pragma once

#include "oemps/devmode.h"

#include <windows.h>

#include <winspool.h>

#include <string_view>

// Sets the record's authentication fields, or clears them where the printer's data or the user's values can't
// be read. `keyText` is what CDevMode::GetAuthenticatInfo gave. Always 1.
int OverWriteRegistryAuthenticationInfo(PrivateDevMode& record, const PRINTER_INFO_2A& printerInfo,
                                        HANDLE printer, std::string_view keyText);

// Gives 1 if the record was set, from the user's values or, without a key of them, from their defaults; 0 if
// it was left as it is.
int OverWriteRegistryData(const PRINTER_INFO_2A& printerInfo, PrivateDevMode& record, HANDLE printer,
                          std::string_view keyText);
