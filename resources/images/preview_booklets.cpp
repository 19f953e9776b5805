// The booklet: an open one of two pages, on small bitmaps that stand where the layer table puts them. A
// bitmap shows what its area cuts out of the picture.
#include "pages/preview_layers.h"
#include "resources/images/preview_geometry.h"
#include "resources/images/preview_layer_set.h"

#include <array>
#include <cstdint>
#include <utility>

namespace {

constexpr std::uint32_t kBooklet = 6;
constexpr std::uint32_t kSaddle = 11;
constexpr std::uint32_t kTurnedAround = 2;
constexpr int kPictureSize = 128; // holds the places of all small bitmaps

// The fold runs down the middle; turned, across.
constexpr Rect OpenBooklet(bool turned) {
    return turned ? Rect{23, 42, 21, 25} : Rect{34, 30, 25, 21};
}

constexpr Rect Fold(bool turned) {
    const Rect open = OpenBooklet(turned);
    return turned ? Rect{open.x, open.y + open.height / 2, open.width, 1}
                  : Rect{open.x + open.width / 2, open.y, 1, open.height};
}

constexpr std::array<Rect, 2> Pages(bool turned) {
    const Rect open = OpenBooklet(turned);
    const Rect fold = Fold(turned);
    if (turned)
        return {{{open.x, open.y, open.width, open.height / 2},
                 {open.x, fold.Bottom(), open.width, open.height / 2}}};
    return {
        {{open.x, open.y, open.width / 2, open.height}, {fold.Right(), open.y, open.width / 2, open.height}}};
}

void DrawPages(Canvas& picture, bool turned) {
    DrawSheet(picture, OpenBooklet(turned));
    picture.Fill(Fold(turned), Ink::Edge);
    for (const Rect& page : Pages(turned))
        DrawTextLines(picture, page.Inset(3), 1, 2, Ink::Pale);
}

// Turned around, the title is at the foot.
void DrawTitles(Canvas& picture, bool turned) {
    for (const Rect& page : Pages(turned)) {
        const Rect text = page.Inset(3);
        picture.Fill({text.x + text.width / 3, text.Bottom() - 1, text.width - text.width / 3, 1}, Ink::Edge);
    }
}

// A picture on each page, as far to the lower right as the bitmap reaches.
void DrawPictures(Canvas& picture, bool turned) {
    for (const Rect& page : Pages(turned)) {
        const int height = turned ? 6 : 8;
        const int width = turned ? 4 : 6;
        const Rect area{page.Right() - 2 - width - (turned ? 0 : 1), page.Bottom() - 3 - height, width,
                        height};
        picture.Fill(area, Ink::Sky);
        picture.Fill({area.x, area.y + height / 2, area.width, height - height / 2}, Ink::Hill);
        picture.Fill({area.Right() - 2, area.y + 1, 1, 1}, Ink::Sun);
    }
}

// The bitmap for the colour of a booklet turned around lies below the booklet.
void DrawSwatches(Canvas& picture, bool turned) {
    const Rect open = OpenBooklet(turned);
    int x = open.x + 5;
    for (const Ink ink : {Ink::Title, Ink::Sun, Ink::Hill, Ink::Text}) {
        picture.Fill({x, open.Bottom() + 3, 3, 3}, ink);
        x += 4;
    }
}

// A staple clasps the fold at that end of it where its bitmap lies.
void DrawStaple(Canvas& picture, bool turned) {
    const Rect fold = Fold(turned);
    if (turned) {
        picture.Fill({fold.Right() - 2, fold.y - 4, 2, 9}, Ink::Action);
        picture.Fill({fold.Right() - 2, fold.y - 4, 5, 2}, Ink::Action);
        picture.Fill({fold.Right() - 2, fold.y + 3, 5, 2}, Ink::Action);
    } else {
        picture.Fill({fold.x - 4, fold.Bottom() - 2, 9, 2}, Ink::Action);
        picture.Fill({fold.x - 4, fold.Bottom() - 2, 2, 5}, Ink::Action);
        picture.Fill({fold.x + 3, fold.Bottom() - 2, 2, 5}, Ink::Action);
    }
}

using Drawing = void (*)(Canvas& picture, bool turned);

// The layer gets the part of the picture that lies on its bitmap.
void AddCutOut(BitmapSet& bitmaps, int layer, bool turned, Drawing draw) {
    const auto place = FindLayerBitmap(layer);
    if (!place)
        return;
    Canvas picture(kPictureSize, kPictureSize);
    draw(picture, turned);
    Canvas cut(kBookletLayerSize, kBookletLayerSize);
    cut.Put(picture, -place->x, -place->y);
    AddLayer(bitmaps, layer, std::move(cut));
}

} // namespace

void DrawPreviewBooklets(BitmapSet& bitmaps) {
    for (const std::uint32_t orientation : {0u, 1u, 2u}) {
        const bool turned = IsTurnedPicture(kBooklet, orientation);
        const LayerTriple layers = SheetLayers(kBooklet, orientation, 0);
        AddCutOut(bitmaps, layers[0], turned, DrawPages);
        AddCutOut(bitmaps, layers[1], turned, DrawTitles);
        AddCutOut(bitmaps, layers[2], turned, orientation == kTurnedAround ? DrawSwatches : DrawPictures);
        AddCutOut(bitmaps, BookletStapleLayer(turned, kSaddle), turned, DrawStaple);
    }
}
