// A printer of the spooler's own driver, with a name of this process's own.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <winspool.h>

#include <array>
#include <fstream>
#include <string>

// Is there, with its driver, while it lives.
class SpoolerPrinter {
  public:
    explicit SpoolerPrinter(const std::string& nameBegin, std::string port = "LPT1:")
        : m_name(nameBegin + " " + std::to_string(GetCurrentProcessId())) {
        InstallDriver();
        PRINTER_INFO_2A info{};
        info.pPrinterName = m_name.data();
        info.pDriverName = m_name.data();
        info.pPortName = port.data();
        std::string processor = "wineps";
        info.pPrintProcessor = processor.data();
        std::string type = "RAW";
        info.pDatatype = type.data();
        m_printer = AddPrinterA(nullptr, 2, reinterpret_cast<BYTE*>(&info));
        EXPECT_NE(m_printer, nullptr);
    }
    ~SpoolerPrinter() {
        Delete();
        ClosePrinter(m_printer);
        std::string environment = "Windows x64";
        DeletePrinterDriverExA(nullptr, environment.data(), m_name.data(), 0, 0);
        DeleteFileA(m_description.c_str());
    }
    SpoolerPrinter(const SpoolerPrinter&) = delete;
    SpoolerPrinter& operator=(const SpoolerPrinter&) = delete;

    HANDLE Handle() const { return m_printer; }
    const std::string& Name() const { return m_name; }

    // The handle stays open.
    void Delete() const { DeletePrinter(m_printer); }

    // Below "PrinterDriverData".
    void Put(const wchar_t* name, DWORD type, const void* data, std::size_t size) const {
        ASSERT_EQ(SetPrinterDataExW(m_printer, L"PrinterDriverData", name, type,
                                    static_cast<BYTE*>(const_cast<void*>(data)), static_cast<DWORD>(size)),
                  static_cast<DWORD>(ERROR_SUCCESS));
    }

  private:
    void InstallDriver() {
        std::array<char, MAX_PATH> folder{};
        DWORD needed = 0;
        GetPrinterDriverDirectoryA(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder.data()), folder.size(),
                                   &needed);
        m_description = std::string(folder.data()) + "\\" + m_name + ".ppd";
        std::ofstream(m_description) << "*PPD-Adobe: \"4.3\"\n";
        DRIVER_INFO_3A driver{};
        driver.cVersion = 3;
        driver.pName = m_name.data();
        std::string environment = "Windows x64";
        driver.pEnvironment = environment.data();
        std::string module = "wineps.drv";
        driver.pDriverPath = module.data();
        driver.pConfigFile = module.data();
        driver.pDataFile = m_description.data();
        std::string type = "RAW";
        driver.pDefaultDataType = type.data();
        EXPECT_TRUE(AddPrinterDriverExA(nullptr, 3, reinterpret_cast<BYTE*>(&driver),
                                        APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY));
    }

    HANDLE m_printer = nullptr;
    std::string m_name;
    std::string m_description;
};
