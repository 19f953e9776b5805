// What follows from an output paper size: the sheet, the paper and, for imposition jobs, the layout repeat
// and the finished size. All lengths are in 1/14400 inch but for those that say microns, thousandths of a
// millimetre.
#pragma once

#include <cstdint>
#include <map>
#include <optional>

// Paper tag to width to height. Each tag has one pair.
using FinishedSizes = std::map<std::int32_t, std::map<std::uint32_t, std::uint32_t>>;

// The sizes of pages/paper_sizes.def.
FinishedSizes PaperSizes();

// The tag numbers that a change starts from.
struct PaperTags {
    std::int32_t outputPaperSize; // 0 stands for 2
    std::int32_t fixedForm;       // 0 stands for 1
    std::int32_t finishFixedForm;
};

// Pages beside and above each other on a sheet, and how the sheet lies.
struct LayoutRepeat {
    std::uint32_t x;
    std::uint32_t y;
    std::uint32_t sheetDirection;
    bool operator==(const LayoutRepeat&) const = default;
};

// What the settings hold.
struct ImpositionSettings {
    std::uint32_t mode;       // ImpositionMode
    std::uint32_t customMode; // ImpositionCustomMode
    LayoutRepeat repeat;
    std::uint32_t finishSheetDirection;
    std::uint32_t customWidthMicrons; // ChgPrintPaperSizeWidth
    std::uint32_t customLengthMicrons;
};

struct SheetChange {
    std::optional<int> fixedForm; // option index; none if the tag has none, and the setting stays
    std::uint32_t sheetHeight;
    std::uint32_t sheetWidth;
    std::uint32_t paperLengthMicrons;
    std::uint32_t paperWidthMicrons;
    std::optional<int> finishFixedForm;
};

struct FinishedSize {
    std::uint32_t height;
    std::uint32_t width;
    bool operator==(const FinishedSize&) const = default;
};

// What is to be written; a part that is missing leaves its settings alone.
struct FinishedSizeChanges {
    std::optional<SheetChange> sheet;
    std::optional<LayoutRepeat> repeat;
    std::optional<FinishedSize> finished;
};

FinishedSizeChanges FollowPaperSize(const FinishedSizes& sizes, PaperTags tags,
                                    const ImpositionSettings& settings);

// The number of a layout repeat among the five that have a finished size, none for any other.
std::optional<int> LayoutOf(const LayoutRepeat& repeat);

// Thousandths of a millimetre to 1/14400 inch, rounded, where the session's conversion cuts.
std::uint32_t PaperLengthFromMicrons(std::uint32_t microns);
