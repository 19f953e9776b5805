// The transfer between the standard page's controls and the Current bank.
#include "pages/own_changes.h"
#include "tests/pages/standard_page_fixture.h"

#include <algorithm>
#include <utility>

namespace {

TEST_F(StandardPageWhole, LoadsItsControlsInThisOrder) {
    const std::vector<std::string> kOrder{
        "SetOutputPaperSize", "SetFitSize", "SetOnCenter", "SetDuplex",     "SetColorModel", "SetNUP",
        "SetOrientation",     "SetCopies",  "SetSource",   "SetOutputTray", "SetJog",        "SetPageOrder",
        "SetCollate",         "SetStaple",  "SetPunch",    "SetFold"};
    const MainLog log;
    Page().LoadData();
    EXPECT_EQ(Functions(log, kOrder), kOrder);
}

TEST_F(StandardPageWhole, SavesItsControlsInThisOrder) {
    const std::vector<std::string> kOrder{
        "GetOutputPaperSize", "GetFitSize", "GetOnCenter", "GetDuplex",     "GetColorModel", "GetNUP",
        "GetOrientation",     "GetCopies",  "GetSource",   "GetOutputTray", "GetJog",        "GetPageOrder",
        "GetCollate",         "GetStaple",  "GetPunch",    "GetFold"};
    const MainLog log;
    Page().SaveData();
    EXPECT_EQ(Functions(log, kOrder), kOrder);
}

TEST_F(StandardPageWhole, LoadsTheBank) {
    FitWholeFinisher();
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    SetEach(1);
    ExportedFunc_SetCurrent(1, 12);
    Page().LoadData();
    for (const int id : {5001, 5002, 6010, 1291, 6014, 1281, 1277, 1257, 1273, 1155, 1156})
        EXPECT_EQ(Row(id), 1) << id;
    for (const int id : {1244, 1275, 1278, 6002})
        EXPECT_TRUE(IsChecked(id)) << id;
    EXPECT_EQ(Copies(), "12");
}

using StandardPageSaving = BuiltStandardPage;

TEST_F(StandardPageSaving, StoresWhatTheControlsShow) {
    for (const int id : {5001, 5002, 6010, 1291, 6014, 1281, 1277, 1257, 1273, 1156})
        Select(id, 1);
    Select(1155, 10);
    for (const int id : {1244, 1275, 1278})
        CheckDlgButton(page, id, BST_CHECKED);
    CheckRadioButton(page, 6000, 6002, 6002);
    {
        const OwnChanges writing;
        SendMessageA(Control(6005), UDM_SETPOS, 0, 21);
    }
    Bank expected = CurrentBank();
    for (const int keyword : kKeywords)
        expected[keyword] = 1;
    expected[1] = 21;
    expected[112] = 5; // (mixed sizes, two holes)
    expected[113] = 2;
    Page().SaveData();
    EXPECT_EQ(CurrentBank(), expected);
}

TEST_F(StandardPageSaving, StoresThePairOfEachPunchRow) {
    constexpr std::pair<std::uint32_t, std::uint32_t> kPairs[16] = {
        {0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1}, {1, 2}, {2, 2},
        {3, 2}, {4, 2}, {5, 2}, {1, 3}, {2, 3}, {3, 3}, {4, 3}, {5, 3}};
    for (int row = 0; row < 16; ++row) {
        Select(1155, row);
        Page().SaveData();
        EXPECT_EQ(Current(112), kPairs[row].first) << row;
        EXPECT_EQ(Current(113), kPairs[row].second) << row;
    }
    Select(1155, -1);
    Page().SaveData();
    EXPECT_EQ(Current(112), 0u);
    EXPECT_EQ(Current(113), 1u);
}

TEST_F(StandardPageSaving, LogsThePunchPair) {
    const MainLog log;
    Select(1155, 12);
    Page().SaveData();
    const std::vector<std::string> messages = log.Messages();
    EXPECT_TRUE(std::ranges::any_of(
        messages, [](const std::string& m) { return m.ends_with("Punch=2 PunchHoles=3"); }));
}

TEST_F(StandardPageSaving, LeavesValuesWithoutARowInTheBank) {
    for (const std::uint32_t value : {50u, 10001u, 65535u, 0x10001u, 0x10007u, 0xFFFFFFFFu}) {
        SetEach(value);
        ASSERT_EQ(Page().Initialize(&block, 0), 1);
        const Bank before = CurrentBank();
        Page().SaveData();
        EXPECT_EQ(CurrentBank(), before) << value;
    }
}

TEST_F(StandardPageSaving, LeavesWhatHiddenControlsWouldShowInTheBank) {
    ExportedFunc_SetCurrent(111, 4);
    ExportedFunc_SetCurrent(112, 2);
    ExportedFunc_SetCurrent(113, 2);
    ExportedFunc_SetCurrent(114, 3);
    page = Open(1066, StandardPageProc); // nothing is fitted
    ExportedFunc_SetActive(page);
    Page().SaveData();
    EXPECT_EQ(Current(111), 4u);
    EXPECT_EQ(Current(112), 2u);
    EXPECT_EQ(Current(113), 2u);
    EXPECT_EQ(Current(114), 3u);
}

TEST_F(StandardPageSaving, StoresNothingWhileAnotherPageIsActiveButForThePunch) {
    ExportedFunc_SetActive(Sheet());
    Bank expected = CurrentBank();
    expected[112] = 3;
    expected[113] = 1;
    Select(6010, 1);
    Select(1155, 3);
    Page().SaveData();
    EXPECT_EQ(CurrentBank(), expected);
}

} // namespace
