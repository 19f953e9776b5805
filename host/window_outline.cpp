#include "host/window_outline.h"

#include <algorithm>
#include <cstddef>

namespace {

// A picture with the colour of the line in it.
class Outline {
  public:
    // The line is beside the content.
    Outline(const Raster& picture, const PixelBox& content)
        : m_picture(picture), m_color(picture.pixels[Index(content.left - 1, content.top)]) {}

    bool IsColumn(int x, int top, int bottom) const {
        for (int y = top; y < bottom; ++y)
            if (!IsOf(x, y))
                return false;
        return true;
    }

    // From the content's last row in one direction: the outermost row that the line fills within reach of its
    // two sides, since a title bar's own line may be further in, and a window behind may go on with its
    // sides.
    int OutermostRow(int row, int step, const PixelBox& part) const {
        int found = row;
        for (int y = row + step; y >= 0 && y < m_picture.height; y += step) {
            if (!IsOf(part.left, y) || !IsOf(part.right - 1, y))
                break;
            if (IsRow(y, part.left, part.right))
                found = y;
        }
        return found;
    }

  private:
    std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_picture.width) +
               static_cast<std::size_t>(x);
    }
    bool IsOf(int x, int y) const { return m_picture.pixels[Index(x, y)] == m_color; }
    bool IsRow(int y, int left, int right) const {
        const auto row = m_picture.pixels.subspan(Index(left, y), static_cast<std::size_t>(right - left));
        return std::ranges::all_of(row, [this](std::uint32_t pixel) { return pixel == m_color; });
    }

    Raster m_picture;
    std::uint32_t m_color;
};

// The content lies in the picture and leaves room for a line on each side.
bool HasRoomAround(const PixelBox& content, const Raster& picture) {
    return content.left > 0 && content.left < content.right && content.right < picture.width &&
           content.top > 0 && content.top < content.bottom && content.bottom < picture.height;
}

} // namespace

PixelBox OutlinedPart(const Raster& picture, const PixelBox& content) {
    const PixelBox whole{0, 0, picture.width, picture.height};
    if (!HasRoomAround(content, picture))
        return whole;
    const Outline line(picture, content);
    PixelBox part = content;
    while (part.left > 0 && line.IsColumn(part.left - 1, content.top, content.bottom))
        --part.left;
    while (part.right < picture.width && line.IsColumn(part.right, content.top, content.bottom))
        ++part.right;
    if (part.left == content.left || part.right == content.right)
        return whole;
    part.top = line.OutermostRow(content.top, -1, part);
    part.bottom = line.OutermostRow(content.bottom - 1, 1, part) + 1;
    return part.top < content.top && part.bottom > content.bottom ? part : whole;
}
