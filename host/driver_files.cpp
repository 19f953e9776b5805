#include "host/driver_files.h"

#include "host/driver_data_file.h"
#include "host/failure.h"
#include "host/whole_file.h"
#include "host/wide.h"

#include <array>
#include <mutex>

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
    const auto file = DriverDataFile(printer);
    if (!file)
        throw Failure("The printer's driver can't be read from the spooler.");
    if (file->empty())
        throw Failure("The printer's driver names no printer description.");
    return *file;
}

// Texts are Japanese for a user whose windows are.
Language UserLanguage() {
    return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_JAPANESE ? Language::Japanese
                                                                      : Language::English;
}

std::shared_ptr<const PrinterModel> ReadModel(const std::wstring& path, HANDLE file) {
    const auto bytes = ReadWhole(file, ppd::kMaxFileSize);
    if (!bytes)
        throw Failure("The printer description " + Utf8(path) + " can't be read.");
    auto result = ppd::Parse(*bytes);
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

DriverFiles FindDriverFiles(HANDLE printer) {
    DriverFiles files;
    files.description = printer ? DataFileOf(printer) : ThisDirectory() + kDescriptionName;
    files.directory = DirectoryOf(files.description);
    files.ini = files.description.substr(0, files.description.find_last_of(L'.')) + L".ini";
    return files;
}

std::shared_ptr<const PrinterModel> LoadModel(const std::wstring& path) {
    const UniqueHandle file = OpenToRead(path);
    if (!file)
        throw Failure("The printer description " + Utf8(path) + " can't be opened.");
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
        g_cache.model = ReadModel(path, file.Get());
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
