// The images of the module by resource number.
#pragma once

#include "resources/images/canvas.h"
#include "resources/images/image_files.h"

#include <vector>

struct NumberedBitmap {
    int number;
    Canvas picture;
    BitmapDepth depth = BitmapDepth::Bits24;
};

struct NumberedIcon {
    int number;
    std::vector<IconImage> images;
};

std::vector<NumberedBitmap> DrawStrips();         // for combo boxes, the images side by side
std::vector<NumberedBitmap> DrawSymbols();        // at the left edge of the preview
std::vector<NumberedBitmap> DrawPreviewBitmaps(); // each bitmap of LayerBitmaps() once
std::vector<NumberedIcon> DrawIcons();
