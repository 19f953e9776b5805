// Signs drawn pixel by pixel.
#pragma once

#include "resources/images/canvas.h"

#include <span>
#include <string_view>

// Rows of one length; '#' is a pixel.
using Glyph = std::span<const std::string_view>;

void DrawGlyph(Canvas& canvas, Glyph glyph, int x, int y, Ink ink);
inline int GlyphWidth(Glyph glyph) {
    return static_cast<int>(glyph.front().size());
}
inline int GlyphHeight(Glyph glyph) {
    return static_cast<int>(glyph.size());
}

Glyph DigitGlyph(int digit); // 1 to 3
Glyph LetterGlyph();
Glyph UpArrowGlyph();
