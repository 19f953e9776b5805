// Conflicts with other settings that OK in a dialog brings up.
#include "tests/pages/media_type_fixture.h"
#include "tests/support/main_log.h"
#include "tests/support/message_box.h"

#include <algorithm>

namespace {

using namespace media_control;
using namespace media_keyword;

// True if there is a line "...media_type_apply.cpp LINE行目 ApplyValues() <rest>".
bool HasLogged(const MainLog& log, const std::string& rest) {
    return std::ranges::any_of(log.Messages(), [&](const std::string& line) {
        return line.find("media_type_apply.cpp ") != std::string::npos &&
               line.ends_with("行目 ApplyValues() " + rest);
    });
}

class MediaTypeConflict : public MediaTypeTest {
  protected:
    AutoTrayDialog autoTray{&block, &profile, kAutoTrayTemplate};
    BypassDialog bypass{&block, &profile, kBypassTemplate};
};

TEST_F(MediaTypeConflict, AsksAboutAConflictWithItsOwnPaperType) {
    struct Case {
        CMediaTypeDlg* dialog;
        int paperType;
        const char* question;
    };
    const Case cases[] = {{&autoTray, 2,
                           "\"パンチ-左2穴\"と\"用紙種類-再生紙\"を同時に指定できません。\n"
                           "\"パンチ-左2穴\"をしないに変更しますか？"},
                          {&bypass, 1,
                           "\"パンチ-左2穴\"と\"用紙種類-上質紙\"を同時に指定できません。\n"
                           "\"パンチ-左2穴\"をしないに変更しますか？"}};
    for (const auto& [dialog, paperType, question] : cases) {
        MakeConflict();
        ExportedFunc_SetCurrent(PaperTypeD, 2);
        ExportedFunc_SetCurrent(PaperTypeBypass, 1);
        HWND window = nullptr;
        auto box = AnswerNextMessageBox(IDOK);
        Run(*dialog, {Choosing(PaperType, paperType), [&window](HWND opened) { window = opened; },
                      Pressing(IDOK), Pressing(IDCANCEL)});
        const MessageBoxSeen seen = box.get();
        EXPECT_EQ(seen.caption, "KV Print Server");
        EXPECT_EQ(seen.text, question);
        EXPECT_TRUE(seen.canCancel);
        EXPECT_EQ(seen.owner, window);
    }
}

TEST_F(MediaTypeConflict, StaysOpenAfterAConflictThatWasResolvedAndEndsWithASecondOk) {
    for (CMediaTypeDlg* dialog :
         {static_cast<CMediaTypeDlg*>(&autoTray), static_cast<CMediaTypeDlg*>(&bypass)}) {
        MakeConflict();
        auto box = AnswerNextMessageBox(IDOK);
        EXPECT_EQ(Run(*dialog, {Choosing(PaperType, 1), Pressing(IDOK),
                                [dialog](HWND window) {
                                    EXPECT_TRUE(IsWindowVisible(window));
                                    EXPECT_EQ(SelectedIn(window, PaperType), 1);
                                    EXPECT_EQ(Current(dialog->kwPaperType), 1u);
                                    EXPECT_EQ(Current(Punch), 0u);
                                    EXPECT_EQ(Current(Fold), 1u);
                                },
                                Pressing(IDOK)}),
                  IDOK);
        EXPECT_NE(box.get().text, "");
        EXPECT_EQ(Current(dialog->kwPaperType), 1u);
    }
}

TEST_F(MediaTypeConflict, TakesThePaperBackWhenTheUserDeclines) {
    for (CMediaTypeDlg* dialog :
         {static_cast<CMediaTypeDlg*>(&autoTray), static_cast<CMediaTypeDlg*>(&bypass)}) {
        MakeConflict();
        ExportedFunc_SetCurrent(dialog->kwPaperType, 9);
        ExportedFunc_SetCurrent(dialog->kwWeight, 7);
        ExportedFunc_SetMediaTypeWeightValue(60);
        ExportedFunc_SetMediaTypeWeightValueBypass(70);
        auto box = AnswerNextMessageBox(IDCANCEL);
        EXPECT_EQ(Run(*dialog, {[](HWND window) {
                                    Choose(window, PaperType, 0);
                                    Choose(window, Weight, 2);
                                },
                                Pressing(IDOK),
                                [dialog](HWND window) {
                                    EXPECT_EQ(SelectedIn(window, PaperType), 9);
                                    EXPECT_EQ(SelectedIn(window, Weight), 7);
                                    EXPECT_EQ(Current(dialog->kwPaperType), 9u);
                                    EXPECT_EQ(Current(dialog->kwWeight), 7u);
                                    EXPECT_EQ(StoredWeightValue(), 60u);
                                    EXPECT_EQ(StoredWeightValueBypass(), 70u);
                                    // What is left of the conflict gives way without a question.
                                    EXPECT_EQ(Current(Punch), 0u);
                                },
                                Pressing(IDOK)}),
                  IDOK);
        EXPECT_NE(box.get().text, "");
        EXPECT_EQ(Current(dialog->kwPaperType), 9u);
        EXPECT_EQ(Current(dialog->kwWeight), 7u);
    }
}

TEST_F(MediaTypeConflict, TakesAWeightBackThatTheListOfTheDeclinedPaperLacks) {
    MakeConflict();
    ExportedFunc_SetCurrent(PaperTypeD, 9);
    ExportedFunc_SetCurrent(MediaTypeWeight, 7);
    auto box = AnswerNextMessageBox(IDCANCEL);
    EXPECT_EQ(Run(autoTray, {Choosing(PaperType, 5), Pressing(IDOK),
                             [](HWND window) { EXPECT_EQ(SelectedIn(window, Weight), -1); }, Pressing(IDOK)}),
              IDOK);
    EXPECT_NE(box.get().text, "");
    EXPECT_EQ(Current(PaperTypeD), 9u);
    EXPECT_EQ(Current(MediaTypeWeight), 7u);
}

TEST_F(MediaTypeConflict, LeavesManualDuplexAndCheckBoxToTheOkThatEndsTheDialog) {
    MakeConflict();
    ExportedFunc_SetCurrent(AutoTraySettingToBypass, 1);
    auto box = AnswerNextMessageBox(IDOK);
    EXPECT_EQ(Run(bypass, {Choosing(Duplex, 2), Pressing(IDOK),
                           [](HWND) {
                               EXPECT_EQ(Current(MsiDuplexMode), 0u);
                               EXPECT_EQ(Current(AutoTraySettingToBypass), 0u);
                           },
                           Pressing(IDOK)}),
              IDOK);
    EXPECT_NE(box.get().text, "");
    EXPECT_EQ(Current(MsiDuplexMode), 2u);
    EXPECT_EQ(Current(AutoTraySettingToBypass), 1u);
}

// What gives way gets its default, whatever that is. For a mixed-size staple the default of the mixed sizes
// is the setting in the way again, so that only Cancel leaves the dialog; the staple is the page's to change.
TEST_F(MediaTypeConflict, StaysOpenAfterEachOkWhileTheMixedSizesAreOffByDefault) {
    MainLog log;
    for (CMediaTypeDlg* dialog :
         {static_cast<CMediaTypeDlg*>(&autoTray), static_cast<CMediaTypeDlg*>(&bypass)}) {
        ExportedFunc_SetCurrent(StapleMode, 5);
        ExportedFunc_SetCurrent(MixSizePrint, 0);
        ExportedFunc_SetDefault(MixSizePrint, 0);
        const std::string question = "\"サイズ混在原稿をプリントする-オフ\"と\"用紙種類-再生紙\"を"
                                     "同時に指定できません。\n\"サイズ混在原稿をプリントする-オフ\"を"
                                     "オンに変更しますか？";
        const Step pressOkAndAnswer = [&](HWND window) {
            log.Forget();
            auto box = AnswerNextMessageBox(IDOK);
            Press(window, IDOK);
            const MessageBoxSeen seen = box.get();
            EXPECT_EQ(seen.text, question);
            EXPECT_TRUE(seen.canCancel);
            EXPECT_TRUE(HasLogged(log, "keyword=307 value=0"));
            EXPECT_TRUE(HasLogged(log, "result = 1 error"));
            EXPECT_TRUE(IsWindowVisible(window));
            EXPECT_EQ(SelectedIn(window, PaperType), 2);
        };
        EXPECT_EQ(
            Run(*dialog, {Choosing(PaperType, 2), pressOkAndAnswer, pressOkAndAnswer, Pressing(IDCANCEL)}),
            IDCANCEL);
        EXPECT_EQ(Current(dialog->kwPaperType), 2u);
        EXPECT_EQ(Current(StapleMode), 5u);
        EXPECT_EQ(Current(MixSizePrint), 0u);
    }
}

TEST_F(MediaTypeConflict, SetsAlsoTheMixedSizesToADefaultThatSettlesIt) {
    ExportedFunc_SetCurrent(StapleMode, 5);
    ExportedFunc_SetDefault(MixSizePrint, 1);
    auto box = AnswerNextMessageBox(IDOK);
    Run(autoTray, {Pressing(IDOK), Pressing(IDCANCEL)});
    EXPECT_NE(box.get().text, "");
    EXPECT_EQ(Current(MixSizePrint), 1u);
}

// A session that ends while the box is open.

int answerWithoutSession = 0;

void CALLBACK EndSessionAndAnswer(HWND, UINT, UINT_PTR timer, DWORD) {
    HWND box = nullptr;
    EnumWindows(message_box_detail::FindBox, reinterpret_cast<LPARAM>(&box));
    if (!box)
        return;
    KillTimer(nullptr, timer);
    CSessionAccessor::Instance()->SetSession(nullptr);
    PostMessageA(box, WM_COMMAND, static_cast<WPARAM>(answerWithoutSession), 0);
}

TEST_F(MediaTypeConflict, ChangesNothingByAnAnswerThatComesAfterTheSessionHasGone) {
    for (CMediaTypeDlg* dialog :
         {static_cast<CMediaTypeDlg*>(&autoTray), static_cast<CMediaTypeDlg*>(&bypass)})
        for (const int answer : {IDOK, IDCANCEL}) {
            CSessionAccessor::Instance()->SetSession(&block);
            MakeConflict();
            ExportedFunc_SetCurrent(dialog->kwPaperType, 9);
            ExportedFunc_SetCurrent(dialog->kwWeight, 7);
            ExportedFunc_SetMediaTypeWeightValue(60);
            answerWithoutSession = answer;
            // OK has written the paper by the time the box comes.
            EXPECT_EQ(Run(*dialog,
                          {Choosing(PaperType, 5),
                           [](HWND) { SetTimer(nullptr, 0, 20, EndSessionAndAnswer); }, Pressing(IDOK),
                           [](HWND window) { EXPECT_EQ(SelectedIn(window, PaperType), 5); }, Pressing(IDOK)}),
                      IDCANCEL)
                << answer;
            EXPECT_EQ(Current(dialog->kwPaperType), 5u) << answer;
            EXPECT_EQ(Current(dialog->kwWeight), 2u) << answer;
            EXPECT_EQ(Current(Punch), 1u) << answer;
        }
}

TEST_F(MediaTypeConflict, LogsAnAnswerThatIsNoneAndStaysOpen) {
    const MainLog log;
    MakeConflict();
    auto box = AnswerNextMessageBox(IDNO);
    EXPECT_EQ(Run(autoTray, {Pressing(IDOK), Pressing(IDCANCEL)}), IDCANCEL);
    EXPECT_NE(box.get().text, "");
    EXPECT_TRUE(HasLogged(log, "result = 7 error"));
    EXPECT_EQ(Current(Punch), 1u);
}

TEST_F(MediaTypeConflict, LogsADefaultThatConflictsItselfAndStaysOpen) {
    const MainLog log;
    MakeConflict();
    ExportedFunc_SetDefault(Punch, 1);
    auto box = AnswerNextMessageBox(IDOK);
    EXPECT_EQ(Run(autoTray, {Pressing(IDOK), Pressing(IDCANCEL)}), IDCANCEL);
    EXPECT_NE(box.get().text, "");
    EXPECT_TRUE(HasLogged(log, "result = 1 error"));
}

TEST_F(MediaTypeConflict, LogsWhatGivesWay) {
    const MainLog log;
    MakeConflict();
    auto box = AnswerNextMessageBox(IDOK);
    Run(autoTray, {Pressing(IDOK), Pressing(IDCANCEL)});
    EXPECT_NE(box.get().text, "");
    EXPECT_TRUE(HasLogged(log, "keyword=112 value=0"));
}

} // namespace
