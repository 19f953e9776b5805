// What the choice of an output paper size asks.
#include "tests/pages/output_paper_size_fixture.h"
#include "tests/support/main_log.h"

#include <algorithm>
#include <string>

namespace {

constexpr int kCustomWidth = 1330;
constexpr int kCustomHeight = 1326;
constexpr int kCustomOk = 1321;
constexpr int kCustomCancel = 1322;

TEST_F(OutputPaperSize, LeavesEverythingAloneWhenItIsRefused) {
    OpenWith(kA4, 2, 1);
    const MessageBoxSeen box = ChooseAndAnswer(kAsDocument, IDCANCEL);
    EXPECT_NE(box.text, "");
    EXPECT_TRUE(box.canCancel);
    EXPECT_EQ(Current(kOutputSize), static_cast<std::uint32_t>(kA4));
    EXPECT_EQ(SelectedRow(combo), kA4);
    EXPECT_EQ(Current(kImpositionMode), 2u);
    EXPECT_EQ(Current(kImpositionCustomMode), 1u);
    EXPECT_FALSE(IsButtonShown());
    EXPECT_EQ(Read(), kBefore);
}

TEST_F(OutputPaperSize, KeepsTheButtonOfTheCustomSizeWhenItIsRefused) {
    OpenWith(kCustom, 2, 2);
    ChooseAndAnswer(kAsDocument, IDCANCEL);
    EXPECT_EQ(SelectedRow(combo), kCustom);
    EXPECT_TRUE(IsButtonShown());
    EXPECT_EQ(Read(), kBefore);
}

TEST_F(OutputPaperSize, EndsTheImpositionWhenTheUserAgrees) {
    for (const std::uint32_t customMode : {1u, 2u}) {
        Write(kBefore);
        OpenWith(kA4, 2, customMode);
        EXPECT_NE(ChooseAndAnswer(kAsDocument, IDOK).text, "");
        EXPECT_EQ(Current(kOutputSize), 0u);
        EXPECT_EQ(Current(kImpositionMode), 0u);
        EXPECT_EQ(Current(kImpositionCustomMode), customMode);
        EXPECT_EQ(Read().sheetWidth, 168378u);
        EXPECT_EQ(Read().finishedWidth, 1005u);
        DestroyWindow(page);
    }
}

// The sheet can be closed while the question is open.
TEST_F(OutputPaperSize, ChangesNothingOnOkOnceTheSessionIsGoneBehindTheQuestion) {
    OpenWith(kA4, 2, 1);
    EXPECT_NE(ChooseAndAnswer(kAsDocument, IDOK, [this] { EndSession(); }).text, "");
    EXPECT_EQ(Current(kImpositionMode), 2u);
    EXPECT_EQ(Current(kImpositionCustomMode), 1u);
    EXPECT_EQ(Current(kOutputSize), 0u);
    EXPECT_EQ(Read(), kBefore);
}

TEST_F(OutputPaperSize, ChangesNothingOnCancelOnceTheSessionIsGoneBehindTheQuestion) {
    OpenWith(kA4, 2, 1);
    EXPECT_NE(ChooseAndAnswer(kAsDocument, IDCANCEL, [this] { EndSession(); }).text, "");
    EXPECT_EQ(Current(kOutputSize), 0u);
    EXPECT_EQ(SelectedRow(combo), kAsDocument);
    EXPECT_EQ(Current(kImpositionMode), 2u);
    EXPECT_EQ(Read(), kBefore);
}

TEST_F(OutputPaperSize, LogsAndStopsWhereTheImpositionsDefaultConflictsToo) {
    ExportedFunc_SetDefault(kImpositionMode, 2);
    OpenWith(kA4, 2, 1);
    const MainLog log;
    EXPECT_NE(ChooseAndAnswer(kAsDocument, IDOK).text, "");
    const std::vector<std::string> messages = log.Messages();
    EXPECT_TRUE(std::ranges::find(messages, "ApplyOutputPaperSize() result = 1 error") != messages.end());
    EXPECT_EQ(Current(kOutputSize), 0u);
    EXPECT_EQ(Read(), kBefore);
}

TEST_F(OutputPaperSize, OpensTheDialogForTheCustomSizeAndShowsItsButton) {
    OpenWith(kA4, 2, 2);
    EXPECT_TRUE(ChooseAndEdit(kCustom, {[](HWND dialog) {
                                  TypeInto(dialog, kCustomWidth, "210");
                                  TypeInto(dialog, kCustomHeight, "297");
                                  ClickButton(dialog, kCustomOk);
                              }}));
    EXPECT_TRUE(IsButtonShown());
    Followed expected = kBefore;
    expected.paperWidth = 210000;
    expected.paperLength = 297000;
    expected.finishedHeight = 119055;
    expected.finishedWidth = 84189;
    EXPECT_EQ(Read(), expected);
}

TEST_F(OutputPaperSize, KeepsTheCustomSizeWhenItsDialogIsCancelled) {
    OpenWith(kA4);
    EXPECT_TRUE(ChooseAndEdit(kCustom, {[](HWND dialog) { ClickButton(dialog, kCustomCancel); }}));
    EXPECT_EQ(Current(kOutputSize), static_cast<std::uint32_t>(kCustom));
    EXPECT_TRUE(IsButtonShown());
    EXPECT_EQ(Read(), kBefore);
}

TEST_F(OutputPaperSize, TellsTheDialogOfThePriorSize) {
    OpenWith(kA2);
    Choose(kA2); // 594 by 420 mm
    std::string width;
    EXPECT_TRUE(ChooseAndEdit(kCustom, {[&](HWND dialog) {
                                  width = CaptionOf(dialog, kCustomWidth);
                                  ClickButton(dialog, kCustomCancel);
                              }}));
    // The length has the row's first number, so what is halved is 420 mm.
    EXPECT_EQ(Read().paperLength, 594000u);
    EXPECT_EQ(width, "594.0");
    ExportedFunc_SetCurrent(kOutputSize, kA4);
    EXPECT_TRUE(ChooseAndEdit(kCustom, {[&](HWND dialog) {
                                  width = CaptionOf(dialog, kCustomWidth);
                                  ClickButton(dialog, kCustomCancel);
                              }}));
    EXPECT_EQ(width, "420.0");
}

TEST_F(OutputPaperSize, DoesNoMoreOnceTheSessionIsGoneBehindTheDialog) {
    OpenWith(kA4, 2, 2);
    EXPECT_TRUE(ChooseAndEdit(kCustom, {[&](HWND dialog) {
                                  EndSession();
                                  ClickButton(dialog, kCustomCancel);
                              }}));
    EXPECT_FALSE(IsButtonShown());
    EXPECT_EQ(Read(), kBefore);
}

TEST_F(OutputPaperSize, OpensTheDialogWhenTheDefaultIsTheCustomSize) {
    OpenWith(kA4);
    ExportedFunc_SetDefault(kOutputSize, kCustom);
    const ModalDialog user({[](HWND dialog) { ClickButton(dialog, kCustomCancel); }});
    CStandardPageDlg(page, nullptr).InitOutputPaperSize(&block, 1);
    EXPECT_TRUE(user.WasOpen());
    EXPECT_TRUE(IsButtonShown());
}

TEST_F(OutputPaperSize, AnswersOneOnlyWithoutAConflict) {
    OpenWith(kA4, 2, 1);
    CStandardPageDlg dialog(page, nullptr);
    SelectRow(combo, kA3);
    EXPECT_EQ(dialog.ApplyOutputPaperSize(&block), 1);
    SelectRow(combo, kAsDocument);
    auto box = AnswerNextMessageBox(IDOK);
    EXPECT_EQ(dialog.ApplyOutputPaperSize(&block), 0);
    box.get();
}

} // namespace
