#include "host/install_printer.h"

#include "Common/win_handles.h"
#include "host/whole_file.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <filesystem>
#include <optional>
#include <string_view>

namespace {

constexpr wchar_t kEnvironment[] = L"Windows x64";
constexpr wchar_t kPortName[] = L"FILE:";

// The row of the plug-in's string table that its command lines begin with: the path and a blank.
constexpr unsigned kApplicationCommand = 20709;

constexpr std::string_view TableText(unsigned number) {
    switch (number) {
#define ZR_STRING(row, text)                                                                                 \
    case row:                                                                                                \
        return text;
#include "resources/strings.def"
#undef ZR_STRING
    default: return "";
    }
}

struct InstallFailure {
    std::wstring message;
};

[[noreturn]] void Fail(const std::wstring& what) {
    throw InstallFailure{what + L", error " + std::to_wstring(GetLastError()) + L"."};
}

// The spooler keeps the files of version 3 drivers, which all 64-bit ones are, in a folder of that name.
std::filesystem::path DriverDirectory() {
    std::array<wchar_t, 1024> path{};
    DWORD needed = 0;
    if (!GetPrinterDriverDirectoryW(nullptr, const_cast<LPWSTR>(kEnvironment), 1,
                                    reinterpret_cast<LPBYTE>(path.data()), sizeof path, &needed))
        Fail(L"The spooler does not tell its driver folder");
    return std::filesystem::path(path.data()) / L"3";
}

std::optional<WIN32_FILE_ATTRIBUTE_DATA> AttributesOf(const std::filesystem::path& file) {
    WIN32_FILE_ATTRIBUTE_DATA attributes{};
    if (!GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &attributes))
        return std::nullopt;
    return attributes;
}

// Copying keeps the time of the last writing, so that the content of an unchanged file, of which there are
// many megabytes, need not be read.
bool IsCopy(const std::filesystem::path& source, const std::filesystem::path& target) {
    const auto original = AttributesOf(source);
    const auto copy = AttributesOf(target);
    if (!original || !copy || original->nFileSizeLow != copy->nFileSizeLow ||
        original->nFileSizeHigh != copy->nFileSizeHigh)
        return false;
    if (CompareFileTime(&original->ftLastWriteTime, &copy->ftLastWriteTime) == 0)
        return true;
    constexpr std::size_t kLimit = 0x7FFFFFFF;
    const auto bytes = ReadWhole(source.wstring(), kLimit);
    return bytes && bytes == ReadWhole(target.wstring(), kLimit);
}

// A name that the file can be moved to: one that nothing is at, or only what nobody holds any longer.
std::filesystem::path AsideName(const std::filesystem::path& path) {
    for (int i = 1; i < 100; ++i) {
        std::filesystem::path aside = path;
        aside += L".old" + std::to_wstring(i);
        if (GetFileAttributesW(aside.c_str()) == INVALID_FILE_ATTRIBUTES || DeleteFileW(aside.c_str()))
            return aside;
    }
    throw InstallFailure{L"Too many programs hold old copies of " + path.filename().wstring() + L"."};
}

// A module that a program has loaded, and a program that runs, can't be written to, but can be given another
// name.
void Replace(const std::filesystem::path& source, const std::filesystem::path& target) {
    if (IsCopy(source, target))
        return;
    if (CopyFileW(source.c_str(), target.c_str(), FALSE))
        return;
    if (!MoveFileExW(target.c_str(), AsideName(target).c_str(), 0) ||
        !CopyFileW(source.c_str(), target.c_str(), TRUE))
        Fail(L"The file " + source.wstring() + L" can't be copied to " + target.parent_path().wstring());
}

class Installer {
  public:
    Installer(const std::wstring& source, const DriverPackage& package)
        : m_source(source), m_package(package) {}

    void Run(const std::wstring& printerName, InstallResult& result) {
        m_directory = DriverDirectory();
        result.driverDirectory = m_directory.wstring();
        CopyFiles();
        result.lacking = PlaceApplication();
        result.driverAdded = AddDriver();
        result.printerAdded = AddPrinterOf(printerName);
    }

  private:
    void CopyFiles() {
        std::error_code error;
        std::filesystem::create_directories(m_directory, error);
        std::vector<std::wstring> required = {m_package.configFile, m_package.dataFile, IniName()};
        for (const std::wstring& name : required)
            if (!Exists(name))
                throw InstallFailure{L"The file " + (m_source / name).wstring() + L" is missing."};
        Replace(m_source / m_package.configFile, m_directory / m_package.configFile);
        Replace(m_source / m_package.dataFile, m_directory / m_package.dataFile);
        for (const std::wstring& name : m_package.dependentFiles)
            if (Exists(name))
                Replace(m_source / name, m_directory / name);
    }

    // Returns what there is to tell. Packages from before the application have none.
    std::wstring PlaceApplication() const {
        if (m_package.applicationPath.empty())
            return L"";
        if (!Exists(m_package.application))
            return L"The job properties can't be opened: the file " +
                   (m_source / m_package.application).wstring() + L" is missing.";
        const std::filesystem::path target = m_package.applicationPath;
        std::error_code error;
        std::filesystem::create_directories(target.parent_path(), error);
        Replace(m_source / m_package.application, target);
        return L"";
    }

    std::wstring IniName() const {
        return std::filesystem::path(m_package.dataFile).replace_extension(L".ini").wstring();
    }

    bool Exists(const std::wstring& name) const {
        return GetFileAttributesW((m_source / name).c_str()) != INVALID_FILE_ATTRIBUTES;
    }

    // Printing itself is done by Wine's own PostScript driver; the configuration module is ours.
    static std::wstring GraphicsDriver() {
        std::array<wchar_t, MAX_PATH> directory{};
        GetSystemDirectoryW(directory.data(), directory.size());
        return std::wstring(directory.data()) + L"\\wineps.drv";
    }

    // The names one after the other, each with its NUL, a NUL at the end.
    std::wstring DependentFiles() const {
        std::wstring list;
        for (const std::wstring& name : m_package.dependentFiles)
            if (Exists(name))
                list += (m_source / name).wstring() + L'\0';
        return list + L'\0';
    }

    // What the spooler holds of the driver: level 3 of all drivers, and the row in it.
    struct Registered {
        std::vector<BYTE> all;
        const DRIVER_INFO_3W* driver = nullptr; // null if it is not there
    };

    Registered FindDriver() const {
        std::wstring environment = kEnvironment;
        DWORD needed = 0;
        DWORD count = 0;
        Registered found;
        EnumPrinterDriversW(nullptr, environment.data(), 3, nullptr, 0, &needed, &count);
        found.all.resize(needed);
        if (!EnumPrinterDriversW(nullptr, environment.data(), 3, found.all.data(), needed, &needed, &count))
            return found;
        const auto* drivers = reinterpret_cast<const DRIVER_INFO_3W*>(found.all.data());
        const auto* end = drivers + count;
        const auto* driver = std::find_if(
            drivers, end, [&](const DRIVER_INFO_3W& one) { return m_package.driverName == one.pName; });
        if (driver != end)
            found.driver = driver;
        return found;
    }

    // The spooler tells paths of its own folder, where Wine itself has put the graphics driver. The content
    // of the package's files is of no interest: CopyFiles has brought it.
    bool IsAsWanted(const DRIVER_INFO_3W& driver) const {
        const auto names = [](const wchar_t* path, const std::wstring& wanted) {
            return path && std::filesystem::path(path).filename() == std::filesystem::path(wanted).filename();
        };
        const wchar_t* file = driver.pDependentFiles ? driver.pDependentFiles : L"";
        for (const std::wstring& name : m_package.dependentFiles)
            if (Exists(name)) {
                if (!names(file, name))
                    return false;
                file += std::wcslen(file) + 1;
            }
        return !*file && names(driver.pConfigFile, m_package.configFile) &&
               names(driver.pDataFile, m_package.dataFile) && names(driver.pDriverPath, GraphicsDriver());
    }

    // Registering a driver again brings a changed list of files, and has the spooler copy all of them, many
    // megabytes.
    bool AddDriver() const {
        const Registered registered = FindDriver();
        if (registered.driver && IsAsWanted(*registered.driver))
            return false;
        std::wstring name = m_package.driverName;
        std::wstring environment = kEnvironment;
        std::wstring graphics = GraphicsDriver();
        std::wstring config = (m_source / m_package.configFile).wstring();
        std::wstring data = (m_source / m_package.dataFile).wstring();
        std::wstring dependent = DependentFiles();
        DRIVER_INFO_3W info{};
        info.cVersion = 3;
        info.pName = name.data();
        info.pEnvironment = environment.data();
        info.pDriverPath = graphics.data();
        info.pConfigFile = config.data();
        info.pDataFile = data.data();
        info.pDependentFiles = dependent.data();
        if (!AddPrinterDriverExW(nullptr, 3, reinterpret_cast<LPBYTE>(&info),
                                 APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY) &&
            GetLastError() != ERROR_PRINTER_DRIVER_ALREADY_INSTALLED)
            Fail(L"The driver can't be added to the spooler");
        return !registered.driver;
    }

    bool AddPrinterOf(const std::wstring& printerName) const {
        std::wstring name = printerName;
        std::wstring driver = m_package.driverName;
        std::wstring port = kPortName;
        std::wstring processor = L"WinPrint";
        std::wstring datatype = L"RAW";
        HANDLE opened = nullptr;
        if (OpenPrinterW(name.data(), &opened, nullptr)) {
            ClosePrinter(opened);
            return false;
        }
        PRINTER_INFO_2W info{};
        info.pPrinterName = name.data();
        info.pDriverName = driver.data();
        info.pPortName = port.data();
        info.pPrintProcessor = processor.data();
        info.pDatatype = datatype.data();
        UniquePrinter added(AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info)));
        if (!added)
            Fail(L"The printer " + printerName + L" can't be added to the spooler");
        return true;
    }

    std::filesystem::path m_source;
    const DriverPackage& m_package;
    std::filesystem::path m_directory;
};

} // namespace

std::wstring JobPropertyApplicationPath() {
    constexpr std::string_view kCommand = TableText(kApplicationCommand);
    static_assert(kCommand.ends_with(".exe "));
    return {kCommand.begin(), kCommand.end() - 1};
}

InstallResult InstallPrinter(const std::wstring& sourceDirectory, const std::wstring& printerName,
                             const DriverPackage& package) {
    InstallResult result;
    try {
        Installer(sourceDirectory, package).Run(printerName, result);
        result.ok = true;
    } catch (const InstallFailure& failure) {
        result.message = failure.message;
    }
    return result;
}

bool RemovePrinter(const std::wstring& printerName) {
    std::wstring name = printerName;
    PRINTER_DEFAULTSW access{nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE opened = nullptr;
    if (!OpenPrinterW(name.data(), &opened, &access))
        return GetLastError() == ERROR_INVALID_PRINTER_NAME;
    UniquePrinter printer(opened);
    return DeletePrinter(printer.Get());
}
