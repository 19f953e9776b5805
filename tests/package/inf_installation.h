// Installs the driver of an INF as the platform's class installer does: the files by the INF's own lists, the
// driver from what was copied. The stock driver's two modules, which the platform brings, have stand-ins
// here.
#pragma once

#include "tests/package/inf_file.h"

#include <filesystem>
#include <string>
#include <vector>

#include <winspool.h>

// The spooler's folder for the files of drivers, into which the INF copies; it keeps those of version 3 in
// "3" below.
std::filesystem::path DriverDirectory();

// Each function gives "" or what went wrong.
std::string CopyFilesOf(const InfFile& inf, const std::filesystem::path& package);
std::string AddDriverOf(const InfFile& inf, const std::filesystem::path& graphicsModule,
                        const std::filesystem::path& configModule);
std::string AddPrinterOf(const InfFile& inf, std::wstring printerName);

// What the spooler has of a driver for 64-bit Windows.
class RegisteredDriver {
  public:
    explicit RegisteredDriver(const std::wstring& name);

    // Whether there is one.
    explicit operator bool() const { return m_info != nullptr; }
    std::filesystem::path DataFile() const { return m_info->pDataFile; }
    std::filesystem::path ConfigFile() const { return m_info->pConfigFile; }
    std::vector<std::filesystem::path> DependentFiles() const;

    // What the spooler tells the driver's configuration module when driver or printer come and go; false if
    // the module does not listen.
    bool TellDriverEvent(DWORD event) const;
    bool TellPrinterEvent(INT event, std::wstring printerName) const;

  private:
    std::vector<BYTE> m_buffer;
    DRIVER_INFO_3W* m_info = nullptr;
};
