// Sheets and their contents.
#include "pages/preview_layers.h"
#include "resources/images/preview_geometry.h"
#include "resources/images/preview_layer_set.h"

#include <array>
#include <cstdint>
#include <utility>

namespace {

// By N-up row, on a turned sheet; 2 and 6 pages come on one when the pages are upright.
constexpr std::array<PageGrid, 6> kTurnedGrids{{{1, 1}, {2, 1}, {2, 2}, {3, 2}, {3, 3}, {4, 4}}};
constexpr std::uint32_t kOrientations = 3;
constexpr std::uint32_t kTurnedAround = 2;

PageGrid Grid(std::uint32_t nup, bool turned) {
    PageGrid grid = kTurnedGrids.at(nup);
    if (!turned)
        std::swap(grid.columns, grid.rows);
    return grid;
}

void DrawCells(Canvas& canvas, Rect area, PageGrid grid, Tone tone) {
    const bool framed = grid.columns * grid.rows > 1 && area.width > 12 && area.height > 12;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const Rect cell = GridCell(area, grid, column, row);
            if (framed && tone == Tone::Grey)
                canvas.Frame(cell, Ink::Pale);
            const int inset = !framed ? 0 : cell.width >= 30 && cell.height >= 30 ? 4 : 2;
            DrawLogicalPage(canvas, cell.Inset(inset), tone);
        }
    }
}

Canvas Contents(std::uint32_t nup, bool turned, bool around, Tone tone) {
    Canvas canvas(kLayerSize, kLayerSize);
    DrawCells(canvas, PrintedArea(turned), Grid(nup, turned), tone);
    return around ? canvas.TurnedAround() : std::move(canvas);
}

// What shows of the contents of a further sheet in grey, in colour, or as the end of some text that is grey
// in any job.
enum class Margin { Grey, Color, Neutral };

void DrawTextEnds(Canvas& canvas, Rect area, PageGrid grid) {
    constexpr int kPitch = 3;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            Rect cell = GridCell(area, grid, column, row);
            cell.width = cell.width * 3 / 5;
            DrawTextLines(canvas, cell, 1, kPitch, Ink::Middle);
        }
    }
}

Canvas FurtherContents(std::uint32_t nup, bool turned, bool around, Edge side, Margin margin) {
    // Turned around, what was drawn at the opposite side comes to this one.
    constexpr std::array kOpposite{Edge::Right, Edge::Left, Edge::Bottom, Edge::Top};
    const Edge drawn = around ? kOpposite.at(static_cast<std::size_t>(side)) : side;
    PageGrid grid = Grid(nup, turned);
    (IsUpright(side) ? grid.columns : grid.rows) = 1;
    Canvas canvas(kLayerSize, kLayerSize);
    const Rect area = FurtherPrintedArea(turned, drawn);
    if (margin == Margin::Neutral)
        DrawTextEnds(canvas, area, grid);
    else
        DrawCells(canvas, area, grid, margin == Margin::Grey ? Tone::Grey : Tone::Color);
    return around ? canvas.TurnedAround() : std::move(canvas);
}

Canvas FrontSheetPicture(bool turned) {
    Canvas canvas(kLayerSize, kLayerSize);
    DrawSheet(canvas, FrontSheet(turned));
    return canvas;
}

Canvas FurtherSheetPicture(bool turned, Edge side) {
    const Rect strip = FurtherSheet(turned, side);
    Canvas canvas(kLayerSize, kLayerSize);
    canvas.Fill(strip, Ink::Shade);
    // The side towards the front sheet has that one's edge.
    canvas.Frame({strip.x - (side == Edge::Right), strip.y - (side == Edge::Bottom),
                  strip.width + IsUpright(side), strip.height + !IsUpright(side)},
                 Ink::Edge);
    canvas.Erase(FrontSheet(turned));
    return canvas;
}

void DrawTriple(BitmapSet& bitmaps, std::uint32_t nup, std::uint32_t orientation, std::size_t sheet) {
    const LayerTriple layers = SheetLayers(nup, orientation, sheet);
    const bool turned = IsTurnedPicture(nup, orientation);
    const bool around = orientation == kTurnedAround;
    if (sheet == 0) {
        AddLayer(bitmaps, layers[0], FrontSheetPicture(turned));
        AddLayer(bitmaps, layers[1], Contents(nup, turned, around, Tone::Grey));
        AddLayer(bitmaps, layers[2], Contents(nup, turned, around, Tone::Color));
        return;
    }
    const Edge side = FreeSide(turned, sheet);
    AddLayer(bitmaps, layers[0], FurtherSheetPicture(turned, side));
    // A sheet without a layer of its own for colour shows the same in a job in colour.
    const Margin margin = layers[2] == 0 ? Margin::Neutral : Margin::Grey;
    AddLayer(bitmaps, layers[1], FurtherContents(nup, turned, around, side, margin));
    AddLayer(bitmaps, layers[2], FurtherContents(nup, turned, around, side, Margin::Color));
}

} // namespace

void DrawPreviewSheets(BitmapSet& bitmaps) {
    for (std::uint32_t nup = 0; nup < kTurnedGrids.size(); ++nup) {
        for (std::uint32_t orientation = 0; orientation < kOrientations; ++orientation) {
            for (std::size_t sheet = 0; sheet < kPreviewSheets; ++sheet)
                DrawTriple(bitmaps, nup, orientation, sheet);
        }
    }
}
