#include "resources/images/canvas.h"

#include <algorithm>
#include <cmath>
#include <new>

Canvas::Canvas(int width, int height)
    : m_width(width), m_height(height),
      m_surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)),
      m_context(cairo_create(m_surface.get())) {
    if (cairo_status(m_context.get()) != CAIRO_STATUS_SUCCESS)
        throw std::bad_alloc();
    // A mixed pixel would be neither ink nor transparent.
    cairo_set_antialias(m_context.get(), CAIRO_ANTIALIAS_NONE);
    cairo_set_line_width(m_context.get(), 1);
    cairo_set_line_cap(m_context.get(), CAIRO_LINE_CAP_SQUARE);
}

std::optional<std::uint32_t> Canvas::At(int x, int y) const {
    cairo_surface_flush(m_surface.get());
    const unsigned char* row =
        cairo_image_surface_get_data(m_surface.get()) +
        static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(m_surface.get());
    const std::uint32_t pixel = reinterpret_cast<const std::uint32_t*>(row)[x];
    if (pixel >> 24 < 0x80)
        return std::nullopt;
    return pixel & 0xFFFFFF;
}

void Canvas::Use(Ink ink) {
    SetColor(m_context.get(), static_cast<std::uint32_t>(ink));
}

void Canvas::Fill(Rect area, Ink ink) {
    if (area.width <= 0 || area.height <= 0)
        return;
    Use(ink);
    cairo_rectangle(m_context.get(), area.x, area.y, area.width, area.height);
    cairo_fill(m_context.get());
}

void Canvas::Frame(Rect area, Ink ink) {
    Fill({area.x, area.y, area.width, 1}, ink);
    Fill({area.x, area.Bottom() - 1, area.width, 1}, ink);
    Fill({area.x, area.y, 1, area.height}, ink);
    Fill({area.Right() - 1, area.y, 1, area.height}, ink);
}

void Canvas::Polygon(std::span<const Point> corners, Ink ink) {
    Use(ink);
    for (const Point& corner : corners)
        cairo_line_to(m_context.get(), corner.x, corner.y);
    cairo_close_path(m_context.get());
    cairo_fill(m_context.get());
}

void Canvas::Polygon(std::initializer_list<Point> corners, Ink ink) {
    Polygon(std::span(corners.begin(), corners.size()), ink);
}

void Canvas::Disc(Rect area, Ink ink) {
    // Row by row, since the library's own arcs are not symmetrical at a few pixels.
    const double radius = area.width / 2.0;
    for (int y = 0; y < area.height; ++y) {
        const double down = y + 0.5 - area.height / 2.0;
        const double half = std::sqrt(std::max(0.0, radius * radius - down * down));
        const int inset = static_cast<int>(std::ceil(radius - half - 0.5));
        Fill({area.x + inset, area.y + y, area.width - 2 * inset, 1}, ink);
    }
}

void Canvas::Erase(Rect area) {
    cairo_save(m_context.get());
    cairo_set_operator(m_context.get(), CAIRO_OPERATOR_CLEAR);
    cairo_rectangle(m_context.get(), area.x, area.y, area.width, area.height);
    cairo_fill(m_context.get());
    cairo_restore(m_context.get());
}

void Canvas::Put(const Canvas& other, int x, int y) {
    cairo_set_source_surface(m_context.get(), other.m_surface.get(), x, y);
    cairo_paint(m_context.get());
}

Canvas Canvas::TurnedAround() const {
    Canvas turned(m_width, m_height);
    cairo_t* context = turned.m_context.get();
    cairo_save(context);
    cairo_translate(context, m_width, m_height);
    cairo_scale(context, -1, -1);
    cairo_set_source_surface(context, m_surface.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_NEAREST);
    cairo_paint(context);
    cairo_restore(context);
    return turned;
}
