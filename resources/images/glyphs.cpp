#include "resources/images/glyphs.h"

#include <array>

namespace {

using std::string_view;

constexpr std::array<string_view, 5> kOne{".#.", "##.", ".#.", ".#.", "###"};
constexpr std::array<string_view, 5> kTwo{"###", "..#", "###", "#..", "###"};
constexpr std::array<string_view, 5> kThree{"###", "..#", ".##", "..#", "###"};
constexpr std::array<string_view, 11> kLetter{
    "....##....", "....##....", "...####...", "...#..#...", "..##..##..", "..##..##..",
    "..######..", ".########.", ".##....##.", "##......##", "##......##",
};
constexpr std::array<string_view, 8> kUpArrow{
    "..##..", ".####.", "######", "..##..", "..##..", "..##..", "..##..", "..##..",
};

} // namespace

void DrawGlyph(Canvas& canvas, Glyph glyph, int x, int y, Ink ink) {
    for (const string_view row : glyph) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (row[column] == '#')
                canvas.Fill({x + static_cast<int>(column), y, 1, 1}, ink);
        }
        ++y;
    }
}

Glyph DigitGlyph(int digit) {
    return digit == 1 ? Glyph(kOne) : digit == 2 ? Glyph(kTwo) : Glyph(kThree);
}
Glyph LetterGlyph() {
    return kLetter;
}
Glyph UpArrowGlyph() {
    return kUpArrow;
}
