#include "settings/file_replacement.h"

#include "Common/text.h"
#include "Common/win_handles.h"

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <string>

namespace {

// Where the name of the file begins in its path.
std::size_t NameBegin(std::string_view path) {
    std::size_t begin = 0;
    for (const char separator : {'\\', '/', ':'})
        if (const std::size_t last = FindLastCharacter(path, separator); last != std::string_view::npos)
            begin = std::max(begin, last + 1);
    return begin;
}

// A name of four characters, which no favourite's name falls below, so that a path that fits the file fits
// this too.
std::string TemporaryName(unsigned number) {
    constexpr std::string_view kDigits = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::string name = "~";
    for (int digit = 0; digit < 3; ++digit, number /= kDigits.size())
        name += kDigits[number % kDigits.size()];
    return name;
}

// The paths that a save may take for its temporary files, beside `path`.
class TemporaryPaths {
  public:
    explicit TemporaryPaths(std::string_view path)
        : m_folder(path.substr(0, NameBegin(path))), m_number(GetTickCount() + GetCurrentProcessId()) {}

    std::string Next() { return m_folder + TemporaryName(m_number++); }

  private:
    std::string m_folder;
    unsigned m_number;
};

constexpr int kNames = 100; // that are tried

// Makes an empty file of a name that nobody has. None if that fails.
UniqueHandle MakeTemporary(TemporaryPaths& paths, std::string& made) {
    UniqueHandle file;
    for (int name = 0; name < kNames && !file; ++name) {
        made = paths.Next();
        file = OpenedFile(
            CreateFileA(made.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        // Access is denied to a file that is deleted and still open.
        if (!file && GetLastError() != ERROR_FILE_EXISTS && GetLastError() != ERROR_ACCESS_DENIED)
            break;
    }
    return file;
}

// Not every system keeps a read-only file from being moved over.
bool IsReplaceable(const char* path) {
    const DWORD attributes = GetFileAttributesA(path);
    return attributes == INVALID_FILE_ATTRIBUTES ||
           !(attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY));
}

bool WriteFlushed(const UniqueHandle& file, std::string_view bytes) {
    DWORD written = 0;
    return bytes.size() <= std::numeric_limits<DWORD>::max() &&
           WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size() && FlushFileBuffers(file.Get());
}

// A name that nobody has; the last that was tried if all are taken.
std::string FreePath(TemporaryPaths& paths) {
    std::string path = paths.Next();
    for (int name = 1; name < kNames && GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; ++name)
        path = paths.Next();
    return path;
}

// For a file that others have open, which no move goes over, but that they let be deleted. It gets another
// name and goes with the last of them.
bool Replace(const char* from, const char* to, TemporaryPaths& paths) {
    const std::string old = FreePath(paths);
    if (ReplaceFileA(to, from, old.c_str(), REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr)) {
        DeleteFileA(old.c_str());
        return true;
    }
    if (GetLastError() == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2)
        MoveFileExA(old.c_str(), to, 0);
    return false;
}

// Who looks into every new file has it open for a moment only, so a few attempts are made.
bool MoveOver(const char* from, const char* to, TemporaryPaths& paths) {
    constexpr int kAttempts = 5;
    constexpr DWORD kPause = 50; // ms
    for (int attempt = 1;; ++attempt) {
        if (MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) ||
            Replace(from, to, paths))
            return true;
        if (attempt == kAttempts)
            return false;
        Sleep(kPause);
    }
}

} // namespace

bool ReplaceFileContent(const char* path, std::string_view bytes) {
    if (!IsReplaceable(path))
        return false;
    TemporaryPaths paths(path);
    std::string temporary;
    UniqueHandle file = MakeTemporary(paths, temporary);
    if (!file)
        return false;
    const bool isWritten = WriteFlushed(file, bytes);
    file.Reset();
    if (isWritten && MoveOver(temporary.c_str(), path, paths))
        return true;
    DeleteFileA(temporary.c_str());
    return false;
}
