#include "pages/preview_layers.h"

#include <algorithm>

namespace {

constexpr std::uint32_t kNup2 = 1;
constexpr std::uint32_t kNup6 = 3;
constexpr std::uint32_t kNupBooklet = 6;

using SheetRow = std::array<LayerTriple, kPreviewSheets>;

// By N-up and orientation. The booklet has a front sheet only.
constexpr std::array<std::array<SheetRow, 3>, 7> kSheets{{
    {{
        {{{1, 11, 12}, {5, 17, 43}, {3, 21, 13}, {4, 19, 39}, {6, 23, 0}}},
        {{{2, 25, 26}, {7, 35, 27}, {9, 31, 44}, {10, 37, 0}, {8, 33, 40}}},
        {{{2, 28, 29}, {7, 36, 0}, {9, 32, 46}, {10, 38, 30}, {8, 34, 42}}},
    }},
    {{
        {{{2, 47, 51}, {7, 53, 65}, {9, 59, 63}, {10, 55, 0}, {8, 57, 61}}},
        {{{1, 67, 71}, {5, 75, 83}, {3, 79, 85}, {4, 73, 81}, {6, 78, 0}}},
        {{{1, 68, 72}, {5, 76, 84}, {3, 80, 0}, {4, 74, 82}, {6, 77, 86}}},
    }},
    {{
        {{{1, 89, 95}, {5, 99, 107}, {3, 101, 109}, {4, 97, 105}, {6, 104, 0}}},
        {{{2, 117, 119}, {7, 125, 133}, {9, 123, 131}, {10, 127, 0}, {8, 121, 130}}},
        {{{2, 118, 120}, {7, 126, 0}, {9, 124, 132}, {10, 128, 134}, {8, 122, 129}}},
    }},
    {{
        {{{2, 135, 143}, {7, 149, 157}, {9, 147, 155}, {10, 151, 0}, {8, 145, 154}}},
        {{{1, 163, 167}, {5, 171, 179}, {3, 173, 181}, {4, 169, 177}, {6, 175, 0}}},
        {{{1, 164, 168}, {5, 172, 180}, {3, 174, 0}, {4, 170, 178}, {6, 176, 182}}},
    }},
    {{
        {{{1, 233, 239}, {5, 243, 251}, {3, 245, 253}, {4, 241, 249}, {6, 248, 0}}},
        {{{2, 261, 263}, {7, 269, 277}, {9, 267, 275}, {10, 271, 0}, {8, 265, 274}}},
        {{{2, 262, 264}, {7, 270, 0}, {9, 268, 276}, {10, 272, 278}, {8, 266, 273}}},
    }},
    {{
        {{{1, 281, 287}, {5, 295, 299}, {3, 289, 301}, {4, 293, 297}, {6, 292, 0}}},
        {{{2, 305, 311}, {7, 313, 325}, {9, 319, 323}, {10, 315, 0}, {8, 317, 322}}},
        {{{2, 306, 312}, {7, 314, 0}, {9, 320, 324}, {10, 316, 326}, {8, 318, 321}}},
    }},
    {{
        {{{911, 0, 913}, {}, {}, {}, {}}},
        {{{932, 0, 934}, {}, {}, {}, {}}},
        {{{932, 933, 935}, {}, {}, {}, {}}},
    }},
}};

// By PunchHoles and Punch. A turned picture reads three rows further down, so with value 0 for the holes it
// shows the marks of an upright one with value 3.
constexpr std::array<std::array<int, 6>, 7> kPunch{{
    {0, 0, 0, 0, 0, 0},
    {0, 645, 646, 647, 648, 645},
    {0, 654, 655, 656, 657, 654},
    {0, 664, 665, 666, 667, 664},
    {0, 650, 651, 652, 653, 652},
    {0, 659, 660, 662, 663, 662},
    {0, 669, 670, 672, 673, 672},
}};
constexpr std::size_t kPunchHoles = 5;
constexpr std::size_t kFirstTurnedPunch = 3;

// Upright, turned.
constexpr std::array<std::array<int, 22>, 2> kStaples{{
    {0,   678, 682, 674,  676,  678,  687,  684,  685,  686,  685,
     694, 694, 694, 1077, 1071, 1073, 1075, 1085, 1079, 1081, 1083},
    {0,   679, 683, 675,  677,  679,  693,  689,  690,  692,  693,
     695, 695, 695, 1078, 1072, 1074, 1076, 1086, 1080, 1082, 1084},
}};
constexpr std::array kBookletStaples{916, 937};
constexpr std::uint32_t kFirstBookletStaple = 10;
constexpr std::uint32_t kLastBookletStaple = 12;

// Staple modes and punch edges that lie on the far side of the sheet, by duplex mode and whether the picture
// is turned. They do not follow the list of staple modes.
struct FarSide {
    std::array<std::uint32_t, 5> stapleModes;
    std::uint32_t punch;
};
constexpr FarSide kFarRight{{2, 4, 8, 15, 19}, 2};
constexpr FarSide kFarBelow{{3, 4, 6, 13, 17}, 4};
constexpr std::array kFarSides{kFarRight, kFarBelow, kFarBelow, kFarRight};
constexpr std::size_t kFarSideSheets = 2; // the sheets bound on the far side come after the two others

constexpr std::uint64_t kNoSheet = kPreviewSheets;

// The sheet behind the front one, kNoSheet or more if there is none.
std::uint64_t DuplexSheet(const PreviewSettings& settings, bool turned) {
    if (settings.duplexMode == 0)
        return kNoSheet;
    const std::uint64_t mode = settings.duplexMode;
    const std::uint64_t row = mode - 1 + (turned ? 2 : 0);
    if (row >= kFarSides.size())
        return mode;
    const FarSide& far = kFarSides[row];
    const bool onFarSide = std::ranges::find(far.stapleModes, settings.stapleMode) != far.stapleModes.end() ||
                           far.punch == settings.punch;
    return mode + (onFarSide ? kFarSideSheets : 0);
}

void Add(PreviewLayers& picture, int layer) {
    picture.layers[picture.count++] = layer;
}

const LayerTriple* FindSheet(std::uint32_t nup, std::uint32_t pageOrientation, std::uint64_t sheet) {
    if (nup >= kSheets.size() || pageOrientation >= kSheets.front().size() || sheet >= kPreviewSheets)
        return nullptr;
    return &kSheets[nup][pageOrientation][sheet];
}

void AddSheet(PreviewLayers& picture, const PreviewSettings& settings, std::uint64_t sheet) {
    const LayerTriple* triple = FindSheet(settings.nup, settings.pageOrientation, sheet);
    if (!triple)
        return;
    Add(picture, (*triple)[0]);
    Add(picture, (*triple)[1]);
    if (settings.colorMode != 0)
        Add(picture, (*triple)[2]);
}

void AddMark(PreviewLayers& picture, int layer) {
    if (layer != 0)
        Add(picture, layer);
}

} // namespace

bool IsTurnedPicture(std::uint32_t nup, std::uint32_t pageOrientation) {
    const bool pagesAcross = nup == kNup2 || nup == kNup6;
    return (pageOrientation != 0) != pagesAcross;
}

PreviewLayers ComposePreview(const PreviewSettings& settings) {
    const bool booklet = settings.nup == kNupBooklet;
    const bool turned = IsTurnedPicture(settings.nup, settings.pageOrientation);
    PreviewLayers picture;
    AddSheet(picture, settings, 0);
    if (!booklet)
        AddMark(picture, PunchLayer(turned, settings.punch, settings.punchHoles));
    AddMark(picture, booklet ? BookletStapleLayer(turned, settings.stapleMode)
                             : StapleLayer(turned, settings.stapleMode));
    AddSheet(picture, settings, DuplexSheet(settings, turned));
    return picture;
}

LayerTriple SheetLayers(std::uint32_t nup, std::uint32_t pageOrientation, std::size_t sheet) {
    const LayerTriple* triple = FindSheet(nup, pageOrientation, sheet);
    return triple ? *triple : LayerTriple{};
}

int PunchLayer(bool turned, std::uint32_t punch, std::uint32_t punchHoles) {
    if (punchHoles >= kPunchHoles || punch >= kPunch.front().size())
        return 0;
    const std::size_t row = punchHoles + (turned ? kFirstTurnedPunch : 0);
    return row < kPunch.size() ? kPunch[row][punch] : 0;
}

int StapleLayer(bool turned, std::uint32_t stapleMode) {
    const auto& layers = kStaples[turned ? 1 : 0];
    return stapleMode < layers.size() ? layers[stapleMode] : 0;
}

int BookletStapleLayer(bool turned, std::uint32_t stapleMode) {
    const bool saddle = stapleMode >= kFirstBookletStaple && stapleMode <= kLastBookletStaple;
    return saddle ? kBookletStaples[turned ? 1 : 0] : 0;
}
