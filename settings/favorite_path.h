// Where favourites' files lie.
#pragma once

#include "Common/platform_files.h"
#include "settings/setting_info.h"

#include <optional>
#include <string_view>

// The favourite directory; nothing, with a log line, if its folder can't be had or if it is too long for a
// path, since one that was cut would be another directory.
std::optional<PathBuffer> WholeFavoriteDirectory();

// The path of the file that the setting's Directory and Name tell, with the extension of a string's number;
// ".pfk" where that string is empty. Nothing, with a log line, without a directory and if it
// doesn't fit, since a path that was cut would be another file's.
std::optional<PathBuffer> FavoritePath(const CFavoriteSetting& setting, unsigned extensionString);

// The same for the name in the favourite directory, with the extension of a saved favourite.
std::optional<PathBuffer> FavoritePath(std::string_view name);

// True if something is at the path; without one, nothing is.
bool IsThere(const std::optional<PathBuffer>& path);
