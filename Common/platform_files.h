// The platform's folders and files, as the device profile needs them.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>

// A path of the platform with its NUL, in the ANSI code page.
inline constexpr std::size_t kMaxPath = 260;
using PathBuffer = std::array<char, kMaxPath>;

// The bytes of an open file, closed when it goes.
class ByteSource {
  public:
    ByteSource() = default;
    virtual ~ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    // Fills at most the buffer and returns the bytes read; 0 at the end, and where reading fails.
    virtual std::size_t Read(std::span<char> buffer) = 0;
};

namespace platform_files {

// True on the NT platform from major version 6 on.
bool IsNt6OrLater();

// Each writes a folder's path; false, with the buffer as it was, if the folder can't be had.
bool CommonDocuments(PathBuffer& path); // made if need be
bool WindowsFolder(PathBuffer& path);
bool LocalAppData(PathBuffer& path);

// True if a file or a directory of this path is there.
bool IsThere(const char* path);

// True if the directory is there afterwards. Its parent must be there.
bool MakeDirectory(const char* path);

// Opens a file for reading that others may read and write meanwhile. Null if it can't be opened or is no
// plain file: a directory, a device, a pipe.
std::unique_ptr<ByteSource> OpenShared(const char* path);

} // namespace platform_files
