#include "tests/pages/made_bitmaps.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

constexpr std::uint32_t kMagenta = 0xFF00FF;

bool IsSmallLayer(int bitmap) {
    return bitmap >= 7911 && bitmap <= 7937;
}

// The bitmap as a resource holds it: header, rows from the bottom up. The small layers have 32 bits a pixel,
// all others 24.
std::vector<std::uint8_t> ResourceOf(int bitmap) {
    const int size = MadeSize(bitmap);
    const int depth = IsSmallLayer(bitmap) ? 4 : 3;
    const auto stride = static_cast<std::size_t>((size * depth + 3) / 4 * 4);
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = size;
    header.biHeight = size;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(depth * 8);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&header);
    std::vector<std::uint8_t> resource(bytes, bytes + sizeof header);
    resource.resize(sizeof header + stride * static_cast<std::size_t>(size));
    for (int y = 0; y < size; ++y) {
        std::uint8_t* row = &resource[sizeof header + stride * static_cast<std::size_t>(size - 1 - y)];
        for (int x = 0; x < size; ++x) {
            const COLORREF color = MadePixel(bitmap, x, y).value_or(kMagenta);
            row[x * depth] = GetBValue(color);
            row[x * depth + 1] = GetGValue(color);
            row[x * depth + 2] = GetRValue(color);
        }
    }
    return resource;
}

std::string BesideProgram(const char* file) {
    char path[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string program = path;
    return program.substr(0, program.rfind('\\') + 1) + file;
}

std::string TemporaryPath() {
    char folder[MAX_PATH] = {};
    char path[MAX_PATH] = {};
    GetTempPathA(MAX_PATH, folder);
    GetTempFileNameA(folder, "bmp", 0, path);
    return path;
}

} // namespace

// Stripes, so that what is painted over and what is not shows the order.
std::optional<COLORREF> MadePixel(int bitmap, int x, int y) {
    if (bitmap != kSolidBitmap && (x + 2 * y + bitmap) / 3 % 3 == 0)
        return std::nullopt;
    return RGB(bitmap & 0xFF, bitmap >> 8, 0x40 + x % 2);
}

int MadeSize(int bitmap) {
    return bitmap < 7000 ? 32 : IsSmallLayer(bitmap) ? 25 : 120;
}

MadeModule::MadeModule(const std::vector<int>& bitmaps) : m_path(TemporaryPath()) {
    EXPECT_TRUE(CopyFileA(BesideProgram("DataManager.dll").c_str(), m_path.c_str(), FALSE));
    const HANDLE update = BeginUpdateResourceA(m_path.c_str(), TRUE);
    EXPECT_NE(update, nullptr);
    for (const int bitmap : bitmaps) {
        std::vector<std::uint8_t> resource = ResourceOf(bitmap);
        EXPECT_TRUE(UpdateResourceA(update, MAKEINTRESOURCEA(2), MAKEINTRESOURCEA(bitmap), 0, resource.data(),
                                    static_cast<DWORD>(resource.size()))); // 2 is RT_BITMAP
    }
    EXPECT_TRUE(EndUpdateResourceA(update, FALSE));
    m_module = LoadLibraryExA(m_path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    EXPECT_NE(m_module, nullptr);
}

MadeModule::~MadeModule() {
    FreeLibrary(m_module);
    DeleteFileA(m_path.c_str());
}

Picture ExpectedPicture(SIZE whole, COLORREF around, SIZE client, const std::vector<PlacedBitmap>& bitmaps) {
    Picture picture{whole.cx, whole.cy, {}};
    picture.pixels.assign(static_cast<std::size_t>(whole.cx * whole.cy), around);
    for (int y = 0; y < client.cy; ++y)
        for (int x = 0; x < client.cx; ++x)
            picture.At(x, y) = RGB(0x99, 0x99, 0x99);
    for (const PlacedBitmap& placed : bitmaps) {
        const int size = MadeSize(placed.bitmap);
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                const std::optional<COLORREF> color = MadePixel(placed.bitmap, x, y);
                if (color && placed.x + x < whole.cx && placed.y + y < whole.cy && placed.y + y >= 0)
                    picture.At(placed.x + x, placed.y + y) = *color;
            }
        }
    }
    return picture;
}
