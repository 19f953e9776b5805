// A picture of few colours with whole pixels: each is one ink or nothing.
#pragma once

#include "resources/images/cairo_types.h"
#include "resources/images/palette.h"

#include <initializer_list>
#include <optional>
#include <span>

struct Rect {
    int x;
    int y;
    int width;
    int height;

    constexpr int Right() const { return x + width; }
    constexpr int Bottom() const { return y + height; }
    constexpr Rect Inset(int by) const { return {x + by, y + by, width - 2 * by, height - 2 * by}; }
};

struct Point {
    double x;
    double y;
};

class Canvas {
  public:
    Canvas(int width, int height);

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    // The colour of a pixel, nothing where it is transparent.
    std::optional<std::uint32_t> At(int x, int y) const;

    void Fill(Rect area, Ink ink);
    // The outermost pixels of the area.
    void Frame(Rect area, Ink ink);
    // The pixels whose centre lies inside; corners lie between pixels.
    void Polygon(std::span<const Point> corners, Ink ink);
    void Polygon(std::initializer_list<Point> corners, Ink ink);
    // The largest circle of a square.
    void Disc(Rect area, Ink ink);
    void Erase(Rect area);
    void Put(const Canvas& other, int x, int y);

    Canvas TurnedAround() const; // by 180 degrees

  private:
    void Use(Ink ink);

    int m_width;
    int m_height;
    UniqueSurface m_surface;
    UniqueContext m_context;
};
