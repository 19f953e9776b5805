// Puts the images together for the eye: contact_sheet FOLDER
// Writes strips.png with strips and symbols, enlarged beside their own size, and preview.png and
// preview-150.png with composed pictures, the latter enlarged as a screen of 144 dpi has them.
#include "pages/preview_layers.h"
#include "resources/images/image_set.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <map>

namespace {

class Board {
  public:
    Board(int width, int height, std::uint32_t background)
        : m_surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
          m_context(cairo_create(m_surface.get())) {
        Fill(0, 0, width, height, background);
    }

    void Fill(double x, double y, double width, double height, std::uint32_t color) {
        SetColor(m_context.get(), color);
        cairo_rectangle(m_context.get(), x, y, width, height);
        cairo_fill(m_context.get());
    }

    // Each pixel as a square, placed as a device context of another resolution has it.
    void Put(const Canvas& picture, double left, double top, double scale) {
        for (int y = 0; y < picture.Height(); ++y) {
            for (int x = 0; x < picture.Width(); ++x) {
                if (const auto color = picture.At(x, y)) {
                    const int fromX = static_cast<int>(left + x * scale);
                    const int fromY = static_cast<int>(top + y * scale);
                    Fill(fromX, fromY, static_cast<int>(left + (x + 1) * scale) - fromX,
                         static_cast<int>(top + (y + 1) * scale) - fromY, *color);
                }
            }
        }
    }

    void Put(const IconImage& icon, int left, int top) {
        for (int y = 0; y < icon.size; ++y) {
            for (int x = 0; x < icon.size; ++x) {
                const std::uint32_t pixel = icon.pixels.at(static_cast<std::size_t>(y * icon.size + x));
                cairo_set_source_rgba(m_context.get(), (pixel >> 16 & 0xFF) / 255.0,
                                      (pixel >> 8 & 0xFF) / 255.0, (pixel & 0xFF) / 255.0,
                                      (pixel >> 24) / 255.0);
                cairo_rectangle(m_context.get(), left + x, top + y, 1, 1);
                cairo_fill(m_context.get());
            }
        }
    }

    void Save(const std::filesystem::path& file) {
        if (cairo_surface_write_to_png(m_surface.get(), file.c_str()) != CAIRO_STATUS_SUCCESS)
            throw std::runtime_error(file.string() + " can't be written");
    }

  private:
    UniqueSurface m_surface;
    UniqueContext m_context;
};

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kPreviewGrey = 0x999999;

void SaveStrips(const std::filesystem::path& file) {
    constexpr int kScale = 4;
    constexpr int kRow = 132;
    const std::vector<NumberedBitmap> strips = DrawStrips();
    const std::vector<NumberedBitmap> symbols = DrawSymbols();
    Board board(20 * 24 * kScale + 20, kRow * static_cast<int>(strips.size()) + 330, kWhite);
    int y = 10;
    for (const NumberedBitmap& strip : strips) {
        board.Put(strip.picture, 10, y, 1);
        board.Put(strip.picture, 10, y + 26, kScale);
        y += kRow;
    }
    board.Fill(0, y, 20 * 24 * kScale + 20, 240, kPreviewGrey);
    int x = 10;
    for (const NumberedBitmap& symbol : symbols) {
        board.Put(symbol.picture, x, y + 8, 1);
        board.Put(symbol.picture, x, y + 48, kScale);
        x += 32 * kScale + 6;
    }
    y += 250;
    x = 10;
    for (const NumberedIcon& icon : DrawIcons()) {
        for (const IconImage& image : icon.images) {
            board.Put(image, x, y);
            x += image.size + 10;
        }
    }
    board.Save(file);
}

// One of each kind, then what overlaps.
constexpr PreviewSettings kPictures[] = {
    {.nup = 0},
    {.nup = 1},
    {.nup = 2},
    {.nup = 3},
    {.nup = 4},
    {.nup = 5},
    {.nup = 0, .pageOrientation = 1},
    {.nup = 1, .pageOrientation = 1},
    {.nup = 0, .colorMode = 1},
    {.nup = 1, .colorMode = 1},
    {.nup = 2, .colorMode = 1},
    {.nup = 3, .colorMode = 1},
    {.nup = 4, .colorMode = 1},
    {.nup = 5, .colorMode = 1},
    {.nup = 0, .colorMode = 1, .pageOrientation = 1},
    {.nup = 1, .colorMode = 1, .pageOrientation = 1},
    {.nup = 2, .colorMode = 1, .pageOrientation = 1},
    {.nup = 3, .colorMode = 1, .pageOrientation = 1},
    {.nup = 4, .colorMode = 1, .pageOrientation = 1},
    {.nup = 5, .colorMode = 1, .pageOrientation = 1},
    {.nup = 0, .colorMode = 1, .pageOrientation = 2},
    {.nup = 1, .colorMode = 1, .pageOrientation = 2},
    {.nup = 3, .colorMode = 1, .pageOrientation = 2},
    {.nup = 5, .colorMode = 1, .pageOrientation = 2},
    {.nup = 0, .duplexMode = 1},
    {.nup = 0, .duplexMode = 2},
    {.nup = 0, .duplexMode = 3},
    {.nup = 0, .duplexMode = 4},
    {.nup = 0, .duplexMode = 1, .colorMode = 1, .pageOrientation = 1},
    {.nup = 0, .duplexMode = 2, .colorMode = 1, .pageOrientation = 1},
    {.nup = 2, .duplexMode = 1, .colorMode = 1},
    {.nup = 1, .duplexMode = 1, .colorMode = 1},
    {.nup = 3, .duplexMode = 2, .colorMode = 1},
    {.nup = 5, .duplexMode = 1, .colorMode = 1},
    {.nup = 0, .duplexMode = 1, .colorMode = 1, .stapleMode = 1},
    {.nup = 0, .duplexMode = 1, .colorMode = 1, .stapleMode = 2},
    {.nup = 0, .duplexMode = 2, .colorMode = 1, .stapleMode = 6},
    {.nup = 0, .stapleMode = 3},
    {.nup = 0, .stapleMode = 4},
    {.nup = 0, .stapleMode = 8},
    {.nup = 0, .stapleMode = 11},
    {.nup = 0, .pageOrientation = 1, .stapleMode = 11},
    {.nup = 0, .stapleMode = 14},
    {.nup = 0, .stapleMode = 17},
    {.nup = 0, .stapleMode = 18},
    {.nup = 0, .stapleMode = 20},
    {.nup = 0, .pageOrientation = 1, .stapleMode = 18},
    {.nup = 0, .pageOrientation = 1, .stapleMode = 21},
    {.nup = 0, .punchHoles = 1, .punch = 1},
    {.nup = 0, .punchHoles = 2, .punch = 1},
    {.nup = 0, .punchHoles = 3, .punch = 1},
    {.nup = 0, .punchHoles = 1, .punch = 3},
    {.nup = 0, .punchHoles = 2, .punch = 4},
    {.nup = 0, .punchHoles = 3, .punch = 3},
    {.nup = 0, .pageOrientation = 1, .punchHoles = 1, .punch = 3},
    {.nup = 0, .pageOrientation = 1, .punchHoles = 3, .punch = 2},
    {.nup = 0, .stapleMode = 20, .punchHoles = 3, .punch = 1},
    {.nup = 0, .stapleMode = 18, .punchHoles = 3, .punch = 3},
    {.nup = 0, .stapleMode = 16, .punchHoles = 2, .punch = 1},
    {.nup = 1, .stapleMode = 11, .punchHoles = 2, .punch = 3},
    {.nup = 0, .stapleMode = 1, .punchHoles = 3, .punch = 3},
    {.nup = 0, .duplexMode = 2, .colorMode = 1, .stapleMode = 6},
    {.nup = 0, .duplexMode = 1, .colorMode = 1, .pageOrientation = 2},
    {.nup = 2, .duplexMode = 2, .colorMode = 1, .stapleMode = 6},
    {.nup = 5, .duplexMode = 1, .colorMode = 1, .stapleMode = 1, .punchHoles = 3, .punch = 1},
    {.nup = 4, .duplexMode = 1, .colorMode = 1, .stapleMode = 8, .punchHoles = 1, .punch = 1},
    {.nup = 6},
    {.nup = 6, .colorMode = 1, .stapleMode = 11},
    {.nup = 6, .pageOrientation = 1},
    {.nup = 6, .colorMode = 1, .pageOrientation = 1, .stapleMode = 11},
    {.nup = 6, .pageOrientation = 2},
    {.nup = 6, .colorMode = 1, .pageOrientation = 2, .stapleMode = 11},
};

void SavePreviews(const std::filesystem::path& file, double scale) {
    constexpr int kColumns = 8;
    constexpr int kCell = 126;
    std::map<int, Canvas> bitmaps;
    for (NumberedBitmap& bitmap : DrawPreviewBitmaps())
        bitmaps.emplace(bitmap.number, std::move(bitmap.picture));
    const int rows = static_cast<int>(std::size(kPictures) + kColumns - 1) / kColumns;
    Board board(static_cast<int>(kColumns * kCell * scale), static_cast<int>(rows * kCell * scale),
                kPreviewGrey);
    int cell = 0;
    for (const PreviewSettings& settings : kPictures) {
        const int left = cell % kColumns * kCell;
        const int top = cell / kColumns * kCell - 15;
        const PreviewLayers picture = ComposePreview(settings);
        for (const int layer : picture.List()) {
            if (const auto bitmap = FindLayerBitmap(layer))
                board.Put(bitmaps.at(bitmap->bitmap), (left + bitmap->x) * scale, (top + bitmap->y) * scale,
                          scale);
        }
        ++cell;
    }
    board.Save(file);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    try {
        const std::filesystem::path folder = argv[1];
        std::filesystem::create_directories(folder);
        SaveStrips(folder / "strips.png");
        SavePreviews(folder / "preview.png", 1);
        SavePreviews(folder / "preview-150.png", 1.5);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "contact_sheet: %s\n", error.what());
        return 1;
    }
}
