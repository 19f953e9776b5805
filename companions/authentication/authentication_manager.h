// The authentication manager: a dialog, in a module of its own, in which the printer's authentication mode
// and the user's account data for its jobs are set.
#pragma once

#include <windows.h>

#include <cstdint>

// `printer` is an open printer. `key` is the path below HKEY_CURRENT_USER, in the ANSI code page, of the
// user's data for that printer. The mode can be changed with a `permission` other than 0. 1 if something was
// stored, else 0.
extern "C" std::int32_t OnAuthenticationManagerDlg(HANDLE printer, const char* key, std::uint32_t permission);
