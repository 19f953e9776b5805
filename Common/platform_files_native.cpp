#include "Common/platform_files_native.h"

#include "Common/platform_files.h"
#include "Common/text.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class SharedFile : public ByteSource {
  public:
    explicit SharedFile(int file) : m_file(file) {}
    ~SharedFile() override { close(m_file); }

    std::size_t Read(std::span<char> buffer) override {
        const ssize_t count = read(m_file, buffer.data(), buffer.size());
        return count > 0 ? static_cast<std::size_t>(count) : 0;
    }

  private:
    int m_file;
};

bool Take(PathBuffer& path, const std::string& folder) {
    if (folder.empty() || folder.size() >= path.size())
        return false;
    CopyText(path, folder);
    return true;
}

bool IsOfKind(const struct stat& status, mode_t kind) {
    return (status.st_mode & S_IFMT) == kind;
}

} // namespace

namespace platform_files {

NativeFolders& Folders() {
    static NativeFolders folders;
    return folders;
}

std::string NativePath(std::string_view path) {
    std::string native(path);
    for (std::size_t at = 0; at < native.size(); ++at) {
        if (IsLeadByte(static_cast<unsigned char>(native[at])))
            ++at;
        else if (native[at] == '\\')
            native[at] = '/';
    }
    return native;
}

bool IsNt6OrLater() {
    return Folders().isNt6OrLater;
}

bool CommonDocuments(PathBuffer& path) {
    return Take(path, Folders().commonDocuments);
}

bool WindowsFolder(PathBuffer& path) {
    return Take(path, Folders().windowsFolder);
}

bool LocalAppData(PathBuffer& path) {
    return Take(path, Folders().localAppData);
}

bool IsThere(const char* path) {
    struct stat status;
    return stat(NativePath(path).c_str(), &status) == 0;
}

bool MakeDirectory(const char* path) {
    const std::string native = NativePath(path);
    struct stat status;
    return mkdir(native.c_str(), 0777) == 0 ||
           (stat(native.c_str(), &status) == 0 && IsOfKind(status, S_IFDIR));
}

std::unique_ptr<ByteSource> OpenShared(const char* path) {
    // A pipe without a writer must not be waited for.
    const int opened = open(NativePath(path).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (opened < 0)
        return nullptr;
    auto file = std::make_unique<SharedFile>(opened);
    struct stat status;
    if (fstat(opened, &status) != 0 || !IsOfKind(status, S_IFREG))
        return nullptr;
    return file;
}

} // namespace platform_files
