// The pages by keyboard alone: Tab reaches every control in the order in which they are read, each
// accelerator is there once, arrows move radio buttons.
#include "Common/ProfileInfo.h"
#include "pages/advancedpage.h"
#include "pages/standardpage.h"
#include "tests/pages/dialog_windows.h"
#include "tests/pages/keyboard.h"
#include "tests/pages/page_fixture.h"

#include <algorithm>

namespace {

struct ListOfRows {
    int control;
    int keyword;
    WORD options; // that the driver has of the setting
    bool hasImages;
};

constexpr ListOfRows kLists[] = {{5001, 12, 50, false}, {5002, 13, 5, false}, {1281, 4, 8, true},
                                 {6014, 3, 6, true},    {6010, 104, 5, true}, {1291, 138, 2, true},
                                 {1273, 111, 22, true}, {1155, 112, 6, true}, {1156, 114, 11, true},
                                 {1277, 106, 5, true},  {1257, 108, 3, false}};

class PageKeyboard : public PageTest {
  protected:
    // A device that can finish in every way, so that the page shows all its controls.
    static void SetUpTestSuite() {
        ProcessProfile()->m_FinisherInfo.AddLine(
            0,
            "?singleTop?True|?doubleStitch?True|?saddleFoldStaple?True|?singleStitch?True|?quadStitch?True|"
            "?doublePunch?True|?triplePunch?True|?quadPunch?True|?saddleFoldNoStaple?True|?zFold?True|"
            "?triFoldC?True|?triFoldZ?True|?offset?True");
    }

    // The page as it looks with all that it may show.
    HWND OpenStandardPage() {
        for (const ListOfRows& list : kLists)
            Bind(list.keyword, list.options);
        HWND page = Show(Open(1066, StandardPageProc));
        for (const int id : {1329, 1337})
            ShowWindow(GetDlgItem(page, id), SW_SHOW);
        EnableWindow(GetDlgItem(page, 1215), TRUE);
        return page;
    }
    HWND OpenAdvancedPage() { return Show(Open(4007, AdvancedPageProc)); }

  private:
    HWND Show(HWND page) {
        SetWindowPos(Sheet(), nullptr, 0, 0, 1000, 800, SWP_NOMOVE | SWP_NOZORDER | SWP_SHOWWINDOW);
        EnableWindow(page, TRUE);
        ShowWindow(page, SW_SHOW);
        SetActiveWindow(Sheet());
        return page;
    }
};

// Row by row as the groups stand, down each group.
const Ids kStandardOrder{1300, 1214, 1215, 1398,             // favourites
                         5000, 1329, 5001, 1337, 5002, 1244, // document and paper
                         1281, 1280,                         //
                         6014, 6010, 1291,                   // layout
                         1273, 1155, 1156,                   // finishing
                         6001,                               // orientation: the checked one
                         6004, 1275, 1278,                   // copies
                         1277, 1257,                         // output
                         1216, 1035,                         // job
                         1012};

TEST_F(PageKeyboard, ReachesTheControlsOfTheStandardPageInTheOrderOfReading) {
    const HWND page = OpenStandardPage();
    EXPECT_EQ(WalkByTab(page), kStandardOrder);
}

TEST_F(PageKeyboard, ReachesEveryControlOfTheStandardPageThatCanBeWorked) {
    const HWND page = OpenStandardPage();
    EXPECT_EQ(Workable(page), Sorted(kStandardOrder));
}

TEST_F(PageKeyboard, GoesBackByShiftAndTab) {
    const HWND page = OpenStandardPage();
    SetFocus(GetDlgItem(page, 5001));
    EXPECT_EQ(GetDlgCtrlID(GetNextDlgTabItem(page, GetDlgItem(page, 5001), TRUE)), 1329);
    EXPECT_EQ(GetDlgCtrlID(GetNextDlgTabItem(page, GetDlgItem(page, 1300), TRUE)), 1012);
}

TEST_F(PageKeyboard, PassesOverTheEditButtonsWhileNoCustomSizeIsChosen) {
    const HWND page = OpenStandardPage();
    for (const int id : {1329, 1337})
        ShowWindow(GetDlgItem(page, id), SW_HIDE);
    Ids order = kStandardOrder;
    std::erase(order, 1329);
    std::erase(order, 1337);
    EXPECT_EQ(WalkByTab(page), order);
}

TEST_F(PageKeyboard, ReachesTheControlsOfTheAdvancedPage) {
    const HWND page = OpenAdvancedPage();
    EXPECT_EQ(WalkByTab(page), (Ids{1363, 1362}));
    EXPECT_EQ(Workable(page), (Ids{1362, 1363}));
}

TEST_F(PageKeyboard, HasEachAcceleratorOfAPageOnce) {
    ExpectLettersOnce(Accelerators(OpenStandardPage()), "BCDEFGHIJKLMNOPQRSUVWXYZ");
    ExpectLettersOnce(Accelerators(OpenAdvancedPage()), "Z");
}

TEST_F(PageKeyboard, LeavesTheAcceleratorOfTheSheetsApplyButtonFree) {
    EXPECT_EQ(Accelerators(OpenStandardPage()).count('A'), 0u);
}

TEST_F(PageKeyboard, SetsTheTextsThatTheTemplateOfThePageShows) {
    const HWND page = OpenStandardPage();
    SetDlgItemTextA(page, 1225, "");
    ExpectTextsOfTemplate(page, 1066);
    ExpectTextsOfTemplate(OpenAdvancedPage(), 4007);
}

struct LabelledControl {
    char letter;
    int control;
};

TEST_F(PageKeyboard, GoesToAControlByTheAcceleratorOfItsLabel) {
    const HWND page = OpenStandardPage();
    for (const auto& [letter, control] : {LabelledControl{'J', 1300},
                                          {'S', 5000},
                                          {'P', 5001},
                                          {'U', 5002},
                                          {'F', 1281},
                                          {'N', 6014},
                                          {'R', 6010},
                                          {'M', 1291},
                                          {'H', 1273},
                                          {'I', 1155},
                                          {'C', 6004},
                                          {'O', 1277},
                                          {'L', 1257}}) {
        SetFocus(GetDlgItem(page, 1012));
        Press(page, static_cast<WPARAM>(letter), true);
        EXPECT_EQ(FocusedControl(page), control) << letter;
    }
}

TEST_F(PageKeyboard, MovesTheOrientationByTheArrowKeys) {
    const HWND page = OpenStandardPage();
    SetFocus(GetDlgItem(page, 6001));
    Press(page, VK_DOWN);
    EXPECT_EQ(IsDlgButtonChecked(page, 6002), static_cast<UINT>(BST_CHECKED));
    EXPECT_EQ(IsDlgButtonChecked(page, 6001), static_cast<UINT>(BST_UNCHECKED));
    EXPECT_EQ(Current(2), 1u);
    EXPECT_EQ(FocusedControl(page), 6002);
    Press(page, VK_UP);
    EXPECT_EQ(IsDlgButtonChecked(page, 6001), static_cast<UINT>(BST_CHECKED));
    EXPECT_EQ(Current(2), 0u);
    EXPECT_EQ(FocusedControl(page), 6001);
}

// The rotated orientation is disabled, so that the arrows go round the other two.
TEST_F(PageKeyboard, DoesNotReachTheRotatedOrientation) {
    const HWND page = OpenStandardPage();
    SetFocus(GetDlgItem(page, 6001));
    Press(page, VK_UP);
    EXPECT_EQ(FocusedControl(page), 6002);
}

TEST_F(PageKeyboard, ChecksABoxByTheSpaceBar) {
    const HWND page = OpenStandardPage();
    const HWND box = GetDlgItem(page, 1244);
    SetFocus(box);
    SendMessageA(box, WM_KEYDOWN, VK_SPACE, 1);
    SendMessageA(box, WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(IsDlgButtonChecked(page, 1244), static_cast<UINT>(BST_CHECKED));
    EXPECT_EQ(Current(14), 1u);
}

TEST_F(PageKeyboard, CountsTheCopiesByTheArrowKeys) {
    const HWND page = OpenStandardPage();
    SetDlgItemInt(page, 6004, 7, FALSE);
    SetFocus(GetDlgItem(page, 6004));
    SendMessageA(GetDlgItem(page, 6004), WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(GetDlgItemInt(page, 6004, nullptr, FALSE), 8u);
    EXPECT_EQ(Current(1), 8u);
}

TEST_F(PageKeyboard, ChoosesRowsByTheArrowKeys) {
    const HWND page = OpenStandardPage();
    const HWND duplex = GetDlgItem(page, 6010);
    const HWND box = reinterpret_cast<HWND>(SendMessageA(duplex, CBEM_GETCOMBOCONTROL, 0, 0));
    SetFocus(box);
    SendMessageA(box, WM_KEYDOWN, VK_DOWN, 1);
    EXPECT_EQ(Current(104), 1u);
}

TEST_F(PageKeyboard, HasRoomForEachRowOfItsLists) {
    // The arrow with the frame and the gaps around the text; an image with its gap.
    constexpr LONG kArrow = 26;
    constexpr LONG kImage = 28;
    const HWND page = OpenStandardPage();
    for (const ListOfRows& list : kLists) {
        const HWND combo = GetDlgItem(page, list.control);
        RECT client{};
        GetClientRect(combo, &client);
        const std::vector<std::string> rows = RowsOf(combo);
        EXPECT_GE(rows.size(), 2u) << list.control;
        for (const std::string& row : rows)
            EXPECT_LE(SizeOfText(combo, row).cx + kArrow + (list.hasImages ? kImage : 0), client.right)
                << list.control << " " << row;
    }
}

} // namespace
