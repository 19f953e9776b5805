#include "Common/platform_files_native.h"

#include "Common/platform_files.h"
#include "Common/text.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

namespace {

constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t kSettlingNanoseconds = std::int64_t{kSettlingMilliseconds} * 1'000'000;

std::int64_t Nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * kNanosecondsPerSecond + time.tv_nsec;
}

FileStamp StampOf(const struct stat& status) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    const std::int64_t settledUntil = Nanoseconds(now) - kSettlingNanoseconds;
    const std::int64_t written = Nanoseconds(status.st_mtim);
    const std::int64_t changed = Nanoseconds(status.st_ctim);
    return {.file = status.st_ino,
            .size = static_cast<std::uint64_t>(status.st_size),
            .writeTime = static_cast<std::uint64_t>(written),
            .changeTime = static_cast<std::uint64_t>(changed),
            .settled = std::max(written, changed) <= settledUntil};
}

class SharedFile : public ByteSource {
  public:
    explicit SharedFile(int file) : m_file(file) {}
    ~SharedFile() override { close(m_file); }

    std::size_t Read(std::span<char> buffer) override {
        const ssize_t count = read(m_file, buffer.data(), buffer.size());
        return count > 0 ? static_cast<std::size_t>(count) : 0;
    }

    std::optional<FileStamp> Stamp() override {
        struct stat status;
        if (fstat(m_file, &status) != 0)
            return std::nullopt;
        return StampOf(status);
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

bool EndsWithInAnyCase(std::string_view text, std::string_view end) {
    const auto isSame = [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
    };
    return text.size() >= end.size() &&
           std::ranges::equal(text.substr(text.size() - end.size()), end, isSame);
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

std::optional<FileStamp> StampOf(const char* path) {
    struct stat status;
    if (stat(NativePath(path).c_str(), &status) != 0 || !IsOfKind(status, S_IFREG))
        return std::nullopt;
    return ::StampOf(status);
}

bool ListFiles(const char* directory, const char* pattern, std::vector<std::string>& names) {
    const std::string_view wanted = pattern;
    std::error_code error;
    std::filesystem::directory_iterator entries(NativePath(directory), error);
    bool isFound = false;
    std::vector<std::string> found;
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
        std::string name = entries->path().filename().string();
        if (!EndsWithInAnyCase(name, wanted.substr(wanted.starts_with('*') ? 1 : 0)))
            continue;
        isFound = true;
        std::error_code ignored;
        if (!entries->is_directory(ignored))
            found.push_back(std::move(name));
    }
    std::ranges::sort(found);
    std::ranges::move(found, std::back_inserter(names));
    return isFound;
}

bool CopyWholeFile(const char* from, const char* to, bool failIfExists) {
    using std::filesystem::copy_options;
    std::error_code error;
    return std::filesystem::copy_file(NativePath(from), NativePath(to),
                                      failIfExists ? copy_options::none : copy_options::overwrite_existing,
                                      error);
}

} // namespace platform_files
