// The communication setting: a dialog, in a module of its own, in which the print server's address and the
// way to communicate with it are set.
#pragma once

#include <windows.h>

#include <cstdint>

// `printer` is an open printer, with whose data the settings are kept. `key` is the path below
// HKEY_CURRENT_USER, in the ANSI code page, of the user's data for that printer. 1 if something was stored,
// else 0.
extern "C" std::int32_t OnCommunicationSettingDlg(HANDLE printer, const char* key);
