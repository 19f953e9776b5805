// What becomes of the job property application and of the data setting key when a sheet ends.
#include "tests/pages/job_property_fixture.h"
#include "tests/support/message_box.h"

namespace {

constexpr char kCheck[] = "is PrinterDriverApplication.exe running";

class EndOfTheSheet : public JobPropertyTest {
  protected:
    EndOfTheSheet() { OpenPage(); }

    Calls Exit() const {
        return {"start: " + kApplication + "-exit " + id, "close thread", "wait 180000", "close process"};
    }
    void Close() { Notify(page, PSN_APPLY, 1); }
};

Calls operator+(Calls first, const Calls& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TEST_F(EndOfTheSheet, EndsARunningApplicationAndRemovesTheKey) {
    runner.running = {true};
    Close();
    EXPECT_EQ(runner.calls, Calls{kCheck} + Exit());
    EXPECT_FALSE(KeyIsThere());
}

TEST_F(EndOfTheSheet, ByCancelDoesTheSame) {
    runner.running = {true};
    Notify(page, PSN_RESET);
    EXPECT_EQ(runner.calls, Calls{kCheck} + Exit());
    EXPECT_FALSE(KeyIsThere());
}

TEST_F(EndOfTheSheet, IsNotReachedByApply) {
    runner.running = {true};
    Notify(page, PSN_APPLY, 0);
    EXPECT_EQ(runner.calls, Calls{});
    EXPECT_TRUE(KeyIsThere());
}

TEST_F(EndOfTheSheet, LooksFiveTimesInTwoSecondsAndLeavesTheKeyWithoutAnApplication) {
    Close();
    Calls rounds;
    for (int round = 0; round < 5; ++round)
        rounds = rounds + Calls{kCheck, "sleep 400"};
    EXPECT_EQ(runner.calls, rounds);
    EXPECT_TRUE(KeyIsThere());
}

TEST_F(EndOfTheSheet, StopsLookingWhereTheApplicationIsFound) {
    runner.running = {false, false, true};
    Close();
    EXPECT_EQ(runner.calls, (Calls{kCheck, "sleep 400", kCheck, "sleep 400", kCheck}) + Exit());
}

TEST_F(EndOfTheSheet, TheCheckGives1OnlyWhereAnApplicationRuns) {
    EXPECT_EQ(CPSPageDlg::JobPropertyProcessCheck(), 0);
    runner.running = {false, false, false, false, true};
    EXPECT_EQ(CPSPageDlg::JobPropertyProcessCheck(), 1);
    runner.running = {false, false, false, false, false, true};
    EXPECT_EQ(CPSPageDlg::JobPropertyProcessCheck(), 0);
}

TEST_F(EndOfTheSheet, LogsTheCommandLineTheAnswerAndTheEnd) {
    runner.running = {true};
    Close();
    EXPECT_EQ(Logged("ExitJobProperty"),
              (Calls{"ExitJobProperty",
                     "ExitJobProperty() ジョブプロパティ終了 コマンドライン:" + kApplication + "-exit " + id,
                     "ExitJobProperty() ジョブプロパティ終了応答有",
                     "ExitJobProperty() ジョブプロパティ正常終了"}));
}

TEST_F(EndOfTheSheet, TakesAnyWaitButATimeoutForAnAnswer) {
    for (const DWORD result : {static_cast<DWORD>(WAIT_FAILED), static_cast<DWORD>(WAIT_ABANDONED)}) {
        log->Forget();
        runner.waitResult = result;
        CPSPageDlg::ExitJobProperty();
        EXPECT_EQ(Logged("ExitJobProperty").size(), 4u) << result;
    }
}

TEST_F(EndOfTheSheet, WithAnExitThatCantStartStillRemovesTheKey) {
    runner.running = {true};
    runner.startError = ERROR_FILE_NOT_FOUND;
    Close();
    EXPECT_EQ(runner.calls, (Calls{kCheck, "start: " + kApplication + "-exit " + id}));
    EXPECT_EQ(Logged("ExitJobProperty").back(), "ExitJobProperty() 起動失敗=2");
    EXPECT_FALSE(KeyIsThere());
}

TEST_F(EndOfTheSheet, WithAnExitThatDoesNotEndTellsTheUserAndRemovesTheKey) {
    runner.running = {true};
    runner.waitResult = WAIT_TIMEOUT;
    ShowWindow(Sheet(), SW_SHOW);
    SetForegroundWindow(Sheet());
    auto box = AnswerNextMessageBox(IDOK, [this] {
        EXPECT_TRUE(KeyIsThere());
        EXPECT_EQ(runner.calls.back(), "wait 180000") << "the process is still held";
    });
    Close();
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.text,
              "ジョブプロパティの終了でタイムアウトが発生しました。\nPCの再起動を行ってください。");
    EXPECT_EQ(seen.caption, "警告");
    EXPECT_NE(seen.icon, nullptr);
    EXPECT_FALSE(seen.canCancel);
    EXPECT_EQ(seen.owner, Sheet());
    EXPECT_EQ(runner.calls, Calls{kCheck} + Exit());
    EXPECT_EQ(Logged("ExitJobProperty").size(), 3u);
    EXPECT_EQ(Logged("ExitJobProperty").back(), "ExitJobProperty() ジョブプロパティ正常終了");
    EXPECT_FALSE(KeyIsThere());
}

TEST_F(EndOfTheSheet, RemovesItsOwnKeyAndNotThatOfASheetWhichOpensBehindTheBox) {
    runner.running = {true};
    runner.waitResult = WAIT_TIMEOUT;
    auto box = AnswerNextMessageBox(IDOK, [] { InitializeDataManager(); });
    Close();
    EXPECT_NE(box.get().text, "");
    EXPECT_FALSE(KeyIsThere());
    std::array<char, 260> another{};
    ExportedFunc_GetRegistryKeyName(another.data());
    HKEY opened = nullptr;
    EXPECT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, another.data(), 0, KEY_READ, &opened), ERROR_SUCCESS);
    RegCloseKey(opened);
    EXPECT_EQ(ExportedFunc_DeleteRegistryKey(another.data()), 1);
}

TEST_F(EndOfTheSheet, RemovesItsKeyAlsoIfTheSessionEndsBehindTheBox) {
    runner.running = {true};
    runner.waitResult = WAIT_TIMEOUT;
    auto box = AnswerNextMessageBox(IDOK, [this] { EndSession(); });
    Close();
    EXPECT_NE(box.get().text, "");
    EXPECT_FALSE(KeyIsThere());
}

TEST_F(EndOfTheSheet, LeavesTheKeysOfOtherSheets) {
    std::array<char, 260> other{};
    ExportedFunc_CreateDataSettingRegistryKeyName(other.data());
    HKEY made = nullptr;
    ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, other.data(), 0, nullptr, REG_OPTION_VOLATILE, KEY_READ,
                              nullptr, &made, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(made);
    runner.running = {true};
    Close();
    EXPECT_EQ(RegDeleteKeyA(HKEY_CURRENT_USER, other.data()), ERROR_SUCCESS);
}

TEST_F(EndOfTheSheet, GoesOnWhereTheKeyIsGoneAlready) {
    ExportedFunc_DeleteRegistryKey(key.c_str());
    runner.running = {true};
    Close();
    EXPECT_EQ(runner.CommandLines(), Calls{kApplication + "-exit "});
}

} // namespace
