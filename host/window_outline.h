// How far a window's frame reaches in a picture of the window's rectangle.
#pragma once

#include <cstdint>
#include <span>

// Pixels row by row from the top.
struct Raster {
    std::span<const std::uint32_t> pixels;
    int width;
    int height;
};

// The right column and the bottom row are the first ones outside.
struct PixelBox {
    int left;
    int top;
    int right;
    int bottom;

    friend bool operator==(const PixelBox&, const PixelBox&) = default;
};

// The part of the picture that a line of one colour around the content encloses, the line included, or the
// whole picture where there is no such line on all four sides. The line touches the content at the left and
// at the right; a title bar may be between it and the content's top, and as much below.
PixelBox OutlinedPart(const Raster& picture, const PixelBox& content);
