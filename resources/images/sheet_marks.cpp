#include "resources/images/sheet_marks.h"

#include <algorithm>

namespace {

// Where the index-th of `count` equal marks begins on a length: each in the middle of its share, the second
// half mirroring the first.
constexpr int MarkStart(int length, int markLength, int count, int index) {
    const int mirrored = count - 1 - index;
    if (index > mirrored)
        return length - markLength - MarkStart(length, markLength, count, mirrored);
    return (length * (2 * index + 1) / count - markLength) / 2;
}

// The area of a mark that begins `start` along the edge and lies `inset` inside.
constexpr Rect AtEdge(Rect sheet, Edge edge, int start, int length, int thickness, int inset) {
    switch (edge) {
    case Edge::Left: return {sheet.x + inset, sheet.y + start, thickness, length};
    case Edge::Right: return {sheet.Right() - inset - thickness, sheet.y + start, thickness, length};
    case Edge::Top: return {sheet.x + start, sheet.y + inset, length, thickness};
    default: return {sheet.x + start, sheet.Bottom() - inset - thickness, length, thickness};
    }
}

constexpr int LengthOf(Rect sheet, Edge edge) {
    return IsUpright(edge) ? sheet.height : sheet.width;
}

} // namespace

void DrawSheet(Canvas& canvas, Rect sheet) {
    canvas.Fill(sheet, Ink::Paper);
    canvas.Frame(sheet, Ink::Edge);
}

void DrawHoles(Canvas& canvas, Rect sheet, Edge edge, int count, const MarkStyle& style) {
    const int length = LengthOf(sheet, edge) - 2 * style.holeMargin;
    for (int hole = 0; hole < count; ++hole) {
        // Two holes are the inner ones of four.
        const int start = style.holeMargin + (count == 2 ? MarkStart(length, style.holeSize, 4, hole + 1)
                                                         : MarkStart(length, style.holeSize, count, hole));
        canvas.Disc(AtEdge(sheet, edge, start, style.holeSize, style.holeSize, style.holeInset), Ink::Hole);
    }
}

void DrawStaples(Canvas& canvas, Rect sheet, Edge edge, int count, const MarkStyle& style) {
    constexpr int kFrame = 1;
    const int edgeLength = LengthOf(sheet, edge) - 2 * kFrame;
    const int length = std::min(style.longestStaple, edgeLength / count - style.stapleGap);
    for (int staple = 0; staple < count; ++staple) {
        const int start = kFrame + MarkStart(edgeLength, length, count, staple);
        canvas.Fill(AtEdge(sheet, edge, start, length, style.stapleThickness, style.stapleInset),
                    Ink::Action);
    }
}

void DrawCornerStaple(Canvas& canvas, Rect sheet, Corner corner, const MarkStyle& style) {
    const bool left = corner == Corner::TopLeft || corner == Corner::BottomLeft;
    const bool top = corner == Corner::TopLeft || corner == Corner::TopRight;
    // Across the corner: where the column nears the sheet's middle, the row nears the edge.
    const int span = style.longestStaple * 3 / 4;
    const int width = style.stapleThickness + 1;
    for (int step = 0; step < span; ++step) {
        const int across = style.stapleInset + step;
        const int down = style.stapleInset + span - 1 - step;
        canvas.Fill({left ? sheet.x + across : sheet.Right() - across - width,
                     top ? sheet.y + down : sheet.Bottom() - down - 1, width, 1},
                    Ink::Action);
    }
}

void DrawFoldLine(Canvas& canvas, Rect line, Ink ink) {
    constexpr int kDash = 2;
    const bool upright = line.height > line.width;
    const int length = upright ? line.height : line.width;
    for (int start = 0; start < length; start += 2 * kDash) {
        const int dash = std::min(kDash, length - start);
        canvas.Fill(upright ? Rect{line.x, line.y + start, line.width, dash}
                            : Rect{line.x + start, line.y, dash, line.height},
                    ink);
    }
}

void DrawSaddleStaples(Canvas& canvas, Rect sheet, const MarkStyle& style) {
    constexpr int kFold = 2;
    const bool foldLies = sheet.height > sheet.width;
    const int inset = style.foldInset;
    const Rect fold =
        foldLies
            ? Rect{sheet.x + inset, sheet.y + (sheet.height - kFold) / 2, sheet.width - 2 * inset, kFold}
            : Rect{sheet.x + (sheet.width - kFold) / 2, sheet.y + inset, kFold, sheet.height - 2 * inset};
    DrawFoldLine(canvas, fold, Ink::Edge);

    MarkStyle onFold = style;
    onFold.stapleThickness = style.saddleThickness;
    // As far over the fold on either side.
    onFold.stapleInset = -(onFold.stapleThickness - kFold) / 2;
    onFold.longestStaple -= kFold;
    DrawStaples(canvas, fold, foldLies ? Edge::Top : Edge::Left, 2, onFold);
}
