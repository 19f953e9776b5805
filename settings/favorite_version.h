// The versions that a favourite of the present format bears.
#pragma once

#include <cstdint>

inline constexpr std::uint32_t kFavoriteFileVer = 2; // of the file
inline constexpr std::uint32_t kFavoriteIotVer = 10; // of the device
