// Reading a file at one go.
#pragma once

#include "Common/win_handles.h"

#include <cstddef>
#include <optional>
#include <string>

// Opens a file that others may read, replace and remove meanwhile, but not write to. Null, with the reason in
// GetLastError, if it can't be.
UniqueHandle OpenToRead(const std::wstring& file);

// The bytes of a file that was just opened. None, with the reason in GetLastError, if they can't be read; for
// one of more than `limit` bytes that is ERROR_FILE_TOO_LARGE.
std::optional<std::string> ReadWhole(HANDLE file, std::size_t limit);

// The bytes of a file, none if it can't be read or has more than `limit`.
std::optional<std::string> ReadWhole(const std::wstring& file, std::size_t limit);
