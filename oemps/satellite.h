// The satellite resource module: a DLL beside the module that holds its strings and dialogs in another
// language.
#pragma once

#include <windows.h>

// Counts one more live plug-in object, and for the first of them looks for a satellite. The string table is
// the satellite's if there is one, else the module's own.
void AcquireSatellite();

// Counts one less; the satellite goes with the last object.
void ReleaseSatellite();

// Where strings and dialogs come from: the satellite if there is one, else the module.
HINSTANCE ResourceModule();
