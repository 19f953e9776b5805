#include "settings/file_replacement.h"

#include "Common/text.h"
#include "Common/win_handles.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

namespace {

using TemporaryName = std::array<char, MAX_PATH>;

std::string FolderOf(std::string_view path) {
    const std::size_t backslash = FindLastCharacter(path, '\\');
    const std::size_t slash = FindLastCharacter(path, '/');
    const std::size_t end = slash == std::string_view::npos       ? backslash
                            : backslash == std::string_view::npos ? slash
                                                                  : std::max(slash, backslash);
    return end == std::string_view::npos ? "." : std::string(path.substr(0, end + 1));
}

// Makes an empty file of a name that nobody has.
bool MakeTemporary(const char* path, TemporaryName& name) {
    return GetTempFileNameA(FolderOf(path).c_str(), "pfk", 0, name.data()) != 0;
}

bool IsMarkedReadOnly(const char* path) {
    const DWORD attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY);
}

bool WriteFlushed(const char* path, std::string_view bytes) {
    if (bytes.size() > std::numeric_limits<DWORD>::max())
        return false;
    const HANDLE opened =
        CreateFileA(path, GENERIC_WRITE, 0, nullptr, TRUNCATE_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    const UniqueHandle file = OpenedFile(opened);
    DWORD written = 0;
    return file && WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size() && FlushFileBuffers(file.Get());
}

} // namespace

bool ReplaceFileContent(const char* path, std::string_view bytes) {
    TemporaryName temporary{};
    // Not every system keeps a read-only file from being moved over.
    if (IsMarkedReadOnly(path) || !MakeTemporary(path, temporary))
        return false;
    if (WriteFlushed(temporary.data(), bytes) &&
        MoveFileExA(temporary.data(), path, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return true;
    DeleteFileA(temporary.data());
    return false;
}
