// How long a favourite's texts may be, in bytes.
#pragma once

#include <cstddef>

// A file of a longer name, without the extension, is no favourite's.
inline constexpr std::size_t kMaxFavoriteName = 27;
inline constexpr std::size_t kMaxFavoriteComment = 255;
