// Folded sheets, for the options of the fold setting.
#pragma once

#include "resources/images/canvas.h"

// In the order of the fold strip.
enum class Fold {
    None,
    Half,
    HalfPrintInside,
    HalfPrintOutside,
    LetterPrintInside, // in three, both outer parts to the same side
    LetterPrintOutside,
    AccordionPrintInside, // in three, the outer parts to opposite sides
    AccordionPrintOutside,
    ZBoundLeft, // one half stays, the other is folded back on itself
    ZBoundRight,
};
inline constexpr int kFoldCount = 10;

// The folded sheet, not quite closed, on a square canvas of 24 or 32 pixels.
Canvas DrawFold(Fold fold, int size, Ink foldLine = Ink::Action);

// The column of the first fold.
int FoldLineX(Fold fold, int size);
