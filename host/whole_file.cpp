#include "host/whole_file.h"

UniqueHandle OpenToRead(const std::wstring& file) {
    const HANDLE opened = CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    return OpenedFile(opened);
}

std::optional<std::string> ReadWhole(HANDLE file, std::size_t limit) {
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file, &size))
        return std::nullopt;
    if (size.QuadPart > static_cast<LONGLONG>(limit)) {
        SetLastError(ERROR_FILE_TOO_LARGE);
        return std::nullopt;
    }
    std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD read = 0;
    if (!ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) ||
        read != bytes.size())
        return std::nullopt;
    return bytes;
}

std::optional<std::string> ReadWhole(const std::wstring& file, std::size_t limit) {
    const UniqueHandle handle = OpenToRead(file);
    return handle ? ReadWhole(handle.Get(), limit) : std::nullopt;
}
