// Search within one tag array.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

// The index of the first element that equals `tagNumber`, -1 if there is none.
inline int FirstIndexOf(std::span<const std::int32_t> tagNumbers, std::int32_t tagNumber) {
    const auto found = std::ranges::find(tagNumbers, tagNumber);
    return found == tagNumbers.end() ? -1 : static_cast<int>(found - tagNumbers.begin());
}
