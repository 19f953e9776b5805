// When an installed driver is registered again; the spooler copies all of its files then.
#include "tests/host/install_fixture.h"

#include <cwchar>
#include <vector>

#include <winspool.h>

namespace {

namespace fs = std::filesystem;

class InstallDriver : public InstallTest {
  protected:
    void SetUp() override {
        InstallTest::SetUp();
        const InstallResult result = Install();
        ASSERT_TRUE(result.ok);
        m_directory = result.driverDirectory;
        // Of the same content it stays, until the spooler copies it with the package's time.
        m_marked = fs::last_write_time(m_source / "x100app.ini") - std::chrono::hours(1);
        fs::last_write_time(m_directory / "x100app.ini", m_marked);
    }
    void TearDown() override {
        InstallTest::TearDown();
        std::wstring environment = L"Windows x64";
        DeletePrinterDriverExW(nullptr, environment.data(), m_package.driverName.data(), 0, 0);
        std::error_code ignored;
        for (const char* name : {"x100app.ini", "x100app.ppd", "x100more.dat"})
            fs::remove(m_directory / name, ignored);
    }

    bool IsRegisteredAgain() const {
        const InstallResult result = Install();
        EXPECT_TRUE(result.ok);
        EXPECT_FALSE(result.driverAdded);
        return fs::last_write_time(m_directory / "x100app.ini") != m_marked;
    }

    void AddFile() {
        Write(m_source / "x100more.dat", "more");
        m_package.dependentFiles.push_back(L"x100more.dat");
    }

    // The names of the dependent files as the spooler tells them.
    std::vector<std::wstring> Files() const {
        std::wstring environment = L"Windows x64";
        DWORD size = 0;
        DWORD count = 0;
        EnumPrinterDriversW(nullptr, environment.data(), 3, nullptr, 0, &size, &count);
        std::vector<BYTE> rows(size);
        EXPECT_TRUE(EnumPrinterDriversW(nullptr, environment.data(), 3, rows.data(), size, &size, &count));
        std::vector<std::wstring> files;
        const auto* driver = reinterpret_cast<const DRIVER_INFO_3W*>(rows.data());
        for (const auto* end = driver + count; driver != end; ++driver)
            if (m_package.driverName == driver->pName)
                for (const wchar_t* file = driver->pDependentFiles; *file; file += std::wcslen(file) + 1)
                    files.push_back(fs::path(file).filename().wstring());
        return files;
    }

    fs::path m_directory;
    fs::file_time_type m_marked;
};

TEST_F(InstallDriver, ThatIsAsItWasDoesNotRegisterItAgain) {
    EXPECT_FALSE(IsRegisteredAgain());
}

TEST_F(InstallDriver, WithOneFileMoreRegistersItAgain) {
    AddFile();
    EXPECT_TRUE(IsRegisteredAgain());
    EXPECT_EQ(Files(), (std::vector<std::wstring>{L"x100app.ini", L"x100more.dat"}));
}

TEST_F(InstallDriver, WithOneFileLessRegistersItAgain) {
    AddFile();
    ASSERT_TRUE(Install().ok);
    fs::last_write_time(m_directory / "x100app.ini", m_marked);
    m_package.dependentFiles.pop_back();
    EXPECT_TRUE(IsRegisteredAgain());
    EXPECT_EQ(Files(), std::vector<std::wstring>{L"x100app.ini"});
}

TEST_F(InstallDriver, WhoseAdditionalFileTheFolderLacksDoesNotRegisterItAgain) {
    m_package.dependentFiles.push_back(L"x100more.dat");
    EXPECT_FALSE(IsRegisteredAgain());
}

} // namespace
