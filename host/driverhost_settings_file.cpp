#include "host/driverhost_settings_file.h"

#include "Common/win_handles.h"
#include "host/driverhost_text.h"
#include "host/dump.h"
#include "host/whole_file.h"
#include "host/wide.h"

#include <array>
#include <cwchar>
#include <span>
#include <string_view>

#include <windows.h>

#include <shlobj.h>

namespace driverhost {
namespace {

// Public part and extra are counted in 16 bits each.
constexpr std::size_t kMaximumSize = 2 * 0xFFFF;

UniqueHandle OpenFile(const std::wstring& file, DWORD access, DWORD disposition) {
    const HANDLE handle = CreateFileW(file.c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    return OpenedFile(handle);
}

std::wstring FileName(std::wstring_view printerName) {
    constexpr std::wstring_view kForbidden = L"\\/:*?\"<>|%";
    std::wstring name;
    for (const wchar_t c : printerName) {
        if (c >= 0x20 && kForbidden.find(c) == std::wstring_view::npos) {
            name += c;
            continue;
        }
        std::array<wchar_t, 8> code{};
        std::swprintf(code.data(), code.size(), L"%%%02X", static_cast<unsigned>(c));
        name += code.data();
    }
    return name + L".devmode";
}

std::wstring Folder() {
    std::array<wchar_t, MAX_PATH> path{};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT,
                                path.data())))
        return L".";
    return std::wstring(path.data()) + L"\\Zephra\\Printers";
}

std::string Refusal(const std::wstring& file, const std::string& reason) {
    return "the stored settings in " + Utf8(file) + " can't be used: " + reason;
}

bool WriteWhole(const std::wstring& file, const std::vector<std::byte>& bytes) {
    const UniqueHandle handle = OpenFile(file, GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = 0;
    return handle &&
           WriteFile(handle.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size() && FlushFileBuffers(handle.Get());
}

} // namespace

SettingsFile::SettingsFile(std::wstring printerName) : m_file(Folder() + L"\\" + FileName(printerName)) {}

std::vector<std::byte> SettingsFile::Load(std::string& error) const {
    const UniqueHandle handle = OpenFile(m_file, GENERIC_READ, OPEN_EXISTING);
    if (!handle) {
        const DWORD reason = GetLastError();
        if (reason != ERROR_FILE_NOT_FOUND && reason != ERROR_PATH_NOT_FOUND)
            error = Refusal(m_file, ErrorText(reason));
        return {};
    }
    const auto text = ReadWhole(handle.Get(), kMaximumSize);
    if (!text) {
        const DWORD reason = GetLastError();
        error = Refusal(m_file, reason == ERROR_FILE_TOO_LARGE ? "it is longer than a DEVMODE can be"
                                                               : ErrorText(reason));
        return {};
    }
    const auto bytes = std::as_bytes(std::span(*text));
    if (const std::string trouble = dump::Trouble(bytes); !trouble.empty()) {
        error = Refusal(m_file, trouble);
        return {};
    }
    return {bytes.begin(), bytes.end()};
}

std::string SettingsFile::Store(const std::vector<std::byte>& devmode) const {
    SHCreateDirectoryExW(nullptr, m_file.substr(0, m_file.find_last_of(L'\\')).c_str(), nullptr);
    const std::wstring fresh = m_file + L".new";
    if (WriteWhole(fresh, devmode) &&
        MoveFileExW(fresh.c_str(), m_file.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return "";
    const DWORD reason = GetLastError();
    DeleteFileW(fresh.c_str());
    return "the settings can't be stored in " + Utf8(m_file) + ": " + ErrorText(reason);
}

std::string SettingsFile::Forget() const {
    if (DeleteFileW(m_file.c_str()) || GetLastError() == ERROR_FILE_NOT_FOUND ||
        GetLastError() == ERROR_PATH_NOT_FOUND)
        return "";
    return Utf8(m_file) + " can't be deleted: " + ErrorText(GetLastError());
}

} // namespace driverhost
