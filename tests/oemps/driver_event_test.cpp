// The driver's events: the processes that are started, by a runner that starts nothing and in reality.
#include "tests/oemps/driver_event_fixture.h"
#include "tests/support/message_box.h"
#include "tests/support/own_folder.h"
#include "tests/support/registry_override.h"

#include <gtest/gtest.h>

#include <array>

// Where the linker keeps the address of the function.
extern "C" decltype(&MessageBoxA) __imp_MessageBoxA;

namespace {

namespace fs = std::filesystem;

// Takes the place of the system's message box in this program, shows none and keeps what it was told.
class RecordedBox {
  public:
    RecordedBox() {
        shown = 0;
        Import(&Show);
    }
    ~RecordedBox() { Import(m_system); }
    RecordedBox(const RecordedBox&) = delete;
    RecordedBox& operator=(const RecordedBox&) = delete;

    static inline int shown = 0;
    static inline UINT flags = 0;
    static inline HWND owner = nullptr;

  private:
    static int WINAPI Show(HWND window, LPCSTR, LPCSTR, UINT told) {
        ++shown;
        owner = window;
        flags = told;
        return IDOK;
    }
    static void Import(decltype(&MessageBoxA) function) {
        DWORD before = 0;
        VirtualProtect(&__imp_MessageBoxA, sizeof __imp_MessageBoxA, PAGE_READWRITE, &before);
        __imp_MessageBoxA = function;
        VirtualProtect(&__imp_MessageBoxA, sizeof __imp_MessageBoxA, before, &before);
    }

    const decltype(&MessageBoxA) m_system = __imp_MessageBoxA;
};

class Installation : public DriverEvents {
  protected:
    Installation() {
        machine.AddText(kFull, "Version", "4.8.03761");
        SetInstalled(1);
    }
    static void SetInstalled(DWORD installed) {
        RegSetKeyValueA(HKEY_LOCAL_MACHINE, kFull, "Install", REG_DWORD, &installed, sizeof installed);
    }

    static constexpr char kFull[] = "Software\\Microsoft\\NET Framework Setup\\NDP\\v4\\Full";
    RegistryOverride machine{HKEY_LOCAL_MACHINE};
};

TEST_F(Installation, PreCompilesTheFourAssembliesInOrder) {
    EXPECT_EQ(Send(1), kNotImplemented);
    EXPECT_EQ(runner.CommandLines(), Commands64(" install "));
}

TEST_F(Installation, WaitsForEachCommandBeforeTheNext) {
    EXPECT_EQ(Send(1), kNotImplemented);
    Calls expected;
    for (const std::string& command : Commands64(" install "))
        for (const std::string& call :
             {"start without window: " + command, std::string("close thread"), std::string("wait for ever"),
              std::string("exit code"), std::string("close process")})
            expected.push_back(call);
    EXPECT_EQ(runner.calls, expected);
}

TEST_F(Installation, DeletesNothing) {
    MakeApplication(kX64);
    MakeApplication(kX86);
    const auto before = Tree();
    EXPECT_EQ(Send(1), kNotImplemented);
    EXPECT_EQ(Tree(), before);
}

TEST_F(Installation, WithoutDotNetWarnsAndGoesOn) {
    SetInstalled(0);
    auto answer = AnswerNextMessageBox();
    EXPECT_EQ(Send(1), kNotImplemented);
    const MessageBoxSeen box = answer.get();
    EXPECT_EQ(box.caption, "警告");
    EXPECT_EQ(box.text, "Microsoft .Net Framework Version4.0 またはこれ以降のバージョンが見つかりません。\n"
                        "Microsoft .Net Framework4.0以降のバージョンをインストールしてください。");
    EXPECT_EQ(box.owner, nullptr);
    EXPECT_FALSE(box.canCancel);
    EXPECT_EQ(box.icon, LoadIconA(nullptr, IDI_WARNING));
    EXPECT_EQ(runner.CommandLines(), Commands64(" install "));
}

TEST_F(Installation, WithoutDotNetWarnsInFrontOfAllWindows) {
    SetInstalled(0);
    const RecordedBox box;
    EXPECT_EQ(Send(1), kNotImplemented);
    EXPECT_EQ(RecordedBox::shown, 1);
    EXPECT_EQ(RecordedBox::flags, 65584u) << "MB_ICONWARNING and MB_SETFOREGROUND";
    EXPECT_EQ(RecordedBox::owner, nullptr);
}

TEST_F(Installation, WithDotNetWarnsOfNothing) {
    const RecordedBox box;
    EXPECT_EQ(Send(1), kNotImplemented);
    EXPECT_EQ(RecordedBox::shown, 0);
}

// A program in the tool's place writes down how it was called.
class RealTool : public DriverFolders {
  protected:
    RealTool() {
        fs::create_directories(Windows(kTools));
        fs::copy_file(OwnFolder() / "command_program.exe", Windows(kTools + "\\ngen.exe"));
    }
    std::string Written() const { return Content(Windows(kTools + "\\commands.txt")); }
    std::string Lines(const std::string& verb) const {
        std::string lines;
        for (const std::string& command : Commands64(verb))
            lines += command + "\n";
        return lines;
    }

    static inline const std::string kTools = "\\Microsoft.NET\\Framework64\\v4.0.30319";
};

TEST_F(RealTool, IsStartedForTheFourAssembliesInOrder) {
    IOemUI::RunNgenExecute(1);
    EXPECT_EQ(Written(), Lines(" install "));
}

TEST_F(RealTool, UndoesThePreCompilingBeforeTheDirectoriesGo) {
    MakeApplication(kX64);
    MakeApplication(kX86);
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_EQ(Written(), Lines(" uninstall "));
    EXPECT_FALSE(fs::exists(Windows(kX64)));
    EXPECT_FALSE(fs::exists(Windows(kX86)));
}

TEST_F(DriverEvents, OfOtherKindsDoNothing) {
    MakeApplication(kX64);
    const auto before = Tree();
    Log().Forget();
    for (const DWORD event : {0u, 3u, 4u, 0xFFFFFFFFu})
        EXPECT_EQ(Send(event), kNotImplemented) << event;
    EXPECT_EQ(runner.calls, Calls{});
    EXPECT_EQ(Tree(), before);
    EXPECT_EQ(Log().Messages().size(), 4u) << "the four calls alone";
}

class PreCompiling : public DriverEvents {};

TEST_F(PreCompiling, OnAnotherArchitectureHasItsToolAndItsDirectory) {
    for (const char* name : {"x86", "amd64", "ARM64"}) {
        const EnvironmentVariable other("PROCESSOR_ARCHITECTURE", name);
        runner.calls.clear();
        IOemUI::RunNgenExecute(1);
        EXPECT_EQ(runner.CommandLines(), Commands(Windows("\\Microsoft.NET\\Framework\\v4.0.30319\\ngen.exe"),
                                                  " install ", Windows(kX86)))
            << name;
    }
}

TEST_F(PreCompiling, WithoutAnArchitectureIsThatOfOtherOnes) {
    const EnvironmentVariable other("PROCESSOR_ARCHITECTURE", nullptr);
    IOemUI::RunNgenExecute(0);
    EXPECT_EQ(runner.CommandLines(), Commands(Windows("\\Microsoft.NET\\Framework\\v4.0.30319\\ngen.exe"),
                                              " uninstall ", Windows(kX86)));
}

TEST_F(PreCompiling, WithoutAWindowsDirectoryHasPathsFromTheRoot) {
    const EnvironmentVariable none("WINDIR", nullptr);
    IOemUI::RunNgenExecute(1);
    EXPECT_EQ(runner.CommandLines(),
              Commands("\\Microsoft.NET\\Framework64\\v4.0.30319\\ngen.exe", " install ", kX64));
}

TEST_F(PreCompiling, IsUndoneByZeroAlone) {
    for (const int install : {1, -1, 2}) {
        runner.calls.clear();
        IOemUI::RunNgenExecute(install);
        EXPECT_EQ(runner.CommandLines(), Commands64(" install ")) << install;
    }
    runner.calls.clear();
    IOemUI::RunNgenExecute(0);
    EXPECT_EQ(runner.CommandLines(), Commands64(" uninstall "));
}

TEST_F(PreCompiling, LogsACommandThatCantStartAndGoesOn) {
    runner.startError = ERROR_PATH_NOT_FOUND;
    IOemUI::RunNgenExecute(1);
    EXPECT_EQ(runner.CommandLines(), Commands64(" install "));
    EXPECT_EQ(runner.calls.size(), 4u) << "nothing to wait for";
    EXPECT_EQ(Logged("DoModalCommand() error=3"), 4u);
    for (const std::string& command : Commands64(" install "))
        EXPECT_EQ(Logged("not started: " + command), 1u);
}

TEST_F(DriverEvents, GoOnAfterCommandsThatCantStart) {
    runner.startError = ERROR_FILE_NOT_FOUND;
    MakeApplication(kX64);
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_FALSE(fs::exists(Windows(kX64)));
}

TEST(JobPropPath, IsThatOf64BitMachinesIfTheTextsAreEqual) {
    std::array<char, 260> path{};
    IOemUI::GetJobPropPath("AMD64", "AMD64", path);
    EXPECT_STREQ(path.data(), "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64");
    IOemUI::GetJobPropPath("x86", "AMD64", path);
    EXPECT_STREQ(path.data(), "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x86");
}

TEST(JobPropPath, OfNoProcessorIsThatOfOtherMachines) {
    std::array<char, 260> path{};
    IOemUI::GetJobPropPath(nullptr, "AMD64", path);
    EXPECT_STREQ(path.data(), "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x86");
}

} // namespace
