// Controls that move, that only the template with all fields has, and that are missing.
#include "tests/pages/media_type_fixture.h"
#include "tests/support/message_box.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

namespace {

using namespace media_control;
using namespace media_keyword;
using Texts = std::vector<std::string>;

class MediaTypeControls : public MediaTypeTest {
  protected:
    using AllFieldsDialog = Watched<CMediaTypeDlg>;

    // 50 pixels at 96 dpi.
    static int Distance() {
        const HDC screen = GetDC(nullptr);
        const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
        ReleaseDC(nullptr, screen);
        return 50 * dpi / 96;
    }

    template <class Dialog>
    static void ExpectMoved(Dialog& dialog, const std::vector<int>& moved) {
        Run(dialog, {[&](HWND) {
                         for (const auto& [control, before] : dialog.before) {
                             const bool isMoved = std::ranges::find(moved, control) != moved.end();
                             const RECT after = dialog.PlaceOf(control);
                             EXPECT_EQ(after.top, before.top - (isMoved ? Distance() : 0)) << control;
                             EXPECT_EQ(after.left, before.left) << control;
                             EXPECT_EQ(after.right - after.left, before.right - before.left) << control;
                         }
                         for (const int control : moved)
                             EXPECT_TRUE(dialog.before.contains(control)) << control;
                     },
                     Pressing(IDCANCEL)});
    }

    static std::pair<int, int> RangeOf(HWND dialog, int spin) {
        int first = 0, last = 0;
        SendDlgItemMessageA(dialog, spin, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&first),
                            reinterpret_cast<LPARAM>(&last));
        return {first, last};
    }
    static int PositionOf(HWND dialog, int spin) {
        return static_cast<int>(SendDlgItemMessageA(dialog, spin, UDM_GETPOS32, 0, 0));
    }

    AutoTrayDialog autoTray{&block, &profile, kAutoTrayTemplate};
    BypassDialog bypass{&block, &profile, kBypassTemplate};
    AllFieldsDialog allFields{&block, &profile, kAllFieldsTemplate};
};

TEST_F(MediaTypeControls, MoveTheColorOfBothTraysUp) {
    ExpectMoved(autoTray, {ColorLabel, Color});
    ExpectMoved(bypass, {ColorLabel, Color});
}

TEST_F(MediaTypeControls, MoveColorAndWeightNumberUpAmongAllFields) {
    ExpectMoved(allFields, {ColorLabel, Color, WeightLabel, WeightValue, WeightValueSpin, WeightValueRange});
}

TEST_F(MediaTypeControls, DoNotOverlapOnceTheyHaveMoved) {
    const auto expectApart = [](auto& dialog) {
        Run(dialog, {[&](HWND window) {
                         for (const int lower : {ColorLabel, Color, WeightLabel, WeightValue})
                             for (const int upper : {PaperTypeLabel, PaperType, NumberLabel}) {
                                 if (!IsShown(window, lower) || !IsShown(window, upper))
                                     continue;
                                 const RECT above = dialog.PlaceOf(upper), below = dialog.PlaceOf(lower);
                                 RECT common{};
                                 EXPECT_FALSE(IntersectRect(&common, &above, &below))
                                     << upper << " " << lower;
                             }
                     },
                     Pressing(IDCANCEL)});
    };
    expectApart(autoTray);
    expectApart(bypass);
    expectApart(allFields);
}

TEST_F(MediaTypeControls, SetTheSheetsPerSetBetween2And255) {
    Run(autoTray, {[](HWND window) {
                       EXPECT_EQ(RangeOf(window, SequenceSpin), (std::pair{2, 255}));
                   },
                   Pressing(IDCANCEL)});
}

TEST_F(MediaTypeControls, BringTypedSheetsPerSetIntoTheirRange) {
    Run(autoTray, {[](HWND window) {
                       const std::pair<const char*, const char*> cases[] = {
                           {"", "2"},
                           {"0", "2"},
                           {"1", "2"},
                           {"-5", "2"},
                           {"abc", "2"},
                           {"2", "2"},
                           {"100", "100"},
                           {"255", "255"},
                           {"256", "255"},
                           {"999", "255"},
                           // Three characters are read, whatever follows them.
                           {"9999999999999999999999", "255"},
                           {"1000", "1000"}};
                       for (const auto& [typed, left] : cases) {
                           Leave(window, Sequence, typed);
                           EXPECT_EQ(CaptionOf(window, Sequence), left) << typed;
                       }
                   },
                   Pressing(IDCANCEL)});
}

TEST_F(MediaTypeControls, GiveSheetsPerSetOfTheirRangeWhateverWasTyped) {
    for (const char* typed : {"77777777777777777777", "1000", "-1", "", "abc", "65538"}) {
        ExportedFunc_SetMediaTypeSequence(50);
        EXPECT_EQ(Run(autoTray,
                      {[typed](HWND window) { SetDlgItemTextA(window, Sequence, typed); }, Pressing(IDOK)}),
                  IDOK);
        EXPECT_GE(StoredSequence(), 2u) << typed;
        EXPECT_LE(StoredSequence(), 255u) << typed;
    }
}

TEST_F(MediaTypeControls, TakeTypedSheetsPerSet) {
    EXPECT_EQ(Run(autoTray, {[](HWND window) { Leave(window, Sequence, "123"); }, Pressing(IDOK)}), IDOK);
    EXPECT_EQ(StoredSequence(), 123u);
}

TEST_F(MediaTypeControls, HaveCaptionsForAllFields) {
    Run(allFields, {[](HWND window) {
                        EXPECT_EQ(CaptionOf(window, CoatingLabel), "コート(&M):");
                        EXPECT_EQ(CaptionOf(window, DrilledLabel), "パンチ穴(&P):");
                        EXPECT_EQ(CaptionOf(window, GlossLabel), "グロス(&G):");
                        EXPECT_EQ(CaptionOf(window, PreprintedLabel), "プレプリント紙(&G):");
                        EXPECT_FALSE(IsShown(window, GlossLabel));
                        EXPECT_FALSE(IsShown(window, Gloss));
                        // The vocabulary has no options for these.
                        for (const int combo : {Coating, Drilled, Gloss, Preprinted})
                            EXPECT_EQ(RowsOf(GetDlgItem(window, combo)), Texts{}) << combo;
                        EXPECT_EQ(RowsOf(GetDlgItem(window, PaperType)), PaperTypeTexts());
                    },
                    Pressing(IDCANCEL)});
    EXPECT_EQ(allFields.initResult, 1);
}

TEST_F(MediaTypeControls, RestoreTheDefaultsOfAllFields) {
    Run(allFields, {Pressing(Defaults),
                    [](HWND window) {
                        EXPECT_EQ(RangeOf(window, NumberSpin), (std::pair{1, 40}));
                        EXPECT_EQ(PositionOf(window, NumberSpin), 1);
                        EXPECT_EQ(RangeOf(window, WeightValueSpin), (std::pair{52, 400}));
                        EXPECT_EQ(PositionOf(window, WeightValueSpin), 90);
                        EXPECT_EQ(RangeOf(window, SequenceSpin), (std::pair{2, 255}));
                        EXPECT_EQ(PositionOf(window, SequenceSpin), 2);
                    },
                    Pressing(IDCANCEL)});
    EXPECT_EQ(allFields.defaultResult, 1);
}

TEST_F(MediaTypeControls, WriteTheWeightNumberOfAllFields) {
    ExportedFunc_SetCurrent(MediaTypeWeight, 8);
    EXPECT_EQ(Run(allFields, {Pressing(Defaults), [](HWND window) { Leave(window, WeightValue, "123"); },
                              Pressing(IDOK)}),
              IDOK);
    EXPECT_EQ(StoredWeightValue(), 123u);
    EXPECT_EQ(StoredWeightValueBypass(), 0u);
    EXPECT_EQ(Current(MediaTypeWeight), 8u);
}

// Its own number would be another one.
TEST_F(MediaTypeControls, WriteTheAutomaticTraysWeightNumberAlsoInTheBypassTraysDialog) {
    BypassDialog dialog(&block, &profile, kAllFieldsTemplate);
    EXPECT_EQ(Run(dialog, {Pressing(Defaults), [](HWND window) { Leave(window, WeightValue, "123"); },
                           Pressing(IDOK)}),
              IDOK);
    EXPECT_EQ(StoredWeightValue(), 123u);
    EXPECT_EQ(StoredWeightValueBypass(), 0u);
}

TEST_F(MediaTypeControls, LeavePropertiesWithoutARowAsApplyingThePaperHasSetThem) {
    ExportedFunc_SetCurrent(MediaTypeGlossFine, 1);
    EXPECT_EQ(Run(allFields, {Pressing(IDOK)}), IDOK);
    for (const int keyword : {MediaTypePreprinted, MediaTypeDrilled, MediaTypeCoatingMaterial})
        EXPECT_EQ(Current(keyword), 0u) << keyword;
    EXPECT_EQ(Current(MediaTypeGlossFine), 1u);
}

TEST_F(MediaTypeControls, RejectAWeightNumberOutOfRange) {
    Run(allFields,
        {Pressing(Defaults),
         [&](HWND window) {
             for (const char* typed : {"51", "401", "0", "", "abc", "99999999999999999999", "65626"}) {
                 SetDlgItemTextA(window, WeightValue, typed);
                 auto box = AnswerNextMessageBox(IDOK);
                 EXPECT_EQ(allFields.OnEditChange(WeightValue), 0) << typed;
                 const MessageBoxSeen seen = box.get();
                 EXPECT_EQ(seen.caption, "用紙坪量") << typed;
                 EXPECT_EQ(seen.text, "用紙坪量は、52～400を指定してください。") << typed;
                 EXPECT_FALSE(seen.canCancel);
                 EXPECT_EQ(seen.owner, window);
             }
         },
         Pressing(IDCANCEL)});
}

TEST_F(MediaTypeControls, AcceptAWeightNumberOfTheRange) {
    Run(allFields, {Pressing(Defaults),
                    [&](HWND window) {
                        for (const char* typed : {"52", "90", "400"}) {
                            SetDlgItemTextA(window, WeightValue, typed);
                            EXPECT_EQ(allFields.OnEditChange(WeightValue), 1) << typed;
                        }
                    },
                    Pressing(IDCANCEL)});
}

TEST_F(MediaTypeControls, PutTheWeightNumberAt90WhenTheUserDeclines) {
    MakeConflict();
    ExportedFunc_SetMediaTypeWeightValue(60);
    auto box = AnswerNextMessageBox(IDCANCEL);
    Run(allFields,
        {Pressing(Defaults), [](HWND window) { Leave(window, WeightValue, "123"); }, Pressing(IDOK),
         [](HWND window) {
             EXPECT_EQ(PositionOf(window, WeightValueSpin), 90);
             EXPECT_EQ(StoredWeightValue(), 60u);
         },
         Pressing(IDCANCEL)});
    EXPECT_NE(box.get().text, "");
}

TEST_F(MediaTypeControls, OfTheSheetsPerSetStopTheStartIfOneIsMissing) {
    for (const int missing : {SequenceLabel, Sequence, SequenceSpin, SequenceRange}) {
        autoTray.lacking = {missing};
        EXPECT_EQ(
            Run(autoTray, {[](HWND window) { EXPECT_EQ(RowsOf(GetDlgItem(window, PaperType)), Texts{}); },
                           Pressing(IDCANCEL)}),
            IDCANCEL);
        EXPECT_EQ(autoTray.initResult, 0) << missing;
    }
}

TEST_F(MediaTypeControls, OfPaperTypeAndColorStopTheStartIfOneIsMissing) {
    for (const int missing : {PaperType, Color}) {
        autoTray.lacking = bypass.lacking = {missing};
        for (CMediaTypeDlg* dialog :
             {static_cast<CMediaTypeDlg*>(&autoTray), static_cast<CMediaTypeDlg*>(&bypass)})
            EXPECT_EQ(Run(*dialog, {Pressing(Defaults), Pressing(IDCANCEL)}), IDCANCEL);
        EXPECT_EQ(autoTray.initResult, 0) << missing;
        EXPECT_EQ(bypass.initResult, 0) << missing;
        EXPECT_EQ(autoTray.defaultResult, 0) << missing;
    }
}

TEST_F(MediaTypeControls, OfTheManualDuplexStopTheStartIfOneIsMissing) {
    ExportedFunc_SetCurrent(AutoTraySettingToBypass, 1);
    for (const auto& [missing, other] : {std::pair{Duplex, DuplexLabel}, {DuplexLabel, Duplex}}) {
        bypass.lacking = {missing};
        EXPECT_EQ(Run(bypass, {[&other = other](HWND window) {
                                   EXPECT_EQ(IsDlgButtonChecked(window, FromAutoTray), 0u);
                                   EXPECT_TRUE(GetDlgItem(window, other)) << other;
                                   EXPECT_FALSE(IsShown(window, other)) << other;
                               },
                               Pressing(IDCANCEL)}),
                  IDCANCEL);
        EXPECT_EQ(bypass.initResult, 0) << missing;
    }
}

TEST_F(MediaTypeControls, ThatAreNotNeededMayBeMissing) {
    autoTray.lacking = bypass.lacking = {PaperTypeLabel, ColorLabel, WeightLabel, Defaults, FromAutoTray};
    EXPECT_EQ(Run(autoTray, {Choosing(PaperType, 7), Pressing(IDOK)}), IDOK);
    EXPECT_EQ(autoTray.initResult, 1);
    ExportedFunc_SetCurrent(AutoTraySettingToBypass, 1);
    EXPECT_EQ(Run(bypass, {Choosing(PaperType, 7), Pressing(IDOK)}), IDOK);
    EXPECT_EQ(bypass.initResult, 1);
    EXPECT_EQ(Current(AutoTraySettingToBypass), 0u);
}

TEST_F(MediaTypeControls, OfThePaperTypeKeepTheDialogOpenIfTheyAreMissing) {
    autoTray.lacking = {PaperType};
    ExportedFunc_SetCurrent(PaperTypeD, 3);
    ExportedFunc_SetCurrent(PaperColor, 3);
    EXPECT_EQ(Run(autoTray, {Pressing(IDOK), Pressing(IDCANCEL)}), IDCANCEL);
    EXPECT_EQ(Current(PaperTypeD), 3u);
    EXPECT_EQ(Current(PaperColor), 3u);
}

TEST_F(MediaTypeControls, OfTheWeightKeepTheDialogOpenIfTheyAreMissing) {
    autoTray.lacking = {Weight};
    ExportedFunc_SetMediaTypeSequence(50);
    EXPECT_EQ(Run(autoTray, {Choosing(PaperType, 7), Choosing(Color, 2), Pressing(IDOK), Pressing(IDCANCEL)}),
              IDCANCEL);
    EXPECT_EQ(autoTray.initResult, 1);
    EXPECT_EQ(Current(PaperTypeD), 7u);
    EXPECT_EQ(Current(PaperColor), 0u);
}

TEST_F(MediaTypeControls, OfTheSheetsPerSetKeepTheDialogOpenIfTheyAreMissing) {
    autoTray.lacking = {SequenceSpin};
    ExportedFunc_SetMediaTypeSequence(50);
    EXPECT_EQ(Run(autoTray, {Pressing(IDOK), Pressing(IDCANCEL)}), IDCANCEL);
    EXPECT_EQ(StoredSequence(), 50u);
}

TEST_F(MediaTypeControls, OfAllFieldsKeepTheDialogOpenIfOneIsMissing) {
    for (const int missing : {Coating, Drilled, Gloss, Preprinted}) {
        allFields.lacking = {missing};
        EXPECT_EQ(Run(allFields, {Pressing(Defaults), Pressing(IDOK), Pressing(IDCANCEL)}), IDCANCEL)
            << missing;
        EXPECT_EQ(allFields.initResult, 1) << missing;
        EXPECT_EQ(allFields.defaultResult, 0) << missing;
    }
}

TEST_F(MediaTypeControls, SelectNoPaperTypeAndSetOnlyTheCheckBoxesKeyword) {
    ExportedFunc_SetCurrent(PaperTypeBypass, 59);
    ExportedFunc_SetCurrent(MediaTypeTabbedBypass, 1);
    ExportedFunc_SetPaperTypeCustomNumberBypass(7);
    CMediaTypeDlg dialog(&block, &profile, kAutoTrayTemplate);
    dialog.kwPaperType = PaperTypeBypass;
    dialog.kwTabbed = MediaTypeTabbedBypass;
    dialog.kwCustomNumber = kPaperTypeCustomNumberBypass;
    dialog.kwAutoTray = AutoTraySettingToBypass;
    EXPECT_EQ(Run(dialog, {Pressing(IDOK)}), IDOK);
    EXPECT_EQ(Current(PaperTypeBypass), 59u);
    EXPECT_EQ(Current(MediaTypeTabbedBypass), 1u);
    EXPECT_EQ(StoredCustomNumberBypass(), 7u);
    EXPECT_EQ(Current(AutoTraySettingToBypass), 1u);
}

TEST_F(MediaTypeControls, ListFurtherRowsThatStandForNoPaperType) {
    autoTray.extraRows = 2;
    ExportedFunc_SetCurrent(PaperTypeD, 3);
    EXPECT_EQ(Run(autoTray, {[](HWND window) {
                                 EXPECT_EQ(RowsOf(GetDlgItem(window, PaperType)).size(), 61u);
                                 Choose(window, PaperType, 60);
                                 EXPECT_FALSE(IsEnabled(window, Weight));
                             },
                             Pressing(IDOK)}),
              IDOK);
    EXPECT_EQ(Current(PaperTypeD), 3u);
}

} // namespace
