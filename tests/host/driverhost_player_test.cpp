// The player, working on a property sheet of this program's own.
#include "host/driverhost_player.h"

#include "host/driverhost_text.h"
#include "tests/host/player_sheet.h"
#include "tests/support/utf8_text.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

class DriverhostPlayer : public testing::Test {
  protected:
    void SetUp() override { g_seen = {}; }

    // Plays the script; returns the failure.
    std::string Play(const std::string& text) {
        const script::Script script = script::Parse(text);
        if (script.error)
            return script::Describe("s.txt", *script.error);
        driverhost::Show show;
        show.open = m_open;
        show.actions = &script.actions;
        show.file = "s.txt";
        show.sheetLimit = m_sheetLimit;
        show.actionLimit = m_actionLimit;
        show.print = [this](std::string_view line) { m_printed += line; };
        return driverhost::RunSheet(show);
    }

    std::string Play(const char8_t* text) { return Play(Utf8(text)); }

    std::function<void()> m_open = OpenSheet;
    std::chrono::milliseconds m_sheetLimit = std::chrono::seconds(30);
    std::chrono::milliseconds m_actionLimit = std::chrono::seconds(10);
    std::string m_printed;
};

TEST_F(DriverhostPlayer, CancelsASheetThatIsOpenWhenTheScriptEnds) {
    EXPECT_EQ(Play(""), "");
    EXPECT_EQ(g_seen.opened, 1);
    EXPECT_EQ(g_seen.applied, 0);
}

TEST_F(DriverhostPlayer, PressesOkAndCancel) {
    EXPECT_EQ(Play("press ok"), "");
    EXPECT_EQ(g_seen.applied, 1);
    EXPECT_EQ(Play("press cancel"), "");
    EXPECT_EQ(g_seen.applied, 1);
}

TEST_F(DriverhostPlayer, ChoosesARowOfAnExtendedComboWithTheNotificationsOfAMousePick) {
    EXPECT_EQ(Play("choose 1001 2\nexpect row 1001 2"), "");
    // Around the choice, the focus comes with the sheet and goes with it.
    EXPECT_EQ(g_seen.comboCodes, (std::vector<int>{CBN_SETFOCUS, CBN_DROPDOWN, CBN_SELENDOK, CBN_CLOSEUP,
                                                   CBN_SELCHANGE, CBN_SELENDCANCEL, CBN_KILLFOCUS}));
}

TEST_F(DriverhostPlayer, ChoosesByTextInBothKindsOfCombo) {
    EXPECT_EQ(Play(u8"choose 1001 \"はがき\"\nexpect row 1001 2\nexpect text 1001 \"はがき\"\n"
                   u8"choose 1002 \"B5\"\nexpect text 1002 B5\nexpect row 1002 1"),
              "");
}

TEST_F(DriverhostPlayer, TellsTheRowsWhenATextIsNotThere) {
    EXPECT_EQ(Play("choose 1001 \"A3\""),
              Utf8(u8"s.txt:1: control 1001: no row is \"A3\"; there are: \"A4\", \"B5\", \"はがき\""));
}

TEST_F(DriverhostPlayer, RefusesARowThatIsNotThere) {
    EXPECT_EQ(Play("\nchoose 1001 3"), "s.txt:2: control 1001: the combo box has 3 rows, counted from 0");
}

TEST_F(DriverhostPlayer, ReadsNoSelectionAsRowMinusOne) {
    EXPECT_EQ(Play("expect row 1002 -1"), "");
}

TEST_F(DriverhostPlayer, TellsTheRowThatItFound) {
    EXPECT_EQ(Play("expect row 1001 1"), "s.txt:1: the row of control 1001 is 0, expected 1");
}

TEST_F(DriverhostPlayer, EnablesApplyByAChange) {
    EXPECT_EQ(
        Play(
            "expect disabled apply\nchoose 1002 1\nexpect enabled apply\npress apply\nexpect disabled apply"),
        "");
    EXPECT_EQ(g_seen.applied, 1);
}

TEST_F(DriverhostPlayer, DoesNotPressADisabledButton) {
    EXPECT_EQ(Play("press apply"), "s.txt:1: control 12321: the control is disabled");
    EXPECT_EQ(Play("click 1009"), "s.txt:1: control 1009: the control is disabled");
}

TEST_F(DriverhostPlayer, DoesNotClickWhatIsHidden) {
    EXPECT_EQ(Play("expect hidden 1010\nexpect visible 1008\nclick 1010"),
              "s.txt:3: control 1010: the control is hidden");
}

TEST_F(DriverhostPlayer, TellsAControlThatIsNotThere) {
    EXPECT_EQ(Play("click 4999"), "s.txt:1: there is no control 4999");
}

TEST_F(DriverhostPlayer, ChecksBoxesAndRadioButtons) {
    EXPECT_EQ(Play("expect checked 1005 off\ncheck 1005 on\nexpect checked 1005 on\ncheck 1005 on\n"
                   "expect checked 1005 on\ncheck 1005 off\nexpect checked 1005 off\n"
                   "check 1006 on\ncheck 1007 on\nexpect checked 1006 off\nexpect checked 1007 on"),
              "");
}

TEST_F(DriverhostPlayer, TellsABoxThatAClickDoesNotCheck) {
    EXPECT_EQ(Play("check 1011 on"), "s.txt:1: control 1011: a click does not check it");
    EXPECT_EQ(Play("check 1007 on\ncheck 1007 off"), "s.txt:2: control 1007: a click does not uncheck it");
}

TEST_F(DriverhostPlayer, TypesKeyByKey) {
    EXPECT_EQ(Play(u8"type 1003 \"用紙ab\"\nexpect text 1003 用紙ab"), "");
    EXPECT_EQ(g_seen.edits, 4);
    EXPECT_EQ(Play("type 1003 ab\ntype 1003 \"\"\nexpect text 1003 \"\""), "");
}

TEST_F(DriverhostPlayer, TypesNoLettersIntoANumberField) {
    EXPECT_EQ(Play("type 1014 1x2\nexpect text 1014 12"), "");
}

TEST_F(DriverhostPlayer, GoesToAPageByItsTitle) {
    EXPECT_EQ(Play(u8"expect page 基本\npage 詳細設定\nexpect page 詳細設定\ntype 2001 x\npage 基本\nexpect "
                   u8"page 基本"),
              "");
    EXPECT_EQ(Play(u8"page 詳細設定\nexpect page 基本"),
              Utf8(u8"s.txt:2: the page is \"詳細設定\", expected \"基本\""));
    EXPECT_EQ(Play(u8"page 無"),
              Utf8(u8"s.txt:1: no page is called \"無\"; there are: \"基本\", \"詳細設定\""));
}

TEST_F(DriverhostPlayer, AnswersAMessageBoxThatAClickOpens) {
    EXPECT_EQ(Play(u8"click 1008\nexpect message \"続けますか?\\n二行目\"\nanswer yes\nclick 1008\nanswer "
                   u8"no\npress ok"),
              "");
    EXPECT_EQ(g_seen.answers, (std::vector<int>{IDYES, IDNO}));
}

TEST_F(DriverhostPlayer, SeesAMessageBoxThatAPostedMessageOpens) {
    EXPECT_EQ(Play(u8"click 1012\nexpect message \"続けますか?\\n二行目\"\nanswer no"), "");
    EXPECT_EQ(g_seen.answers, (std::vector<int>{IDNO}));
}

TEST_F(DriverhostPlayer, WorksInADialogThatIsShownLate) {
    EXPECT_EQ(Play("click 1017\nexpect visible 3002\nclick 2\nclick 1017\nclick 2\nexpect visible 1017"), "");
}

TEST_F(DriverhostPlayer, DoesNotWorkBehindAMessageBox) {
    EXPECT_EQ(Play("click 1008\nclick 1005"),
              Utf8(u8"s.txt:2: a message box is up: \"続けますか?\\n二行目\""));
    EXPECT_EQ(Play("click 1008\npress ok"), Utf8(u8"s.txt:2: a message box is up: \"続けますか?\\n二行目\""));
}

TEST_F(DriverhostPlayer, TellsAMissingOrOtherMessage) {
    EXPECT_EQ(Play("expect message x"), "s.txt:1: no message box is up, expected \"x\"");
    EXPECT_EQ(Play("click 1008\nexpect message x"),
              Utf8(u8"s.txt:2: the message is \"続けますか?\\n二行目\", expected \"x\""));
    EXPECT_EQ(Play("answer ok"), "s.txt:1: no message box is up");
    EXPECT_EQ(Play("click 1008\nanswer ok"), "s.txt:2: the message box has no such button");
}

TEST_F(DriverhostPlayer, ChoosesRowsOfAListByMouse) {
    EXPECT_EQ(Play(u8"page 詳細設定\nexpect row 2002 -1\nexpect rows 2002 3\nexpect item 2002 1 二\n"
                   u8"choose 2002 2\nexpect row 2002 2\nexpect text 2002 三\nexpect focus 2002\n"
                   u8"choose 2002 \"一\"\nkey down\nexpect text 2002 二"),
              "");
    EXPECT_EQ(g_seen.listed, (std::vector<std::string>{"三", "一", "二"}));
    EXPECT_EQ(Play(u8"page 詳細設定\nchoose 2002 3"),
              "s.txt:2: control 2002: the list has 3 rows, counted from 0");
}

TEST_F(DriverhostPlayer, TellsARowAndAFocusThatItDidNotFind) {
    EXPECT_EQ(Play("expect rows 1001 4"), "s.txt:1: the number of rows of control 1001 is 3, expected 4");
    EXPECT_EQ(Play("expect item 1001 1 A4"), "s.txt:1: row 1 of control 1001 is \"B5\", expected \"A4\"");
    EXPECT_EQ(Play("type 1003 a\nexpect focus 1003\nexpect focus 1001"),
              "s.txt:3: control 1001 does not have the focus, control 1003 has it");
}

TEST_F(DriverhostPlayer, PressesAKeyOnceWhereTheActionBehindTheBoxFails) {
    EXPECT_EQ(Play("check 1019 on\nkey enter"), "s.txt:2: control 1019: a click does not check it");
    EXPECT_EQ(g_seen.answers, (std::vector<int>{IDYES}));
    EXPECT_EQ(g_seen.applied, 0);
}

TEST_F(DriverhostPlayer, WaitsWhileTheKeyboardIsOnItsWayFromOneWindowToTheNext) {
    EXPECT_EQ(Play("click 1018\nexpect focus 1003"), "");
    EXPECT_EQ(Play("click 1018\nkey space\nexpect text 1003 \" \""), "");
}

TEST_F(DriverhostPlayer, WorksInAProgramThatTheSheetWaitsFor) {
    EXPECT_EQ(Play(u8"page 詳細設定\nexpect running driverhost_other_program.exe 0\nclick 2003\n"
                   u8"expect running driverhost_other_program.exe 1\nexpect item 3002 1 横\nchoose 3002 1\n"
                   u8"expect text 3002 横\ntype 3001 47\nexpect text 3001 47\nexpect focus 3001\n"
                   u8"click 3003\nexpect message 本当に?\nanswer yes\nclick 1\n"
                   u8"expect visible 2003\nexpect running driverhost_other_program.exe 0"),
              "");
    EXPECT_EQ(g_seen.ended, (std::vector<DWORD>{47}));
}

TEST_F(DriverhostPlayer, PressesKeysInAProgramThatTheSheetWaitsFor) {
    EXPECT_EQ(Play(u8"page 詳細設定\nclick 2003\ntype 3001 5\nkey enter\nexpect visible 2003"), "");
    EXPECT_EQ(Play(u8"page 詳細設定\nclick 2003\ntype 3001 5\nkey escape\nexpect visible 2003"), "");
    EXPECT_EQ(g_seen.ended, (std::vector<DWORD>{5, 0}));
}

TEST_F(DriverhostPlayer, EndsAProgramAsACrashWould) {
    EXPECT_EQ(Play(u8"page 詳細設定\nclick 2003\nend\nexpect visible 2003\nend"),
              "s.txt:5: no other program is in front");
    EXPECT_EQ(g_seen.ended, (std::vector<DWORD>{1}));
}

TEST_F(DriverhostPlayer, ClosesAProgramThatIsOpenWhenTheScriptEnds) {
    EXPECT_EQ(Play(u8"page 詳細設定\nclick 2003"), "");
    EXPECT_EQ(g_seen.ended, (std::vector<DWORD>{0}));
}

TEST_F(DriverhostPlayer, TellsWhatAProgramDoesNotShow) {
    EXPECT_EQ(Play(u8"page 詳細設定\nclick 2003\nexpect text 3002 横"),
              Utf8(u8"s.txt:3: the text of control 3002 is \"\", expected \"横\""));
}

TEST_F(DriverhostPlayer, ReopensTheSheet) {
    EXPECT_EQ(Play("choose 1001 1\nreopen\nexpect row 1001 0\npress cancel\nreopen\npress ok"), "");
    EXPECT_EQ(g_seen.opened, 3);
    EXPECT_EQ(g_seen.applied, 2);
}

TEST_F(DriverhostPlayer, TellsAClosedSheet) {
    EXPECT_EQ(Play("press ok\nclick 1005"), "s.txt:2: the sheet is closed");
}

TEST_F(DriverhostPlayer, TellsASheetThatDoesNotClose) {
    EXPECT_EQ(Play("check 1015 on\npress ok"), "s.txt:2: the sheet stays open");
}

TEST_F(DriverhostPlayer, TellsASheetThatDoesNotOpen) {
    m_open = [] {};
    EXPECT_EQ(Play("click 1"), "s.txt: the sheet did not open");
}

TEST_F(DriverhostPlayer, CancelsASheetThatIsOpenForTooLong) {
    m_sheetLimit = std::chrono::seconds(1);
    EXPECT_EQ(Play("wait 60000"), "s.txt:1: the sheet is open for longer than 1 second");
}

TEST_F(DriverhostPlayer, CancelsAPersonsSheetThatIsOpenForTooLong) {
    driverhost::Show show;
    show.open = OpenSheet;
    show.sheetLimit = std::chrono::seconds(1);
    EXPECT_EQ(driverhost::RunSheet(show), "the sheet is open for longer than 1 second");
}

TEST_F(DriverhostPlayer, TellsASheetThatDoesNotAnswer) {
    m_actionLimit = std::chrono::seconds(1);
    EXPECT_EQ(Play("click 1013"), "s.txt:1: the sheet does not answer within 1 second");
}

TEST_F(DriverhostPlayer, PrintsTexts) {
    EXPECT_EQ(Play(u8"print \"用紙 1\"\nprint two"), "");
    EXPECT_EQ(m_printed, Utf8(u8"用紙 1\ntwo\n"));
}

TEST_F(DriverhostPlayer, TellsThatTheStoreIsNotLoaded) {
    EXPECT_EQ(Play("bank Current 305"), "s.txt:1: DataManager.dll is not loaded");
    EXPECT_EQ(Play("set bank Current 305 1"), "s.txt:1: DataManager.dll is not loaded");
    EXPECT_EQ(Play("set value LayoutRepeatX 1"), "s.txt:1: DataManager.dll is not loaded");
    EXPECT_EQ(Play("set value JobName 1"), "s.txt:1: the store has no number called JobName");
    EXPECT_EQ(Play("set text JobName a"), "s.txt:1: DataManager.dll is not loaded");
    EXPECT_EQ(Play("set text LayoutRepeatX a"), "s.txt:1: the store has no text called LayoutRepeatX");
    EXPECT_EQ(Play("value JobName"), "s.txt:1: DataManager.dll is not loaded");
    EXPECT_EQ(Play("value Nothing"), "s.txt:1: the store has no value called Nothing");
}

TEST_F(DriverhostPlayer, PressesKeysWhereTheFocusIs) {
    EXPECT_EQ(Play("choose 1002 0\nkey down\nexpect row 1002 1\nkey up\nexpect row 1002 0"), "");
}

TEST_F(DriverhostPlayer, EndsTheSheetByAKey) {
    EXPECT_EQ(Play("choose 1002 0\nkey escape"), "");
    EXPECT_EQ(g_seen.applied, 0);
    EXPECT_EQ(Play("choose 1002 0\nkey enter"), "");
    EXPECT_EQ(g_seen.applied, 1);
}

TEST_F(DriverhostPlayer, WritesAPictureOfTheSheet) {
    std::array<char, MAX_PATH> folder{};
    GetTempPathA(static_cast<DWORD>(folder.size()), folder.data());
    const std::string file = std::string(folder.data()) + "driverhost_player_test.png";
    EXPECT_EQ(Play("screenshot " + file), "");
    std::FILE* picture = std::fopen(file.c_str(), "rb");
    ASSERT_NE(picture, nullptr);
    std::array<unsigned char, 4> head{};
    EXPECT_EQ(std::fread(head.data(), 1, head.size(), picture), 4u);
    EXPECT_EQ(head, (std::array<unsigned char, 4>{0x89, 'P', 'N', 'G'}));
    std::fseek(picture, 0, SEEK_END);
    EXPECT_GT(std::ftell(picture), 1000);
    std::fclose(picture);
}

TEST_F(DriverhostPlayer, TellsAPictureThatCantBeWritten) {
    EXPECT_EQ(Play(R"(screenshot C:\no\such\folder\x.png)"), "s.txt:1: the picture can't be written");
}

TEST_F(DriverhostPlayer, TellsWhatIsThrownInsteadOfASheet) {
    m_open = [] { throw std::runtime_error("no sheet today"); };
    EXPECT_EQ(Play("page First"), "no sheet today");
}

} // namespace
