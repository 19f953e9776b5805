// The preview's layers as files, and where they have the front sheet.
#pragma once

#include "tests/resources/bitmap_file.h"
#include "tests/support/preview_listing.h"

#include <gtest/gtest.h>

inline constexpr Area kUprightSheet{26, 14, 94, 106};
inline constexpr Area kTurnedSheet{14, 26, 106, 94};

// As the table of sheets has it: 2 and 6 pages of an upright document come on a turned sheet.
constexpr Area FrontSheetArea(int nup, int orientation) {
    const bool upright = (orientation == 0) != (nup == 1 || nup == 3);
    return upright ? kUprightSheet : kTurnedSheet;
}

inline const BitmapFile& LayerFile(int layer) {
    static const std::vector<ListedLayer> layers = ListedLayers();
    for (const ListedLayer& listed : layers) {
        if (listed.layer == layer)
            return ReadBitmap(listed.bitmap);
    }
    ADD_FAILURE() << "no layer " << layer;
    static const BitmapFile none;
    return none;
}
