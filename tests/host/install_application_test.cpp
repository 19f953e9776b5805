// The job property application's way to the path at which the plug-in starts it.
#include "tests/host/install_fixture.h"

#include <iterator>

#include <windows.h>

namespace {

namespace fs = std::filesystem;

std::string Bytes(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// A process that never comes to its first instruction; it holds its program's file as a running one does.
class HeldProgram {
  public:
    explicit HeldProgram(const fs::path& file) {
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        m_started = CreateProcessW(file.c_str(), nullptr, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                                   nullptr, &startup, &m_process);
    }
    ~HeldProgram() {
        if (!m_started)
            return;
        TerminateProcess(m_process.hProcess, 0);
        WaitForSingleObject(m_process.hProcess, INFINITE);
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }
    HeldProgram(const HeldProgram&) = delete;
    HeldProgram& operator=(const HeldProgram&) = delete;

    bool Started() const { return m_started; }

  private:
    bool m_started;
    PROCESS_INFORMATION m_process{};
};

class InstallApplication : public InstallTest {
  protected:
    void SetUp() override {
        InstallTest::SetUp();
        Write(m_source / "PrinterDriverApplication.exe", "first");
        m_package.applicationPath = Target().wstring();
    }

    fs::path Target() const { return m_folder / "programs" / "PrinterDriverApplication.exe"; }
};

TEST_F(InstallApplication, PathIsThatOfThePlugInsCommandLines) {
    EXPECT_EQ(JobPropertyApplicationPath(),
              L"C:\\Windows\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64\\"
              L"PrinterDriverApplication.exe");
    EXPECT_EQ(DriverPackage().applicationPath, JobPropertyApplicationPath());
}

TEST_F(InstallApplication, IsCopiedIntoAFolderThatWasNotThere) {
    const InstallResult result = Install();
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.lacking, L"");
    EXPECT_EQ(Bytes(Target()), "first");
}

TEST_F(InstallApplication, IsBroughtUpToDate) {
    EXPECT_TRUE(Install().ok);
    Write(m_source / "PrinterDriverApplication.exe", "second");
    EXPECT_TRUE(Install().ok);
    EXPECT_EQ(Bytes(Target()), "second");
    EXPECT_FALSE(fs::exists(Target().wstring() + L".old1"));
}

TEST_F(InstallApplication, OfTheSameLengthIsBroughtUpToDate) {
    EXPECT_TRUE(Install().ok);
    Write(m_source / "PrinterDriverApplication.exe", "FIRST");
    EXPECT_TRUE(Install().ok);
    EXPECT_EQ(Bytes(Target()), "FIRST");
}

TEST_F(InstallApplication, KeepsTheTimeOfItsOriginalSoThatItCanBeToldFromAnotherOne) {
    EXPECT_TRUE(Install().ok);
    EXPECT_EQ(fs::last_write_time(Target()), fs::last_write_time(m_source / "PrinterDriverApplication.exe"));
}

TEST_F(InstallApplication, OfTheSameContentStaysAlthoughItsOriginalWasMadeAgain) {
    fs::copy_file(OwnFolder() / L"driverhost.exe", m_source / "PrinterDriverApplication.exe",
                  fs::copy_options::overwrite_existing);
    EXPECT_TRUE(Install().ok);
    const HeldProgram running(Target());
    ASSERT_TRUE(running.Started());
    fs::last_write_time(m_source / "PrinterDriverApplication.exe",
                        fs::last_write_time(Target()) + std::chrono::hours(1));
    EXPECT_TRUE(Install().ok);
    EXPECT_FALSE(fs::exists(Target().wstring() + L".old1"));
}

TEST_F(InstallApplication, IsMovedAsideWhileItRuns) {
    fs::copy_file(OwnFolder() / L"driverhost.exe", m_source / "PrinterDriverApplication.exe",
                  fs::copy_options::overwrite_existing);
    EXPECT_TRUE(Install().ok);
    const HeldProgram running(Target());
    ASSERT_TRUE(running.Started());
    Write(m_source / "PrinterDriverApplication.exe", "second");
    EXPECT_TRUE(Install().ok);
    EXPECT_EQ(Bytes(Target()), "second");
    EXPECT_EQ(Bytes(Target().wstring() + L".old1"), Bytes(OwnFolder() / L"driverhost.exe"));
}

TEST_F(InstallApplication, IsToldWhereAnOlderPackageLacksIt) {
    fs::remove(m_source / "PrinterDriverApplication.exe");
    const InstallResult result = Install();
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.message, L"");
    EXPECT_EQ(result.lacking, L"The job properties can't be opened: the file " +
                                  (m_source / "PrinterDriverApplication.exe").wstring() + L" is missing.");
    EXPECT_FALSE(fs::exists(Target()));
}

TEST_F(InstallApplication, StaysWhereAnOlderPackageLacksIt) {
    EXPECT_TRUE(Install().ok);
    fs::remove(m_source / "PrinterDriverApplication.exe");
    EXPECT_TRUE(Install().ok);
    EXPECT_EQ(Bytes(Target()), "first");
}

TEST_F(InstallApplication, IsLeftOutWithoutAPathForIt) {
    m_package.applicationPath.clear();
    const InstallResult result = Install();
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.lacking, L"");
    EXPECT_FALSE(fs::exists(Target()));
}

} // namespace
