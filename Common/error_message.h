// What the system says about an error number.
#pragma once

#include <windows.h>

#include <string>

// The system's text, without its line end; the number where it has none.
std::string ErrorMessage(DWORD error);
