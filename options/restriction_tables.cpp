#include "options/restriction_tables.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace restriction_table {
namespace {

template <std::size_t Rank>
using Indices = std::array<std::int64_t, Rank>;

template <std::size_t Rank>
constexpr std::int64_t FlatIndex(const Indices<Rank>& dimensions, const Indices<Rank>& at) {
    std::int64_t flat = 0;
    for (std::size_t i = 0; i < Rank; ++i)
        flat = flat * dimensions[i] + at[i];
    return flat;
}

// The place that the flat index of `at` leads to, each index within its dimension; nothing if it leads out of
// the table. Every look-up goes through here.
template <std::size_t Rank>
constexpr std::optional<Indices<Rank>> Place(const Indices<Rank>& dimensions, const Indices<Rank>& at) {
    std::int64_t flat = FlatIndex(dimensions, at);
    if (flat < 0)
        return std::nullopt;
    Indices<Rank> place{};
    for (std::size_t i = Rank; i-- > 0; flat /= dimensions[i])
        place[i] = flat % dimensions[i];
    return flat == 0 ? std::optional(place) : std::nullopt;
}

constexpr bool IsSet(std::string_view flags, std::int64_t index) {
    return static_cast<std::size_t>(index) < flags.size() && flags[static_cast<std::size_t>(index)] == '1';
}

// Conflicts of staple and punch by fold, since a punch may not cross a staple or a fold's edge. A text has
// the flags of Punch 0 to 5; the mixed-size options, StapleMode 5 and 10 and Punch 5, never conflict here,
// nor does a Punch of 6.
struct FinishingFlags {
    std::string_view unfolded;
    std::string_view folded; // block B: every fold but those of the other columns
    std::string_view fold4;
    std::string_view fold5;
};
constexpr std::array<FinishingFlags, 22> kFinishing{{
    {"000000", "011110", "010100", "001010"}, // none
    {"001010", "111110", "111110", "001010"}, // top left
    {"010010", "111110", "010110", "011010"}, // top right
    {"001100", "111110", "011100", "001110"}, // bottom left
    {"010100", "111110", "010100", "111110"}, // bottom right
    {"000000", "000000", "000000", "000000"}, // one place, mixed size
    {"011010", "111110", "111110", "011010"}, // two top
    {"011100", "111110", "011100", "111110"}, // two bottom
    {"001110", "111110", "111110", "001110"}, // two left
    {"010110", "111110", "010110", "111110"}, // two right
    {"000000", "000000", "000000", "000000"}, // two places, mixed size
    {"011110", "111110", "111110", "111110"}, // saddle, inside
    // The two other saddles follow the pattern of two top and two bottom, not that of the first.
    {"011010", "111110", "111110", "111110"}, // saddle, outside
    {"011100", "111110", "111110", "111110"}, // saddle
    {"011010", "111110", "111110", "011010"}, // centre top
    {"011100", "111110", "011100", "111110"}, // centre bottom
    {"001110", "111110", "111110", "001110"}, // centre left
    {"010110", "111110", "010110", "111110"}, // centre right
    {"011010", "111110", "111110", "011010"}, // four top
    {"011100", "111110", "011100", "111110"}, // four bottom
    {"001110", "111110", "111110", "001110"}, // four left
    {"010110", "111110", "010110", "111110"}, // four right
}};

constexpr std::string_view FinishingFlagsOf(std::int64_t fold, const FinishingFlags& flags) {
    switch (fold) {
    case 0: return flags.unfolded;
    case 4: return flags.fold4;
    case 5: return flags.fold5;
    case 6: return {}; // the mixed-size fold
    default: return flags.folded;
    }
}

// One character per option: 'm' is made for mixed sizes and needs MixSizePrint on, 's' needs it off, '.' goes
// with both.
constexpr std::string_view kStapleMix = ".ssssmssssmsssssssssss";
constexpr std::string_view kPunchMix = ".ssssms.";
constexpr std::string_view kFoldMix = ".sssssmssss.";
static_assert(kStapleMix.size() == 22 && kPunchMix.size() == 8 && kFoldMix.size() == 12);

constexpr bool MixConflict(std::string_view options, std::int32_t option, std::int32_t mixSizePrint) {
    const auto place = Place<2>({static_cast<std::int64_t>(options.size()), 2}, {option, mixSizePrint});
    return place && options[static_cast<std::size_t>((*place)[0])] == ((*place)[1] == 0 ? 'm' : 's');
}

// The paper that cannot be printed on both sides. This device has no such limit; one that has lists it here.
struct MediaLimit {
    Indices<3> at; // duplex, paper type, weight
};
constexpr std::array<MediaLimit, 0> kMediaLimits{};

// Gray scale with a setting that needs colour.
constexpr bool NeedsColor(std::int32_t colorMode, std::int32_t setting) {
    return Place<2>({2, 2}, {colorMode, setting}) == Indices<2>{0, 1};
}

constexpr Indices<2> kPunchComboSize{4, 6};
constexpr std::array<std::array<std::uint8_t, 6>, 4> kPunchCombo{{
    {0, 0, 0, 0, 0, 0},
    {0, 1, 2, 3, 4, 13},
    {0, 5, 6, 7, 8, 14},
    {0, 9, 10, 11, 12, 15},
}};

// What a PunchHoles of 4, which no list offers, finds behind the table: the first restriction row, that is
// its keyword and the flag of its first class.
constexpr int BehindPunchCombo(std::int64_t flat, std::int32_t fold) {
    switch (flat - kPunchComboSize[0] * kPunchComboSize[1]) {
    case 0: return 1;
    case 1: return fold > 0;
    default: return 0;
    }
}

} // namespace

bool FinishingConflictTable(std::int32_t fold, std::int32_t stapleMode, std::int32_t punch) {
    const auto place = Place<3>({11, 22, 7}, {fold, stapleMode, punch});
    if (!place)
        return false;
    const FinishingFlags& flags = kFinishing[static_cast<std::size_t>((*place)[1])];
    return IsSet(FinishingFlagsOf((*place)[0], flags), (*place)[2]);
}

bool StapleMixTable(std::int32_t stapleMode, std::int32_t mixSizePrint) {
    return MixConflict(kStapleMix, stapleMode, mixSizePrint);
}

bool PunchMixTable(std::int32_t punch, std::int32_t mixSizePrint) {
    return MixConflict(kPunchMix, punch, mixSizePrint);
}

bool FoldMixTable(std::int32_t fold, std::int32_t mixSizePrint) {
    return MixConflict(kFoldMix, fold, mixSizePrint);
}

bool HolesConflictTable(std::int32_t fold, std::int32_t stapleMode, std::int32_t punchHoles) {
    const auto place = Place<3>({11, 22, 5}, {fold, stapleMode, punchHoles});
    return place && (*place)[2] == 4 && ((*place)[0] != 0 || (*place)[1] != 0);
}

bool MediaConflictTable(std::int32_t duplex, std::int32_t paperType, std::int32_t weight) {
    const auto place = Place<3>({2, 54, 11}, {duplex, paperType, weight});
    return place && std::ranges::find(kMediaLimits, *place, &MediaLimit::at) != kMediaLimits.end();
}

bool SpotColorConflictTable(std::int32_t colorMode, std::int32_t spotColorCorrection) {
    return NeedsColor(colorMode, spotColorCorrection);
}

bool TwoColorConflictTable(std::int32_t colorMode, std::int32_t twoColorPressSimulation) {
    return NeedsColor(colorMode, twoColorPressSimulation);
}

bool ImpositionConflictTable(std::int32_t printPaperSize, std::int32_t impositionMode,
                             std::int32_t impositionCustomMode) {
    const auto place = Place<3>({50, 3, 3}, {printPaperSize, impositionMode, impositionCustomMode});
    return place == Indices<3>{0, 2, 1} || place == Indices<3>{0, 2, 2};
}

int PunchComboTable(std::int32_t punchHoles, std::int32_t punch, std::int32_t fold) {
    const Indices<2> at{punchHoles, punch};
    if (const auto place = Place(kPunchComboSize, at))
        return kPunchCombo[static_cast<std::size_t>((*place)[0])][static_cast<std::size_t>((*place)[1])];
    return BehindPunchCombo(FlatIndex(kPunchComboSize, at), fold);
}

} // namespace restriction_table
