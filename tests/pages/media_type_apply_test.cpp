// From the dialogs into the store: OK and the defaults.
#include "tests/pages/media_type_fixture.h"
#include "tests/support/main_log.h"

#include <algorithm>
#include <utility>

namespace {

using namespace media_control;
using namespace media_keyword;

struct Keywords {
    int paperType, tabbed, weight, color, coating, drilled, gloss, preprinted;
};
constexpr Keywords kAuto{PaperTypeD,         MediaTypeTabbed,          MediaTypeWeight,
                         PaperColor,         MediaTypeCoatingMaterial, MediaTypeDrilled,
                         MediaTypeGlossFine, MediaTypePreprinted};
constexpr Keywords kBypass{PaperTypeBypass,          MediaTypeTabbedBypass,          MediaTypeWeightBypass,
                           PaperColorBypass,         MediaTypeCoatingMaterialBypass, MediaTypeDrilledBypass,
                           MediaTypeGlossFineBypass, MediaTypePreprintedBypass};

class MediaTypeApply : public MediaTypeTest {
  protected:
    AutoTrayDialog autoTray{&block, &profile, kAutoTrayTemplate};
    BypassDialog bypass{&block, &profile, kBypassTemplate};
};

TEST_F(MediaTypeApply, WritesTheAutomaticTraysPaper) {
    EXPECT_EQ(Run(autoTray, {Choosing(PaperType, 9), Choosing(Color, 4), Pressing(IDOK)}), IDOK);
    EXPECT_EQ(Current(kAuto.paperType), 9u);
    EXPECT_EQ(Current(kAuto.weight), 4u);
    EXPECT_EQ(Current(kAuto.color), 4u);
    EXPECT_EQ(Current(kBypass.paperType), 0u);
    EXPECT_EQ(Current(kBypass.weight), 0u);
    EXPECT_EQ(Current(kBypass.color), 0u);
}

TEST_F(MediaTypeApply, WritesTheBypassTraysPaper) {
    EXPECT_EQ(Run(bypass, {Choosing(PaperType, 9), Choosing(Color, 4), Pressing(IDOK)}), IDOK);
    EXPECT_EQ(Current(kBypass.paperType), 9u);
    EXPECT_EQ(Current(kBypass.weight), 4u);
    EXPECT_EQ(Current(kBypass.color), 4u);
    EXPECT_EQ(Current(kAuto.paperType), 0u);
    EXPECT_EQ(Current(kAuto.weight), 0u);
    EXPECT_EQ(Current(kAuto.color), 0u);
}

TEST_F(MediaTypeApply, WritesEveryPaperTypeAndColor) {
    for (int row = 0; row < 59; ++row) {
        EXPECT_EQ(Run(autoTray, {Choosing(PaperType, row), Choosing(Color, row % 18), Pressing(IDOK)}), IDOK);
        EXPECT_EQ(Current(kAuto.paperType), static_cast<std::uint32_t>(row));
        EXPECT_EQ(Current(kAuto.color), static_cast<std::uint32_t>(row % 18));
    }
}

TEST_F(MediaTypeApply, TakesTheOtherPropertiesOfThePaperBack) {
    for (const auto& [dialog, keywords] : {std::pair{static_cast<CMediaTypeDlg*>(&autoTray), kAuto},
                                           std::pair{static_cast<CMediaTypeDlg*>(&bypass), kBypass}}) {
        for (const int keyword :
             {keywords.tabbed, keywords.coating, keywords.preprinted, keywords.drilled, keywords.gloss})
            ExportedFunc_SetCurrent(keyword, 1);
        EXPECT_EQ(Run(*dialog, {Pressing(IDOK)}), IDOK);
        for (const int keyword : {keywords.tabbed, keywords.coating, keywords.preprinted, keywords.drilled})
            EXPECT_EQ(Current(keyword), 0u) << keyword;
        EXPECT_EQ(Current(keywords.gloss), 1u);
    }
}

TEST_F(MediaTypeApply, SetsTheCustomNumberOfTheAutomaticTraysTo1) {
    ExportedFunc_SetPaperTypeCustomNumber(7);
    ExportedFunc_SetPaperTypeCustomNumberBypass(8);
    EXPECT_EQ(Run(autoTray, {Pressing(IDOK)}), IDOK);
    EXPECT_EQ(StoredCustomNumber(), 1u);
    EXPECT_EQ(StoredCustomNumberBypass(), 8u);
}

// The two start values differ.
TEST_F(MediaTypeApply, SetsTheCustomNumberOfTheBypassTrayTo0) {
    ExportedFunc_SetPaperTypeCustomNumber(7);
    ExportedFunc_SetPaperTypeCustomNumberBypass(8);
    EXPECT_EQ(Run(bypass, {Pressing(IDOK)}), IDOK);
    EXPECT_EQ(StoredCustomNumber(), 7u);
    EXPECT_EQ(StoredCustomNumberBypass(), 0u);
}

TEST_F(MediaTypeApply, WritesTheSheetsPerSetOfItsOwnTray) {
    ExportedFunc_SetMediaTypeSequence(50);
    ExportedFunc_SetMediaTypeSequenceBypass(20);
    EXPECT_EQ(Run(autoTray, {Pressing(IDOK)}), IDOK);
    EXPECT_EQ(StoredSequence(), 50u);
    EXPECT_EQ(StoredSequenceBypass(), 20u);
    // The bypass tray's dialog shows the automatic trays' value.
    EXPECT_EQ(Run(bypass, {Pressing(IDOK)}), IDOK);
    EXPECT_EQ(StoredSequence(), 50u);
    EXPECT_EQ(StoredSequenceBypass(), 50u);
}

TEST_F(MediaTypeApply, WritesTheHiddenWeightOfAPaperTypeThatHasNone) {
    EXPECT_EQ(Run(autoTray, {Choosing(PaperType, 5), Choosing(PaperType, 6), Pressing(IDOK)}), IDOK);
    EXPECT_EQ(Current(kAuto.paperType), 6u);
    EXPECT_EQ(Current(kAuto.weight), 2u);
}

TEST_F(MediaTypeApply, LeavesTheWeightAloneWhileItsListIsEmpty) {
    ExportedFunc_SetCurrent(kAuto.weight, 8);
    EXPECT_EQ(Run(autoTray, {Pressing(IDOK)}), IDOK);
    EXPECT_EQ(Current(kAuto.weight), 8u);
}

TEST_F(MediaTypeApply, WritesNoWeightNumber) {
    ExportedFunc_SetMediaTypeWeightValue(60);
    ExportedFunc_SetMediaTypeWeightValueBypass(70);
    for (CMediaTypeDlg* dialog :
         {static_cast<CMediaTypeDlg*>(&autoTray), static_cast<CMediaTypeDlg*>(&bypass)})
        EXPECT_EQ(Run(*dialog, {Choosing(PaperType, 5), Pressing(IDOK)}), IDOK);
    EXPECT_EQ(StoredWeightValue(), 60u);
    EXPECT_EQ(StoredWeightValueBypass(), 70u);
}

TEST_F(MediaTypeApply, DoesNotChangeTheStoreByTheDefaultsUntilOk) {
    for (const int keyword : {kAuto.paperType, kAuto.color}) {
        ExportedFunc_SetDefault(keyword, 5);
        ExportedFunc_SetCurrent(keyword, 9);
    }
    ExportedFunc_SetMediaTypeSequence(50);
    EXPECT_EQ(Run(autoTray, {Pressing(Defaults),
                             [](HWND window) {
                                 EXPECT_EQ(SelectedIn(window, PaperType), 5);
                                 EXPECT_EQ(RowsOf(GetDlgItem(window, Weight)).size(), 3u);
                                 EXPECT_EQ(SelectedIn(window, Weight), 1);
                                 EXPECT_EQ(SelectedIn(window, Color), 5);
                                 EXPECT_EQ(CaptionOf(window, Sequence), "2");
                                 EXPECT_EQ(Current(kAuto.paperType), 9u);
                                 EXPECT_EQ(Current(kAuto.color), 9u);
                                 EXPECT_EQ(StoredSequence(), 50u);
                             },
                             Pressing(IDOK)}),
              IDOK);
    EXPECT_EQ(Current(kAuto.paperType), 5u);
    EXPECT_EQ(Current(kAuto.weight), 2u);
    EXPECT_EQ(Current(kAuto.color), 5u);
    EXPECT_EQ(StoredSequence(), 2u);
}

TEST_F(MediaTypeApply, RestoresTheDefaultWeightWhateverTheCurrentOneIs) {
    ExportedFunc_SetDefault(kAuto.paperType, 7);
    ExportedFunc_SetCurrent(kAuto.weight, 9);
    EXPECT_EQ(Run(autoTray, {Pressing(Defaults), Pressing(IDOK)}), IDOK);
    EXPECT_EQ(Current(kAuto.weight), 4u);
}

TEST_F(MediaTypeApply, SelectsNothingForADefaultWithoutARow) {
    ExportedFunc_SetDefault(kAuto.paperType, 0x10005);
    ExportedFunc_SetDefault(kAuto.color, 0xFFFFFFFF);
    Run(autoTray, {[](HWND window) {
                       Press(window, Defaults);
                       EXPECT_EQ(SelectedIn(window, PaperType), -1);
                       EXPECT_EQ(SelectedIn(window, Color), -1);
                   },
                   Pressing(IDCANCEL)});
}

TEST_F(MediaTypeApply, EndsTheDefaultsWith0WithoutTheCoatingsControl) {
    Run(autoTray, {Pressing(Defaults), Pressing(IDCANCEL)});
    EXPECT_EQ(autoTray.defaultResult, 0);
    Run(bypass, {Pressing(Defaults), Pressing(IDCANCEL)});
    EXPECT_EQ(bypass.defaultResult, 0);
}

TEST_F(MediaTypeApply, LeavesTheCheckBoxAloneWhenTheDefaultsAreRestored) {
    for (const std::uint32_t isOn : {0u, 1u}) {
        ExportedFunc_SetCurrent(AutoTraySettingToBypass, isOn);
        ExportedFunc_SetDefault(AutoTraySettingToBypass, 1 - isOn);
        EXPECT_EQ(Run(bypass, {Pressing(Defaults),
                               [isOn](HWND window) {
                                   EXPECT_EQ(IsDlgButtonChecked(window, FromAutoTray), isOn);
                                   EXPECT_EQ(IsEnabled(window, PaperType), !isOn);
                               },
                               Pressing(IDOK)}),
                  IDOK);
        EXPECT_EQ(Current(AutoTraySettingToBypass), isOn);
    }
}

TEST_F(MediaTypeApply, LogsThatTheCheckBoxKeepsItsStateWhenTheDefaultsAreRestored) {
    const MainLog log;
    Run(bypass, {Pressing(Defaults), Pressing(IDCANCEL)});
    EXPECT_TRUE(std::ranges::any_of(log.Messages(), [](const std::string& line) {
        return line.find("media_type_bypass.cpp ") != std::string::npos &&
               line.ends_with("行目 OnDefault() result = 0");
    }));
}

// No template has all of these controls.
TEST_F(MediaTypeApply, ChecksTheBoxByTheDefaultsOfADialogWithAllControls) {
    bypass.further = {Coating, Drilled, Gloss, Preprinted};
    EXPECT_EQ(Run(bypass, {Pressing(Defaults),
                           [](HWND window) {
                               EXPECT_EQ(IsDlgButtonChecked(window, FromAutoTray), 1u);
                               EXPECT_FALSE(IsEnabled(window, PaperType));
                               EXPECT_EQ(Current(AutoTraySettingToBypass), 0u);
                           },
                           Pressing(IDOK)}),
              IDOK);
    EXPECT_EQ(bypass.defaultResult, 1);
    EXPECT_EQ(Current(AutoTraySettingToBypass), 1u);
}

TEST_F(MediaTypeApply, CaptionsTheCheckBoxAndHidesTheManualDuplex) {
    Run(bypass, {[](HWND window) {
                     EXPECT_EQ(CaptionOf(window, FromAutoTray), "自動トレイの用紙設定を手差し設定に適用(&S)");
                     EXPECT_EQ(CaptionOf(window, DuplexLabel), "手差し両面印刷(&A):");
                     EXPECT_FALSE(IsShown(window, DuplexLabel));
                     EXPECT_FALSE(IsShown(window, Duplex));
                     EXPECT_EQ(RowsOf(GetDlgItem(window, Duplex)),
                               (std::vector<std::string>{"しない", "おもて面(長辺とじ)", "おもて面(短辺とじ)",
                                                         "うら面(長辺とじ)", "うら面(短辺とじ)"}));
                 },
                 Pressing(IDCANCEL)});
}

TEST_F(MediaTypeApply, KeepsTheManualDuplex) {
    for (const std::uint32_t value : {0u, 1u, 2u, 3u, 4u, 5u, 0x10001u, 0xFFFFFFFFu}) {
        ExportedFunc_SetCurrent(MsiDuplexMode, value);
        EXPECT_EQ(Run(bypass, {[value](HWND window) {
                                   EXPECT_EQ(SelectedIn(window, Duplex),
                                             value < 5 ? static_cast<int>(value) : -1);
                               },
                               Pressing(IDOK)}),
                  IDOK);
        EXPECT_EQ(Current(MsiDuplexMode), value);
    }
}

TEST_F(MediaTypeApply, WritesTheManualDuplexOfItsControl) {
    EXPECT_EQ(Run(bypass, {Choosing(Duplex, 3), Pressing(IDOK)}), IDOK);
    EXPECT_EQ(Current(MsiDuplexMode), 3u);
}

TEST_F(MediaTypeApply, GreysThePaperOutWhileTheBypassTrayTakesTheAutomaticTraysSetting) {
    ExportedFunc_SetCurrent(AutoTraySettingToBypass, 1);
    EXPECT_EQ(Run(bypass, {[](HWND window) {
                               EXPECT_EQ(IsDlgButtonChecked(window, FromAutoTray), 1u);
                               for (const int control : {PaperType, Weight, Color})
                                   EXPECT_FALSE(IsEnabled(window, control)) << control;
                           },
                           Pressing(IDOK)}),
              IDOK);
    EXPECT_EQ(Current(AutoTraySettingToBypass), 1u);
}

TEST_F(MediaTypeApply, EnablesThePaperByTheCheckBox) {
    EXPECT_EQ(Run(bypass, {Pressing(FromAutoTray),
                           [](HWND window) {
                               EXPECT_EQ(IsDlgButtonChecked(window, FromAutoTray), 1u);
                               for (const int control : {PaperType, Weight, Color})
                                   EXPECT_FALSE(IsEnabled(window, control)) << control;
                           },
                           Pressing(FromAutoTray),
                           [](HWND window) {
                               EXPECT_EQ(IsDlgButtonChecked(window, FromAutoTray), 0u);
                               for (const int control : {PaperType, Weight, Color})
                                   EXPECT_TRUE(IsEnabled(window, control)) << control;
                               EXPECT_EQ(Current(AutoTraySettingToBypass), 0u);
                           },
                           Pressing(FromAutoTray), Pressing(IDOK)}),
              IDOK);
    EXPECT_EQ(Current(AutoTraySettingToBypass), 1u);
}

// The bypass tray's template has neither.
TEST_F(MediaTypeApply, EnablesTheCustomPapersNumberByTheCheckBox) {
    bypass.further = {NumberLabel, NumberSpin};
    const auto expectEnabled = [](bool enabled) {
        return [enabled](HWND window) {
            for (const int control : {NumberLabel, NumberSpin})
                EXPECT_EQ(IsEnabled(window, control), enabled) << control;
        };
    };
    Run(bypass, {expectEnabled(true), Pressing(FromAutoTray), expectEnabled(false), Pressing(FromAutoTray),
                 expectEnabled(true), Pressing(IDCANCEL)});
}

TEST_F(MediaTypeApply, TurnsTheCheckBoxesSettingOff) {
    ExportedFunc_SetCurrent(AutoTraySettingToBypass, 1);
    EXPECT_EQ(Run(bypass, {Pressing(FromAutoTray), Pressing(IDOK)}), IDOK);
    EXPECT_EQ(Current(AutoTraySettingToBypass), 0u);
}

TEST_F(MediaTypeApply, LeavesTheCheckBoxesSettingToTheDialogThatHasIt) {
    ExportedFunc_SetCurrent(AutoTraySettingToBypass, 1);
    EXPECT_EQ(Run(autoTray, {Pressing(IDOK)}), IDOK);
    EXPECT_EQ(Current(AutoTraySettingToBypass), 1u);
}

} // namespace
