#include "settings/file_replacement.h"

#include "Common/platform_files_native.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

bool IsMarkedReadOnly(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && (status.st_mode & S_IWUSR) == 0;
}

bool WriteFlushed(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return fsync(file) == 0;
}

} // namespace

bool ReplaceFileContent(const char* path, std::string_view bytes) {
    const std::string target = platform_files::NativePath(path);
    if (IsMarkedReadOnly(target))
        return false;
    const std::size_t slash = target.rfind('/');
    std::string temporary = (slash == std::string::npos ? "" : target.substr(0, slash + 1)) + "pfkXXXXXX";
    const int file = mkstemp(temporary.data());
    if (file < 0)
        return false;
    const bool isWritten = WriteFlushed(file, bytes);
    const bool isClosed = close(file) == 0;
    if (isWritten && isClosed && std::rename(temporary.c_str(), target.c_str()) == 0)
        return true;
    unlink(temporary.c_str());
    return false;
}
