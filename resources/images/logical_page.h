// What is printed: a title, a picture and lines of text, in any size.
#pragma once

#include "resources/images/canvas.h"

enum class Tone { Grey, Color };

// Both tones paint the same pixels.
void DrawLogicalPage(Canvas& canvas, Rect area, Tone tone);

// Lines of text only, the last one short.
void DrawTextLines(Canvas& canvas, Rect area, int thickness, int pitch, Ink ink);

// Several logical pages on one side of a sheet.
struct PageGrid {
    int columns;
    int rows;
};
inline constexpr int kCellGap = 2;
Rect GridCell(Rect area, PageGrid grid, int column, int row);
