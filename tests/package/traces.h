// What a driver has left in the registry and among the documents of all users.
#pragma once

#include <windows.h>

#include <filesystem>
#include <set>
#include <string>

// Paths from where the search began; none where there is nothing.
using Traces = std::set<std::wstring>;

Traces KeysBelow(HKEY root, const std::wstring& path);
// Files and directories.
Traces TreeBelow(const std::filesystem::path& directory);

std::filesystem::path PublicDocuments();
