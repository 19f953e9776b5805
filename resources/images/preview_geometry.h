// Where things lie on a layer of the preview, in pixels of the layer.
#pragma once

#include "resources/images/canvas.h"
#include "resources/images/logical_page.h"
#include "resources/images/sheet_marks.h"

inline constexpr int kLayerSize = 120;
inline constexpr int kBookletLayerSize = 25;

// The front sheet lies in the middle, so that a picture turned around fits it.
constexpr Rect FrontSheet(bool turned) {
    return turned ? Rect{14, 26, 92, 68} : Rect{26, 14, 68, 92};
}

// Inside a margin that holes and staples find room in, at a distance from what is printed. Its sides hold 1,
// 2, 3 and 4 cells of whole pixels.
constexpr Rect PrintedArea(bool turned) {
    return FrontSheet(turned).Inset(11);
}

// What shows of a further sheet: a strip outside the front sheet, touching it.
inline constexpr int kStripDepth = 12;
constexpr Rect FurtherSheet(bool turned, Edge side) {
    constexpr int kShorter = 4;
    const Rect front = FrontSheet(turned);
    switch (side) {
    case Edge::Left:
        return {front.x - kStripDepth, front.y + kShorter, kStripDepth, front.height - 2 * kShorter};
    case Edge::Right: return {front.Right(), front.y + kShorter, kStripDepth, front.height - 2 * kShorter};
    case Edge::Top:
        return {front.x + kShorter, front.y - kStripDepth, front.width - 2 * kShorter, kStripDepth};
    default: return {front.x + kShorter, front.Bottom(), front.width - 2 * kShorter, kStripDepth};
    }
}

// The part of a further sheet's contents that its strip shows, level with the contents of the front sheet.
constexpr Rect FurtherPrintedArea(bool turned, Edge side) {
    constexpr int kDepth = 7;
    constexpr int kMargin = 2;
    const Rect strip = FurtherSheet(turned, side);
    const Rect printed = PrintedArea(turned);
    switch (side) {
    case Edge::Left: return {strip.Right() - kMargin - kDepth, printed.y, kDepth, printed.height};
    case Edge::Right: return {strip.x + kMargin, printed.y, kDepth, printed.height};
    case Edge::Top: return {printed.x, strip.Bottom() - kMargin - kDepth, printed.width, kDepth};
    default: return {printed.x, strip.y + kMargin, printed.width, kDepth};
    }
}

// The side at which the sheet of a triple shows: opposite its binding. The first two are bound at the long
// and at the short edge; the other two are those bound at the opposite edges.
constexpr Edge FreeSide(bool turned, std::size_t triple) {
    switch (triple) {
    case 1: return turned ? Edge::Bottom : Edge::Right;
    case 2: return turned ? Edge::Right : Edge::Bottom;
    case 3: return turned ? Edge::Top : Edge::Left;
    default: return turned ? Edge::Left : Edge::Top;
    }
}
