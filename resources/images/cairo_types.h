// The graphics library's objects with their owners.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <memory>

struct CairoDestroy {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using UniqueSurface = std::unique_ptr<cairo_surface_t, CairoDestroy>;
using UniqueContext = std::unique_ptr<cairo_t, CairoDestroy>;

// 0xRRGGBB.
inline void SetColor(cairo_t* context, std::uint32_t color) {
    cairo_set_source_rgb(context, (color >> 16 & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0,
                         (color & 0xFF) / 255.0);
}
