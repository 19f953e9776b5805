#include "resources/images/image_files.h"

#include <fstream>
#include <stdexcept>

namespace {

class LittleEndian {
  public:
    void Put8(unsigned value) { m_bytes.push_back(static_cast<char>(value & 0xFF)); }
    void Put16(unsigned value) {
        Put8(value);
        Put8(value >> 8);
    }
    void Put32(std::uint32_t value) {
        Put16(value & 0xFFFF);
        Put16(value >> 16);
    }
    void Pad(std::size_t multiple) {
        while (m_bytes.size() % multiple != 0)
            Put8(0);
    }
    void Append(const LittleEndian& other) { m_bytes += other.m_bytes; }
    std::uint32_t Size() const { return static_cast<std::uint32_t>(m_bytes.size()); }
    const std::string& Bytes() const { return m_bytes; }

  private:
    std::string m_bytes;
};

void PutInfoHeader(LittleEndian& out, int width, int height, unsigned depth, std::uint32_t imageSize) {
    out.Put32(40);
    out.Put32(static_cast<std::uint32_t>(width));
    out.Put32(static_cast<std::uint32_t>(height));
    out.Put16(1);
    out.Put16(depth);
    out.Put32(0); // not compressed
    out.Put32(imageSize);
    out.Put32(3780); // 96 dpi, as pixels a metre
    out.Put32(3780);
    out.Put32(0);
    out.Put32(0);
}

// Rows from the bottom up, each of whole 32-bit words.
LittleEndian BitmapRows(const Canvas& canvas, BitmapDepth depth) {
    LittleEndian rows;
    for (int y = canvas.Height() - 1; y >= 0; --y) {
        for (int x = 0; x < canvas.Width(); ++x) {
            const std::uint32_t color = canvas.At(x, y).value_or(kTransparent);
            rows.Put8(color);
            rows.Put8(color >> 8);
            rows.Put8(color >> 16);
            if (depth == BitmapDepth::Bits32)
                rows.Put8(0);
        }
        rows.Pad(4);
    }
    return rows;
}

// An icon's image: a bitmap of double height whose second half is the mask, for those who ignore the alpha
// channel.
LittleEndian IconBytes(const IconImage& image) {
    const auto size = static_cast<std::size_t>(image.size);
    LittleEndian colors;
    LittleEndian mask;
    for (std::size_t row = size; row-- > 0;) {
        unsigned bits = 0;
        for (std::size_t x = 0; x < size; ++x) {
            const std::uint32_t pixel = image.pixels.at(row * size + x);
            colors.Put32(pixel);
            bits = bits << 1 | (pixel >> 24 < 0x80 ? 1 : 0);
            if (x % 8 == 7) {
                mask.Put8(bits);
                bits = 0;
            }
        }
        mask.Pad(4);
    }
    LittleEndian out;
    PutInfoHeader(out, image.size, 2 * image.size, 32, colors.Size() + mask.Size());
    out.Append(colors);
    out.Append(mask);
    return out;
}

} // namespace

void WriteBitmap(const std::filesystem::path& file, const Canvas& canvas, BitmapDepth depth) {
    constexpr std::uint32_t kHeaders = 14 + 40;
    const LittleEndian rows = BitmapRows(canvas, depth);
    LittleEndian out;
    out.Put8('B');
    out.Put8('M');
    out.Put32(kHeaders + rows.Size());
    out.Put32(0);
    out.Put32(kHeaders);
    PutInfoHeader(out, canvas.Width(), canvas.Height(), static_cast<unsigned>(depth), rows.Size());
    out.Append(rows);
    WriteText(file, out.Bytes());
}

void WriteIcon(const std::filesystem::path& file, const std::vector<IconImage>& images) {
    LittleEndian out;
    out.Put16(0);
    out.Put16(1);
    out.Put16(static_cast<unsigned>(images.size()));
    LittleEndian contents;
    const auto start = static_cast<std::uint32_t>(6 + 16 * images.size());
    for (const IconImage& image : images) {
        const LittleEndian bytes = IconBytes(image);
        out.Put8(static_cast<unsigned>(image.size));
        out.Put8(static_cast<unsigned>(image.size));
        out.Put16(0);
        out.Put16(1);
        out.Put16(32);
        out.Put32(bytes.Size());
        out.Put32(start + contents.Size());
        contents.Append(bytes);
    }
    out.Append(contents);
    WriteText(file, out.Bytes());
}

void WriteText(const std::filesystem::path& file, const std::string& text) {
    std::ofstream out(file, std::ios::binary);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.close();
    if (!out)
        throw std::runtime_error(file.string() + " can't be written");
}
