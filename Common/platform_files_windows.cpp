#include "Common/platform_files.h"
#include "Common/win_handles.h"

#include <windows.h>

#include <shlobj.h>
#include <shlwapi.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

static_assert(kMaxPath == MAX_PATH);

bool SpecialFolder(PathBuffer& path, int folder, BOOL create) {
    PathBuffer found{};
    if (!SHGetSpecialFolderPathA(nullptr, found.data(), folder, create))
        return false;
    path = found;
    return true;
}

constexpr std::uint64_t kSettlingTime = std::uint64_t{kSettlingMilliseconds} * 10'000; // in 100 ns

std::uint64_t Joined(DWORD high, DWORD low) {
    return std::uint64_t{high} << 32 | low;
}

std::uint64_t Ticks(const FILETIME& time) {
    return Joined(time.dwHighDateTime, time.dwLowDateTime);
}

// The file's number would come with its volume's, which costs ten times as much as all of this.
FileStamp StampOf(const FILETIME& made, const FILETIME& written, std::uint64_t size) {
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return {.file = Ticks(made),
            .size = size,
            .writeTime = Ticks(written),
            .changeTime = 0,
            .settled = Ticks(written) <= Ticks(now) - kSettlingTime};
}

class SharedFile : public ByteSource {
  public:
    explicit SharedFile(UniqueHandle file) : m_file(std::move(file)) {}

    std::size_t Read(std::span<char> buffer) override {
        const auto most =
            static_cast<DWORD>(std::min<std::size_t>(buffer.size(), std::numeric_limits<DWORD>::max()));
        DWORD read = 0;
        return ReadFile(m_file.Get(), buffer.data(), most, &read, nullptr) ? read : 0;
    }

    std::optional<FileStamp> Stamp() override {
        FILETIME made, written;
        LARGE_INTEGER size;
        if (!GetFileTime(m_file.Get(), &made, nullptr, &written) || !GetFileSizeEx(m_file.Get(), &size))
            return std::nullopt;
        return StampOf(made, written, static_cast<std::uint64_t>(size.QuadPart));
    }

  private:
    UniqueHandle m_file;
};

} // namespace

namespace platform_files {

bool IsNt6OrLater() {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(&version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT &&
           version.dwMajorVersion >= 6;
}

bool CommonDocuments(PathBuffer& path) {
    return SpecialFolder(path, CSIDL_COMMON_DOCUMENTS, TRUE);
}

bool WindowsFolder(PathBuffer& path) {
    PathBuffer found{};
    const UINT length = GetWindowsDirectoryA(found.data(), static_cast<UINT>(found.size()));
    if (length == 0 || length >= found.size())
        return false;
    path = found;
    return true;
}

bool LocalAppData(PathBuffer& path) {
    return SpecialFolder(path, CSIDL_LOCAL_APPDATA, FALSE);
}

bool IsThere(const char* path) {
    return PathFileExistsA(path) != FALSE;
}

bool MakeDirectory(const char* path) {
    return CreateDirectoryA(path, nullptr) || PathIsDirectoryA(path);
}

std::unique_ptr<ByteSource> OpenShared(const char* path) {
    const HANDLE opened =
        CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    UniqueHandle file = OpenedFile(opened);
    // Reading from a console or a pipe could wait for ever.
    if (!file || GetFileType(file.Get()) != FILE_TYPE_DISK)
        return nullptr;
    return std::make_unique<SharedFile>(std::move(file));
}

std::optional<FileStamp> StampOf(const char* path) {
    WIN32_FILE_ATTRIBUTE_DATA file;
    if (!GetFileAttributesExA(path, GetFileExInfoStandard, &file) ||
        (file.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return std::nullopt;
    return ::StampOf(file.ftCreationTime, file.ftLastWriteTime,
                     Joined(file.nFileSizeHigh, file.nFileSizeLow));
}

bool ListFiles(const char* directory, const char* pattern, std::vector<std::string>& names) {
    WIN32_FIND_DATAA entry{};
    const HANDLE opened = FindFirstFileA((std::string(directory) + '\\' + pattern).c_str(), &entry);
    const UniqueFileSearch search(opened == INVALID_HANDLE_VALUE ? nullptr : opened);
    if (!search)
        return false;
    // The search takes a file for its short name too, which has three letters of a longer extension.
    do {
        if (!(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && PathMatchSpecA(entry.cFileName, pattern))
            names.emplace_back(entry.cFileName);
    } while (FindNextFileA(search.Get(), &entry));
    return true;
}

bool CopyWholeFile(const char* from, const char* to, bool failIfExists) {
    return CopyFileA(from, to, failIfExists) != FALSE;
}

} // namespace platform_files
