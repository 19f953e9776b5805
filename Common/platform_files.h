// The platform's folders and files: what the device profile and favourite files need of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

// A path of the platform with its NUL, in the ANSI code page.
inline constexpr std::size_t kMaxPath = 260;
using PathBuffer = std::array<char, kMaxPath>;

// What tells one state of a file from another without reading it. Times are in units of the platform.
struct FileStamp {
    std::uint64_t file; // its number on its volume natively, the time of its making under Windows
    std::uint64_t size;
    std::uint64_t writeTime; // of the content; who copies or unpacks a file may set it
    // Of the content, the name or the times; nobody sets it. 0 under Windows, where only an open file tells
    // it.
    std::uint64_t changeTime;
    // False if one of the times is less than kSettlingMilliseconds before the stamp was taken, or is in the
    // future: the file could change again within the same unit of time, and then equal stamps may be
    // different states.
    bool settled;

    bool operator==(const FileStamp&) const = default;
};

// Longer than a unit of the clock by which a local volume stamps its files.
inline constexpr unsigned kSettlingMilliseconds = 100;

// The bytes of an open file, closed when it goes.
class ByteSource {
  public:
    ByteSource() = default;
    virtual ~ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    // Fills at most the buffer and returns the bytes read; 0 at the end, and where reading fails.
    virtual std::size_t Read(std::span<char> buffer) = 0;

    // The file's state now; nothing for what is no file.
    virtual std::optional<FileStamp> Stamp() { return std::nullopt; }
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

// Opens a file for reading that others may read, write and replace meanwhile. Null if it can't be opened or
// is no plain file: a directory, a device, a pipe.
std::unique_ptr<ByteSource> OpenShared(const char* path);

// The stamp that the file would have if it were opened; nothing if there is no file. Many times faster.
std::optional<FileStamp> StampOf(const char* path);

// Appends the names of the directory's entries that match the pattern, an asterisk and an extension such as
// "*.pfk", and are no directories. Letters match in either case. Windows gives them in its volume's order,
// the native build in that of their bytes. False if no entry matches, not even a directory.
bool ListFiles(const char* directory, const char* pattern, std::vector<std::string>& names);

// Copies a file whole. False if it can't be had or written, or if `to` is there and `failIfExists`.
bool CopyWholeFile(const char* from, const char* to, bool failIfExists);

} // namespace platform_files
