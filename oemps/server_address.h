// The print server's address.
#pragma once

#include <windows.h>

// Stands where the address of the printer's port is compared with the stored one and a new one is recorded,
// before the pages of a document sheet exist. The reading of the port's registry keys comes with the
// printer's own settings. 1 if the address was updated; until then 0.
int PrinterPortAddressUpdate(HANDLE printer);
