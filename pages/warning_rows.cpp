#include "pages/warning_rows.h"

#include <algorithm>

int HasSelectableRow(std::span<const int> enabled) {
    return !enabled.empty() && std::ranges::find(enabled.subspan(1), 1) != enabled.end() ? 1 : 0;
}

int MarkWarningRows(std::span<const int> enabled, std::span<int> imageIndexes, int imageCount) {
    if (imageCount < 1)
        return 0;
    int marked = 0;
    for (std::size_t i = 0; i < std::min(enabled.size(), imageIndexes.size()); ++i) {
        if (enabled[i] == 0) {
            imageIndexes[i] = imageCount - 1;
            marked = 1;
        }
    }
    return marked;
}
