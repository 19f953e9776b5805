// The driver's installation and removal: the processes that are started and the directories that go.
#include "oemps/driver_event.h"

#include "Common/strings.h"
#include "Common/unique_com.h"
#include "oemps/oemui.h"
#include "tests/oemps/with_log.h"
#include "tests/support/environment_variable.h"
#include "tests/support/message_box.h"
#include "tests/support/own_folder.h"
#include "tests/support/recording_runner.h"
#include "tests/support/registry_override.h"
#include "tests/support/system_link.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

// Where the linker keeps the address of the function.
extern "C" decltype(&MessageBoxA) __imp_MessageBoxA;

namespace {

namespace fs = std::filesystem;

using Calls = std::vector<std::string>;

// A Windows directory that is a folder of the test's.
class DriverFolders : public WithLog, protected TestFolder {
  protected:
    HRESULT Send(DWORD event) { return plugIn->DriverEvent(event, 3, nullptr, 0); }

    // What is started for the four files, in order.
    static Calls Commands(const std::string& tool, const std::string& verb, const std::string& directory) {
        Calls commands;
        for (const char* file :
             {"\\PrinterDriverApplication.exe", "\\PS.Services.XmlSerializers.dll",
              "\\Microsoft.Expression.Drawing.dll", "\\Microsoft.Expression.Interactions.dll"})
            commands.push_back(tool + verb + directory + file);
        return commands;
    }
    std::string Windows(const std::string& rest) const { return folder.string() + rest; }
    Calls Commands64(const std::string& verb) const {
        return Commands(Windows("\\Microsoft.NET\\Framework64\\v4.0.30319\\ngen.exe"), verb, Windows(kX64));
    }

    // All that stands in the Windows directory, by its path below that.
    std::set<std::string> Tree() const {
        std::set<std::string> tree;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
            tree.insert(entry.path().string().substr(folder.string().size()));
        return tree;
    }
    void MakeFile(const std::string& path) const {
        fs::create_directories(fs::path(Windows(path)).parent_path());
        std::ofstream(Windows(path)) << "content";
    }
    void MakeApplication(const std::string& directory) const {
        for (const char* file : {"\\PrinterDriverApplication.exe", "\\ja\\text.dll", "\\ja\\more\\a.bin"})
            MakeFile(directory + file);
    }
    static std::set<std::string> Without(std::set<std::string> tree, const std::string& beginning) {
        std::erase_if(tree, [&](const std::string& path) { return path.starts_with(beginning); });
        return tree;
    }

    static constexpr HRESULT kNotImplemented = static_cast<HRESULT>(0x80004001);
    static inline const std::string kX64 = "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64";
    static inline const std::string kX86 = "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x86";

    UniqueCom<IPrintOemUI> plugIn{new IOemUI};
    EnvironmentVariable windows{"WINDIR", folder.string().c_str()};
    EnvironmentVariable processor{"PROCESSOR_ARCHITECTURE", "AMD64"};
};

// And a runner that starts nothing.
class DriverEvents : public DriverFolders {
  protected:
    RecordingRunner runner;
    ReplacedProcessRunner replaced{runner};
};

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

class Removal : public DriverEvents {};

TEST_F(Removal, UndoesThePreCompilingInTheSameOrder) {
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_EQ(runner.CommandLines(), Commands64(" uninstall "));
}

TEST_F(Removal, DeletesTheApplicationsTwoDirectoriesAndNothingElse) {
    MakeApplication(kX64);
    MakeApplication(kX86);
    for (const std::string& other : {kX64 + "_old\\a.bin", kX86 + "2\\a.bin", kX64 + ".txt",
                                     std::string("\\System32\\spool\\drivers\\other\\b.bin"),
                                     std::string("\\System32\\b.bin"), std::string("\\b.bin")})
        MakeFile(other);
    auto left = Without(Without(Tree(), kX64 + "\\"), kX86 + "\\");
    EXPECT_EQ(left.erase(kX64) + left.erase(kX86), 2u);
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_EQ(Tree(), left);
}

TEST_F(Removal, DeletesTheDirectoriesAfterTheLastCommand) {
    MakeApplication(kX64);
    bool isThere = true;
    runner.onWait = [&] { isThere = isThere && fs::exists(Windows(kX64)); };
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_TRUE(isThere);
    EXPECT_FALSE(fs::exists(Windows(kX64)));
}

TEST_F(Removal, WithoutTheOtherArchitecturesDirectoryDeletesOnlyTheFirst) {
    MakeApplication(kX64);
    MakeFile(kX86 + ".txt");
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_FALSE(fs::exists(Windows(kX64)));
    EXPECT_TRUE(fs::exists(Windows(kX86 + ".txt")));
    EXPECT_EQ(Logged("DeleteDirectoryTree"), 1u);
}

TEST_F(Removal, WithoutTheFirstDirectoryDeletesTheOtherArchitectures) {
    MakeApplication(kX86);
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_FALSE(fs::exists(Windows(kX86)));
    EXPECT_EQ(Logged("_x64 not deleted"), 1u);
}

TEST_F(Removal, LeavesAFileOfTheOtherArchitecturesName) {
    MakeApplication(kX64);
    MakeFile(kX86);
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_FALSE(fs::exists(Windows(kX64)));
    EXPECT_TRUE(fs::exists(Windows(kX86)));
}

TEST_F(Removal, OnAnotherArchitectureBeginsWithItsOwnDirectory) {
    const EnvironmentVariable other("PROCESSOR_ARCHITECTURE", "x86");
    MakeApplication(kX64);
    MakeApplication(kX86);
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_EQ(runner.CommandLines(), Commands(Windows("\\Microsoft.NET\\Framework\\v4.0.30319\\ngen.exe"),
                                              " uninstall ", Windows(kX86)));
    EXPECT_FALSE(fs::exists(Windows(kX64)));
    EXPECT_FALSE(fs::exists(Windows(kX86)));
}

// Without the directory's name the Windows directory itself would be meant.
TEST_F(Removal, WithoutAStringTableDeletesNothing) {
    MakeApplication(kX64);
    const auto before = Tree();
    SetStringModule(GetModuleHandleA("kernel32.dll"));
    IOemUI::DeletePrintOptionDirectoy();
    SetStringModule(nullptr);
    EXPECT_EQ(Tree(), before);
    EXPECT_EQ(Logged("the application's directory has no name"), 1u);
}

TEST_F(Removal, DeletesNothingBelowAPathThatDoesNotFit) {
    MakeApplication(kX64);
    const auto before = Tree();
    const EnvironmentVariable distant("WINDIR", (folder.string() + "\\" + std::string(300, 'w')).c_str());
    IOemUI::DeletePrintOptionDirectoy();
    EXPECT_EQ(Tree(), before);
    EXPECT_EQ(Logged("_x64 not deleted"), 1u);
}

// The paths are those of the drive's own directory then.
TEST_F(Removal, WithoutAWindowsDirectoryHasPathsFromTheRoot) {
    MakeApplication(kX64);
    MakeApplication(kX86);
    const auto before = Tree();
    for (const char* value : {static_cast<const char*>(nullptr), ""}) {
        const EnvironmentVariable none("WINDIR", value);
        Log().Forget();
        IOemUI::DeletePrintOptionDirectoy();
        EXPECT_EQ(Tree(), before);
        EXPECT_EQ(Logged(") \\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64 not deleted"), 1u);
        EXPECT_EQ(Logged("deleted"), 1u);
    }
}

class LinkedRemoval : public Removal {
  protected:
    LinkedRemoval() { MakeFile("\\outside\\keep.txt"); }
    ~LinkedRemoval() override {
        EXPECT_TRUE(fs::exists(Windows("\\outside\\keep.txt")));
        if (system_link::IsThere(Windows(link)))
            system_link::Remove(Windows(link));
    }
    void SetUp() override {
        if (!system_link::CanBeMade())
            GTEST_SKIP() << "no program that makes links";
    }
    void LinkOutside(const std::string& path) {
        fs::create_directories(fs::path(Windows(path)).parent_path());
        link = path;
        ASSERT_NO_FATAL_FAILURE(system_link::Make(Windows("\\outside"), Windows(path)));
    }

    std::string link;
};

TEST_F(LinkedRemoval, DoesNotFollowAnApplicationsDirectoryThatIsALink) {
    LinkOutside(kX64);
    IOemUI::DeletePrintOptionDirectoy();
    EXPECT_EQ(Logged("_x64 not deleted"), 1u) << "Wine can't remove the link";
}

TEST_F(LinkedRemoval, DoesNotFollowTheOtherArchitecturesDirectoryThatIsALink) {
    MakeApplication(kX64);
    LinkOutside(kX86);
    IOemUI::DeletePrintOptionDirectoy();
    EXPECT_FALSE(fs::exists(Windows(kX64)));
    EXPECT_EQ(Logged("_x86 not deleted"), 1u);
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
