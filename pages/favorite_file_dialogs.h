// The file dialogs by which favourites are carried to and from files. A dialog refuses a name that a
// favourite can't have and stays open.
#pragma once

#include "Common/platform_files.h"

#include <windows.h>

#include <optional>
#include <string_view>

// The path that the user chose, nothing without one. The sheet can have gone meanwhile.
std::optional<PathBuffer> AskForFileToSave(HWND owner, std::string_view name);
std::optional<PathBuffer> AskForFileToLoad(HWND owner);

// What stands between the directory and the extension of a path.
std::string_view NameInPath(std::string_view path);

UINT_PTR CALLBACK OFNHookSaveProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
UINT_PTR CALLBACK OFNHookLoadProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
