// The answers to DeviceCapabilities that the printer's description gives.
#pragma once

#include "host/printer_model.h"

#include <windows.h>

#include <optional>

// The answer to a DC_ number that the description knows, as the platform documents it; `output` null asks for
// the count alone. Nothing for any other number.
std::optional<DWORD> DescribedCapability(const PrinterModel& model, WORD capability, void* output);
