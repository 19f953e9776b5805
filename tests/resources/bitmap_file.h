// The images as the build has written them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

inline constexpr std::uint32_t kMagenta = 0xFF00FF;
inline constexpr std::uint32_t kShade = 0xE1E5EA; // of paper that lies behind or turns away
inline constexpr std::uint32_t kText = 0x939BA5;
inline constexpr std::uint32_t kEdge = 0x59636F;
inline constexpr std::uint32_t kBlue = 0x0B5CB8; // what an option does

struct Area {
    int left;
    int top;
    int right; // not included, as is the bottom
    int bottom;

    bool Contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
};

struct BitmapFile {
    int width = 0;
    int height = 0; // positive: rows from the bottom up
    int depth = 0;
    std::vector<std::uint32_t> pixels; // 0xRRGGBB, rows from the top

    std::uint32_t At(int x, int y) const {
        return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                         static_cast<std::size_t>(x));
    }
    bool Visible(int x, int y) const { return At(x, y) != kMagenta; }
    bool IsEmpty() const;
    // The smallest area around all visible pixels; nothing for an empty picture.
    std::optional<Area> Extent() const;
    // Whether any pixel of the area has the colour.
    bool Has(std::uint32_t color, const Area& area) const;
    bool HasOnlyColorsOfTheSet() const;
    BitmapFile Part(int x, int partWidth) const;
    BitmapFile TurnedAround() const;
};

// Fails the test and gives an empty bitmap if the file is no plain one. Each file is read once.
const BitmapFile& ReadBitmap(int number);

// What touches itself, by its extent, in the order of the first pixel from the left: all that is visible, or
// what has the colour.
std::vector<Area> Marks(const BitmapFile& bitmap, std::optional<std::uint32_t> color = {});

std::string ImageBytes(const std::string& name);
