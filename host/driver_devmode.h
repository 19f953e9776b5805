// The DEVMODE as the driver keeps it: the platform's public part, behind it the driver's private area, and
// the plug-in's block at the end. A DEVMODE comes from registries, files and other programs and may hold
// anything.
#pragma once

#include "host/printer_model.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

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
inline constexpr std::uint16_t kSpecVersion = 0x0401;
inline constexpr std::uint16_t kDriverVersion = 0x0600;

// The rows of the orientation item. Plug-ins take a row for the value of PageOrientation.
inline constexpr int kPortrait = 0;
inline constexpr int kLandscape = 1;
inline constexpr int kRotatedLandscape = 2;

inline constexpr std::array<int, 6> kPagesPerSheet = {1, 2, 4, 6, 9, 16};
inline constexpr int kMinScale = 1;
inline constexpr int kMaxScale = 1000;
inline constexpr int kMinCopies = 1;
inline constexpr int kMaxCopies = 9999;
inline constexpr std::uint16_t kMaxCustomDirection = 3; // PostScript's four orientations of a custom page

// Every setting of a job that the driver itself knows. Always within the printer's limits.
struct Settings {
    int orientation = kPortrait;
    int scale = 100; // per cent
    int copies = 1;
    bool collate = true;
    int nup = 0;          // index into kPagesPerSheet
    std::size_t form = 0; // index into PrinterModel::Forms()
    int customWidth = 0;  // thousandths of a millimetre; 0 without a custom page
    int customHeight = 0;
    std::uint16_t customDirection = 0;
    std::vector<std::uint16_t> selection; // option index by feature; 0 for PageSize, which `form` stands for

    bool operator==(const Settings&) const = default;
};

Settings DefaultSettings(const PrinterModel& model);

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

// Lets the settings stand at a form; the page region goes with it.
void ChooseForm(Settings& settings, const PrinterModel& model, std::size_t form);

// The bytes of a whole DEVMODE; 0 if they are more than a DEVMODE can say it has.
std::size_t DevModeSize(const PrinterModel& model, std::size_t pluginSize);

// The bytes of the driver's private area, which the plug-in's block follows.
std::size_t DriverAreaSize(const PrinterModel& model);

// Writes everything but the plug-in's block, for which room of `pluginSize` bytes is kept. `bytes` must have
// DevModeSize.
void WriteDevMode(std::span<std::byte> bytes, const Settings& settings, const PrinterModel& model,
                  std::size_t pluginSize, std::u16string_view deviceName);

// The public fields that this printer's DEVMODE has, DM_ bits.
std::uint32_t PublicFields(const PrinterModel& model);
