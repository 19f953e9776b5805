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

class SharedFile : public ByteSource {
  public:
    explicit SharedFile(UniqueHandle file) : m_file(std::move(file)) {}

    std::size_t Read(std::span<char> buffer) override {
        const auto most =
            static_cast<DWORD>(std::min<std::size_t>(buffer.size(), std::numeric_limits<DWORD>::max()));
        DWORD read = 0;
        return ReadFile(m_file.Get(), buffer.data(), most, &read, nullptr) ? read : 0;
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
    const HANDLE opened = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    UniqueHandle file = OpenedFile(opened);
    // Reading from a console or a pipe could wait for ever.
    if (!file || GetFileType(file.Get()) != FILE_TYPE_DISK)
        return nullptr;
    return std::make_unique<SharedFile>(std::move(file));
}

} // namespace platform_files
