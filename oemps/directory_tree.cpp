#include "oemps/directory_tree.h"

#include "Common/log.h"
#include "Common/text.h"
#include "Common/win_handles.h"
#include "oemps/directory_entry.h"

#include <shlwapi.h>

#include <array>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t kPathSize = 260; // with its NUL

bool DeleteDirectory(const std::string& path);

bool Fits(const std::string& path) {
    return path.size() < kPathSize;
}

// "" for what is no text of the code page.
std::wstring Wide(std::string_view text) {
    std::array<wchar_t, 2 * MAX_PATH> wide{};
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                                           static_cast<int>(wide.size()));
    return {wide.data(), static_cast<std::size_t>(length)};
}

// Two names can be the same in the code page, so that one would lead to the other.
bool IsToldByAnsiName(const wchar_t* name) {
    std::array<char, 2 * MAX_PATH> ansi{};
    return WideCharToMultiByte(CP_ACP, 0, name, -1, ansi.data(), static_cast<int>(ansi.size()), nullptr,
                               nullptr) > 0 &&
           Wide(FieldText(ansi)) == name;
}

bool AreAllToldByAnsiNames(const std::string& pattern) {
    WIN32_FIND_DATAW found{};
    const HANDLE first = FindFirstFileW(Wide(pattern).c_str(), &found);
    if (first == INVALID_HANDLE_VALUE)
        return false;
    const UniqueFileSearch search(first);
    do {
        if (!IsToldByAnsiName(found.cFileName)) {
            ZR_LOG("%s holds a name that the code page does not have\n", pattern.c_str());
            return false;
        }
    } while (FindNextFileW(search.Get(), &found));
    return GetLastError() == ERROR_NO_MORE_FILES;
}

// A link itself, not what it leads to. While it is open nobody else can rename or replace the directory.
UniqueHandle HeldDirectory(const std::string& path) {
    return OpenedFile(CreateFileA(path.c_str(), FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES, FILE_SHARE_READ,
                                  nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}

// 0 if they can't be told.
DWORD AttributesOf(const UniqueHandle& file) {
    BY_HANDLE_FILE_INFORMATION information{};
    return file && GetFileInformationByHandle(file.Get(), &information) ? information.dwFileAttributes : 0;
}

bool IsDirectory(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsLink(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

// "" if it can't be told.
std::wstring FinalPath(const UniqueHandle& file) {
    std::array<wchar_t, 1024> path{};
    const DWORD length =
        GetFinalPathNameByHandleW(file.Get(), path.data(), static_cast<DWORD>(path.size()), 0);
    return {path.data(), length < path.size() ? length : 0};
}

// Wine takes a link of the system below it for the file that it leads to, and would delete that one.
bool IsIn(const UniqueHandle& directory, const std::string& path, std::string_view name) {
    const UniqueHandle file =
        OpenedFile(CreateFileA(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                               nullptr, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    return file && FinalPath(file) == FinalPath(directory) + L"\\" + Wide(name);
}

// `base` is the directory's path with a backslash.
bool DeleteEntry(const UniqueHandle& directory, const std::string& base, const WIN32_FIND_DATAA& found) {
    const std::string_view name = FieldText(found.cFileName);
    const std::string path = base + std::string(name);
    switch (DeletionOf({name, IsDirectory(found.dwFileAttributes)})) {
    case EntryDeletion::None: return true;
    case EntryDeletion::Directory: return DeleteDirectory(path);
    case EntryDeletion::File: return Fits(path) && IsIn(directory, path, name) && DeleteFileA(path.c_str());
    case EntryDeletion::Impossible: break;
    }
    ZR_LOG("%s would lead to another entry\n", path.c_str());
    return false;
}

bool DeleteContent(const UniqueHandle& directory, const std::string& path) {
    const std::string base = path + "\\";
    const std::string pattern = base + "*";
    if (!Fits(pattern) || !AreAllToldByAnsiNames(pattern))
        return false;
    WIN32_FIND_DATAA found{};
    const HANDLE first = FindFirstFileA(pattern.c_str(), &found);
    if (first == INVALID_HANDLE_VALUE)
        return false;
    const UniqueFileSearch search(first);
    do {
        // Who may write its attributes can make an empty directory a link although it is held.
        if (IsLink(AttributesOf(directory)) || !DeleteEntry(directory, base, found))
            return false;
    } while (FindNextFileA(search.Get(), &found));
    return GetLastError() == ERROR_NO_MORE_FILES;
}

// `path` has no separator at its end: with one it would lead to what is behind a link.
bool DeleteDirectory(const std::string& path) {
    if (!Fits(path))
        return false;
    UniqueHandle directory = HeldDirectory(path);
    const DWORD attributes = AttributesOf(directory);
    if (!IsDirectory(attributes))
        return false;
    const bool isLink = IsLink(attributes);
    // Wine opens and removes what a link of the system below it leads to, whatever it is asked for.
    if (!isLink && IsLink(GetFileAttributesA(path.c_str())))
        return false;
    if (!isLink && !DeleteContent(directory, path))
        return false;
    directory.Reset(); // one that is open can't be removed
    return RemoveDirectoryA(path.c_str());
}

std::string WithoutSeparatorsAtItsEnd(std::string path) {
    while (!path.empty() && (path.back() == '/' || FindLastCharacter(path, '\\') == path.size() - 1))
        path.pop_back();
    return path;
}

// A drive's or a share's own directory.
bool IsRoot(const std::string& path) {
    return path.empty() || path.back() == ':' || PathIsRootA(path.c_str());
}

} // namespace

int DeleteDirectoryTree(const char* path) {
    ZR_LOG_ENTRY();
    if (!path)
        return 0;
    const std::string directory = WithoutSeparatorsAtItsEnd(path);
    // With a point or a blank at its end it is another directory alone than in front of a name.
    if (IsRoot(directory) || directory.ends_with('.') || directory.ends_with(' ')) {
        ZR_LOG("\"%s\" is no directory to delete\n", path);
        return 0;
    }
    return DeleteDirectory(directory) ? 1 : 0;
}
