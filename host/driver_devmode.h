// The DEVMODE as the driver keeps it: the platform's public part, behind it the driver's private area, and
// the plug-in's block at the end. A DEVMODE comes from registries, files and other programs and may hold
// anything.
#pragma once

#include "host/driver_settings.h"
#include "host/printer_model.h"
#include "host/public_devmode.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// The head of the driver's private area; the selected option of each feature follows, 16 bits each, in the
// description's order, the form's index standing for PageSize. Plug-ins read the three words of the custom
// page at their offsets.
struct DriverArea {
    std::uint32_t signature;
    std::uint16_t version;
    std::uint16_t size; // of the whole area
    std::uint32_t descriptionChecksum;
    std::uint32_t pluginSize;
    std::uint16_t featureCount;
    std::uint16_t nup;              // index among the pages-per-sheet choices
    std::uint16_t rotatedLandscape; // tells the two kinds of landscape apart
    std::uint16_t spare[65];
    std::int32_t customWidth;  // thousandths of a millimetre
    std::int32_t customHeight; // thousandths of a millimetre
    std::int32_t customOffset[2];
    std::uint16_t customDirection;
    std::uint16_t pad;
};
static_assert(offsetof(DriverArea, customWidth) == 152);
static_assert(offsetof(DriverArea, customHeight) == 156);
static_assert(offsetof(DriverArea, customDirection) == 168);
static_assert(sizeof(DriverArea) == 172);

inline constexpr std::uint32_t kDriverSignature = 0x52443158; // the bytes "X1DR"
inline constexpr std::uint16_t kDriverAreaVersion = 1;

struct DevModeReading {
    Settings settings; // the base where `trouble` is not empty
    // The plug-in's block inside the bytes given; empty if there is none.
    std::span<const std::byte> pluginBlock;
    std::string trouble; // why the DEVMODE can't be used, one sentence in English
    std::string remark;  // what was not taken from a DEVMODE that can be used
};

// A DEVMODE without a private area is one that a program made by hand: its public fields are laid over
// `base`.
DevModeReading ReadDevMode(std::span<const std::byte> bytes, const PrinterModel& model, const Settings& base);

// The custom page as a plug-in has left it in the driver's private area of a DEVMODE that WriteDevMode made.
void ReadCustomPage(std::span<const std::byte> bytes, const PrinterModel& model, Settings& settings);

// The bytes of a whole DEVMODE; 0 if they are more than a DEVMODE can say it has.
std::size_t DevModeSize(const PrinterModel& model, std::size_t pluginSize);

// The bytes of the driver's private area, which the plug-in's block follows.
std::size_t DriverAreaSize(const PrinterModel& model);

// Writes everything but the plug-in's block, for which room of `pluginSize` bytes is kept. `bytes` must have
// DevModeSize.
void WriteDevMode(std::span<std::byte> bytes, const Settings& settings, const PrinterModel& model,
                  std::size_t pluginSize, std::u16string_view deviceName);
