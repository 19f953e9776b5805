// Which keywords move and which are converted, written out.
#pragma once

#include <set>

using Keywords = std::set<int>;

struct Range {
    int first;
    int last;
};

// clang-format off
inline constexpr Range kConvertedRanges[] = {
    {4, 4}, {6, 6}, {8, 8}, {9, 9}, {10, 10}, {12, 12}, {13, 13}, {15, 23}, {25, 34}, {36, 36}, {37, 37}, {39, 39},
    {41, 41}, {43, 43}, {44, 44}, {46, 46}, {47, 47}, {53, 53}, {54, 54}, {55, 55}, {57, 57}, {58, 58}, {66, 66},
    {67, 67}, {71, 71}, {72, 72}, {79, 82}, {84, 84}, {85, 85}, {87, 87}, {89, 93}, {95, 95}, {96, 96}, {98, 98},
    {100, 100}, {104, 108}, {110, 114}, {116, 116}, {118, 118}, {121, 121}, {122, 122}, {123, 123}, {125, 125},
    {127, 127}, {128, 128}, {134, 139}, {145, 145}, {147, 147}, {151, 155}, {157, 157}, {158, 158}, {163, 170},
    {172, 172}, {173, 173}, {178, 185}, {188, 188}, {192, 192}, {193, 193}, {196, 196}, {197, 197}, {198, 198},
    {205, 205}, {206, 206}, {209, 209}, {210, 210}, {212, 215}, {217, 217}, {218, 218}, {219, 219}, {227, 231},
    {233, 233}, {236, 236}, {238, 238}, {239, 239}, {242, 242}, {244, 244}, {245, 245}, {247, 247}, {248, 248},
    {249, 249}, {252, 252}, {256, 256}, {257, 257}, {262, 262}, {264, 271}, {274, 274}, {275, 275}, {276, 276},
    {279, 279}, {280, 280}, {282, 282}, {283, 283}, {285, 300}, {305, 311}, {316, 316}, {317, 317}, {318, 318},
};
// clang-format on

inline const Keywords kConverted = [] {
    Keywords keywords;
    for (const Range& range : kConvertedRanges)
        for (int keyword = range.first; keyword <= range.last; ++keyword)
            keywords.insert(keyword);
    return keywords;
}();

inline const Keywords kConvertedForAFavorite = [] {
    Keywords keywords = kConverted;
    keywords.insert({3, 5, 24, 115, 234});
    keywords.erase(6);
    keywords.erase(318);
    return keywords;
}();

inline const Keywords kMoveNowhere{284, 325};
inline const Keywords kNotForAFavorite{284, 325, 318};
inline const Keywords kNotCurrentToSession{284, 325, 319, 320, 321, 323};
inline const Keywords kWide{301, 302};
