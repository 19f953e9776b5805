// The native build's folders, which a test sets.
#pragma once

#include <string>
#include <string_view>

namespace platform_files {

// An empty path is a folder that can't be had.
struct NativeFolders {
    bool isNt6OrLater = true;
    std::string commonDocuments;
    std::string windowsFolder;
    std::string localAppData;
};

NativeFolders& Folders();

// The path as this platform writes it: a backslash that is a character of its own becomes a slash.
std::string NativePath(std::string_view path);

} // namespace platform_files
