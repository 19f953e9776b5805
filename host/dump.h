// A stored DEVMODE as text, for people and for comparing.
#pragma once

#include "host/driver_devmode.h"

#include <cstddef>
#include <span>
#include <string>

namespace dump {

// Why the record is no DEVMODE of this driver's kind, as far as that shows without the printer's description:
// its sizes contradict each other or the bytes there are, or its name has no end. "" if it may be one.
std::string Trouble(std::span<const std::byte> record);

// The public fields, a line each: name, number, and "(unset)" where dmFields leaves it out. Needs at least
// kPublicSize bytes.
std::string PublicFields(std::span<const std::byte> record);

// The settings of the driver's own area, then the selected option of each feature by its keyword.
std::string DriverSettings(const Settings& settings, const PrinterModel& model);

// Bytes as lines of 16: offset, hex, text; lines of zeros only are left out. The text column is in the ANSI
// code page with dots for what has no shape; a double-byte character that a line's end divides stands on the
// first line.
std::string Bytes(std::span<const std::byte> bytes);

// The head of a plug-in's block: size, signature, version. "" if the bytes are too few.
std::string PluginHeader(std::span<const std::byte> block);

// How the output of --dump is to be read.
std::string FormatText();

} // namespace dump
