// The images in the rows of the standard page's combo boxes.
#pragma once

#include "Common/win_handles.h"

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cstddef>

// Bitmaps of images side by side.
enum class ImageStrip { ColorModel, Duplex, NUP, Staple, Punch, Fold, FavoriteMarks, Count };

// The lists of images, one for each strip.
class PageImages {
  public:
    // The strip's images; the icon, if the strip has options that a device may not have, is the last of them.
    // Null, with a log line, if the bitmap or that icon is missing.
    HIMAGELIST Of(ImageStrip strip, HICON notFitted);

  private:
    std::array<UniqueImageList, static_cast<std::size_t>(ImageStrip::Count)> m_lists;
};

// The process's images: a page object is gone before the controls that use its list, so a list of its own
// could never be destroyed, and every sheet would leave some behind.
PageImages& ProcessPageImages();

// The images of an extended combo box, null if it has none.
HIMAGELIST AttachedImages(HWND comboEx);
// Gives an extended combo box its images, or takes them from it.
void AttachImages(HWND comboEx, HIMAGELIST images);
