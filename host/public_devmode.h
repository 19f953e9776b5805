// The platform's part of a DEVMODE and the settings that its fields tell.
#pragma once

#include "host/driver_settings.h"
#include "host/printer_model.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

// The platform's DEVMODEW, byte for byte, for code that must not see the platform.
struct PublicDevMode {
    char16_t dmDeviceName[32];
    std::uint16_t dmSpecVersion;
    std::uint16_t dmDriverVersion;
    std::uint16_t dmSize;
    std::uint16_t dmDriverExtra;
    std::uint32_t dmFields;
    std::int16_t dmOrientation;
    std::int16_t dmPaperSize;
    std::int16_t dmPaperLength; // tenths of a millimetre
    std::int16_t dmPaperWidth;
    std::int16_t dmScale;
    std::int16_t dmCopies;
    std::int16_t dmDefaultSource;
    std::int16_t dmPrintQuality;
    std::int16_t dmColor;
    std::int16_t dmDuplex;
    std::int16_t dmYResolution;
    std::int16_t dmTTOption;
    std::int16_t dmCollate;
    char16_t dmFormName[32];
    std::uint16_t dmLogPixels;
    std::uint32_t dmBitsPerPel;
    std::uint32_t dmPelsWidth;
    std::uint32_t dmPelsHeight;
    std::uint32_t dmNup;
    std::uint32_t dmDisplayFrequency;
    std::uint32_t dmICMMethod;
    std::uint32_t dmICMIntent;
    std::uint32_t dmMediaType;
    std::uint32_t dmDitherType;
    std::uint32_t dmReserved[2];
    std::uint32_t dmPanning[2];
};
inline constexpr std::size_t kPublicSize = 220;
static_assert(sizeof(PublicDevMode) == kPublicSize);

inline constexpr std::uint16_t kSpecVersion = 0x0401;
inline constexpr std::uint16_t kDriverVersion = 0x0600;

// The public fields that this printer's DEVMODE has, DM_ bits.
std::uint32_t PublicFields(const PrinterModel& model);

// The public fields as this driver writes them for the settings, without a private part behind them.
PublicDevMode MakePublicDevMode(const Settings& settings, const PrinterModel& model,
                                std::u16string_view deviceName = {});

// Lays a DEVMODE's public fields over settings. Programs change a field and leave its relatives as they were
// (the paper's number but not its name), so only a field that differs from what the driver writes for the
// settings tells anything.
void ReadPublicFields(const PublicDevMode& dm, const PrinterModel& model, Settings& settings);
