// A package in a folder of the test's own, without an application, and the way to install it.
#pragma once

#include "host/install_printer.h"
#include "tests/support/own_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <windows.h>

class InstallTest : public testing::Test {
  protected:
    void SetUp() override {
        m_folder = std::filesystem::temp_directory_path() /
                   (L"x100install" + std::to_wstring(GetCurrentProcessId()));
        m_source = m_folder / "package";
        std::filesystem::create_directories(m_source);
        std::filesystem::copy_file(OwnFolder() / L"x100drvui.dll", m_source / "x100drvui.dll");
        std::filesystem::copy_file(ZR_TEST_DATA_DIR "/small.ppd", m_source / "x100app.ppd");
        Write(m_source / "x100app.ini", "[OEMFiles]\n");
        m_package.driverName = L"X100 Application Test Driver";
        m_package.dataFile = L"x100app.ppd";
        m_package.dependentFiles = {L"x100app.ini"};
        m_package.applicationPath.clear();
    }
    void TearDown() override {
        RemovePrinter(kTestPrinter);
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    static void Write(const std::filesystem::path& file, const std::string& bytes) {
        std::ofstream(file, std::ios::binary) << bytes;
    }

    InstallResult Install() const { return InstallPrinter(m_source.wstring(), kTestPrinter, m_package); }

    static constexpr wchar_t kTestPrinter[] = L"X100 Application Test";

    std::filesystem::path m_folder;
    std::filesystem::path m_source;
    DriverPackage m_package;
};
