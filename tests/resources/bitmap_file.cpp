#include "tests/resources/bitmap_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <sstream>

namespace {

std::uint32_t Number(const std::string& bytes, std::size_t at, int count) {
    std::uint32_t value = 0;
    for (int i = count; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes.at(at + static_cast<std::size_t>(i)));
    return value;
}

// The colours that images may have.
constexpr std::array<std::uint32_t, 13> kColors{0x0B5CB8, 0x2A3038, 0x3FA34D, 0x59636F, 0x5B8DC9,
                                                0x939BA5, 0xA8D8F5, 0xC3C9D0, 0xC8322B, 0xE1E5EA,
                                                0xF7B500, 0xFF00FF, 0xFFFFFF};
static_assert(std::ranges::is_sorted(kColors));

BitmapFile Read(int number);

} // namespace

const BitmapFile& ReadBitmap(int number) {
    static std::map<int, BitmapFile> read;
    const auto found = read.find(number);
    return found != read.end() ? found->second : read.emplace(number, Read(number)).first->second;
}

std::string ImageBytes(const std::string& name) {
    std::ifstream file(ZR_IMAGES_DIR "/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

namespace {

BitmapFile Read(int number) {
    const std::string bytes = ImageBytes(std::to_string(number) + ".bmp");
    BitmapFile bitmap;
    EXPECT_GE(bytes.size(), 54u) << number;
    if (bytes.size() < 54)
        return bitmap;
    EXPECT_EQ(bytes.substr(0, 2), "BM") << number;
    EXPECT_EQ(Number(bytes, 2, 4), bytes.size()) << number;
    EXPECT_EQ(Number(bytes, 30, 4), 0u) << number << " is compressed";
    bitmap.width = static_cast<int>(Number(bytes, 18, 4));
    bitmap.height = static_cast<int>(Number(bytes, 22, 4));
    bitmap.depth = static_cast<int>(Number(bytes, 28, 2));
    const auto pixel = static_cast<std::size_t>(bitmap.depth / 8);
    const auto width = static_cast<std::size_t>(bitmap.width);
    const std::size_t row = (width * pixel + 3) / 4 * 4;
    const std::size_t start = Number(bytes, 10, 4);
    EXPECT_EQ(bytes.size(), start + row * static_cast<std::size_t>(bitmap.height)) << number;
    if (bytes.size() != start + row * static_cast<std::size_t>(bitmap.height))
        return {};
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data()) + start;
    bitmap.pixels.resize(width * static_cast<std::size_t>(bitmap.height));
    std::uint32_t* to = bitmap.pixels.data();
    for (auto y = static_cast<std::size_t>(bitmap.height); y-- > 0;) {
        const unsigned char* at = data + y * row;
        for (std::size_t x = 0; x < width; ++x, at += pixel)
            *to++ = at[0] | static_cast<std::uint32_t>(at[1]) << 8 | static_cast<std::uint32_t>(at[2]) << 16;
    }
    return bitmap;
}

} // namespace

bool BitmapFile::IsEmpty() const {
    return std::ranges::all_of(pixels, [](std::uint32_t pixel) { return pixel == kMagenta; });
}

std::optional<Area> BitmapFile::Extent() const {
    std::optional<Area> extent;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (!Visible(x, y))
                continue;
            if (!extent)
                extent = Area{x, y, x + 1, y + 1};
            extent->left = std::min(extent->left, x);
            extent->right = std::max(extent->right, x + 1);
            extent->bottom = y + 1;
        }
    }
    return extent;
}

bool BitmapFile::Has(std::uint32_t color, const Area& area) const {
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            if (At(x, y) == color)
                return true;
        }
    }
    return false;
}

bool BitmapFile::HasOnlyColorsOfTheSet() const {
    std::uint32_t known = kMagenta;
    const std::uint32_t* pixel = pixels.data();
    for (std::size_t left = pixels.size(); left > 0; --left, ++pixel) {
        if (*pixel == known)
            continue; // neighbours are mostly alike
        known = *pixel;
        if (!std::ranges::binary_search(kColors, known))
            return false;
    }
    return true;
}

BitmapFile BitmapFile::Part(int x, int partWidth) const {
    BitmapFile part{partWidth, height, depth, {}};
    for (int y = 0; y < height; ++y) {
        for (int column = x; column < x + partWidth; ++column)
            part.pixels.push_back(At(column, y));
    }
    return part;
}

BitmapFile BitmapFile::TurnedAround() const {
    BitmapFile turned = *this;
    std::ranges::reverse(turned.pixels);
    return turned;
}

std::vector<Area> Marks(const BitmapFile& bitmap, std::optional<std::uint32_t> color) {
    std::vector<bool> open;
    for (const std::uint32_t pixel : bitmap.pixels)
        open.push_back(color ? pixel == *color : pixel != kMagenta);
    const auto take = [&](int x, int y) {
        if (x < 0 || y < 0 || x >= bitmap.width || y >= bitmap.height)
            return false;
        const auto at = static_cast<std::size_t>(y * bitmap.width + x);
        const bool was = open[at];
        open[at] = false;
        return was;
    };
    std::vector<Area> marks;
    for (int startX = 0; startX < bitmap.width; ++startX) {
        for (int startY = 0; startY < bitmap.height; ++startY) {
            if (!take(startX, startY))
                continue;
            Area mark{startX, startY, startX + 1, startY + 1};
            std::vector<std::pair<int, int>> reached{{startX, startY}};
            while (!reached.empty()) {
                const auto [x, y] = reached.back();
                reached.pop_back();
                mark.left = std::min(mark.left, x);
                mark.right = std::max(mark.right, x + 1);
                mark.top = std::min(mark.top, y);
                mark.bottom = std::max(mark.bottom, y + 1);
                for (const int dx : {-1, 0, 1}) {
                    for (const int dy : {-1, 0, 1}) {
                        if (take(x + dx, y + dy))
                            reached.emplace_back(x + dx, y + dy);
                    }
                }
            }
            marks.push_back(mark);
        }
    }
    return marks;
}
