// The preview's layers while they are drawn.
#pragma once

#include "resources/images/canvas.h"

#include <map>

// By bitmap number.
using BitmapSet = std::map<int, Canvas>;

// Adds what is painted at the layer to its bitmap; 0 is no layer.
void AddLayer(BitmapSet& bitmaps, int layer, Canvas picture);

void DrawPreviewSheets(BitmapSet& bitmaps);
void DrawPreviewMarks(BitmapSet& bitmaps);
void DrawPreviewBooklets(BitmapSet& bitmaps);
