// What one paint of the preview consists of: which bitmaps, where, and in which order.
#pragma once

#include "pages/preview_layers.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// A bitmap and where it is painted, in pixels at 96 dpi. One with number 0 is not there.
struct PlacedBitmap {
    int bitmap;
    int x;
    int y;
    friend bool operator==(const PlacedBitmap&, const PlacedBitmap&) = default;
};

// What the symbols at the left edge show, as it stands in the Current bank.
struct SymbolSettings {
    std::uint32_t pageOrientation = 0;
    std::uint32_t collate = 0;
    std::uint32_t fold = 0;
};

template <std::size_t Maximum>
struct PlacedBitmaps {
    std::array<PlacedBitmap, Maximum> bitmaps{};
    std::size_t count = 0;
    void Add(PlacedBitmap bitmap) { bitmaps[count++] = bitmap; }
    std::span<const PlacedBitmap> List() const& { return std::span(bitmaps).first(count); }
    void List() const&& = delete; // the list would outlive what it shows
};

inline constexpr std::size_t kMaximumSymbols = 3;
using PreviewSymbols = PlacedBitmaps<kMaximumSymbols>;

// The symbols, then the picture of the job.
struct PreviewPlan : PlacedBitmaps<kMaximumSymbols + PreviewLayers::kMaximum> {
    std::size_t symbols = 0;
    std::span<const PlacedBitmap> Symbols() const& { return List().first(symbols); }
    std::span<const PlacedBitmap> Picture() const& { return List().subspan(symbols); }
    void Symbols() const&& = delete;
    void Picture() const&& = delete;
};

// The symbols of orientation, collating and folding. A value without a symbol adds nothing.
PreviewSymbols ComposeSymbols(const SymbolSettings& settings);

// A layer's bitmap at its place on the control; number 0 for a layer that has none.
PlacedBitmap PlaceLayer(int layer);

// Everything that a paint loads and draws, in order.
PreviewPlan PlanPreview(const SymbolSettings& symbols, const PreviewSettings& picture);
// How many bitmaps that loads.
std::size_t CountBitmaps(const PreviewPlan& plan);

struct TargetRectangle {
    int x;
    int y;
    int width;
    int height;
    friend bool operator==(const TargetRectangle&, const TargetRectangle&) = default;
};

// Where a bitmap of this size goes on a device of this resolution. The position is scaled with a fraction,
// the size in whole numbers, so the two may differ by a pixel.
TargetRectangle ScaleToDevice(int x, int y, int width, int height, int dpiX, int dpiY);
