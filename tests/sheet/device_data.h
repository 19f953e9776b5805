// The data files of a device that can do everything, where the print server would have put them for a sheet
// without a server's address.
#pragma once

void FitDevice();
void UnfitDevice();
