// Where a favourite's file lies.
#pragma once

#include "Common/platform_files.h"
#include "settings/setting_info.h"

#include <optional>

// The path of the file that the setting's Directory and Name tell, with the extension of a string's number;
// ".pfk" where that string is empty. Nothing, with a log line, if it doesn't fit, since a path that was cut
// would be another file's.
std::optional<PathBuffer> FavoritePath(const CFavoriteSetting& setting, unsigned extensionString);
