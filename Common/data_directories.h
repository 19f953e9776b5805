// The directories of this product's data and the paths of the files in them. Texts are in the ANSI code page.
#pragma once

#include "Common/platform_files.h"

#include <cstddef>
#include <string_view>

// Each writes the path of one directory into a buffer of `size` bytes, cut to it, and returns its length. The
// last pieces, the model's and the directory's own, are left away where the room does not exceed them by two
// bytes. If the folder that all stand in can't be had, the buffer's content stays, but for a NUL in its last
// byte.
int GetDataRootDirectory(char* buffer, std::size_t size);
int GetFavoriteDirectory(char* buffer, std::size_t size);
int GetProfileDirectory(char* buffer, std::size_t size);
int GetSpotColorDirectory(char* buffer, std::size_t size);
int GetUserSpotColorDirectory(char* buffer, std::size_t size);

// Each makes one directory, with those that lead to it. 1 if it is there afterwards, else 0.
int CreateFavoriteDirectory();
int CreateProfileDirectory();
int CreateSpotColorDirectory();
int CreateUserSpotColorDirectory();
// All four; 1 if all are there afterwards.
int CreateDataDirectories();

// The directory of the device's data files, which ends in a backslash: one for each print server. Cut to the
// buffer. 0 if the folder that it stands in can't be had, else 1.
int GetDeviceDataDirectory(PathBuffer& path, std::string_view serverAddress);

// The path of a device profile. False if it doesn't fit, or if the folder can't be had: then there is no file
// to open, since a path that was cut would be another file's.
bool GetProfilePath(PathBuffer& path, std::string_view profileName);
// The path of a file in a directory that ends in a backslash. False if it doesn't fit.
bool GetDeviceDataPath(PathBuffer& path, std::string_view directory, std::string_view fileName);
