#include "resources/images/folds.h"

#include <cstdlib>
#include <optional>
#include <vector>

namespace {

// The side of the paper that a panel shows: what the first fold brings together are inner sides.
enum class Face { Inner, Outer };

// A panel of a sheet that lies on a table and is seen from the front and above: its upper end runs between
// two points, rising where the panel stands up. Each lies over those before it, and hangs on one of them at
// its first point; folded over, it shows the other side of the paper. In 24ths of the picture.
struct Panel {
    int fromX;
    int fromY;
    int toX;
    int toY;
    Face face;
};
constexpr int kUnits = 24;

struct FoldedSheet {
    std::vector<Panel> panels;
    int height;
    std::optional<Face> printed;
};

FoldedSheet Half(std::optional<Face> printed) {
    return {{{3, 7, 20, 7, Face::Inner}, {20, 7, 10, 2, Face::Outer}}, 14, printed};
}

// A flap at either side.
FoldedSheet Letter(Face printed) {
    return {
        {{2, 7, 21, 7, Face::Inner}, {21, 7, 15, 4, Face::Outer}, {2, 7, 8, 4, Face::Outer}}, 14, printed};
}

// To and fro.
FoldedSheet Accordion(Face printed) {
    return {
        {{3, 11, 17, 11, Face::Inner}, {17, 11, 9, 7, Face::Outer}, {9, 7, 15, 4, Face::Inner}}, 11, printed};
}

// As an accordion whose first part is as long as the two others.
FoldedSheet ZFold() {
    return {{{1, 11, 22, 11, Face::Inner}, {22, 11, 16, 8, Face::Outer}, {16, 8, 20, 6, Face::Inner}},
            10,
            Face::Inner};
}

FoldedSheet Mirrored(FoldedSheet sheet) {
    for (Panel& panel : sheet.panels) {
        panel.fromX = kUnits - 1 - panel.fromX;
        panel.toX = kUnits - 1 - panel.toX;
    }
    return sheet;
}

FoldedSheet Unscaled(Fold fold) {
    switch (fold) {
    case Fold::Half: return Half(std::nullopt);
    case Fold::HalfPrintInside: return Half(Face::Inner);
    case Fold::HalfPrintOutside: return Half(Face::Outer);
    case Fold::LetterPrintInside: return Letter(Face::Inner);
    case Fold::LetterPrintOutside: return Letter(Face::Outer);
    case Fold::AccordionPrintInside: return Accordion(Face::Inner);
    case Fold::AccordionPrintOutside: return Accordion(Face::Outer);
    case Fold::ZBoundLeft: return ZFold();
    case Fold::ZBoundRight: return Mirrored(ZFold());
    default: return {{{3, 5, 20, 5, Face::Inner}}, 14, Face::Inner};
    }
}

FoldedSheet Sheet(Fold fold, int size) {
    FoldedSheet sheet = Unscaled(fold);
    for (Panel& panel : sheet.panels) {
        for (int* place : {&panel.fromX, &panel.fromY, &panel.toX, &panel.toY})
            *place = *place * size / kUnits;
    }
    sheet.height = sheet.height * size / kUnits;
    return sheet;
}

// The sides are told apart by what is printed on one of them, and by the shade of the other.
void DrawPanel(Canvas& canvas, const Panel& panel, int height, bool printed, Ink paper) {
    constexpr int kInset = 2;
    // Lines that slope look closer.
    const int pitch = panel.fromY == panel.toY ? 3 : 4;
    const int last = std::abs(panel.toX - panel.fromX);
    for (int column = 0; column <= last; ++column) {
        const int x = panel.fromX + (panel.toX < panel.fromX ? -column : column);
        const int top = panel.fromY + (panel.toY - panel.fromY) * column / last;
        canvas.Fill({x, top, 1, height}, paper);
        canvas.Fill({x, top, 1, 1}, Ink::Edge);
        canvas.Fill({x, top + height - 1, 1, 1}, Ink::Edge);
        if (!printed || column < kInset || column > last - kInset)
            continue;
        for (int line = pitch; line < height - 2; line += pitch)
            canvas.Fill({x, top + line, 1, 1}, Ink::Middle);
    }
    canvas.Fill({panel.fromX, panel.fromY, 1, height}, Ink::Edge);
    canvas.Fill({panel.toX, panel.toY, 1, height}, Ink::Edge);
}

} // namespace

Canvas DrawFold(Fold fold, int size, Ink foldLine) {
    const FoldedSheet sheet = Sheet(fold, size);
    Canvas canvas(size, size);
    for (const Panel& panel : sheet.panels) {
        const bool printed = panel.face == sheet.printed;
        const Ink paper = panel.face == sheet.printed.value_or(Face::Inner) ? Ink::Paper : Ink::Shade;
        DrawPanel(canvas, panel, sheet.height, printed, paper);
    }
    for (std::size_t panel = 1; panel < sheet.panels.size(); ++panel)
        canvas.Fill({sheet.panels[panel].fromX, sheet.panels[panel].fromY, 1, sheet.height}, foldLine);
    return canvas;
}

int FoldLineX(Fold fold, int size) {
    return Sheet(fold, size).panels.at(1).fromX;
}
