// What the output paper size offers, and what follows from a choice.
#include "tests/pages/output_paper_size_fixture.h"
#include "tests/support/main_log.h"
#include "tests/support/paper_listing.h"
#include "tests/support/tag_listing.h"

#include <algorithm>
#include <map>
#include <string>

namespace {

std::uint32_t FormOf(std::int32_t tag) {
    const std::vector<std::int32_t> tags = ListedTagsOf("FixedForm");
    return static_cast<std::uint32_t>(std::ranges::find(tags, tag) - tags.begin());
}

TEST_F(OutputPaperSize, OffersFiftySizesTheLastOfThemTheCustomOne) {
    OpenWith(0);
    const std::vector<std::string> rows = RowsOf(combo);
    ASSERT_EQ(rows.size(), 50u);
    EXPECT_EQ(rows[kAsDocument], "原稿サイズと同じ");
    EXPECT_EQ(rows[kA3], "A3(297x420mm) SEF");
    EXPECT_EQ(rows[kA4], "A4(210x297mm) SEF");
    EXPECT_EQ(rows[kCustom], "カスタムサイズ");
    EXPECT_EQ(CStandardPageDlg::m_customOutputSizeIndex, kCustom);
    EXPECT_EQ(CaptionOf(page, kLabel), "出力用紙サイズ(&P):");
}

TEST_F(OutputPaperSize, OpensWithTheCurrentRowAndWritesNothing) {
    ExportedFunc_SetDefault(kOutputSize, kA3);
    OpenWith(kA4);
    EXPECT_EQ(SelectedRow(combo), kA4);
    EXPECT_EQ(Current(kOutputSize), static_cast<std::uint32_t>(kA4));
    EXPECT_FALSE(IsButtonShown());
    EXPECT_EQ(Read(), kBefore);
}

TEST_F(OutputPaperSize, ShowsTheButtonOfTheCustomSize) {
    OpenWith(kCustom);
    EXPECT_EQ(SelectedRow(combo), kCustom);
    EXPECT_TRUE(IsButtonShown());
}

TEST_F(OutputPaperSize, SelectsNoRowForAValueWithoutOneAndLeavesIt) {
    for (const std::uint32_t value : {50u, 65535u, 0xFFFFFFFFu}) {
        OpenWith(value);
        EXPECT_EQ(SelectedRow(combo), -1) << value;
        Command(page, kCombo, CBN_SELCHANGE);
        EXPECT_EQ(Current(kOutputSize), value);
        EXPECT_EQ(Read(), kBefore);
        DestroyWindow(page);
    }
}

TEST_F(OutputPaperSize, BringsSheetAndPaperAlong) {
    OpenWith(kA3);
    Choose(kA4);
    EXPECT_EQ(Current(kOutputSize), static_cast<std::uint32_t>(kA4));
    Followed expected = kBefore;
    expected.fixedForm = 2; // of tag 3
    expected.sheetWidth = 119055;
    expected.sheetHeight = 168378;
    expected.paperLength = 210000;
    expected.paperWidth = 297000;
    EXPECT_EQ(Read(), expected);
}

TEST_F(OutputPaperSize, LogsTheTagsThatItFollows) {
    OpenWith(kA3);
    ExportedFunc_SetCurrent(kFinishFixedForm, 7); // tag 8
    const MainLog log;
    Choose(kA4);
    EXPECT_TRUE(std::ranges::any_of(log.Messages(), [](const std::string& line) {
        return line.ends_with(" tagOutputPaperSize=3 tagFixedForm=3 tagFinishFixedForm=8");
    }));
}

TEST_F(OutputPaperSize, BringsSheetAndPaperAlongForEveryRow) {
    OpenWith(kA3);
    const std::map<std::int32_t, ListedPaper> papers = ListedPapers();
    const std::vector<std::int32_t> tags = ListedTagsOf("ChgPrintPaperSizeType");
    ASSERT_EQ(tags.size(), 50u);
    int withoutRow = 0;
    for (int row = 1; row < kCustom; ++row) {
        SCOPED_TRACE(row);
        Write(kBefore);
        Choose(row);
        Followed expected = kBefore;
        const auto paper = papers.find(tags[static_cast<std::size_t>(row)]);
        if (paper == papers.end()) {
            ++withoutRow;
        } else {
            expected.fixedForm = FormOf(paper->first);
            expected.sheetWidth = paper->second.width;
            expected.sheetHeight = paper->second.height;
            expected.paperLength = paper->second.widthMicrons;
            expected.paperWidth = paper->second.heightMicrons;
        }
        EXPECT_EQ(Read(), expected);
        EXPECT_FALSE(IsButtonShown());
    }
    EXPECT_EQ(withoutRow, 16);
}

TEST_F(OutputPaperSize, TakesTheRowOfTagTwoForTheDocumentsSize) {
    OpenWith(kA4);
    Choose(kAsDocument);
    Followed expected = kBefore;
    expected.fixedForm = 0; // of tag 1
    expected.sheetWidth = 168378;
    expected.sheetHeight = 238110;
    expected.paperLength = 297000;
    expected.paperWidth = 210000;
    EXPECT_EQ(Read(), expected);
}

TEST_F(OutputPaperSize, FinishesEveryRowAsTwoHalves) {
    OpenWith(kA3, 2, 2);
    const std::map<std::int32_t, ListedPaper> papers = ListedPapers();
    const std::vector<std::int32_t> tags = ListedTagsOf("ChgPrintPaperSizeType");
    for (int row = 1; row < kCustom; ++row) {
        Choose(row);
        const auto found = papers.find(tags[static_cast<std::size_t>(row)]);
        const ListedPaper paper = found == papers.end() ? ListedPaper{} : found->second;
        EXPECT_EQ(Read().finishedHeight, std::min(paper.width, paper.height)) << row;
        EXPECT_EQ(Read().finishedWidth, std::max(paper.width, paper.height) / 2) << row;
        EXPECT_EQ(Read().repeatX, 3u) << row;
    }
}

TEST_F(OutputPaperSize, RepeatsPagesByTheFinishedSheetsDirection) {
    OpenWith(kA4, 2, 1);
    Followed layout = kBefore;
    layout.repeatX = 2;
    layout.repeatY = 4;
    layout.sheetDirection = 0;
    Write(layout);
    Choose(kA3);
    EXPECT_EQ(Read().repeatX, 4u);
    EXPECT_EQ(Read().repeatY, 2u);
    EXPECT_EQ(Read().sheetDirection, 1u);
    EXPECT_EQ(Read().finishedHeight, 84189u);
    EXPECT_EQ(Read().finishedWidth, 59527u);
    ExportedFunc_SetCurrent(kFinishSheetDirection, 1);
    Choose(kA3);
    EXPECT_EQ(Read().repeatX, 2u);
    EXPECT_EQ(Read().repeatY, 4u);
    EXPECT_EQ(Read().sheetDirection, 0u);
}

TEST_F(OutputPaperSize, LeavesTheLayoutAloneForARepeatThatIsNone) {
    OpenWith(kA4, 2, 1);
    Choose(kA3);
    EXPECT_EQ(Read().repeatX, 3u);
    EXPECT_EQ(Read().repeatY, 3u);
    EXPECT_EQ(Read().sheetDirection, 1u);
    EXPECT_EQ(Read().finishedWidth, 1005u);
    EXPECT_EQ(Read().finishedHeight, 1006u);
    EXPECT_EQ(Read().sheetWidth, 168378u);
}

TEST_F(OutputPaperSize, LeavesAFinishedFormThatIsNoOptionAlone) {
    OpenWith(kA4);
    ExportedFunc_SetCurrent(kFinishFixedForm, 65535);
    Choose(kA3);
    EXPECT_EQ(Current(kFinishFixedForm), 65535u);
    EXPECT_EQ(Current(kFixedForm), 0u);
}

TEST_F(OutputPaperSize, HidesTheButtonForAnyOtherSize) {
    OpenWith(kCustom);
    Choose(kA4);
    EXPECT_FALSE(IsButtonShown());
    SelectRow(combo, kCover);
    ShowWindow(GetDlgItem(page, kEditButton), SW_SHOW);
    Command(page, kCombo, CBN_SELCHANGE);
    EXPECT_FALSE(IsButtonShown());
}

TEST_F(OutputPaperSize, BringsTheSheetAlongWhenTheDefaultComesBack) {
    OpenWith(kA4);
    ExportedFunc_SetDefault(kOutputSize, kA3);
    CStandardPageDlg(page, nullptr).InitOutputPaperSize(&block, 1);
    EXPECT_EQ(Current(kOutputSize), static_cast<std::uint32_t>(kA3));
    EXPECT_EQ(SelectedRow(combo), kA3);
    EXPECT_EQ(Read().sheetWidth, 168378u);
    EXPECT_EQ(RowsOf(combo).size(), 50u);
}

TEST_F(OutputPaperSize, TakesADefaultWithoutARow) {
    OpenWith(kA4);
    ExportedFunc_SetDefault(kOutputSize, 65535);
    CStandardPageDlg(page, nullptr).InitOutputPaperSize(&block, 1);
    EXPECT_EQ(Current(kOutputSize), 65535u);
    EXPECT_EQ(SelectedRow(combo), -1);
    EXPECT_EQ(Read(), kBefore);
}

TEST_F(OutputPaperSize, FollowsTagsThatAreHandedOver) {
    OpenWith(kA4);
    CStandardPageDlg dialog(page, nullptr);
    dialog.UpdateFinishedSize(&block, 1, 1, 1);
    EXPECT_EQ(Read(), kBefore); // nothing is in the table yet
    dialog.finishedSizes = {{1, {{100, 200}}}, {4, {{300, 400}}}};
    dialog.UpdateFinishedSize(&block, 1, 4, 104);
    EXPECT_EQ(Read().sheetWidth, 300u);
    EXPECT_EQ(Read().sheetHeight, 400u);
    EXPECT_EQ(Current(kFixedForm), 3u);
    EXPECT_EQ(Current(kFinishFixedForm), 38u);
}

TEST_F(OutputPaperSize, WorksWithoutItsControls) {
    OpenWith(kA4);
    for (const int id : {kCombo, kLabel, kEditButton})
        DestroyWindow(GetDlgItem(page, id));
    CStandardPageDlg dialog(page, nullptr);
    dialog.InitOutputPaperSize(&block, 0);
    dialog.InitOutputPaperSize(&block, 1);
    EXPECT_EQ(dialog.ApplyOutputPaperSize(&block), 0);
    EXPECT_EQ(Current(kOutputSize), static_cast<std::uint32_t>(kA4));
    EXPECT_EQ(Read(), kBefore);
}

} // namespace
