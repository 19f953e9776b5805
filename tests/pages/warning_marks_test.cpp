#include "Common/win_handles.h"
#include "pages/controls.h"
#include "tests/pages/page_fixture.h"
#include "tests/pages/page_test_resource.h"
#include "tests/pages/test_page.h"

#include <array>
#include <vector>

namespace {

constexpr int kTray = 4;
constexpr int kStapleMode = 111;
constexpr int kPunch = 112;

class WarningMarks : public PageTest {
  protected:
    WarningMarks() {
        pageLog = {};
        page = Open(IDD_TEST_PAGE, TestPageProc);
        combo = GetDlgItem(page, IDC_TEST_COMBO);
    }

    void AddRows(int count) {
        for (int i = 0; i < count; ++i)
            AppendRow(combo, "row");
    }

    // The rows whose data word is 1.
    std::vector<int> MarkedRows() const {
        std::vector<int> rows;
        for (int row = 0; row < SendMessageA(combo, CB_GETCOUNT, 0, 0); ++row) {
            if (SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(row), 0) == 1)
                rows.push_back(row);
        }
        return rows;
    }

    HWND page;
    HWND combo;
};

using LoadWarningImage = WarningMarks;
using SetWarningIndex = WarningMarks;
using MarkDisabledOptions = WarningMarks;
using IsSelectableOption = WarningMarks;

TEST_F(LoadWarningImage, LoadsThreeIconsAndBuildsAListOfTheSmallOne) {
    EXPECT_NE(TestPage::m_hIconWarning_16, nullptr);
    EXPECT_NE(TestPage::m_hIconWarning_24, nullptr);
    EXPECT_NE(TestPage::m_hIconWarning_32, nullptr);
    ASSERT_NE(TestPage::m_hImgWarningList_16, nullptr);
    EXPECT_EQ(ImageList_GetImageCount(TestPage::m_hImgWarningList_16), 1);
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(TestPage::m_hImgWarningList_16, &width, &height);
    EXPECT_EQ(width, 16);
    EXPECT_EQ(height, 16);
}

TEST_F(LoadWarningImage, DoesNothingTheSecondTime) {
    const HIMAGELIST list = TestPage::m_hImgWarningList_16;
    const HICON icon = TestPage::m_hIconWarning_24;
    TestPage::LoadWarningImage();
    EXPECT_EQ(TestPage::m_hImgWarningList_16, list);
    EXPECT_EQ(TestPage::m_hIconWarning_24, icon);
    EXPECT_EQ(ImageList_GetImageCount(list), 1);
}

TEST_F(SetWarningIndex, GivesRowsThatCannotBeDoneTheLastImage) {
    const UniqueImageList list(ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 3, 1));
    for (int i = 0; i < 3; ++i)
        ImageList_ReplaceIcon(list.Get(), -1, TestPage::m_hIconWarning_16);
    const std::array enabled{1, 0, 1, 0};
    std::array images{5, 5, 5, 5};
    EXPECT_EQ(TestPage::SetWarningIndex(combo, 4, enabled.data(), images.data(), 0, list.Get()), 1);
    EXPECT_EQ(images, (std::array{5, 2, 5, 2}));
}

TEST_F(SetWarningIndex, TellsThatEverythingCanBeDone) {
    const std::array enabled{1, 1};
    std::array images{5, 5};
    EXPECT_EQ(
        TestPage::SetWarningIndex(combo, 2, enabled.data(), images.data(), 0, TestPage::m_hImgWarningList_16),
        0);
    EXPECT_EQ(images, (std::array{5, 5}));
}

TEST_F(SetWarningIndex, GivesZeroWithoutAListOrWithAnEmptyOne) {
    const UniqueImageList empty(ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 1, 1));
    const std::array enabled{0, 0};
    std::array images{5, 5};
    EXPECT_EQ(TestPage::SetWarningIndex(combo, 2, enabled.data(), images.data(), 0, nullptr), 0);
    EXPECT_EQ(TestPage::SetWarningIndex(combo, 2, enabled.data(), images.data(), 0, empty.Get()), 0);
    EXPECT_EQ(images, (std::array{5, 5}));
}

TEST_F(SetWarningIndex, GivesZeroForACountBelowOne) {
    const std::array enabled{0, 0};
    std::array images{5, 5};
    for (int count : {0, -1})
        EXPECT_EQ(TestPage::SetWarningIndex(combo, count, enabled.data(), images.data(), 0,
                                            TestPage::m_hImgWarningList_16),
                  0);
    EXPECT_EQ(images, (std::array{5, 5}));
}

TEST(IsAllWarning, DoesNotCountRowZero) {
    const std::array onlyFirst{1, 0, 0};
    const std::array second{0, 1};
    EXPECT_EQ(CPSPageDlg::IsAllWarning(onlyFirst.data(), 3), 0);
    EXPECT_EQ(CPSPageDlg::IsAllWarning(second.data(), 2), 1);
}

TEST(IsAllWarning, IsZeroForACountOfZeroOrOne) {
    const std::array enabled{1, 1};
    EXPECT_EQ(CPSPageDlg::IsAllWarning(enabled.data(), 0), 0);
    EXPECT_EQ(CPSPageDlg::IsAllWarning(enabled.data(), 1), 0);
    EXPECT_EQ(CPSPageDlg::IsAllWarning(enabled.data(), -5), 0);
    EXPECT_EQ(CPSPageDlg::IsAllWarning(enabled.data(), 2), 1);
}

TEST(IsAllWarning, IsZeroWithoutAnArray) {
    EXPECT_EQ(CPSPageDlg::IsAllWarning(nullptr, 4), 0);
}

TEST_F(MarkDisabledOptions, MarksAsManyRowsAsTheDriverHasOptions) {
    Bind(kTray, 4);
    AddRows(6);
    const std::array enabled{1, 0, 1, 0, 0, 0};
    CPSPageDlg::MarkDisabledOptions(&block, combo, kTray, enabled);
    EXPECT_EQ(MarkedRows(), (std::vector{1, 3}));
}

TEST_F(MarkDisabledOptions, Looks16RowsFarForPunch) {
    Bind(kPunch, 6);
    AddRows(20);
    CPSPageDlg::MarkDisabledOptions(&block, combo, kPunch, std::array<int, 32>{});
    EXPECT_EQ(MarkedRows().size(), 16u);
}

TEST_F(MarkDisabledOptions, Looks32RowsFarForStapling) {
    Bind(kStapleMode, 22);
    AddRows(40);
    CPSPageDlg::MarkDisabledOptions(&block, combo, kStapleMode, std::array<int, 40>{});
    EXPECT_EQ(MarkedRows().size(), 32u);
}

TEST_F(MarkDisabledOptions, StaysInsideTheArray) {
    Bind(kTray, 60000);
    AddRows(6);
    const std::array enabled{0, 0};
    CPSPageDlg::MarkDisabledOptions(&block, combo, kTray, enabled);
    EXPECT_EQ(MarkedRows(), (std::vector{0, 1}));
}

TEST_F(IsSelectableOption, LetsARowStayThatIsNotMarked) {
    AddRows(4);
    ExportedFunc_SetCurrent(kTray, 1);
    SelectRow(combo, 3);
    EXPECT_EQ(TestPage(page, nullptr).IsSelectableOption(IDC_TEST_COMBO, kTray, &block), 1);
    EXPECT_EQ(SelectedRow(combo), 3);
}

TEST_F(IsSelectableOption, BringsTheRowOfTheCurrentValueBack) {
    AddRows(4);
    SendMessageA(combo, CB_SETITEMDATA, 3, 1);
    ExportedFunc_SetCurrent(kTray, 2);
    SelectRow(combo, 3);
    EXPECT_EQ(TestPage(page, nullptr).IsSelectableOption(IDC_TEST_COMBO, kTray, &block), 0);
    EXPECT_EQ(SelectedRow(combo), 2);
    EXPECT_EQ(Current(kTray), 2u);
}

TEST_F(IsSelectableOption, TakesNoOtherDataWordForAMark) {
    AddRows(2);
    SendMessageA(combo, CB_SETITEMDATA, 1, 2);
    SelectRow(combo, 1);
    EXPECT_EQ(TestPage(page, nullptr).IsSelectableOption(IDC_TEST_COMBO, kTray, &block), 1);
}

TEST_F(IsSelectableOption, LetsNoSelectionAndNoControlPass) {
    AddRows(2);
    EXPECT_EQ(TestPage(page, nullptr).IsSelectableOption(IDC_TEST_COMBO, kTray, &block), 1);
    EXPECT_EQ(TestPage(page, nullptr).IsSelectableOption(IDC_TEST_MISSING, kTray, &block), 1);
}

} // namespace
