// The limits of the number of copies in a print option set.
#pragma once

#include <algorithm>
#include <cstdint>

constexpr std::int32_t CopiesInRange(std::int32_t copies) {
    return std::clamp(copies, std::int32_t{1}, std::int32_t{9999});
}
