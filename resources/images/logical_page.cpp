#include "resources/images/logical_page.h"

#include <algorithm>

namespace {

struct PageInks {
    Ink title;
    Ink sky;
    Ink hill;
    Ink sun;
    Ink text;
};
constexpr PageInks kGreyInks{Ink::Edge, Ink::Pale, Ink::Middle, Ink::Paper, Ink::Middle};
constexpr PageInks kColorInks{Ink::Title, Ink::Sky, Ink::Hill, Ink::Sun, Ink::Text};

// Lines and gaps that suit a page of this height.
struct Measures {
    int title;
    int gap;
    int line;
    int pitch;
};

constexpr Measures MeasuresFor(int height) {
    if (height >= 40)
        return {4, 4, 2, 5};
    if (height >= 24)
        return {3, 2, 1, 3};
    if (height >= 16)
        return {2, 1, 1, 2};
    return {1, 1, 1, 2};
}
constexpr int kLeastHeightWithTitle = 10;

void DrawPicture(Canvas& canvas, Rect area, const PageInks& inks) {
    canvas.Fill(area, inks.sky);
    const double left = area.x;
    const double bottom = area.Bottom();
    const double width = area.width;
    const double height = area.height;
    canvas.Polygon({{left, bottom},
                    {left, bottom - height * 0.25},
                    {left + width * 0.3, bottom - height * 0.7},
                    {left + width * 0.55, bottom - height * 0.3},
                    {left + width * 0.7, bottom - height * 0.45},
                    {left + width, bottom - height * 0.1},
                    {left + width, bottom}},
                   inks.hill);
    const int sun = std::min(area.width, area.height) / 3;
    const int margin = std::max(1, sun / 3);
    if (sun >= 2)
        canvas.Disc({area.Right() - margin - sun, area.y + margin, sun, sun}, inks.sun);
}

void DrawPictureBesideText(Canvas& canvas, Rect area, const PageInks& inks) {
    const int picture = area.width * 2 / 5;
    DrawPicture(canvas, {area.x, area.y, picture, area.height}, inks);
    DrawTextLines(canvas, {area.x + picture + 2, area.y, area.width - picture - 2, area.height}, 1, 2,
                  inks.text);
}

} // namespace

void DrawTextLines(Canvas& canvas, Rect area, int thickness, int pitch, Ink ink) {
    for (int y = area.y; y + thickness <= area.Bottom(); y += pitch) {
        const bool last = y + pitch + thickness > area.Bottom() && y != area.y;
        canvas.Fill({area.x, y, last ? area.width * 3 / 5 : area.width, thickness}, ink);
    }
}

void DrawLogicalPage(Canvas& canvas, Rect area, Tone tone) {
    const PageInks& inks = tone == Tone::Grey ? kGreyInks : kColorInks;
    if (area.width >= 2 * area.height) {
        DrawPictureBesideText(canvas, area, inks);
        return;
    }
    const Measures measures = MeasuresFor(area.height);
    int y = area.y;
    if (area.height >= kLeastHeightWithTitle) {
        canvas.Fill({area.x, y, area.width * 2 / 3, measures.title}, inks.title);
        y += measures.title + measures.gap;
    }
    const int picture = std::max(2, (area.Bottom() - y) / 2);
    DrawPicture(canvas, {area.x, y, area.width, picture}, inks);
    y += picture + measures.gap;
    DrawTextLines(canvas, {area.x, y, area.width, area.Bottom() - y}, measures.line, measures.pitch,
                  inks.text);
}

Rect GridCell(Rect area, PageGrid grid, int column, int row) {
    const int width = (area.width + kCellGap) / grid.columns - kCellGap;
    const int height = (area.height + kCellGap) / grid.rows - kCellGap;
    return {area.x + column * (width + kCellGap), area.y + row * (height + kCellGap), width, height};
}
