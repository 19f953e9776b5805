// The page's link with a real program in the application's place.
#include "session/keyword.h"
#include "tests/pages/job_property_fixture.h"
#include "tests/pages/stand_in_process.h"
#include "tests/support/message_box.h"

#include <optional>

namespace {

class RealApplication : public JobPropertyTest {
  protected:
    static void SetUpTestSuite() {
        JobPropertyTest::SetUpTestSuite();
        system = &TheProcessRunner();
    }

    RealApplication() {
        OpenPage();
        replaced.emplace(started);
    }

    static inline ProcessRunner* system = nullptr;
    StandIn standIn;
    StandInRunner started{*system, kApplication, standIn.Path()};
    std::optional<ReplacedProcessRunner> replaced;
};

TEST_F(RealApplication, StartsInTheBackgroundIsFoundAndEndsWithTheSheet) {
    StandIn::Behave("wait");
    EXPECT_EQ(dialog->StartJobProperty(&block), 1);
    standIn.AwaitStart();
    EXPECT_EQ(CPSPageDlg::JobPropertyProcessCheck(), 1);
    StandIn::Behave(""); // the exit command's own process
    Notify(page, PSN_APPLY, 1);
    EXPECT_EQ(standIn.Started()[0], standIn.Path() + "-exit " + id);
    EXPECT_EQ(Logged("ExitJobProperty").back(), "ExitJobProperty() ジョブプロパティ正常終了");
    EXPECT_FALSE(KeyIsThere());
}

TEST_F(RealApplication, ThatIsAbsentCostsTheSheetTwoSecondsAndLeavesTheKey) {
    const DWORD before = GetTickCount();
    Notify(page, PSN_RESET);
    EXPECT_GE(GetTickCount() - before, 1950u);
    EXPECT_EQ(standIn.Started(), std::vector<std::string>{});
    EXPECT_TRUE(KeyIsThere());
}

TEST_F(RealApplication, ThatHangsAtItsExitBringsTheBoxAndTheKeyGoes) {
    StandIn::Behave("wait");
    dialog->StartJobProperty(&block);
    standIn.AwaitStart();
    started.limit = 300;
    auto box = AnswerNextMessageBox();
    Notify(page, PSN_APPLY, 1);
    EXPECT_EQ(box.get().text,
              "ジョブプロパティの終了でタイムアウトが発生しました。\nPCの再起動を行ってください。");
    EXPECT_FALSE(KeyIsThere());
}

TEST_F(RealApplication, KeepsThePageUntilItsWindowIsClosed) {
    ExportedFunc_SetCurrent(keyword::StapleMode, 5);
    StandIn::Behave("");
    EXPECT_EQ(dialog->DoModalPrintOptionUI(), 1);
    EXPECT_EQ(standIn.Started()[0], standIn.Path() + " -show " + id + " " + key + " PDF ");
    EXPECT_EQ(Current(keyword::StapleMode), 5u);
}

TEST_F(RealApplication, ThatIsKilledLeavesWhatTheKeyHoldsAndThePageGoesOn) {
    ExportedFunc_SetCurrent(keyword::StapleMode, 5);
    StandIn::Behave("hang");
    started.whenIdle = [this] { standIn.Kill(); };
    EXPECT_EQ(dialog->DoModalPrintOptionUI(), 1);
    started.whenIdle = {};
    EXPECT_EQ(Logged("LoadRegistryToCurrentSettingInfo").size(), 1u);
    EXPECT_EQ(Current(keyword::StapleMode), 5u);
    StandIn::Behave("");
    EXPECT_EQ(dialog->DoModalPrintOptionUI(), 1);
}

TEST_F(RealApplication, ThatIsMissingLeavesTheSettingsAndThePageGoesOn) {
    StandInRunner missing(*system, kApplication, "C:\\no such folder\\PrinterDriverApplication.exe ");
    const ReplacedProcessRunner also(missing);
    ExportedFunc_SetCurrent(keyword::StapleMode, 5);
    EXPECT_EQ(dialog->StartJobProperty(&block), 0);
    EXPECT_EQ(dialog->DoModalPrintOptionUI(), 0);
    EXPECT_EQ(Current(keyword::StapleMode), 5u);
    EXPECT_EQ(Logged("DoModalPrintOptionUI").back().find("DoModalPrintOptionUI() 起動失敗="), 0u);
}

} // namespace
