// The job owner's data, laid over a merged record.
#pragma once

#include "oemps/devmode.h"

#include <windows.h>

#include <winspool.h>

// Stands where the owner and account data of the printer's user key are written into the record's
// authentication fields. It cannot fail the merge. The reading of that key comes with the printer's own
// settings; until then the record keeps what the merge gave it.
void OverlayAuthentication(PrivateDevMode& record, const PRINTER_INFO_2A& printerInfo, HANDLE printer);
