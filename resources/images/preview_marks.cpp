// Punch holes and staples.
#include "pages/preview_layers.h"
#include "resources/images/preview_geometry.h"
#include "resources/images/preview_layer_set.h"

#include <cstdint>

namespace {

constexpr std::uint32_t kFirstSaddle = 11;
constexpr std::uint32_t kLastSaddle = 13;

struct CornerMode {
    std::uint32_t mode;
    Corner corner;
};
constexpr CornerMode kCornerModes[] = {
    {1, Corner::TopLeft}, {2, Corner::TopRight}, {3, Corner::BottomLeft}, {4, Corner::BottomRight}};

struct EdgeMode {
    std::uint32_t mode;
    Edge edge;
    int staples;
};
constexpr EdgeMode kEdgeModes[] = {
    {6, Edge::Top, 2},  {7, Edge::Bottom, 2},  {8, Edge::Left, 2},  {9, Edge::Right, 2},
    {14, Edge::Top, 1}, {15, Edge::Bottom, 1}, {16, Edge::Left, 1}, {17, Edge::Right, 1},
    {18, Edge::Top, 4}, {19, Edge::Bottom, 4}, {20, Edge::Left, 4}, {21, Edge::Right, 4},
};

void DrawPunch(BitmapSet& bitmaps, bool turned) {
    constexpr Edge kEdges[] = {Edge::Left, Edge::Right, Edge::Top, Edge::Bottom};
    // The setting's values 1 to 3 are 2 to 4 holes. The table's other rows repeat these.
    for (std::uint32_t value = 1; value <= 3; ++value) {
        for (std::uint32_t punch = 1; punch <= std::size(kEdges); ++punch) {
            Canvas canvas(kLayerSize, kLayerSize);
            DrawHoles(canvas, FrontSheet(turned), kEdges[punch - 1], static_cast<int>(value) + 1,
                      kPreviewMarks);
            AddLayer(bitmaps, PunchLayer(turned, punch, value), std::move(canvas));
        }
    }
}

void DrawStapleLayers(BitmapSet& bitmaps, bool turned) {
    const Rect sheet = FrontSheet(turned);
    for (const CornerMode& row : kCornerModes) {
        Canvas canvas(kLayerSize, kLayerSize);
        DrawCornerStaple(canvas, sheet, row.corner, kPreviewMarks);
        AddLayer(bitmaps, StapleLayer(turned, row.mode), std::move(canvas));
    }
    for (const EdgeMode& row : kEdgeModes) {
        Canvas canvas(kLayerSize, kLayerSize);
        DrawStaples(canvas, sheet, row.edge, row.staples, kPreviewMarks);
        AddLayer(bitmaps, StapleLayer(turned, row.mode), std::move(canvas));
    }
    for (std::uint32_t mode = kFirstSaddle; mode <= kLastSaddle; ++mode) {
        Canvas canvas(kLayerSize, kLayerSize);
        DrawSaddleStaples(canvas, sheet, kPreviewMarks);
        AddLayer(bitmaps, StapleLayer(turned, mode), std::move(canvas));
    }
}

} // namespace

void DrawPreviewMarks(BitmapSet& bitmaps) {
    for (const bool turned : {false, true}) {
        DrawPunch(bitmaps, turned);
        DrawStapleLayers(bitmaps, turned);
    }
}
