// The settings of a job as the driver itself knows them, and what they may be.
#pragma once

#include "host/printer_model.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

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

// Lets the settings stand at a form; the page region goes with it.
void ChooseForm(Settings& settings, const PrinterModel& model, std::size_t form);

// In thousandths of a millimetre; lengths beyond the printer's limits become those. Without a custom page
// nothing is set.
void SetCustomPage(Settings& settings, const PrinterModel& model, int width, int height);
