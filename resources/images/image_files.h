// The files that the resource compiler takes.
#pragma once

#include "resources/images/canvas.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

enum class BitmapDepth : std::uint16_t { Bits24 = 24, Bits32 = 32 };

// What is transparent becomes magenta. Throws std::runtime_error when the file can't be written.
void WriteBitmap(const std::filesystem::path& file, const Canvas& canvas, BitmapDepth depth);

// A square picture with an alpha channel: rows from the top, straight colour, 0xAARRGGBB.
struct IconImage {
    int size;
    std::vector<std::uint32_t> pixels;
};
void WriteIcon(const std::filesystem::path& file, const std::vector<IconImage>& images);

void WriteText(const std::filesystem::path& file, const std::string& text);
