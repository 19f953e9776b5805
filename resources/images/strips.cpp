// The strips of images for combo boxes.
#include "resources/images/folds.h"
#include "resources/images/glyphs.h"
#include "resources/images/image_set.h"
#include "resources/images/logical_page.h"
#include "resources/images/sheet_marks.h"
#include "resources/resource.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr int kSize = 24;
constexpr int kFavoriteSize = 16;

constexpr Rect kUpright{3, 1, 18, 22};
constexpr Rect kTurned{1, 3, 22, 18};

Canvas Sheet(Rect sheet = kUpright) {
    Canvas canvas(kSize, kSize);
    DrawSheet(canvas, sheet);
    return canvas;
}

NumberedBitmap Strip(int number, const std::vector<Canvas>& images) {
    const int size = images.front().Width();
    Canvas strip(size * static_cast<int>(images.size()), size);
    int x = 0;
    for (const Canvas& image : images) {
        strip.Put(image, x, 0);
        x += size;
    }
    return {number, std::move(strip)};
}

template <class... Canvases>
std::vector<Canvas> Together(Canvases... images) {
    std::vector<Canvas> all;
    (all.push_back(std::move(images)), ...);
    return all;
}

NumberedBitmap ColorModes() {
    std::vector<Canvas> images;
    for (const Tone tone : {Tone::Color, Tone::Grey}) {
        images.push_back(Sheet());
        DrawLogicalPage(images.back(), kUpright.Inset(3), tone);
    }
    return Strip(IDB_COLOR_MODE, images);
}

// Two pages beside each other, bound at the edge between them.
Canvas BoundPages(Rect first, Rect second, Rect binding, Ink ink = Ink::Action) {
    Canvas canvas(kSize, kSize);
    for (const Rect& page : {first, second}) {
        DrawSheet(canvas, page);
        const int inset = std::min(page.width, page.height) < 10 ? 2 : 3;
        DrawTextLines(canvas, page.Inset(inset), 1, 2, Ink::Middle);
    }
    canvas.Fill(binding, ink);
    return canvas;
}

// The two sides of a sheet, each with an arrow to its head.
Canvas Sides(Rect front, Rect back, bool backTurnedAround) {
    Canvas canvas(kSize, kSize);
    for (const Rect& page : {front, back})
        DrawSheet(canvas, page);
    const Glyph arrow = UpArrowGlyph();
    Canvas up(GlyphWidth(arrow), GlyphHeight(arrow));
    DrawGlyph(up, arrow, 0, 0, Ink::Action);
    const auto put = [&](const Canvas& sign, const Rect& page) {
        canvas.Put(sign, page.x + (page.width - sign.Width()) / 2,
                   page.y + (page.height - sign.Height()) / 2);
    };
    put(up, front);
    put(backTurnedAround ? up.TurnedAround() : std::move(up), back);
    return canvas;
}

// For each way of printing on two sides, an upright sheet and a turned one. The options show the upright
// ones.
NumberedBitmap DuplexModes() {
    std::vector<Canvas> images;
    for (const Rect& sheet : {kUpright, kTurned}) {
        images.push_back(Sheet(sheet));
        DrawTextLines(images.back(), sheet.Inset(4), 1, 2, Ink::Middle);
    }
    // Long edge, short edge.
    images.push_back(BoundPages({1, 4, 11, 16}, {12, 4, 11, 16}, {11, 3, 2, 18}));
    images.push_back(BoundPages({4, 1, 16, 11}, {4, 12, 16, 11}, {3, 11, 18, 2}));
    images.push_back(BoundPages({7, 0, 9, 12}, {7, 12, 9, 12}, {6, 11, 11, 2}));
    images.push_back(BoundPages({0, 7, 12, 9}, {12, 7, 12, 9}, {11, 6, 2, 11}));
    // Heads at the same edge, at opposite edges.
    images.push_back(Sides({1, 4, 10, 16}, {13, 4, 10, 16}, false));
    images.push_back(Sides({4, 0, 16, 12}, {4, 12, 16, 12}, false));
    images.push_back(Sides({1, 4, 10, 16}, {13, 4, 10, 16}, true));
    return Strip(IDB_DUPLEX, images);
}

// A star that has changed, a sheet for the standard settings, a star. The page shows the last two.
NumberedBitmap FavoriteMarks() {
    static constexpr std::array<std::string_view, 13> kStar{
        "......#......", "......#......", ".....###.....", ".....###.....", "#############",
        ".###########.", "..#########..", "...#######...", "...#######...", "..#########..",
        "..####.####..", ".###.....###.", ".#.........#.",
    };
    const auto star = [] {
        Canvas canvas(kFavoriteSize, kFavoriteSize);
        DrawGlyph(canvas, kStar, 1, 1, Ink::Sun);
        return canvas;
    };
    Canvas standard(kFavoriteSize, kFavoriteSize);
    const Rect sheet{2, 1, 12, 14};
    DrawSheet(standard, sheet);
    DrawLogicalPage(standard, sheet.Inset(2), Tone::Grey);
    Canvas changed = star();
    changed.Disc({9, 9, 7, 7}, Ink::Paper);
    changed.Disc({10, 10, 5, 5}, Ink::Title);
    return Strip(IDB_FAVORITE_MARKS, Together(std::move(changed), std::move(standard), star()));
}

Canvas SheetOfCells(Rect sheet, PageGrid grid, int cellWidth, int cellHeight, int gap) {
    Canvas canvas = Sheet(sheet);
    const int width = grid.columns * (cellWidth + gap) - gap;
    const int height = grid.rows * (cellHeight + gap) - gap;
    const int left = sheet.x + (sheet.width - width) / 2;
    const int top = sheet.y + (sheet.height - height) / 2;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column)
            canvas.Fill(
                {left + column * (cellWidth + gap), top + row * (cellHeight + gap), cellWidth, cellHeight},
                Ink::Text);
    }
    return canvas;
}

Canvas Booklet() {
    Canvas canvas = BoundPages({1, 4, 11, 16}, {12, 4, 11, 16}, {11, 4, 2, 16}, Ink::Edge);
    for (const int y : {7, 14})
        canvas.Fill({11, y, 2, 4}, Ink::Action);
    return canvas;
}

// 1, 2, 4, 6, 8, 9 and 16 pages on a sheet, and a booklet. No option shows 8 pages.
NumberedBitmap PagesPerSheet() {
    return Strip(IDB_NUP,
                 Together(SheetOfCells(kUpright, {1, 1}, 12, 16, 0), SheetOfCells(kTurned, {2, 1}, 8, 12, 2),
                          SheetOfCells(kUpright, {2, 2}, 6, 8, 2), SheetOfCells(kTurned, {3, 2}, 4, 6, 2),
                          SheetOfCells(kTurned, {4, 2}, 3, 6, 2), SheetOfCells(kUpright, {3, 3}, 4, 5, 1),
                          SheetOfCells(kUpright, {4, 4}, 2, 3, 2), Booklet()));
}

NumberedBitmap PunchPlaces() {
    std::vector<Canvas> images{};
    images.push_back(Sheet());
    for (const int holes : {2, 3, 4}) {
        for (const Edge edge : {Edge::Left, Edge::Right, Edge::Top, Edge::Bottom}) {
            images.push_back(Sheet());
            DrawHoles(images.back(), kUpright, edge, holes, kStripMarks);
        }
    }
    return Strip(IDB_PUNCH, images);
}

Canvas SaddleSheet() {
    Canvas canvas = Sheet(kTurned);
    DrawSaddleStaples(canvas, kTurned, kStripMarks);
    return canvas;
}

// The folded sheet with its staples: print shows inside or outside.
Canvas SaddleFold(Fold fold) {
    Canvas canvas = DrawFold(fold, kSize, Ink::Edge);
    const int x = FoldLineX(fold, kSize);
    for (const int y : {9, 15})
        canvas.Fill({x - 1, y, 3, 4}, Ink::Action);
    return canvas;
}

NumberedBitmap StaplePlaces() {
    std::vector<Canvas> images;
    images.push_back(Sheet());
    for (const Corner corner : {Corner::TopLeft, Corner::TopRight, Corner::BottomLeft, Corner::BottomRight}) {
        images.push_back(Sheet());
        DrawCornerStaple(images.back(), kUpright, corner, kStripMarks);
    }
    const auto addEdges = [&images](int staples) {
        for (const Edge edge : {Edge::Top, Edge::Bottom, Edge::Left, Edge::Right}) {
            images.push_back(Sheet());
            DrawStaples(images.back(), kUpright, edge, staples, kStripMarks);
        }
    };
    addEdges(2);
    images.push_back(SaddleSheet());
    images.push_back(SaddleFold(Fold::HalfPrintInside));
    images.push_back(SaddleFold(Fold::HalfPrintOutside));
    addEdges(1);
    addEdges(4);
    return Strip(IDB_STAPLE, images);
}

NumberedBitmap Folds() {
    std::vector<Canvas> images;
    for (int fold = 0; fold < kFoldCount; ++fold)
        images.push_back(DrawFold(static_cast<Fold>(fold), kSize));
    return Strip(IDB_FOLD, images);
}

} // namespace

std::vector<NumberedBitmap> DrawStrips() {
    std::vector<NumberedBitmap> strips;
    strips.push_back(ColorModes());
    strips.push_back(DuplexModes());
    strips.push_back(FavoriteMarks());
    strips.push_back(PagesPerSheet());
    strips.push_back(PunchPlaces());
    strips.push_back(StaplePlaces());
    strips.push_back(Folds());
    return strips;
}
