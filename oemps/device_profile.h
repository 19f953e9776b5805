// The device profile of the open sheet.
#pragma once

// Stands where the process-wide profile is brought up to the one of this name, so that the pages know what
// the device has fitted. The reading of profile files comes with the configuration queries; until then every
// option counts as fitted.
void UpdateDeviceProfile(const char* profileName);
