#include "pages/finished_size.h"

#include "session/keyword.h"
#include "session/units.h"
#include "settings/InterchangeOptionTag.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::int32_t kCustomSize = 20;
constexpr std::uint32_t kCustomImposition = 2; // ImpositionMode

// ImpositionCustomMode
constexpr std::uint32_t kRepeatedPages = 1;
constexpr std::uint32_t kTwoHalves = 2;

// Decimals of a millimetre that a paper's length keeps.
constexpr int kPaperDecimals = 2;

struct Paper {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t Short() const { return std::min(width, height); }
    std::uint32_t Long() const { return std::max(width, height); }
};

std::optional<Paper> PaperOf(const FinishedSizes& sizes, std::int32_t tag) {
    const auto row = sizes.find(tag);
    if (row == sizes.end() || row->second.empty())
        return std::nullopt;
    const auto& [width, height] = *row->second.rbegin();
    return Paper{width, height};
}

std::optional<int> OptionOf(int keyword, std::int32_t tag) {
    int option = 0;
    if (!GetOptionIndexFromTagNumber(keyword, tag, &option))
        return std::nullopt;
    return option;
}

SheetChange FollowSheet(const Paper& paper, const Paper& sheet, const PaperTags& tags) {
    return {OptionOf(keyword::FixedForm, tags.fixedForm & 0xFFFF), sheet.height, sheet.width,
            // The length is the first number of a paper's row.
            Inch14400ToMicrons(paper.width, kPaperDecimals), Inch14400ToMicrons(paper.height, kPaperDecimals),
            OptionOf(keyword::FinishFixedForm, tags.finishFixedForm)};
}

struct LayoutRow {
    LayoutRepeat repeat;
    int layout;
};

constexpr std::array<LayoutRow, 10> kLayouts{{{{2, 1, 1}, 0},
                                              {{1, 2, 0}, 0},
                                              {{2, 2, 0}, 1},
                                              {{2, 2, 1}, 1},
                                              {{2, 4, 0}, 2},
                                              {{4, 2, 1}, 2},
                                              {{4, 4, 0}, 3},
                                              {{4, 4, 1}, 3},
                                              {{4, 8, 0}, 4},
                                              {{8, 4, 1}, 4}}};

// What a layout becomes. The finished page is the paper's short or long side, halved so many times.
struct LayoutResult {
    LayoutRepeat finishTurned; // FinishSheetDirection is not 0
    LayoutRepeat finishUpright;
    bool isHeightOfLongSide;
    int heightHalvings;
    int widthHalvings;
};

constexpr std::array<LayoutResult, 5> kLayoutResults{{{{1, 2, 0}, {2, 1, 1}, false, 0, 1},
                                                      {{2, 2, 1}, {2, 2, 0}, true, 1, 1},
                                                      {{2, 4, 0}, {4, 2, 1}, false, 1, 2},
                                                      {{4, 4, 1}, {4, 4, 0}, true, 2, 2},
                                                      {{4, 8, 0}, {8, 4, 1}, false, 2, 3}}};

void FollowRepeatedPages(FinishedSizeChanges& changes, const Paper& paper,
                         const ImpositionSettings& settings) {
    const std::optional<int> layout = LayoutOf(settings.repeat);
    if (!layout)
        return;
    const LayoutResult& result = kLayoutResults[static_cast<std::size_t>(*layout)];
    changes.repeat = settings.finishSheetDirection != 0 ? result.finishTurned : result.finishUpright;
    const std::uint32_t ofHeight = result.isHeightOfLongSide ? paper.Long() : paper.Short();
    const std::uint32_t ofWidth = result.isHeightOfLongSide ? paper.Short() : paper.Long();
    changes.finished = FinishedSize{ofHeight >> result.heightHalvings, ofWidth >> result.widthHalvings};
}

void FollowImposition(FinishedSizeChanges& changes, const Paper& paper, const ImpositionSettings& settings) {
    if (settings.mode != kCustomImposition)
        return;
    if (settings.customMode == kTwoHalves)
        changes.finished = FinishedSize{paper.Short(), paper.Long() / 2};
    else if (settings.customMode == kRepeatedPages)
        FollowRepeatedPages(changes, paper, settings);
}

} // namespace

FinishedSizes PaperSizes() {
    return {
#define ZR_PAPER_SIZE(tag, width, height) {tag, {{width, height}}},
#include "pages/paper_sizes.def"
    };
}

FinishedSizeChanges FollowPaperSize(const FinishedSizes& sizes, PaperTags tags,
                                    const ImpositionSettings& settings) {
    if (tags.outputPaperSize == 0)
        tags.outputPaperSize = 2;
    if (tags.fixedForm == 0)
        tags.fixedForm = 1;

    FinishedSizeChanges changes;
    const std::optional<Paper> row = PaperOf(sizes, tags.outputPaperSize);
    if (row)
        changes.sheet = FollowSheet(*row, PaperOf(sizes, tags.fixedForm).value_or(Paper{}), tags);
    // A size without a row counts as 0 by 0.
    Paper paper = row.value_or(Paper{});
    if (tags.outputPaperSize == kCustomSize)
        paper = {PaperLengthFromMicrons(settings.customWidthMicrons),
                 PaperLengthFromMicrons(settings.customLengthMicrons)};
    FollowImposition(changes, paper, settings);
    return changes;
}

std::optional<int> LayoutOf(const LayoutRepeat& repeat) {
    const auto row = std::ranges::find(kLayouts, repeat, &LayoutRow::repeat);
    return row == kLayouts.end() ? std::nullopt : std::optional(row->layout);
}

std::uint32_t PaperLengthFromMicrons(std::uint32_t microns) {
    return static_cast<std::uint32_t>(microns * 14400.0 / 25.4 / 1000.0 + 0.5);
}
