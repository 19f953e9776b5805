// The settings of the standard page whose controls are neither a plain list nor a check box.
#include "pages/controls.h"
#include "pages/page_images.h"
#include "tests/pages/standard_page_fixture.h"

#include <utility>

namespace {

using CopiesRow = BuiltStandardPage;
using OrientationRow = BuiltStandardPage;
using NUPRow = BuiltStandardPage;
using PunchPair = BuiltStandardPage;
using UnshownSettings = BuiltStandardPage;

TEST_F(CopiesRow, ShowsTheCopiesAndLeavesWhatTheSpinDoesNotReachInTheBank) {
    const std::pair<std::uint32_t, const char*> kCopies[] = {
        {1, "1"},          {2, "2"},        {9999, "9999"},       {0, "1"},
        {10000, "9999"},   {65535, "9999"}, {0xFFFFFFFF, "9999"}, {40000, "9999"},
        {0x10007, "7"},    {0x10000, "1"},  {0x1270F, "9999"},    {0x12710, "9999"},
        {0xFFFF0003, "3"},
    };
    for (const auto& [value, text] : kCopies) {
        ExportedFunc_SetCurrent(1, value);
        Page().UpdateCopies(&block, 0);
        EXPECT_EQ(Copies(), text) << value;
        EXPECT_EQ(Current(1), value);
        Page().SetCopies(5);
        Page().SetCopies(value);
        EXPECT_EQ(Copies(), text) << value;
    }
}

TEST_F(CopiesRow, TakesTheDefault) {
    ExportedFunc_SetDefault(1, 17);
    Page().UpdateCopies(&block, 1);
    EXPECT_EQ(Copies(), "17");
    EXPECT_EQ(Current(1), 17u);
}

TEST_F(OrientationRow, ChecksTheButtonOfEachValue) {
    const std::pair<std::uint32_t, int> kButtons[] = {{0, 6001}, {1, 6002}, {2, 6000}};
    for (const auto& [value, button] : kButtons) {
        ExportedFunc_SetCurrent(2, value);
        Page().UpdateOrientation(&block, 0);
        EXPECT_EQ(CheckedOrientation(), button) << value;
        Page().SetOrientation((value + 1) % 3);
        Page().SetOrientation(value);
        EXPECT_EQ(CheckedOrientation(), button) << value;
        EXPECT_EQ(Page().GetOrientation(), value);
    }
}

TEST_F(OrientationRow, ChecksNoButtonForAValueAboveTwo) {
    for (const std::uint32_t value : {3u, 22u, 65535u, 0xFFFFFFFFu}) {
        ExportedFunc_SetCurrent(2, value);
        Page().UpdateOrientation(&block, 0);
        EXPECT_EQ(CheckedOrientation(), 0) << value;
        EXPECT_EQ(Page().GetOrientation(), 0xFFFFFFFF);
        Page().SetOrientation(1);
        Page().SetOrientation(value);
        EXPECT_EQ(CheckedOrientation(), 0) << value;
        EXPECT_EQ(Current(2), value);
    }
}

TEST_F(OrientationRow, ChecksTheRotatedOneOnAButtonThatStaysDisabled) {
    ExportedFunc_SetCurrent(2, 2);
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    EXPECT_EQ(CheckedOrientation(), 6000);
    EXPECT_FALSE(IsEnabled(6000));
    EXPECT_EQ(Page().GetOrientation(), 2u);
}

TEST_F(OrientationRow, KeepsAButtonWithinTheKeyboardsReach) {
    for (const std::uint32_t value : {0u, 1u, 2u, 3u, 1u, 65535u}) {
        ExportedFunc_SetCurrent(2, value);
        Page().UpdateOrientation(&block, 0);
        bool isReachable = false;
        for (const int button : {6000, 6001, 6002})
            isReachable |= IsEnabled(button) && (GetWindowLongA(Control(button), GWL_STYLE) & WS_TABSTOP);
        EXPECT_TRUE(isReachable) << value;
    }
}

TEST_F(OrientationRow, LeavesTheFocusOnTheButtonThatIsChecked) {
    ShowWindow(Sheet(), SW_SHOW);
    ShowWindow(page, SW_SHOW);
    EnableWindow(page, TRUE);
    SetActiveWindow(Sheet());
    SetFocus(Control(6002));
    ASSERT_EQ(GetFocus(), Control(6002));
    ExportedFunc_SetCurrent(2, 1);
    Page().UpdateOrientation(&block, 0);
    EXPECT_EQ(GetFocus(), Control(6002));
}

TEST_F(NUPRow, MakesItsRowsWhereTheyAreGone) {
    SendMessageA(Control(6014), CB_RESETCONTENT, 0, 0);
    ExportedFunc_SetCurrent(3, 4);
    Page().UpdateNUP(&block, 0);
    EXPECT_EQ(RowCount(6014), 6);
    EXPECT_EQ(Row(6014), 4);
}

// The strip's bitmap may have failed when the rows were made.
TEST_F(NUPRow, GetsItsImagesOnceThereAreSome) {
    const HWND combo = Control(6014);
    AttachImages(combo, nullptr);
    ClearRows(combo);
    for (const char* text : {"a", "b", "c", "d", "e", "f"})
        AppendRow(combo, text);
    ExportedFunc_SetCurrent(3, 4);
    Page().UpdateNUP(&block, 0);
    EXPECT_EQ(ImageList_GetImageCount(ImagesOf(6014)), 8);
    EXPECT_EQ(RowImages(6014), (std::vector<int>{0, 1, 2, 3, 5, 6}));
    EXPECT_EQ(Row(6014), 4);
}

TEST_F(NUPRow, StaysWhereItHasItsImages) {
    SendMessageA(Control(6014), CB_SETITEMDATA, 2, 99);
    Page().UpdateNUP(&block, 0);
    EXPECT_EQ(RowMarks(6014), (std::vector<int>{0, 0, 99, 0, 0, 0}));
}

TEST_F(NUPRow, IsNoneForTheBooklet) {
    ExportedFunc_SetCurrent(3, 6);
    Page().UpdateNUP(&block, 0);
    EXPECT_EQ(Row(6014), -1);
    EXPECT_EQ(Current(3), 6u);
}

// Of Punch across and PunchHoles down; 16 to 19 are beyond the control's rows.
constexpr int kPunchRows[5][6] = {
    {0, 0, 0, 0, 0, 0},      {0, 1, 2, 3, 4, 5},     {0, 6, 7, 8, 9, 10},
    {0, 11, 12, 13, 14, 15}, {0, -1, -1, -1, -1, 0},
};

TEST_F(PunchPair, ShowsEachPairOfPunchAndHoles) {
    for (std::uint32_t holes = 0; holes < 5; ++holes) {
        for (std::uint32_t punch = 0; punch < 6; ++punch) {
            ExportedFunc_SetCurrent(112, punch);
            ExportedFunc_SetCurrent(113, holes);
            Select(1155, 3);
            Page().UpdatePunch(&block, 0);
            EXPECT_EQ(Row(1155), kPunchRows[holes][punch]) << punch << " " << holes;
            EXPECT_EQ(Current(112), punch);
            EXPECT_EQ(Current(113), holes);
        }
    }
}

TEST_F(PunchPair, StaysForAPairBeyondTheTable) {
    const std::pair<std::uint32_t, std::uint32_t> kPairs[] = {
        {6, 1}, {13, 2}, {65535, 0}, {0xFFFFFFFF, 0}, {1, 5}, {0, 22}, {2, 65535}, {3, 0xFFFFFFFF}, {6, 5}};
    for (const auto& [punch, holes] : kPairs) {
        ExportedFunc_SetCurrent(112, punch);
        ExportedFunc_SetCurrent(113, holes);
        Select(1155, 7);
        Page().UpdatePunch(&block, 0);
        EXPECT_EQ(Row(1155), 7) << punch << " " << holes;
    }
}

TEST_F(PunchPair, TakesBothDefaults) {
    ExportedFunc_SetDefault(112, 4);
    ExportedFunc_SetDefault(113, 2);
    Page().UpdatePunch(&block, 1);
    EXPECT_EQ(Row(1155), 9);
    EXPECT_EQ(Current(112), 4u);
    EXPECT_EQ(Current(113), 2u);
}

TEST_F(PunchPair, IsSetFromTheBankWhateverIsAsked) {
    ExportedFunc_SetCurrent(112, 2);
    ExportedFunc_SetCurrent(113, 3);
    Page().SetPunch(1);
    EXPECT_EQ(Row(1155), 12);
}

TEST_F(UnshownSettings, AreBroughtBackToTheirDefaults) {
    for (const int keyword : {194, 199}) {
        ExportedFunc_SetDefault(keyword, 1);
        ExportedFunc_SetCurrent(keyword, 0);
    }
    Page().UpdateSpotColorCorrect(&block, 0);
    Page().UpdateTwoColorPressSimulation(&block, 0);
    EXPECT_EQ(Current(194), 0u);
    EXPECT_EQ(Current(199), 0u);
    Page().UpdateSpotColorCorrect(&block, 1);
    EXPECT_EQ(Current(194), 1u);
    EXPECT_EQ(Current(199), 0u);
    Page().UpdateTwoColorPressSimulation(&block, 1);
    EXPECT_EQ(Current(199), 1u);
}

TEST_F(UnshownSettings, AreLoggedByTheirOwnFunctions) {
    const MainLog log;
    ExportedFunc_SetCurrent(194, 5);
    ExportedFunc_SetCurrent(199, 6);
    Page().UpdateSpotColorCorrect(&block, 0);
    Page().UpdateTwoColorPressSimulation(&block, 0);
    const std::vector<std::string> messages = log.Messages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_TRUE(messages[0].ends_with("UpdateSpotColorCorrect() keyword=194 value=5")) << messages[0];
    EXPECT_TRUE(messages[1].ends_with("UpdateTwoColorPressSimulation() keyword=199 value=6")) << messages[1];
}

} // namespace
