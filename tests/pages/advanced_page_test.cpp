#include "pages/advancedpage.h"
#include "pages/controls.h"
#include "tests/pages/page_fixture.h"

#include <vector>

namespace {

using Rows = std::vector<std::string>;

constexpr int kPageTemplate = 4007;
constexpr int kRestoreButton = 1362;
constexpr int kCombo = 1363;
constexpr int kLabel = 1399;
constexpr int kResolution = 305;
constexpr int kClicked = 0;
constexpr int kSelectionChanged = 1;

class AdvancedPage : public PageTest {
  protected:
    HWND OpenWith(std::uint32_t current, std::uint32_t defaultValue = 0) {
        ExportedFunc_SetCurrent(kResolution, current);
        ExportedFunc_SetDefault(kResolution, defaultValue);
        page = Open(kPageTemplate, AdvancedPageProc);
        combo = GetDlgItem(page, kCombo);
        return page;
    }

    // As a user does: the row first, the notification after it.
    LRESULT Choose(int row) {
        SelectRow(combo, static_cast<std::uint32_t>(row));
        return Command(page, kCombo, kSelectionChanged);
    }

    HWND page = nullptr;
    HWND combo = nullptr;
};

TEST_F(AdvancedPage, ShowsLabelRowsAndButton) {
    OpenWith(0);
    EXPECT_EQ(CaptionOf(page, kLabel), "印刷品質:");
    EXPECT_EQ(RowsOf(combo), (Rows{"600x600dpi", "1200x1200dpi"}));
    EXPECT_EQ(CaptionOf(page, kRestoreButton), "標準に戻す(&Z)");
}

TEST_F(AdvancedPage, HasTheLabelDirectlyBeforeTheCombo) {
    OpenWith(0);
    EXPECT_EQ(GetWindow(GetDlgItem(page, kLabel), GW_HWNDNEXT), combo);
}

TEST_F(AdvancedPage, SelectsTheRowOfTheCurrentValueWhenItOpens) {
    OpenWith(0, 1);
    EXPECT_EQ(SelectedRow(combo), 0);
}

TEST_F(AdvancedPage, SelectsNoRowForAValueWithoutOneAndLeavesTheValue) {
    OpenWith(57);
    EXPECT_EQ(SelectedRow(combo), -1);
    EXPECT_EQ(Current(kResolution), 57u);
}

TEST_F(AdvancedPage, DoesNotWriteWhenItOpens) {
    OpenWith(1, 0);
    EXPECT_EQ(Current(kResolution), 1u);
    EXPECT_EQ(Default(kResolution), 0u);
    EXPECT_EQ(ChangesSeen(), 0);
}

TEST_F(AdvancedPage, SelectsNoRowForValueZeroAfterInitCmbBoxAlone) {
    OpenWith(0);
    CAdvancedSettingPageDlg dialog(page, nullptr);
    dialog.InitCmbBox(combo, kResolution, kLabel, &block, 0);
    EXPECT_EQ(SelectedRow(combo), -1);
    dialog.UpdateResolution(&block, 0);
    EXPECT_EQ(SelectedRow(combo), 0);
}

TEST_F(AdvancedPage, IsOneRowOffAfterInitCmbBoxAlone) {
    OpenWith(1);
    CAdvancedSettingPageDlg dialog(page, nullptr);
    dialog.InitCmbBox(combo, kResolution, kLabel, &block, 0);
    EXPECT_EQ(SelectedRow(combo), 0);
    dialog.UpdateResolution(&block, 0);
    EXPECT_EQ(SelectedRow(combo), 1);
}

TEST_F(AdvancedPage, WritesTheDefaultInInitCmbBoxOnlyIfAskedTo) {
    OpenWith(0, 1);
    CAdvancedSettingPageDlg dialog(page, nullptr);
    dialog.InitCmbBox(combo, kResolution, kLabel, &block, 0);
    EXPECT_EQ(Current(kResolution), 0u);
    dialog.InitCmbBox(combo, kResolution, kLabel, &block, 1);
    EXPECT_EQ(Current(kResolution), 1u);
}

TEST_F(AdvancedPage, DoesNothingInInitCmbBoxWithoutACombo) {
    OpenWith(0, 1);
    SetCaption(page, kLabel, "before");
    CAdvancedSettingPageDlg(page, nullptr).InitCmbBox(nullptr, kResolution, kLabel, &block, 1);
    EXPECT_EQ(CaptionOf(page, kLabel), "before");
    EXPECT_EQ(Current(kResolution), 0u);
}

TEST_F(AdvancedPage, StoresAChoiceAndTellsTheSheet) {
    OpenWith(0);
    EXPECT_EQ(Choose(1), 1);
    EXPECT_EQ(Current(kResolution), 1u);
    EXPECT_EQ(ChangesSeen(), 1);
    EXPECT_EQ(ChangedPage(), page);
}

TEST_F(AdvancedPage, StoresNothingWhileNoRowIsSelected) {
    OpenWith(57);
    EXPECT_EQ(Command(page, kCombo, kSelectionChanged), 1);
    EXPECT_EQ(Current(kResolution), 57u);
}

TEST_F(AdvancedPage, RestoresTheDefaultAtOnceWithoutTellingTheSheet) {
    OpenWith(1, 0);
    EXPECT_EQ(Command(page, kRestoreButton, kClicked), 1);
    EXPECT_EQ(Current(kResolution), 0u);
    EXPECT_EQ(SelectedRow(combo), 0);
    EXPECT_EQ(ChangesSeen(), 0);
}

TEST_F(AdvancedPage, RestoresTheDefaultFromARealClick) {
    OpenWith(0, 1);
    SendMessageA(GetDlgItem(page, kRestoreButton), BM_CLICK, 0, 0);
    EXPECT_EQ(Current(kResolution), 1u);
    EXPECT_EQ(SelectedRow(combo), 1);
    EXPECT_EQ(ChangesSeen(), 0);
}

TEST_F(AdvancedPage, TellsTheSheetOfACommandOfAnyOtherControl) {
    OpenWith(0);
    EXPECT_EQ(Command(page, kLabel, kClicked), 1);
    EXPECT_EQ(ChangesSeen(), 1);
    EXPECT_EQ(Current(kResolution), 0u);
}

TEST_F(AdvancedPage, AnswersOneToCodesSevenToNineAndStoresNothing) {
    OpenWith(0);
    SelectRow(combo, 1);
    for (int code : {7, 8, 9}) {
        EXPECT_EQ(Command(page, kCombo, code), 1) << code;
        EXPECT_EQ(Command(page, kRestoreButton, code), 1) << code;
    }
    EXPECT_EQ(Current(kResolution), 0u);
    EXPECT_EQ(ChangesSeen(), 0);
}

TEST_F(AdvancedPage, AnswersZeroToCodesTwoToSixAndTenUp) {
    OpenWith(0);
    SelectRow(combo, 1);
    for (int code : {2, 3, 4, 5, 6, 10, 11, 0x100, 0x201, 0x400, 0xFFFF})
        EXPECT_EQ(Command(page, kCombo, code), 0) << code;
    EXPECT_EQ(Current(kResolution), 0u);
    EXPECT_EQ(ChangesSeen(), 0);
}

TEST_F(AdvancedPage, TakesTheCodesOfAnEditControlForAChange) {
    OpenWith(0);
    SelectRow(combo, 1);
    EXPECT_EQ(Command(page, kCombo, EN_KILLFOCUS), 1);
    EXPECT_EQ(Current(kResolution), 1u);
    SelectRow(combo, 0);
    EXPECT_EQ(Command(page, kCombo, EN_CHANGE), 1);
    EXPECT_EQ(Current(kResolution), 0u);
    EXPECT_EQ(ChangesSeen(), 2);
}

TEST_F(AdvancedPage, BecomesTheActivePageAndReadsItsControlAgain) {
    OpenWith(0);
    ExportedFunc_SetCurrent(kResolution, 1);
    EXPECT_EQ(Notify(page, PSN_SETACTIVE), 1);
    EXPECT_EQ(SelectedRow(combo), 1);
    void* active = nullptr;
    ExportedFunc_GetActive(&active);
    EXPECT_EQ(active, page);
}

TEST_F(AdvancedPage, SendsTheValueToTheDriverWhenItIsLeft) {
    OPTITEM& item = Bind(kResolution, 2);
    OpenWith(0);
    Choose(1);
    EXPECT_EQ(item.Sel, 0);
    EXPECT_EQ(Notify(page, PSN_KILLACTIVE), 1);
    EXPECT_EQ(item.Sel, 1);
    EXPECT_TRUE(item.Flags & OPTIF_CHANGED);
}

TEST_F(AdvancedPage, SendsARestoredDefaultToTheDriverWhenItIsLeft) {
    OPTITEM& item = Bind(kResolution, 2);
    OpenWith(0, 1);
    Command(page, kRestoreButton, kClicked);
    Notify(page, PSN_KILLACTIVE);
    EXPECT_EQ(item.Sel, 1);
}

TEST_F(AdvancedPage, HandsTheSheetItsResultOnApplyAndNothingElse) {
    OPTITEM& item = Bind(kResolution, 2);
    OpenWith(0);
    Choose(1);
    EXPECT_EQ(Notify(page, PSN_APPLY, 0), 1);
    ASSERT_EQ(SheetCalls().size(), 1u);
    EXPECT_EQ(SheetCalls()[0].sheet, reinterpret_cast<HANDLE>(0x51));
    EXPECT_EQ(SheetCalls()[0].function, 9u);
    EXPECT_EQ(SheetCalls()[0].first, 0x52);
    EXPECT_EQ(SheetCalls()[0].second, 1);
    EXPECT_EQ(item.Sel, 0);
    EXPECT_EQ(Notify(page, PSN_APPLY, 1), 1);
    EXPECT_EQ(SheetCalls().size(), 2u);
}

TEST_F(AdvancedPage, AnswersOneToDrawingClosingAndItsOwnMessages) {
    OpenWith(0);
    EXPECT_EQ(AdvancedPageProc(page, WM_DRAWITEM, 0, 0), 1);
    EXPECT_EQ(AdvancedPageProc(page, WM_CLOSE, 0, 0), 1);
    EXPECT_EQ(AdvancedPageProc(page, 1124, 0, 0), 1);
}

TEST_F(AdvancedPage, DoesNothingOnceItsSessionIsGone) {
    OPTITEM& item = Bind(kResolution, 2);
    OpenWith(0, 1);
    EndSession();
    EXPECT_EQ(Choose(1), 0);
    EXPECT_EQ(Command(page, kRestoreButton, kClicked), 0);
    EXPECT_EQ(Notify(page, PSN_KILLACTIVE), 0);
    EXPECT_EQ(Current(kResolution), 0u);
    EXPECT_EQ(item.Sel, 0);
    EXPECT_EQ(ChangesSeen(), 0);
}

TEST_F(AdvancedPage, WorksWithoutItsControls) {
    OpenWith(0, 1);
    for (int id : {kLabel, kCombo, kRestoreButton})
        DestroyWindow(GetDlgItem(page, id));
    EXPECT_EQ(Notify(page, PSN_SETACTIVE), 1);
    EXPECT_EQ(Command(page, kCombo, kSelectionChanged), 1);
    EXPECT_EQ(Command(page, kRestoreButton, kClicked), 1);
    EXPECT_EQ(Current(kResolution), 0u);
}

} // namespace
