// The names of the printer's forms, process-wide: they outlive the sheet that read them.
#pragma once

#include <cstddef>

inline constexpr std::size_t kFormNameSize = 64;

// Reads the names through the driver. A printer without forms keeps the names of an earlier sheet, while the
// count says 0.
void ReadFormNames(const char* printerName);
