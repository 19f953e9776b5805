// The mark on options that the device cannot do: a warning triangle.
#include "resources/images/cairo_types.h"
#include "resources/images/image_set.h"

#include <cstdint>
#include <new>

namespace {

void Triangle(cairo_t* context, double inset) {
    cairo_move_to(context, 0.5, 0.06 + inset * 1.6);
    cairo_line_to(context, 0.98 - inset * 1.4, 0.92 - inset);
    cairo_line_to(context, 0.02 + inset * 1.4, 0.92 - inset);
    cairo_close_path(context);
}

// On a square of side 1; `size` keeps the sign's strokes on whole pixels.
void DrawWarning(cairo_t* context, int size) {
    constexpr std::uint32_t kRim = 0x9A6A00;
    constexpr std::uint32_t kFace = 0xFFC83D;
    constexpr std::uint32_t kSign = 0x2A3038;
    cairo_scale(context, size, size);
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_width(context, 0.06);
    SetColor(context, kFace);
    Triangle(context, 0.04);
    cairo_fill_preserve(context);
    SetColor(context, kRim);
    cairo_stroke(context);

    const double pixel = 1.0 / size;
    const int stroke = size >= 32 ? 4 : 2;
    const int left = (size - stroke) / 2;
    const int top = size / 3;
    const int dot = size * 4 / 5 - stroke;
    const int bar = dot - stroke / 2 - top;
    SetColor(context, kSign);
    cairo_rectangle(context, left * pixel, top * pixel, stroke * pixel, bar * pixel);
    cairo_rectangle(context, left * pixel, dot * pixel, stroke * pixel, stroke * pixel);
    cairo_fill(context);
}

// Surfaces hold colours multiplied by alpha, icons straight ones.
std::uint32_t Straight(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0)
        return 0;
    std::uint32_t straight = alpha << 24;
    for (const unsigned shift : {0u, 8u, 16u})
        straight |= ((pixel >> shift & 0xFF) * 255 / alpha & 0xFF) << shift;
    return straight;
}

IconImage DrawWarning(int size) {
    const UniqueSurface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size, size));
    const UniqueContext context(cairo_create(surface.get()));
    if (cairo_status(context.get()) != CAIRO_STATUS_SUCCESS)
        throw std::bad_alloc();
    DrawWarning(context.get(), size);
    cairo_surface_flush(surface.get());

    IconImage image{size, {}};
    const unsigned char* data = cairo_image_surface_get_data(surface.get());
    for (int y = 0; y < size; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(
            data + static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(surface.get()));
        for (int x = 0; x < size; ++x)
            image.pixels.push_back(Straight(row[x]));
    }
    return image;
}

} // namespace

std::vector<NumberedIcon> DrawIcons() {
    constexpr int kSmall = 5;
    constexpr int kLarge = 19122;
    return {{kSmall, {DrawWarning(16)}}, {kLarge, {DrawWarning(24), DrawWarning(32)}}};
}
