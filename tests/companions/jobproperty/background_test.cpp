// The background instance: -start and -exit.
#include "companions/jobproperty/exit_code.h"
#include "tests/companions/jobproperty/application_process.h"
#include "tests/companions/jobproperty/command_words.h"
#include "tests/companions/jobproperty/timing.h"
#include "tests/datamanager/setting_key_fixture.h"

#include <psapi.h>

#include <algorithm>
#include <fstream>
#include <vector>

namespace {

using jobproperty::ExitCode;

int Code(ExitCode code) {
    return static_cast<int>(code);
}

class Background : public SettingKeyTest {
  protected:
    // Waits until the instance has its event, by which -exit finds it.
    static void AwaitReady(const std::string& keyName) {
        const std::string event = "Local\\ZephraJobPropertyExit_" + IdOf(keyName);
        const ULONGLONG deadline = GetTickCount64() + Application::kPatience;
        while (GetTickCount64() < deadline) {
            if (UniqueHandle(OpenEventA(SYNCHRONIZE, FALSE, event.c_str())))
                return;
            Sleep(10);
        }
        ADD_FAILURE() << "the background instance did not come up";
    }

    // A key whose name and values tell these processes, as far as -start looks at it.
    class KeyOf {
      public:
        explicit KeyOf(DWORD process) : KeyOf(process, process) {}
        KeyOf(DWORD processInName, DWORD process) {
            std::array<char, 17> id{};
            std::snprintf(id.data(), id.size(), "%08lX005EEDED", processInName);
            m_name = std::string("Software\\Zephra\\QPSP\\DataSet_") + id.data();
            UniqueRegistryKey made;
            EXPECT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, m_name.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                      KEY_SET_VALUE, nullptr, made.Receive(), nullptr),
                      ERROR_SUCCESS);
            RegSetValueExA(made.Get(), "ProcessId", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&process),
                           sizeof process);
        }
        ~KeyOf() { RegDeleteTreeA(HKEY_CURRENT_USER, m_name.c_str()); }
        KeyOf(const KeyOf&) = delete;
        KeyOf& operator=(const KeyOf&) = delete;

        const std::string& Name() const { return m_name; }

      private:
        std::string m_name;
    };

    static bool StaysFor(const Application& application, DWORD milliseconds) {
        return WaitForSingleObject(application.Process(), milliseconds) == WAIT_TIMEOUT;
    }
};

bool HasLoaded(const Application& application, const char* library) {
    const UniqueHandle process(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, application.Id()));
    std::array<HMODULE, 256> modules{};
    DWORD size = 0;
    EXPECT_TRUE(EnumProcessModules(process.Get(), modules.data(), sizeof modules, &size));
    return std::any_of(modules.begin(), modules.begin() + size / sizeof(HMODULE), [&](HMODULE module) {
        std::array<char, MAX_PATH> name{};
        GetModuleBaseNameA(process.Get(), module, name.data(), static_cast<DWORD>(name.size()));
        return lstrcmpiA(name.data(), library) == 0;
    });
}

BOOL CALLBACK CountWindows(HWND window, LPARAM counted) {
    auto& [process, count] = *reinterpret_cast<std::pair<DWORD, int>*>(counted);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    count += owner == process ? 1 : 0;
    return TRUE;
}

} // namespace

TEST_F(Background, StaysWithoutAWindowUntilItsExitIsAsked) {
    const Application background(StartWords(key));
    AwaitReady(key);
    EXPECT_TRUE(StaysFor(background, 1500));
    std::pair<DWORD, int> windows{background.Id(), 0};
    EnumWindows(CountWindows, reinterpret_cast<LPARAM>(&windows));
    EXPECT_EQ(windows.second, 0);

    EXPECT_EQ(Application(ExitWords(key)).ExitCodeAtEnd(), Code(ExitCode::Done));
    EXPECT_EQ(background.ExitCodeAtEnd(0), Code(ExitCode::Done));
}

// They take most of the time of a start, beside which the sheet's first page is painted.
TEST_F(Background, LoadsNoLibraryOfWindows) {
    const Application background(StartWords(key));
    AwaitReady(key);
    for (const char* library : {"user32.dll", "gdi32.dll", "rsaenh.dll"})
        EXPECT_FALSE(HasLoaded(background, library)) << library;
    EXPECT_TRUE(HasLoaded(background, "kernel32.dll"));
}

TEST_F(Background, ChangesNothingInTheKey) {
    const KeyImage before = DumpByPeer(key);
    const Application background(StartWords(key));
    AwaitReady(key);
    EXPECT_EQ(Application(ExitWords(key)).ExitCodeAtEnd(), Code(ExitCode::Done));
    EXPECT_EQ(DumpByPeer(key), before);
}

// The test takes the place of an -exit that is faster than the instance.
TEST_F(Background, AnExitThatComesTheMomentTheEventIsThereIsNotLost) {
    const UniqueHandle event(
        CreateEventA(nullptr, FALSE, TRUE, ("Local\\ZephraJobPropertyExit_" + IdOf(key)).c_str()));
    const Application background(StartWords(key));
    EXPECT_EQ(background.ExitCodeAtEnd(), Code(ExitCode::Done));
    EXPECT_TRUE(background.ErrorAtEnd().empty());
}

// An -exit still has the event when the next instance comes.
TEST_F(Background, AnExitThatWasAnsweredEndsNoLaterInstance) {
    const UniqueHandle event(
        CreateEventA(nullptr, FALSE, FALSE, ("Local\\ZephraJobPropertyExit_" + IdOf(key)).c_str()));
    const Application first(StartWords(key));
    EXPECT_TRUE(StaysFor(first, 500));
    SetEvent(event.Get());
    EXPECT_EQ(first.ExitCodeAtEnd(), Code(ExitCode::Done));
    const Application second(StartWords(key));
    EXPECT_TRUE(StaysFor(second, 1000));
}

TEST_F(Background, ASecondStartOfTheSameIdEndsAtOnceAndLeavesTheFirst) {
    const Application first(StartWords(key));
    AwaitReady(key);
    EXPECT_EQ(Application(StartWords(key)).ExitCodeAtEnd(2000), Code(ExitCode::Done));
    EXPECT_TRUE(first.IsRunning());
    EXPECT_EQ(Application(ExitWords(key)).ExitCodeAtEnd(), Code(ExitCode::Done));
    EXPECT_EQ(first.ExitCodeAtEnd(0), Code(ExitCode::Done));
}

TEST_F(Background, CanBeStartedAgainAfterItsExit) {
    for (int round = 0; round < 3; ++round) {
        const Application background(StartWords(key));
        AwaitReady(key);
        EXPECT_EQ(Application(ExitWords(key)).ExitCodeAtEnd(), Code(ExitCode::Done)) << round;
        EXPECT_EQ(background.ExitCodeAtEnd(0), Code(ExitCode::Done)) << round;
    }
}

TEST_F(Background, OfAnotherSheetStaysWhenOneIsEnded) {
    const std::string other = CreateKey();
    const Application mine(StartWords(key));
    const Application others(StartWords(other));
    AwaitReady(key);
    AwaitReady(other);
    EXPECT_EQ(Application(ExitWords(key)).ExitCodeAtEnd(), Code(ExitCode::Done));
    EXPECT_EQ(mine.ExitCodeAtEnd(0), Code(ExitCode::Done));
    EXPECT_TRUE(StaysFor(others, 200));
    EXPECT_EQ(Application(ExitWords(other)).ExitCodeAtEnd(), Code(ExitCode::Done));
    RegDeleteTreeA(HKEY_CURRENT_USER, other.c_str());
}

TEST_F(Background, EndsWhenTheKeyIsRemoved) {
    const Application background(StartWords(key));
    AwaitReady(key);
    ExportedFunc_DeleteRegistryKey(key.c_str());
    EXPECT_EQ(background.ExitCodeAtEnd(), Code(ExitCode::Done));
}

// The sheet's process is another one here, and ends without a word.
TEST_F(Background, EndsWhenTheSheetsProcessIsKilled) {
    std::string line = "cmd /c pause";
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION sheet{};
    ASSERT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                               nullptr, &startup, &sheet));
    const KeyOf sheetsKey(sheet.dwProcessId);
    const Application background(StartWords(sheetsKey.Name()));
    AwaitReady(sheetsKey.Name());
    EXPECT_TRUE(StaysFor(background, 200));
    TerminateProcess(sheet.hProcess, 1);
    EXPECT_EQ(background.ExitCodeAtEnd(), Code(ExitCode::Done));
    CloseHandle(sheet.hThread);
    CloseHandle(sheet.hProcess);
}

TEST_F(Background, DoesNotStayWithoutTheSheetsProcess) {
    for (const DWORD process : {DWORD{0}, DWORD{0xFFFFFFFE}}) {
        const KeyOf sheetsKey(process);
        const Application background(StartWords(sheetsKey.Name()));
        EXPECT_EQ(background.ExitCodeAtEnd(), Code(ExitCode::NoSheet));
        EXPECT_EQ(background.ErrorAtEnd(),
                  "PrinterDriverApplication: プリンターのプロパティのプロセスが見つかりません。\r\n");
    }
}

// Both processes are there.
TEST_F(Background, DoesNotStayForAProcessOtherThanTheOneOfTheId) {
    const Application stranger(StartWords(key));
    AwaitReady(key);
    for (const auto& [inName, process] :
         {std::pair{GetCurrentProcessId(), stranger.Id()}, std::pair{stranger.Id(), GetCurrentProcessId()}}) {
        const KeyOf sheetsKey(inName, process);
        EXPECT_EQ(Application(StartWords(sheetsKey.Name())).ExitCodeAtEnd(), Code(ExitCode::NoSheet));
    }
}

TEST_F(Background, DoesNotStayWithAProcessIdThatIsNoNumber) {
    RegSetKeyValueA(HKEY_CURRENT_USER, key.c_str(), "ProcessId", REG_SZ, "1234", 5);
    EXPECT_EQ(Application(StartWords(key)).ExitCodeAtEnd(), Code(ExitCode::NoSheet));
}

TEST_F(Background, DoesNotStayWithoutItsKeyAndDoesNotMakeIt) {
    ExportedFunc_DeleteRegistryKey(key.c_str());
    const Application background(StartWords(key));
    EXPECT_EQ(background.ExitCodeAtEnd(), Code(ExitCode::NoKey));
    EXPECT_FALSE(background.ErrorAtEnd().empty());
    EXPECT_FALSE(KeyExists(key));
}

TEST_F(Background, AnExitWithoutAnInstanceSaysSo) {
    const Application exit(ExitWords(key));
    EXPECT_EQ(exit.ExitCodeAtEnd(2000), Code(ExitCode::NoInstance));
    EXPECT_EQ(exit.ErrorAtEnd(),
              "PrinterDriverApplication: 終了させるジョブプロパティが動作していません。\r\n");
}

TEST_F(Background, AnExitAfterTheInstanceWasKilledSaysThatThereIsNone) {
    const Application background(StartWords(key));
    AwaitReady(key);
    TerminateProcess(background.Process(), 1);
    WaitForSingleObject(background.Process(), Application::kPatience);
    EXPECT_EQ(Application(ExitWords(key)).ExitCodeAtEnd(2000), Code(ExitCode::NoInstance));
}

// The test takes the instance's place and does not answer.
TEST_F(Background, AnExitOfAnInstanceThatDoesNotEndGivesUpAfterSomeSeconds) {
    const std::string id = IdOf(key);
    const UniqueHandle mark(
        CreateMutexA(nullptr, TRUE, ("Local\\ZephraJobPropertyBackground_" + id).c_str()));
    const UniqueHandle event(
        CreateEventA(nullptr, TRUE, FALSE, ("Local\\ZephraJobPropertyExit_" + id).c_str()));
    const double before = Milliseconds();
    const Application exit(ExitWords(key));
    EXPECT_EQ(exit.ExitCodeAtEnd(), Code(ExitCode::StillRunning));
    EXPECT_GT(Milliseconds() - before, 4900.0);
    EXPECT_EQ(WaitForSingleObject(event.Get(), 0), WAIT_OBJECT_0);
    ReleaseMutex(mark.Get());
}

TEST_F(Background, AWrongCommandLineIsToldAtTheStandardErrorWithoutAWindow) {
    for (const std::string& words :
         {std::string("-start"), "-start " + IdOf(key) + " Software\\Zephra PDF ja-JP -iotproduct 10",
          std::string("-exit ..\\..\\x"), std::string("-exit")}) {
        const Application application(words);
        EXPECT_EQ(application.ExitCodeAtEnd(2000), Code(ExitCode::BadCommandLine)) << words;
        EXPECT_FALSE(application.ErrorAtEnd().empty()) << words;
    }
}

// Each sheet's end waits for it.
TEST_F(Background, ExitIsFast) {
    std::vector<double> times;
    for (int round = 0; round < 7; ++round) {
        const Application background(StartWords(key));
        AwaitReady(key);
        const double before = Milliseconds();
        const Application exit(ExitWords(key));
        EXPECT_EQ(exit.ExitCodeAtEnd(), Code(ExitCode::Done));
        times.push_back(Milliseconds() - before);
    }
    std::ranges::sort(times);
    const double slowness = Slowness();
    std::printf("-exit, start to end: best %.1f ms, median %.1f ms, worst %.1f ms; the machine is %.1f times "
                "slower than idle\n",
                times.front(), times[3], times.back(), slowness);
    EXPECT_LT(times.front(), 120.0 * slowness);
}
