// The symbols at the left edge of the preview, 32x32.
#include "resources/images/folds.h"
#include "resources/images/glyphs.h"
#include "resources/images/image_set.h"
#include "resources/images/logical_page.h"
#include "resources/images/sheet_marks.h"
#include "resources/resource.h"

#include <array>
#include <initializer_list>
#include <iterator>
#include <utility>

namespace {

constexpr int kSize = 32;

// A page with a letter and lines of text.
Canvas LetterPage(bool turned) {
    Canvas canvas(kSize, kSize);
    const Rect page = turned ? Rect{2, 5, 28, 22} : Rect{5, 2, 22, 28};
    DrawSheet(canvas, page);
    const Glyph letter = LetterGlyph();
    DrawGlyph(canvas, letter, page.x + (page.width - GlyphWidth(letter)) / 2, page.y + 3, Ink::Action);
    const int below = page.y + 3 + GlyphHeight(letter) + 2;
    DrawTextLines(canvas, {page.x + 4, below, page.width - 8, page.Bottom() - 3 - below}, 1, 2, Ink::Middle);
    return canvas;
}

void DrawNumberedSheet(Canvas& canvas, int x, int y, int number) {
    const Rect sheet{x, y, 9, 12};
    DrawSheet(canvas, sheet);
    DrawGlyph(canvas, DigitGlyph(number), x + 3, y + 4, Ink::Action);
}

// Sheets that overlap, the first on top.
void DrawSet(Canvas& canvas, int x, int y, std::initializer_list<int> numbers) {
    constexpr int kStep = 6;
    x += static_cast<int>(numbers.size() - 1) * kStep;
    for (auto number = std::rbegin(numbers); number != std::rend(numbers); ++number) {
        DrawNumberedSheet(canvas, x, y, *number);
        x -= kStep;
    }
}

// Whole sets.
Canvas CollateOn() {
    Canvas canvas(kSize, kSize);
    DrawSet(canvas, 1, 3, {1, 2, 3});
    DrawSet(canvas, 10, 17, {1, 2, 3});
    return canvas;
}

// All copies of a page, then those of the next.
Canvas CollateOff() {
    Canvas canvas(kSize, kSize);
    DrawSet(canvas, 0, 3, {1, 1});
    DrawSet(canvas, 17, 3, {2, 2});
    DrawSet(canvas, 9, 17, {3, 3});
    return canvas;
}

struct FoldSymbol {
    int number;
    Fold fold;
};
constexpr std::array<FoldSymbol, 9> kFoldSymbols{{
    {1099, Fold::HalfPrintOutside},
    {1101, Fold::HalfPrintInside},
    {1102, Fold::Half},
    {1103, Fold::LetterPrintOutside},
    {1104, Fold::LetterPrintInside},
    {1105, Fold::AccordionPrintOutside},
    {1106, Fold::AccordionPrintInside},
    {1107, Fold::ZBoundLeft},
    {1108, Fold::ZBoundRight},
}};

} // namespace

std::vector<NumberedBitmap> DrawSymbols() {
    std::vector<NumberedBitmap> symbols;
    symbols.push_back({IDB_ORIENTATION_PORTRAIT, LetterPage(false)});
    symbols.push_back({IDB_ORIENTATION_LANDSCAPE, LetterPage(true)});
    symbols.push_back({IDB_ORIENTATION_ROTATED, LetterPage(true).TurnedAround()});
    symbols.push_back({IDB_COLLATE_ON, CollateOn()});
    symbols.push_back({IDB_COLLATE_OFF, CollateOff()});
    for (const FoldSymbol& symbol : kFoldSymbols)
        symbols.push_back({symbol.number, DrawFold(symbol.fold, kSize)});
    return symbols;
}
