#include "host/driver_files.h"

#include "Common/win_handles.h"
#include "host/failure.h"
#include "host/report.h"
#include "host/wide.h"

#include <array>
#include <mutex>
#include <vector>

namespace {

constexpr wchar_t kDescriptionName[] = L"x100.ppd";

std::wstring DirectoryOf(const std::wstring& path) {
    return path.substr(0, path.find_last_of(L"\\/") + 1);
}

std::wstring ThisDirectory() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ThisDirectory), &module);
    std::array<wchar_t, 1024> path{};
    DWORD length = GetModuleFileNameW(module, path.data(), path.size());
    if (length == 0 || length == path.size())
        throw Failure("The folder of the driver's module can't be told.");
    return DirectoryOf(path.data());
}

std::wstring DataFileOf(HANDLE printer) {
    DWORD needed = 0;
    GetPrinterDriverW(printer, nullptr, 3, nullptr, 0, &needed);
    std::vector<BYTE> buffer(needed);
    if (needed < sizeof(DRIVER_INFO_3W) ||
        !GetPrinterDriverW(printer, nullptr, 3, buffer.data(), needed, &needed))
        throw Failure("The printer's driver can't be read from the spooler.");
    const auto* driver = reinterpret_cast<const DRIVER_INFO_3W*>(buffer.data());
    if (!driver->pDataFile || !*driver->pDataFile)
        throw Failure("The printer's driver names no printer description.");
    return driver->pDataFile;
}

std::string ReadWhole(const std::wstring& path, HANDLE file, std::uint64_t size) {
    std::string bytes(size, '\0');
    DWORD read = 0;
    if (!ReadFile(file, bytes.data(), static_cast<DWORD>(size), &read, nullptr) || read != size)
        throw Failure("The printer description " + Utf8(path) + " can't be read.");
    return bytes;
}

// Texts are Japanese for a user whose windows are.
Language UserLanguage() {
    return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_JAPANESE ? Language::Japanese
                                                                      : Language::English;
}

std::shared_ptr<const PrinterModel> ParseModel(const std::wstring& path, std::string_view bytes) {
    auto result = ppd::Parse(bytes);
    if (const auto* error = std::get_if<ppd::PpdError>(&result))
        throw Failure("The printer description " + Utf8(path) + ", line " + std::to_string(error->line) +
                      ": " + error->message);
    return std::make_shared<PrinterModel>(std::get<ppd::PpdFile>(std::move(result)), UserLanguage());
}

// The description read last. Programs ask for a dozen capabilities in a row.
struct Cache {
    std::mutex mutex;
    std::wstring path;
    std::uint64_t size = 0;
    std::uint64_t written = 0;
    std::shared_ptr<const PrinterModel> model;
};
Cache g_cache;

} // namespace

std::string Utf8(std::wstring_view text) {
    int length = static_cast<int>(text.size());
    std::string out(3 * text.size(), '\0');
    int written = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, out.data(),
                                      static_cast<int>(out.size()), nullptr, nullptr);
    out.resize(static_cast<std::size_t>(written));
    return out;
}

DriverFiles FindDriverFiles(HANDLE printer) {
    DriverFiles files;
    files.description = printer ? DataFileOf(printer) : ThisDirectory() + kDescriptionName;
    files.directory = DirectoryOf(files.description);
    files.ini = files.description.substr(0, files.description.find_last_of(L'.')) + L".ini";
    return files;
}

std::shared_ptr<const PrinterModel> LoadModel(const std::wstring& path) {
    const HANDLE opened = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, 0, nullptr);
    if (opened == INVALID_HANDLE_VALUE)
        throw Failure("The printer description " + Utf8(path) + " can't be opened.");
    const UniqueHandle file(opened);
    LARGE_INTEGER size{};
    FILETIME written{};
    if (!GetFileSizeEx(file.Get(), &size) || !GetFileTime(file.Get(), nullptr, nullptr, &written))
        throw Failure("The printer description " + Utf8(path) + " can't be read.");
    auto bytes = static_cast<std::uint64_t>(size.QuadPart);
    if (bytes > ppd::kMaxFileSize)
        throw Failure("The printer description " + Utf8(path) + " is too large.");
    std::uint64_t time = std::uint64_t{written.dwHighDateTime} << 32 | written.dwLowDateTime;

    std::lock_guard lock(g_cache.mutex);
    if (!g_cache.model || g_cache.path != path || g_cache.size != bytes || g_cache.written != time) {
        g_cache.model = ParseModel(path, ReadWhole(path, file.Get(), bytes));
        g_cache.path = path;
        g_cache.size = bytes;
        g_cache.written = time;
    }
    return g_cache.model;
}

std::wstring PluginFileName(const DriverFiles& files) {
    std::array<wchar_t, MAX_PATH> name{};
    GetPrivateProfileStringW(L"OEMFiles", L"OEMConfigFile1", L"", name.data(), name.size(),
                             files.ini.c_str());
    std::wstring plugin = name.data();
    // It stands in the driver's folder; a path would load something else.
    if (plugin.find_first_of(L"\\/:") != std::wstring::npos)
        throw Failure("The file " + Utf8(files.ini) + " gives the plug-in with a path.");
    return plugin;
}
