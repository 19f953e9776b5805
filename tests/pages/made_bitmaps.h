// A module whose bitmaps the tests know pixel by pixel, and the picture that is to come of them.
#pragma once

#include "pages/preview_plan.h"

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

// This one is all of one kind, the others are striped.
inline constexpr int kSolidBitmap = 7326;

// What is transparent in a bitmap has no colour.
std::optional<COLORREF> MadePixel(int bitmap, int x, int y);
// 32, 120 or 25, by the bitmap's number.
int MadeSize(int bitmap);

// A copy of a module with these bitmaps in it, loaded as data; the file goes with the object.
class MadeModule {
  public:
    explicit MadeModule(const std::vector<int>& bitmaps);
    ~MadeModule();
    MadeModule(const MadeModule&) = delete;
    MadeModule& operator=(const MadeModule&) = delete;
    HMODULE Handle() const { return m_module; }

  private:
    std::string m_path;
    HMODULE m_module = nullptr;
};

// Pixels of a picture, row by row.
struct Picture {
    int width;
    int height;
    std::vector<COLORREF> pixels;
    COLORREF& At(int x, int y) { return pixels[static_cast<std::size_t>(y * width + x)]; }
    COLORREF At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

// The bitmaps one over the other on the preview's background, which covers the first `client` pixels of
// the picture; what is around it keeps its colour.
Picture ExpectedPicture(SIZE whole, COLORREF around, SIZE client, const std::vector<PlacedBitmap>& bitmaps);
