#include "pages/controls.h"
#include "pages/punch_rows.h"
#include "resources/resource.h"
#include "tests/pages/page_fixture.h"
#include "tests/pages/page_test_resource.h"
#include "tests/pages/test_page.h"

#include <array>

namespace {

using Rows = std::vector<std::string>;

constexpr int kPageOrientation = 2;
constexpr int kTray = 4;
constexpr int kRecordDiv = 10; // has neither label nor list
constexpr int kDuplexMode = 104;
constexpr int kPunch = 112;
constexpr int kPunchHoles = 113;
constexpr int kFold = 114;
constexpr int kResolution = 305;

constexpr std::array kRadioButtons{IDC_TEST_RADIO_0, IDC_TEST_RADIO_1, IDC_TEST_RADIO_2};

class KeywordControls : public PageTest {
  protected:
    KeywordControls() {
        pageLog = {};
        page = Open(IDD_TEST_PAGE, TestPageProc);
        combo = GetDlgItem(page, IDC_TEST_COMBO);
    }

    void InitCombo(int keyword, int useDefault = 0, std::span<const int> images = {}) {
        TestPage(page, nullptr).InitComboBox(&block, keyword, IDC_TEST_LABEL, useDefault, images);
    }

    void InitRadio(int useDefault = 0) {
        TestPage(page, nullptr)
            .InitRadioButton(&block, kPageOrientation, IDC_TEST_GROUP, kRadioButtons, useDefault);
    }

    Rows RadioCaptions() const {
        return {CaptionOf(page, IDC_TEST_RADIO_0), CaptionOf(page, IDC_TEST_RADIO_1),
                CaptionOf(page, IDC_TEST_RADIO_2)};
    }

    // The position of the checked button, -1 for none, -2 for several.
    int CheckedRadio() const {
        int checked = -1;
        for (int i = 0; i < 3; ++i) {
            if (IsDlgButtonChecked(page, kRadioButtons[static_cast<std::size_t>(i)]) == BST_CHECKED)
                checked = checked == -1 ? i : -2;
        }
        return checked;
    }

    // Image and selected image of a row.
    std::pair<int, int> ImagesOf(int row) const {
        COMBOBOXEXITEMA item{};
        item.mask = CBEIF_IMAGE | CBEIF_SELECTEDIMAGE;
        item.iItem = row;
        SendMessageA(combo, CBEM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
        return {item.iImage, item.iSelectedImage};
    }

    HWND page;
    HWND combo;
};

using InitComboBox = KeywordControls;
using InitRadioButton = KeywordControls;
using KeywordTexts = KeywordControls;

TEST_F(InitComboBox, PutsTheLabelAndAColonOnTheLabelControl) {
    Bind(kTray, 8);
    InitCombo(kTray);
    EXPECT_EQ(CaptionOf(page, IDC_TEST_LABEL), "用紙トレイ(&F):");
}

TEST_F(InitComboBox, KeepsTheTemplatesCaptionForAKeywordWithoutALabel) {
    Bind(kPunchHoles, 4);
    InitCombo(kPunchHoles);
    EXPECT_EQ(CaptionOf(page, IDC_TEST_LABEL), "雛形");
    EXPECT_EQ(RowsOf(combo), (Rows{"", "2穴", "3穴", "4穴"}));
}

TEST_F(InitComboBox, FillsTheComboThatFollowsTheLabel) {
    Bind(kDuplexMode, 5);
    InitCombo(kDuplexMode);
    EXPECT_EQ(RowsOf(combo), (Rows{"しない", "長辺とじ", "短辺とじ", "天地同じ", "天地逆"}));
}

TEST_F(InitComboBox, HasAsManyRowsAsTheDriverHasOptions) {
    Bind(kResolution, 1);
    InitCombo(kResolution);
    EXPECT_EQ(RowsOf(combo), (Rows{"600x600dpi"}));
    Bind(kResolution, 3);
    InitCombo(kResolution);
    EXPECT_EQ(RowsOf(combo), (Rows{"600x600dpi", "1200x1200dpi", ""}));
}

TEST_F(InitComboBox, EmptiesTheComboFirst) {
    Bind(kResolution, 2);
    InitCombo(kResolution);
    InitCombo(kResolution);
    EXPECT_EQ(RowsOf(combo).size(), 2u);
}

TEST_F(InitComboBox, AlwaysGivesPunchSixteenRows) {
    Bind(kPunch, 6);
    InitCombo(kPunch);
    const Rows rows = RowsOf(combo);
    ASSERT_EQ(rows.size(), 16u);
    EXPECT_EQ(rows[0], "しない");
    EXPECT_EQ(rows[1], "左2穴");
    EXPECT_EQ(rows[15], "4穴(サイズ混在)");
}

TEST_F(InitComboBox, SelectsTheRowOfTheCurrentValue) {
    Bind(kDuplexMode, 5);
    ExportedFunc_SetCurrent(kDuplexMode, 3);
    ExportedFunc_SetDefault(kDuplexMode, 1);
    InitCombo(kDuplexMode);
    EXPECT_EQ(SelectedRow(combo), 3);
}

TEST_F(InitComboBox, SelectsTheRowOfTheDefaultValueIfAskedTo) {
    Bind(kDuplexMode, 5);
    ExportedFunc_SetCurrent(kDuplexMode, 3);
    ExportedFunc_SetDefault(kDuplexMode, 1);
    InitCombo(kDuplexMode, 1);
    EXPECT_EQ(SelectedRow(combo), 1);
    EXPECT_EQ(Current(kDuplexMode), 3u);
}

TEST_F(InitComboBox, LooksAtTheLowSixteenBitsOfTheValue) {
    Bind(kDuplexMode, 5);
    ExportedFunc_SetCurrent(kDuplexMode, 0x70002);
    InitCombo(kDuplexMode);
    EXPECT_EQ(SelectedRow(combo), 2);
}

TEST_F(InitComboBox, SelectsNoRowForAValueBeyondTheRows) {
    Bind(kDuplexMode, 5);
    for (std::uint32_t value : {5u, 65535u, 0xFFFFFFFFu}) {
        ExportedFunc_SetCurrent(kDuplexMode, value);
        InitCombo(kDuplexMode);
        EXPECT_EQ(SelectedRow(combo), -1) << value;
        EXPECT_EQ(Current(kDuplexMode), value);
    }
}

TEST_F(InitComboBox, GivesEachRowItsImage) {
    Bind(kResolution, 2);
    const std::array images{4, 2};
    InitCombo(kResolution, 0, images);
    EXPECT_EQ(ImagesOf(0), std::pair(4, 4));
    EXPECT_EQ(ImagesOf(1), std::pair(2, 2));
    EXPECT_EQ(RowsOf(combo), (Rows{"600x600dpi", "1200x1200dpi"}));
}

TEST_F(InitComboBox, TakesFewerImagesThanRows) {
    Bind(kResolution, 2);
    const std::array images{4};
    InitCombo(kResolution, 0, images);
    EXPECT_EQ(RowsOf(combo).size(), 2u);
    EXPECT_EQ(ImagesOf(0), std::pair(4, 4));
}

TEST_F(InitComboBox, LeavesTheComboEmptyForAKeywordWithoutADriversItem) {
    InitCombo(kResolution);
    EXPECT_EQ(RowsOf(combo), Rows{});
    EXPECT_EQ(CaptionOf(page, IDC_TEST_LABEL), "印刷品質:");
}

TEST_F(InitComboBox, TakesNumbersThatAreNoKeywords) {
    for (int keyword : {-1, 327, 100000}) {
        InitCombo(keyword);
        EXPECT_EQ(RowsOf(combo), Rows{}) << keyword;
    }
}

TEST_F(InitComboBox, ReturnsQuietlyWithoutALabelOrWithoutAComboBehindIt) {
    Bind(kResolution, 2);
    TestPage(page, nullptr).InitComboBox(&block, kResolution, IDC_TEST_MISSING, 0);
    TestPage(page, nullptr).InitComboBox(&block, kResolution, IDC_TEST_LAST_LABEL, 0);
    EXPECT_EQ(RowsOf(combo), Rows{});
}

TEST_F(InitRadioButton, PutsTheLabelWithoutAColonOnTheGroup) {
    Bind(kPageOrientation, 2);
    InitRadio();
    EXPECT_EQ(CaptionOf(page, IDC_TEST_GROUP), "原稿の向き");
}

TEST_F(InitRadioButton, ListsOneRowMoreThanTheDriverHasOptions) {
    Bind(kPageOrientation, 2);
    InitRadio();
    EXPECT_EQ(RadioCaptions(), (Rows{"横置きに回転", "たて原稿", "よこ原稿"}));
}

TEST_F(InitRadioButton, LeavesButtonsBeyondTheRowsAlone) {
    Bind(kPageOrientation, 1);
    InitRadio();
    EXPECT_EQ(RadioCaptions(), (Rows{"横置きに回転", "たて原稿", "雛形"}));
}

TEST_F(InitRadioButton, IgnoresRowsBeyondItsThreeButtons) {
    Bind(kPageOrientation, 60);
    InitRadio();
    EXPECT_EQ(RadioCaptions(), (Rows{"横置きに回転", "たて原稿", "よこ原稿"}));
}

TEST_F(InitRadioButton, ChecksTheButtonOfTheCurrentValueAlone) {
    Bind(kPageOrientation, 2);
    CheckDlgButton(page, IDC_TEST_RADIO_0, BST_CHECKED);
    ExportedFunc_SetCurrent(kPageOrientation, 2);
    ExportedFunc_SetDefault(kPageOrientation, 1);
    InitRadio();
    EXPECT_EQ(CheckedRadio(), 2);
}

TEST_F(InitRadioButton, ChecksTheButtonOfTheDefaultValueIfAskedTo) {
    Bind(kPageOrientation, 2);
    ExportedFunc_SetCurrent(kPageOrientation, 2);
    ExportedFunc_SetDefault(kPageOrientation, 1);
    InitRadio(1);
    EXPECT_EQ(CheckedRadio(), 1);
}

TEST_F(InitRadioButton, ChecksNoButtonForAValueWithoutOne) {
    Bind(kPageOrientation, 2);
    for (std::uint32_t value : {3u, 65536u, 0xFFFFFFFFu}) {
        ExportedFunc_SetCurrent(kPageOrientation, value);
        InitRadio();
        EXPECT_EQ(CheckedRadio(), -1) << value;
    }
}

TEST_F(KeywordTexts, KeepTheAcceleratorOfALabel) {
    std::array<char, 64> label;
    EXPECT_EQ(CPSPageDlg::GetKeywordTranslation(kTray, label.data(), label.size()), 1);
    EXPECT_STREQ(label.data(), "用紙トレイ(&F)");
    EXPECT_EQ(CPSPageDlg::GetKeywordTranslation(kFold, label.data(), label.size()), 1);
    EXPECT_STREQ(label.data(), "紙折り");
}

TEST_F(KeywordTexts, PassOnThatThereIsNoLabel) {
    std::array<char, 64> label{'x'};
    EXPECT_EQ(CPSPageDlg::GetKeywordTranslation(kPunchHoles, label.data(), label.size()), 0);
    EXPECT_STREQ(label.data(), "");
}

TEST_F(KeywordTexts, CountOptionsByTheOptionLists) {
    EXPECT_EQ(CPSPageDlg::GetKeywordOptionCount(kResolution), 2);
    EXPECT_EQ(CPSPageDlg::GetKeywordOptionCount(kPunch), 6);
    EXPECT_EQ(CPSPageDlg::GetKeywordOptionCount(kRecordDiv), 0);
}

TEST_F(KeywordTexts, LeaveARowWithoutATextEmpty) {
    Rows rows(3);
    CPSPageDlg::GetKeywordOptionString(kResolution, rows);
    EXPECT_EQ(rows, (Rows{"600x600dpi", "1200x1200dpi", ""}));
}

TEST_F(KeywordTexts, ChangeThePunchTableWithTheFirstListing) {
    Rows rows(16);
    CPSPageDlg::GetKeywordOptionString(kPunch, rows);
    for (std::size_t row : {5u, 10u, 15u})
        EXPECT_EQ(ProcessPunchTable().Rows()[row].punch, 5) << row;
    Rows again(16);
    CPSPageDlg::GetKeywordOptionString(kPunch, again);
    EXPECT_EQ(again, rows);
}

TEST_F(KeywordTexts, StayInsideThePunchTable) {
    Rows rows(20, "");
    CPSPageDlg::GetKeywordOptionString(kPunch, rows);
    EXPECT_EQ(rows[15], "4穴(サイズ混在)");
    EXPECT_EQ(rows[16], "");
    EXPECT_EQ(rows[19], "");
}

} // namespace
