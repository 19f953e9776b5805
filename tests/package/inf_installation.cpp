#include "tests/package/inf_installation.h"

#include "Common/win_handles.h"
#include "host/module_function.h"
#include "host/x100drvui.h"

#include <array>
#include <cwchar>
#include <span>

namespace {

constexpr wchar_t kEnvironment[] = L"Windows x64";

std::string Failed(const char* what) {
    return std::string(what) + " fails, error " + std::to_string(GetLastError());
}

// The files that a copy of the INF's lists needs: its queue, and the platform's own answers to what happens.
class CopyQueue {
  public:
    CopyQueue()
        : m_queue(SetupOpenFileQueue()),
          // Nobody is there to be asked or shown progress.
          m_context(SetupInitDefaultQueueCallbackEx(nullptr, static_cast<HWND>(INVALID_HANDLE_VALUE), 0, 0,
                                                    nullptr)) {}
    ~CopyQueue() {
        SetupTermDefaultQueueCallback(m_context);
        SetupCloseFileQueue(m_queue);
    }
    CopyQueue(const CopyQueue&) = delete;
    CopyQueue& operator=(const CopyQueue&) = delete;

    HSPFILEQ Get() const { return m_queue; }
    bool Commit() { return SetupCommitFileQueueW(nullptr, m_queue, SetupDefaultQueueCallbackW, m_context); }

  private:
    HSPFILEQ m_queue;
    PVOID m_context;
};

// What AddPrinterDriver is told of a driver, with the texts that it points at.
class DriverInfo {
  public:
    DriverInfo(const InfFile& inf, const std::filesystem::path& graphicsModule,
               const std::filesystem::path& configModule)
        : m_name(inf.Model()), m_graphics(graphicsModule.wstring()), m_config(configModule.wstring()),
          m_data((DriverDirectory() / inf.Value(inf.InstallSection(), L"DataFile")).wstring()) {
        for (const std::wstring& file : inf.CopiedFiles(kDriverDirectory))
            if (file != inf.Value(inf.InstallSection(), L"DataFile"))
                m_dependent += (DriverDirectory() / file).wstring() + L'\0';
        m_info.cVersion = 3;
        m_info.pName = m_name.data();
        m_info.pEnvironment = m_environment.data();
        m_info.pDriverPath = m_graphics.data();
        m_info.pConfigFile = m_config.data();
        m_info.pDataFile = m_data.data();
        m_info.pDependentFiles = m_dependent.data();
    }
    DriverInfo(const DriverInfo&) = delete;
    DriverInfo& operator=(const DriverInfo&) = delete;

    LPBYTE Bytes() { return reinterpret_cast<LPBYTE>(&m_info); }

  private:
    std::wstring m_name;
    std::wstring m_environment = kEnvironment;
    std::wstring m_graphics;
    std::wstring m_config;
    std::wstring m_data;
    std::wstring m_dependent; // each with its NUL; the text's own ends the list
    DRIVER_INFO_3W m_info{};
};

// Loaded for one call, so that the driver's files can be deleted after it.
class ConfigModule {
  public:
    explicit ConfigModule(const std::filesystem::path& file)
        : m_module(LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)) {}
    ~ConfigModule() { FreeLibrary(m_module); }
    ConfigModule(const ConfigModule&) = delete;
    ConfigModule& operator=(const ConfigModule&) = delete;

    HMODULE Get() const { return m_module; }

  private:
    HMODULE m_module;
};

} // namespace

std::filesystem::path DriverDirectory() {
    std::array<wchar_t, 1024> path{};
    DWORD needed = 0;
    GetPrinterDriverDirectoryW(nullptr, const_cast<LPWSTR>(kEnvironment), 1,
                               reinterpret_cast<LPBYTE>(path.data()), sizeof path, &needed);
    return path.data();
}

std::string CopyFilesOf(const InfFile& inf, const std::filesystem::path& package) {
    if (!SetupSetDirectoryIdW(inf.Handle(), kDriverDirectory, DriverDirectory().c_str()))
        return Failed("SetupSetDirectoryId");
    CopyQueue queue;
    if (!SetupInstallFilesFromInfSectionW(inf.Handle(), nullptr, queue.Get(), inf.InstallSection().c_str(),
                                          package.c_str(), 0))
        return Failed("SetupInstallFilesFromInfSection");
    return queue.Commit() ? "" : Failed("SetupCommitFileQueue");
}

std::string AddDriverOf(const InfFile& inf, const std::filesystem::path& graphicsModule,
                        const std::filesystem::path& configModule) {
    DriverInfo info(inf, graphicsModule, configModule);
    return AddPrinterDriverExW(nullptr, 3, info.Bytes(), APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY)
               ? ""
               : Failed("AddPrinterDriverEx");
}

std::string AddPrinterOf(const InfFile& inf, std::wstring printerName) {
    std::wstring driver = inf.Model();
    std::wstring port = L"FILE:";
    std::wstring processor = L"WinPrint";
    std::wstring datatype = L"RAW";
    PRINTER_INFO_2W info{};
    info.pPrinterName = printerName.data();
    info.pDriverName = driver.data();
    info.pPortName = port.data();
    info.pPrintProcessor = processor.data();
    info.pDatatype = datatype.data();
    const UniquePrinter printer(AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info)));
    return printer ? "" : Failed("AddPrinter");
}

RegisteredDriver::RegisteredDriver(const std::wstring& name) {
    std::wstring environment = kEnvironment;
    DWORD needed = 0;
    DWORD count = 0;
    EnumPrinterDriversW(nullptr, environment.data(), 3, nullptr, 0, &needed, &count);
    m_buffer.resize(needed);
    if (!EnumPrinterDriversW(nullptr, environment.data(), 3, m_buffer.data(), needed, &needed, &count))
        return;
    for (DRIVER_INFO_3W& info : std::span(reinterpret_cast<DRIVER_INFO_3W*>(m_buffer.data()), count))
        if (name == info.pName)
            m_info = &info;
}

std::vector<std::filesystem::path> RegisteredDriver::DependentFiles() const {
    std::vector<std::filesystem::path> files;
    for (const wchar_t* file = m_info->pDependentFiles; file && *file; file += std::wcslen(file) + 1)
        files.emplace_back(file);
    return files;
}

bool RegisteredDriver::TellDriverEvent(DWORD event) const {
    const ConfigModule module(ConfigFile());
    const auto tell = FunctionOf<PFNDRVDRIVEREVENT>(module.Get(), "DrvDriverEvent");
    return tell && tell(event, 3, reinterpret_cast<LPBYTE>(m_info), 0);
}

bool RegisteredDriver::TellPrinterEvent(INT event, std::wstring printerName) const {
    const ConfigModule module(ConfigFile());
    const auto tell = FunctionOf<PFNDRVPRINTEREVENT>(module.Get(), "DrvPrinterEvent");
    return tell && tell(printerName.data(), event, 0, 0);
}
