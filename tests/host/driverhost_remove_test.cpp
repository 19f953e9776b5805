// driverhost --remove with the real driver: the plug-in learns of it and removes the user's data.
#include "Common/win_handles.h"
#include "host/install_printer.h"
#include "tests/support/own_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>

namespace {

class RemovedPrinter : public testing::Test {
  protected:
    void SetUp() override {
        DriverPackage package;
        package.applicationPath.clear();
        const InstallResult installed = InstallPrinter(OwnFolder().wstring(), Wide(name), package);
        ASSERT_TRUE(installed.ok) << std::string(installed.message.begin(), installed.message.end());
        for (const std::string& key : {own, other})
            RegSetKeyValueA(HKEY_CURRENT_USER, (key + "\\UserInfo").c_str(), "JobOwnerName_User", REG_SZ,
                            "owner", 6);
    }
    void TearDown() override {
        RemovePrinter(Wide(name));
        for (const std::string& key : {own, other}) {
            RegDeleteTreeA(HKEY_CURRENT_USER, key.c_str());
            RegDeleteKeyA(HKEY_CURRENT_USER, key.c_str());
        }
    }

    static std::wstring Wide(const std::string& text) { return {text.begin(), text.end()}; }
    static bool HasKey(const std::string& path) {
        UniqueRegistryKey key;
        return RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, key.Receive()) == ERROR_SUCCESS;
    }
    bool IsInstalled() const {
        UniquePrinter printer;
        std::string writable = name;
        return OpenPrinterA(writable.data(), printer.Receive(), nullptr) != FALSE;
    }
    static DWORD Run(const std::string& arguments) {
        std::string command = (OwnFolder() / "driverhost.exe").string() + " " + arguments;
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION started{};
        DWORD code = 99;
        if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &started))
            return code;
        const UniqueHandle process(started.hProcess);
        const UniqueHandle thread(started.hThread);
        WaitForSingleObject(process.Get(), INFINITE);
        GetExitCodeProcess(process.Get(), &code);
        return code;
    }

    const std::string name = "X100 Remove Test " + std::to_string(GetCurrentProcessId());
    const std::string own = "Software\\Zephra\\ZR Print Driver Data\\" + name;
    const std::string other = own + "{11}";
};

TEST_F(RemovedPrinter, TakesItsAuthenticationKeyAlongAndNoOtherOne) {
    ASSERT_TRUE(IsInstalled());
    EXPECT_EQ(Run("--remove --printer \"" + name + "\""), 0u);
    EXPECT_FALSE(IsInstalled());
    EXPECT_FALSE(HasKey(own));
    EXPECT_TRUE(HasKey(other + "\\UserInfo"));
}

// The directory may stand there from an installation, and the next one fills it again.
class RemovedDriver : public RemovedPrinter {
  protected:
    void SetUp() override {
        RemovedPrinter::SetUp();
        const std::filesystem::path application(JobPropertyApplicationPath());
        directory = application.parent_path();
        std::filesystem::create_directories(directory);
        std::ofstream(directory / "left.txt") << "content";
    }
    void TearDown() override {
        RemovedPrinter::TearDown();
        std::error_code ignored;
        std::filesystem::remove_all(directory, ignored);
    }
    static bool Install(const std::string& printer) {
        DriverPackage package;
        package.applicationPath.clear();
        return InstallPrinter(OwnFolder().wstring(), Wide(printer), package).ok;
    }
    // The printers of other tests.
    bool HasNoOtherPrinter() const {
        std::array<char, 1 << 16> buffer{};
        DWORD needed = 0;
        DWORD count = 0;
        EnumPrintersA(PRINTER_ENUM_LOCAL, nullptr, 2, reinterpret_cast<BYTE*>(buffer.data()),
                      static_cast<DWORD>(buffer.size()), &needed, &count);
        return std::ranges::none_of(std::span(reinterpret_cast<const PRINTER_INFO_2A*>(buffer.data()), count),
                                    [&](const PRINTER_INFO_2A& printer) {
                                        return printer.pDriverName == std::string("Zephra Orvane X100") &&
                                               printer.pPrinterName != name;
                                    });
    }

    std::filesystem::path directory;
};

TEST_F(RemovedDriver, TakesTheApplicationsDirectoryAlong) {
    if (!HasNoOtherPrinter())
        GTEST_SKIP() << "the driver is in use";
    EXPECT_EQ(Run("--remove --printer \"" + name + "\""), 0u);
    EXPECT_FALSE(std::filesystem::exists(directory));
}

TEST_F(RemovedDriver, StaysWithItsDirectoryForAnotherPrinter) {
    ASSERT_TRUE(Install(name + " other"));
    EXPECT_EQ(Run("--remove --printer \"" + name + "\""), 0u);
    EXPECT_TRUE(std::filesystem::exists(directory / "left.txt"));
    RemovePrinter(Wide(name + " other"));
}

} // namespace
