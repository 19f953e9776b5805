#include "tests/options/restriction_rules.h"

#include "session/keyword.h"

#include <initializer_list>
#include <set>

namespace restriction_rules {
namespace {

// A punch goes along an edge; a staple and a fold leave some edges free, and what both leave free can be
// punched. If a staple and a fold have no free edge in common, they do not even go together.
enum Edge { Left = 1, Right = 2, Top = 3, Bottom = 4 };
using Edges = std::set<int>;
const Edges kAllEdges{Left, Right, Top, Bottom};

const std::array<Edges, 22> kFreeByStaple{{
    kAllEdges,       // none
    {Left, Top},     // top left
    {Right, Top},    // top right
    {Left, Bottom},  // bottom left
    {Right, Bottom}, // bottom right
    kAllEdges,       // mixed size
    {Top},           // two top
    {Bottom},        // two bottom
    {Left},          // two left
    {Right},         // two right
    kAllEdges,       // mixed size
    {},              // saddle, inside
    {Top},           // saddle, outside: as if two top
    {Bottom},        // saddle: as if two bottom
    {Top},           // centre top
    {Bottom},        // centre bottom
    {Left},          // centre left
    {Right},         // centre right
    {Top},           // four top
    {Bottom},        // four bottom
    {Left},          // four left
    {Right},         // four right
}};

const Edges& FreeByFold(int fold) {
    static const Edges none;
    static const Edges rightAndBottom{Right, Bottom};
    static const Edges leftAndTop{Left, Top};
    switch (fold) {
    case 0: return kAllEdges;
    case 4: return rightAndBottom;
    case 5: return leftAndTop;
    default: return none;
    }
}

bool IsMixedSizeStaple(std::int64_t staple) {
    return staple == 5 || staple == 10;
}
bool IsSaddle(int staple) {
    return staple >= 11 && staple <= 13;
}

bool FinishersConflict(int fold, int staple, int punch) {
    if (fold == 6 || IsMixedSizeStaple(staple) || punch >= 5)
        return false;
    Edges free;
    for (const int edge : kFreeByStaple[static_cast<std::size_t>(staple)])
        if (FreeByFold(fold).contains(edge) && !(IsSaddle(staple) && fold != 0))
            free.insert(edge);
    if (punch == 0)
        return fold != 0 && staple != 0 && free.empty();
    return !free.contains(punch);
}

// The settings of a bank, wide enough to reckon places of tables with.
struct Settings {
    explicit Settings(const Bank& values) : bank(values) {}
    std::int64_t operator[](int item) const { return bank[static_cast<std::size_t>(item)]; }
    const Bank& bank;
};

using namespace keyword;

bool BreaksFinishing(const Settings& s) {
    const std::int64_t place = (s[Fold] * 22 + s[StapleMode]) * 7 + s[Punch];
    return place >= 0 && place < 1694 && FinishingTable()[static_cast<std::size_t>(place)];
}

// `last` is the last option that there is. What is made for mixed sizes needs the mix on, anything else off.
bool BreaksMix(std::int64_t option, std::int64_t mix, std::int64_t last, bool (*isMixed)(std::int64_t)) {
    const std::int64_t place = option * 2 + mix;
    const std::int64_t reached = place / 2;
    const bool isOn = place % 2 == 1;
    return place >= 2 && reached <= last && isMixed(reached) != isOn;
}

bool BreaksMixedSizes(const Settings& s) {
    return BreaksMix(s[StapleMode], s[MixSizePrint], 21, IsMixedSizeStaple) ||
           BreaksMix(s[Punch], s[MixSizePrint], 6, [](std::int64_t punch) { return punch == 5; }) ||
           BreaksMix(s[Fold], s[MixSizePrint], 10, [](std::int64_t fold) { return fold == 6; });
}

// PunchHoles 4 goes with neither staple nor fold.
bool BreaksHoles(const Settings& s) {
    const std::int64_t place = (s[Fold] * 22 + s[StapleMode]) * 5 + s[PunchHoles];
    return place >= 5 && place < 1210 && place % 5 == 4;
}

bool IsGrayWith(const Settings& s, int setting) {
    return s[ColorMode] * 2 + s[setting] == 1;
}

bool BreaksImposition(const Settings& s) {
    const std::int64_t place =
        (s[ChgPrintPaperSizeType] * 3 + s[ImpositionMode]) * 3 + s[ImpositionCustomMode];
    return place == 7 || place == 8;
}

// Paper breaks no rule of this device.
Rule BrokenRule(const Settings& s) {
    if (BreaksFinishing(s))
        return Rule::Finishing;
    if (BreaksMixedSizes(s))
        return Rule::MixedSizes;
    if (BreaksHoles(s))
        return Rule::Holes;
    if (IsGrayWith(s, SpotColorCorrection))
        return Rule::SpotColor;
    if (IsGrayWith(s, TwoColorPressSimulation))
        return Rule::TwoColor;
    if (BreaksImposition(s))
        return Rule::Imposition;
    return Rule::None;
}

bool PunchTakesPart(const Settings& s) {
    const std::int64_t place = s[PunchHoles] * 6 + s[Punch];
    if (place == 24)
        return true;
    if (place == 25)
        return s[Fold] > 0;
    return place >= 6 && place < 24 && place % 6 != 0;
}

struct Part {
    int group;
    int keyword;
    bool taken;
};

int LastOther(std::initializer_list<Part> parts, int group) {
    int found = kNoneInTheWay;
    for (const Part& part : parts)
        if (part.taken && part.group != group)
            found = part.keyword;
    return found;
}

int InTheWay(const Settings& s, Rule rule, int group) {
    switch (rule) {
    case Rule::None: return kNoneInTheWay;
    case Rule::Finishing:
    case Rule::Holes:
        return LastOther(
            {{0, Fold, s[Fold] > 0}, {1, Punch, PunchTakesPart(s)}, {2, StapleMode, s[StapleMode] > 0}},
            group);
    case Rule::MixedSizes:
        return LastOther({{9, MixSizePrint, s[MixSizePrint] == 0}, {10, MixSizePrint, s[MixSizePrint] > 0}},
                         group);
    case Rule::SpotColor:
        return LastOther(
            {{6, ColorMode, s[ColorMode] > 0}, {7, SpotColorCorrection, s[SpotColorCorrection] > 0}}, group);
    case Rule::TwoColor:
        return LastOther({{8, TwoColorPressSimulation, s[TwoColorPressSimulation] > 0}}, group);
    case Rule::Imposition:
        return LastOther({{11, ChgPrintPaperSizeType, s[ChgPrintPaperSizeType] < 1},
                          {12, ImpositionMode, s[ImpositionMode] > 0},
                          {13, ImpositionCustomMode, s[ImpositionCustomMode] > 0}},
                         group);
    }
    return kNoneInTheWay;
}

} // namespace

const std::array<bool, 1694>& FinishingTable() {
    static const auto table = [] {
        std::array<bool, 1694> entries{};
        std::size_t place = 0;
        for (int fold = 0; fold < 11; ++fold)
            for (int staple = 0; staple < 22; ++staple)
                for (int punch = 0; punch < 7; ++punch)
                    entries[place++] = FinishersConflict(fold, staple, punch);
        return entries;
    }();
    return table;
}

Verdict Judge(const Bank& bank, int group) {
    const Settings settings(bank);
    const Rule rule = BrokenRule(settings);
    return {rule, InTheWay(settings, rule, group)};
}

} // namespace restriction_rules
