// The standard page's buttons for the job property application and the job name.
#include "Common/ProfileInfo.h"
#include "pages/controls.h"
#include "pages/standardpage.h"
#include "tests/pages/standard_page_driver.h"

#include <commctrl.h>

namespace {

using namespace keyword;
using Calls = std::vector<std::string>;

constexpr char kMark[] = "UpdateChangeItemPresetCombo";

class JobProperties : public LoggedStandardPage {};

std::vector<WPARAM> enabledStates;

LRESULT CALLBACK NoteEnable(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == WM_ENABLE)
        enabledStates.push_back(wParam);
    return DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(JobProperties, DisableTheButtonForTheirLength) {
    OpenWith();
    runner.startError = ERROR_FILE_NOT_FOUND;
    enabledStates.clear();
    SetWindowSubclass(Control(1035), NoteEnable, 1, 0);
    EXPECT_EQ(Send(1035, 0), 0);
    RemoveWindowSubclass(Control(1035), NoteEnable, 1);
    EXPECT_EQ(enabledStates, (std::vector<WPARAM>{FALSE, TRUE}));
    EXPECT_TRUE(IsWindowEnabled(Control(1035)));
    EXPECT_EQ(CallsAmong({"OnConfig", "SaveData", "DoModalPrintOptionUI", "LoadData", kMark}),
              (Calls{"OnConfig", "SaveData", "DoModalPrintOptionUI"}));
    EXPECT_EQ(ChangesSeen(), 0);
}

TEST_F(JobProperties, AreTakenOverBehindAnApplicationThatHasEnded) {
    OpenWith();
    EXPECT_EQ(Send(1035, 0), 1);
    const Calls order{"OnConfig", "SaveData", "DoModalPrintOptionUI", "LoadData", kMark};
    EXPECT_EQ(CallsAmong(order), order);
}

TEST_F(JobProperties, AreNotTakenOverOnASheetThatHasGone) {
    OpenWith();
    runner.onWait = [this] { EndSession(); };
    EXPECT_EQ(Send(1035, 0), 0);
    EXPECT_EQ(CallsAmong({"LoadData", kMark}), Calls{});
}

TEST_F(JobProperties, FirstSaveWhatTheControlsShow) {
    OpenWith();
    SelectRow(Control(6010), 3);
    Send(1035, 0);
    EXPECT_EQ(Current(DuplexMode), 3u);
}

TEST_F(JobProperties, LeaveTheKeyboardWithTheButton) {
    OpenWith();
    EnableWindow(page, TRUE);
    ShowWindow(Sheet(), SW_SHOW);
    ShowWindow(page, SW_SHOW);
    SetFocus(Control(1035));
    ASSERT_EQ(GetFocus(), Control(1035));
    Send(1035, 0);
    EXPECT_EQ(GetFocus(), Control(1035));
}

// What the application has left in the store.

class AfterTheJobProperties : public JobProperties {
  protected:
    void TakeOver() { CStandardPageDlg(page, &device).TakeOverFromApplication(&block); }

    CProfileInfo device;
};

TEST_F(AfterTheJobProperties, RunsInThisOrder) {
    OpenWith();
    TakeOver();
    const Calls order{"LoadData", "SetOutputPaperSize", "SetFold", "UpdateProfile", kMark};
    EXPECT_EQ(CallsAmong(order), order);
}

TEST_F(AfterTheJobProperties, ShowsWhatTheStoreHolds) {
    OpenWith();
    SetCurrent({{DuplexMode, 2}, {Copies, 12}, {Collate, 1}});
    const CurrentBank before = WholeBank();
    TakeOver();
    EXPECT_EQ(Row(6010), 2);
    EXPECT_EQ(CaptionOf(page, 6004), "12");
    EXPECT_TRUE(IsChecked(1275));
    EXPECT_EQ(WholeBank(), before);
}

TEST_F(AfterTheJobProperties, MakesThePageTheActiveOneAgain) {
    OpenWith();
    int other = 0;
    ExportedFunc_SetActive(&other);
    TakeOver();
    void* active = nullptr;
    ExportedFunc_GetActive(&active);
    EXPECT_EQ(active, page);
}

TEST_F(AfterTheJobProperties, LeavesPaperAndTrayToAJobOfMixedSizes) {
    OpenWith();
    for (const std::uint32_t isMixed : {1u, 0u}) {
        SetCurrent({{MixSizePrint, isMixed}});
        TakeOver();
        for (const int id : {5001, 5002, 1244, 1281})
            EXPECT_EQ(IsWindowEnabled(Control(id)), isMixed ? FALSE : TRUE) << id;
    }
}

TEST_F(AfterTheJobProperties, ReadsTheProfileThatTheStoreNames) {
    OpenWith();
    device.m_Item[29].value = "of the former profile";
    ExportedFunc_SetProfile("chosen");
    TakeOver();
    EXPECT_STREQ(block.Profile, "chosen");
    EXPECT_EQ(device.m_Item[29].value, "");
    EXPECT_EQ(CallsAmong({"UpdateProfile"}), Calls{"UpdateProfile"});
}

TEST_F(AfterTheJobProperties, SetsTheMarkOnce) {
    OpenWith();
    TakeOver();
    EXPECT_EQ(CallsAmong({kMark}), Calls{kMark});
}

TEST_F(AfterTheJobProperties, NeedsNoProfileOfTheDevice) {
    OpenWith();
    SetCurrent({{DuplexMode, 2}});
    CStandardPageDlg(page, nullptr).TakeOverFromApplication(&block);
    EXPECT_EQ(Row(6010), 2);
    EXPECT_EQ(CallsAmong({"UpdateProfile", kMark}), Calls{kMark});
}

class JobName : public LoggedStandardPage {};

TEST_F(JobName, IsNotShownAnewAfterACancel) {
    OpenWith();
    auto dialog = CloseNextDialog(1221);
    EXPECT_EQ(Send(1216, 0), 1);
    EXPECT_TRUE(dialog.get());
    EXPECT_EQ(CallsAmong({"DoModalJobName", "ShowJobName"}), Calls{"DoModalJobName"});
}

TEST_F(JobName, IsShownAfterOkAndNothingElse) {
    OpenWith();
    for (const int result : {IDOK, IDCANCEL, 0, -1}) {
        ForgetCalls();
        CStandardPageDlg(page, nullptr).TakeOverJobName(&block, result);
        EXPECT_EQ(CallsAmong({"ShowJobName"}), result == IDOK ? Calls{"ShowJobName"} : Calls{}) << result;
    }
}

TEST_F(JobName, IsNotShownOnASheetThatHasGone) {
    OpenWith();
    EndSession();
    CStandardPageDlg(page, nullptr).TakeOverJobName(&block, IDOK);
    EXPECT_EQ(CallsAmong({"ShowJobName"}), Calls{});
}

} // namespace
