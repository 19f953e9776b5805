// The preview of the standard page: a picture laid together from ready-made bitmaps, and the tooltips on it.
// Positions and sizes are pixels at 96 dpi; a device context of another resolution has them scaled.
#pragma once

#include "pages/preview_plan.h"

#include <windows.h>

#include <span>

// Paints the client area of the preview control: the background, the symbols at its left edge, the picture.
void DrawPreview(HWND control, HDC target);
void DrawImageArea(HDC target, std::span<const PlacedBitmap> picture);
void DrawImageAreaPart(HDC target, const PlacedBitmap& layer);
// Paints a bitmap of the module in use, magenta left out. One that is not there is logged and left out.
void DrawBitmap(HDC target, int resourceId, int x, int y);

// Makes the page's tooltip window and stores it in the page's GWLP_USERDATA.
void CreateToolTip(HWND page);
// Has the picture painted anew and brings the tooltips up to the Current bank; with `addTools` they are added
// first. Does nothing without tooltip window or picture.
void UpdatePreview(HWND page, int addTools);
