// Holes and staples on a sheet of any size.
#pragma once

#include "resources/images/canvas.h"

// In the order of the options of the punch setting, from its second one on.
enum class Edge { Left, Right, Top, Bottom };
enum class Corner { TopLeft, TopRight, BottomLeft, BottomRight };

constexpr bool IsUpright(Edge edge) {
    return edge == Edge::Left || edge == Edge::Right;
}

struct MarkStyle {
    int holeSize;
    int holeInset;
    int holeMargin; // what holes leave free at either end of an edge
    int stapleThickness;
    int stapleInset;
    int longestStaple;
    int stapleGap;       // between staples at least
    int saddleThickness; // of a staple on a fold
    int foldInset;
};
// Staples lie between the edge and the holes, so that a sheet shows both.
inline constexpr MarkStyle kPreviewMarks{5, 4, 8, 2, 2, 12, 8, 4, 9};
inline constexpr MarkStyle kStripMarks{2, 2, 1, 2, 2, 6, 1, 2, 1};

void DrawSheet(Canvas& canvas, Rect sheet);
void DrawHoles(Canvas& canvas, Rect sheet, Edge edge, int count, const MarkStyle& style);
void DrawStaples(Canvas& canvas, Rect sheet, Edge edge, int count, const MarkStyle& style);
void DrawCornerStaple(Canvas& canvas, Rect sheet, Corner corner, const MarkStyle& style);
// Two staples on the fold that halves the sheet's long side, with the fold.
void DrawSaddleStaples(Canvas& canvas, Rect sheet, const MarkStyle& style);
// A dashed line two pixels thick.
void DrawFoldLine(Canvas& canvas, Rect line, Ink ink);
