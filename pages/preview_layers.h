// The picture of the finished job, as a list of ready-made bitmaps in the order in which they are painted.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

// Option indices as they stand in the Current bank, where any 32-bit number may stand.
struct PreviewSettings {
    std::uint32_t nup = 0;
    std::uint32_t duplexMode = 0;
    std::uint32_t colorMode = 0;
    std::uint32_t pageOrientation = 0;
    std::uint32_t stapleMode = 0;
    std::uint32_t punchHoles = 0;
    std::uint32_t punch = 0;
};

struct PreviewLayers {
    static constexpr std::size_t kMaximum = 8;

    std::array<int, kMaximum> layers{};
    std::size_t count = 0;
    std::span<const int> List() const& { return std::span(layers).first(count); }
    void List() const&& = delete; // the list would outlive what it shows
};

// The layers of a job's picture. A 0 in it, which comes from a triple, has no bitmap. A value outside the
// tables adds nothing.
PreviewLayers ComposePreview(const PreviewSettings& settings);

// True where page 1 lies on its side: the second of the staple and punch tables holds.
bool IsTurnedPicture(std::uint32_t nup, std::uint32_t pageOrientation);

// A layer's bitmap and where it is painted, in pixels at 96 dpi, before the picture's own place is added.
struct LayerBitmap {
    int layer;
    int bitmap; // resource number
    int x;
    int y;
};

// The layers that the product has a bitmap for, by number.
std::span<const LayerBitmap> LayerBitmaps();
std::optional<LayerBitmap> FindLayerBitmap(int layer);

// The tables, for whoever draws the bitmaps. 0 stands for no layer, also for an index outside its table.
inline constexpr std::size_t kPreviewSheets = 5; // the front sheet, and four others for duplex
using LayerTriple = std::array<int, 3>;          // the third is for colour only
LayerTriple SheetLayers(std::uint32_t nup, std::uint32_t pageOrientation, std::size_t sheet);
int PunchLayer(bool turned, std::uint32_t punch, std::uint32_t punchHoles);
int StapleLayer(bool turned, std::uint32_t stapleMode);
int BookletStapleLayer(bool turned, std::uint32_t stapleMode); // for N-up 6
