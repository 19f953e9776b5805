#include "host/driverhost_driver.h"

#include "Common/win_handles.h"
#include "host/driver_data_file.h"
#include "host/driverhost_text.h"
#include "host/install_printer.h"
#include "host/module_function.h"
#include "host/ppd.h"
#include "host/script.h"
#include "host/whole_file.h"
#include "host/wide.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <variant>

#include <winddiui.h>

namespace driverhost {
namespace {

std::wstring ProgramFolder() {
    std::array<wchar_t, MAX_PATH> path{};
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::wstring_view name(path.data(), length);
    return std::wstring(name.substr(0, name.find_last_of(L'\\')));
}

std::string ReadDescription(const std::wstring& file) {
    const auto bytes = ReadWhole(file, ppd::kMaxFileSize);
    if (!bytes)
        return "the device description " + Utf8(file) + " can't be read";
    const auto parsed = ppd::Parse(*bytes);
    if (const auto* error = std::get_if<ppd::PpdError>(&parsed))
        return script::Describe(Utf8(file), {static_cast<int>(error->line), error->message});
    return "";
}

// A folder of its own for the time of an installation, emptied and removed afterwards.
class StagingFolder {
  public:
    StagingFolder() {
        std::array<wchar_t, MAX_PATH> temporary{};
        GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
        m_path = std::wstring(temporary.data()) + L"driverhost-" + std::to_wstring(GetCurrentProcessId());
        CreateDirectoryW(m_path.c_str(), nullptr);
    }
    ~StagingFolder() {
        for (const std::wstring& file : m_files)
            DeleteFileW(file.c_str());
        RemoveDirectoryW(m_path.c_str());
    }
    StagingFolder(const StagingFolder&) = delete;
    StagingFolder& operator=(const StagingFolder&) = delete;

    const std::wstring& Path() const { return m_path; }

    bool Take(const std::wstring& source, const std::wstring& name) {
        m_files.push_back(m_path + L"\\" + name);
        return CopyFileW(source.c_str(), m_files.back().c_str(), FALSE);
    }

  private:
    std::wstring m_path;
    std::vector<std::wstring> m_files;
};

Installed Outcome(const InstallResult& result) {
    return {result.ok ? "" : "the printer can't be installed: " + Utf8(result.message),
            result.driverDirectory + L"\\" + DriverPackage().configFile, Utf8(result.lacking)};
}

Installed InstallWithDescription(const std::wstring& printer, const std::wstring& description) {
    const DriverPackage package;
    const std::wstring program = ProgramFolder() + L"\\";
    StagingFolder staging;
    // The installation itself tells which of the program's own files are missed.
    staging.Take(program + package.configFile, package.configFile);
    for (const std::wstring& file : package.dependentFiles)
        staging.Take(program + file, file);
    staging.Take(program + package.application, package.application);
    if (!staging.Take(description, package.dataFile))
        return {"the device description " + Utf8(description) + " can't be copied", L"", ""};
    return Outcome(InstallPrinter(staging.Path(), printer, package));
}

UniquePrinter Opened(std::wstring printerName) {
    UniquePrinter printer;
    OpenPrinterW(printerName.data(), printer.Receive(), nullptr);
    return printer;
}

std::string MessageOf(PFNX100GETLASTMESSAGE lastMessage, const std::string& otherwise) {
    std::array<wchar_t, 1024> buffer{};
    if (!lastMessage || lastMessage(buffer.data(), static_cast<DWORD>(buffer.size())) == 0)
        return otherwise;
    return Utf8(buffer.data());
}

// Calls a module's function, and returns "" or why its driver was not told.
template <typename Function, typename Call>
std::string Tell(const std::wstring& file, const std::string& functionName, Call call) {
    const UniqueModule module(LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    if (!module)
        return Utf8(file) + " can't be loaded: " + ErrorText(GetLastError());
    const auto function = FunctionOf<Function>(module.Get(), functionName.c_str());
    if (!function)
        return "the installed driver has no " + functionName;
    if (call(function))
        return "";
    return MessageOf(FunctionOf<PFNX100GETLASTMESSAGE>(module.Get(), "X100GetLastMessage"),
                     functionName + " fails");
}

// The spooler tells a printer's driver before it deletes the printer.
std::string TellOfPrintersDeletion(std::wstring printerName) {
    if (!Opened(printerName))
        return "";
    const Installed installed = FindInstalled(printerName);
    if (!installed.error.empty())
        return installed.error;
    return Tell<PFNDRVPRINTEREVENT>(installed.configModule, "DrvPrinterEvent", [&](auto event) {
        return event(printerName.data(), PRINTER_EVENT_DELETE, 0, 0);
    });
}

// The module of the driver that the spooler has; "" for one that is not there.
std::wstring RegisteredModule() {
    DWORD needed = 0;
    DWORD count = 0;
    EnumPrinterDriversW(nullptr, nullptr, 3, nullptr, 0, &needed, &count);
    std::vector<BYTE> buffer(needed);
    if (!EnumPrinterDriversW(nullptr, nullptr, 3, buffer.data(), needed, &needed, &count))
        return L"";
    for (const DRIVER_INFO_3W& driver :
         std::span(reinterpret_cast<const DRIVER_INFO_3W*>(buffer.data()), count))
        if (driver.pName && std::wstring_view(driver.pName) == kDriverName && driver.pConfigFile)
            return driver.pConfigFile;
    return L"";
}

// So is the driver before it goes itself.
std::string TellOfDriversDeletion() {
    const std::wstring module = RegisteredModule();
    if (module.empty())
        return "";
    return Tell<PFNDRVDRIVEREVENT>(module, "DrvDriverEvent",
                                   [](auto event) { return event(DRIVER_EVENT_DELETE, 3, nullptr, 0); });
}

// Other printers may have been installed with the same driver.
bool IsDriverInUse() {
    constexpr DWORD kFlags = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
    DWORD needed = 0;
    DWORD count = 0;
    EnumPrintersW(kFlags, nullptr, 2, nullptr, 0, &needed, &count);
    std::vector<BYTE> buffer(needed);
    if (!EnumPrintersW(kFlags, nullptr, 2, buffer.data(), needed, &needed, &count))
        return true;
    const std::span printers(reinterpret_cast<const PRINTER_INFO_2W*>(buffer.data()), count);
    return std::ranges::any_of(printers, [](const PRINTER_INFO_2W& printer) {
        return printer.pDriverName && std::wstring_view(printer.pDriverName) == kDriverName;
    });
}

std::string RemoveDriver() {
    std::wstring driver = kDriverName;
    // Wine refuses any flag, and leaves the last error alone for a driver that is not there.
    for (const DWORD flag : {static_cast<DWORD>(DPD_DELETE_UNUSED_FILES), DWORD{0}}) {
        SetLastError(ERROR_SUCCESS);
        if (DeletePrinterDriverExW(nullptr, nullptr, driver.data(), flag, 0))
            return "";
        const DWORD error = GetLastError();
        if (error == ERROR_SUCCESS || error == ERROR_UNKNOWN_PRINTER_DRIVER)
            return "";
        if (error != ERROR_INVALID_PARAMETER)
            return "the driver can't be removed: " + ErrorText(error);
    }
    return "the driver can't be removed: " + ErrorText(ERROR_INVALID_PARAMETER);
}

} // namespace

Installed Install(const Options& options) {
    const std::wstring printer = Wide(options.printer);
    const std::wstring description =
        options.ppd.empty() ? ProgramFolder() + L"\\" + DriverPackage().dataFile : Wide(options.ppd);
    if (std::string error = ReadDescription(description); !error.empty())
        return {error, L"", ""};
    return options.ppd.empty() ? Outcome(InstallPrinter(ProgramFolder(), printer))
                               : InstallWithDescription(printer, description);
}

Installed FindInstalled(const std::wstring& printerName) {
    const UniquePrinter printer = Opened(printerName);
    if (!printer)
        return {"there is no printer " + Utf8(printerName) + ": " + ErrorText(GetLastError()), L"", ""};
    const auto module = DriverConfigFile(printer.Get());
    if (!module)
        return {"the spooler does not tell the printer's driver: " + ErrorText(GetLastError()), L"", ""};
    return {"", *module, ""};
}

Removed Remove(const std::wstring& printerName) {
    Removed removed;
    removed.untold = TellOfPrintersDeletion(printerName);
    if (!RemovePrinter(printerName))
        removed.error = "the printer can't be removed: " + ErrorText(GetLastError());
    if (!removed.error.empty() || IsDriverInUse())
        return removed;
    if (std::string untold = TellOfDriversDeletion(); !untold.empty())
        removed.untold = std::move(untold);
    removed.error = RemoveDriver();
    return removed;
}

std::wstring DescriptionOf(const std::wstring& printerName) {
    const UniquePrinter printer = Opened(printerName);
    if (!printer)
        return L"";
    return DriverDataFile(printer.Get()).value_or(L"");
}

template <typename Function>
void DriverModule::Find(HMODULE module, const char* name, Function& function) {
    function = FunctionOf<Function>(module, name);
    if (!function)
        m_trouble = "the installed driver has no " + std::string(name);
}

DriverModule::DriverModule(const std::wstring& file) {
    const HMODULE module = LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!module) {
        m_trouble = Utf8(file) + " can't be loaded: " + ErrorText(GetLastError());
        return;
    }
    Find(module, "DrvDevicePropertySheets", m_deviceSheets);
    Find(module, "X100GetLastMessage", m_lastMessage);
    Find(module, "X100GetLastSheetResult", m_lastResult);
    Find(module, "X100CheckDevMode", m_check);
}

std::string DriverModule::LastMessage(const std::string& otherwise) const {
    return MessageOf(m_lastMessage, otherwise);
}

std::string DriverModule::Refusal(const std::wstring& printerName, std::span<const std::byte> devmode) const {
    if (m_check(printerName.c_str(), devmode.data(), static_cast<DWORD>(devmode.size())))
        return "";
    return LastMessage("the driver refuses it");
}

} // namespace driverhost
