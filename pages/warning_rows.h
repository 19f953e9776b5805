// Which rows of a list the device cannot do. `enabled` has one number per row: 1 if the device can do it,
// else 0.
#pragma once

#include <span>

// 1 if a row can be chosen at all. Row 0 stands for "no such option" and does not count.
int HasSelectableRow(std::span<const int> enabled);

// Gives every row that the device cannot do the last of `imageCount` images. 1 if there was at least one such
// row, else 0.
int MarkWarningRows(std::span<const int> enabled, std::span<int> imageIndexes, int imageCount);
