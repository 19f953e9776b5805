// What both dialogs show, and what a user's choices do before OK.
#include "tests/pages/media_type_fixture.h"
#include "tests/support/main_log.h"
#include "tests/support/traces.h"

#include <algorithm>

namespace {

using namespace media_control;
using namespace media_keyword;
using Texts = std::vector<std::string>;

const Texts kColorTexts{"その他",      "白",          "青",         "黄色",        "緑",
                        "ピンク",      "アイボリー",  "グレー",     "クリーム",    "山吹色",
                        "赤",          "オレンジ",    "透明",       "ユーザー色1", "ユーザー色2",
                        "ユーザー色3", "ユーザー色4", "ユーザー色5"};

struct Tray {
    const char* name;
    int templateId;
    int paperType;
    int weight;
    int color;
    int drilled;
};

class MediaTypeDialogs : public MediaTypeTest, public testing::WithParamInterface<Tray> {
  protected:
    MediaTypeDialogs() {
        if (GetParam().templateId == kBypassTemplate)
            dialog = std::make_unique<BypassDialog>(&block, &profile, kBypassTemplate);
        else
            dialog = std::make_unique<AutoTrayDialog>(&block, &profile, kAutoTrayTemplate);
    }

    // Takes one step and cancels.
    INT_PTR Look(Step step) { return Run(*dialog, {std::move(step), Pressing(IDCANCEL)}); }

    std::unique_ptr<CMediaTypeDlg> dialog;
};

INSTANTIATE_TEST_SUITE_P(, MediaTypeDialogs,
                         testing::Values(Tray{"AutoTray", kAutoTrayTemplate, PaperTypeD, MediaTypeWeight,
                                              PaperColor, MediaTypeDrilled},
                                         Tray{"Bypass", kBypassTemplate, PaperTypeBypass,
                                              MediaTypeWeightBypass, PaperColorBypass,
                                              MediaTypeDrilledBypass}),
                         [](const auto& tray) { return std::string(tray.param.name); });

TEST_P(MediaTypeDialogs, HaveATitleAndCaptions) {
    Look([](HWND window) {
        char title[64] = {};
        GetWindowTextA(window, title, sizeof title);
        EXPECT_STREQ(title, "用紙種類の設定");
        EXPECT_EQ(CaptionOf(window, IDCANCEL), "キャンセル");
        EXPECT_EQ(CaptionOf(window, Defaults), "標準に戻す(&Z)");
        EXPECT_EQ(CaptionOf(window, PaperTypeLabel), "用紙種類(&T):");
        EXPECT_EQ(CaptionOf(window, SequenceLabel), "1組の枚数(&S):");
        EXPECT_EQ(CaptionOf(window, ColorLabel), "用紙色(&C):");
        EXPECT_EQ(CaptionOf(window, SequenceRange), "(2-255)");
    });
}

TEST_P(MediaTypeDialogs, BelongToTheActiveWindow) {
    Look([this](HWND window) {
        EXPECT_EQ(GetWindow(window, GW_OWNER), Sheet());
        EXPECT_FALSE(IsWindowEnabled(Sheet()));
    });
    EXPECT_TRUE(IsWindowEnabled(Sheet()));
}

TEST_P(MediaTypeDialogs, ListAllPaperTypesByNumber) {
    Look([](HWND window) {
        const HWND combo = GetDlgItem(window, PaperType);
        EXPECT_EQ(RowsOf(combo), PaperTypeTexts());
        for (int row = 0; row < 59; ++row)
            EXPECT_EQ(SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(row), 0), row);
    });
}

TEST_P(MediaTypeDialogs, ListAllPaperColorsByNumber) {
    Look([](HWND window) {
        const HWND combo = GetDlgItem(window, Color);
        EXPECT_EQ(RowsOf(combo), kColorTexts);
        for (int row = 0; row < 18; ++row)
            EXPECT_EQ(SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(row), 0), row);
    });
}

TEST_P(MediaTypeDialogs, ShowEveryValueOfTheCurrentBank) {
    for (std::uint32_t value = 0; value < 59; ++value) {
        ExportedFunc_SetCurrent(GetParam().paperType, value);
        ExportedFunc_SetCurrent(GetParam().color, value % 18);
        Look([value](HWND window) {
            EXPECT_EQ(SelectedIn(window, PaperType), static_cast<int>(value));
            EXPECT_EQ(SelectedIn(window, Color), static_cast<int>(value % 18));
        });
    }
}

TEST_P(MediaTypeDialogs, SelectNothingForAValueWithoutARowAndLeaveItAlone) {
    for (const std::uint32_t value : {59u, 0xFFFFu, 0x10005u, 0xFFFFFFFFu}) {
        ExportedFunc_SetCurrent(GetParam().paperType, value);
        ExportedFunc_SetCurrent(GetParam().weight, value);
        ExportedFunc_SetCurrent(GetParam().color, value);
        EXPECT_EQ(Run(*dialog, {[](HWND window) {
                      EXPECT_EQ(SelectedIn(window, PaperType), -1);
                      EXPECT_EQ(SelectedIn(window, Color), -1);
                      Press(window, IDOK);
                  }}),
                  IDOK);
        for (const int keyword : {GetParam().paperType, GetParam().weight, GetParam().color})
            EXPECT_EQ(Current(keyword), value) << keyword;
    }
}

TEST_P(MediaTypeDialogs, HideTheSheetsPerSetAndTheWeight) {
    Look([](HWND window) {
        for (const int control :
             {SequenceLabel, Sequence, SequenceSpin, SequenceRange, WeightLabel, Weight}) {
            EXPECT_TRUE(GetDlgItem(window, control)) << control;
            EXPECT_FALSE(IsShown(window, control)) << control;
        }
        for (const int control : {PaperTypeLabel, PaperType, ColorLabel, Color, IDOK, IDCANCEL, Defaults})
            EXPECT_TRUE(IsShown(window, control)) << control;
    });
}

// Its list can be enabled, and a letter would then move the focus to where nothing is seen.
TEST_P(MediaTypeDialogs, HaveNoAcceleratorForTheHiddenWeight) {
    Look([](HWND window) {
        Choose(window, PaperType, 0);
        EXPECT_TRUE(IsEnabled(window, Weight));
        EXPECT_EQ(CaptionOf(window, WeightLabel), "用紙坪量:");
    });
}

TEST_P(MediaTypeDialogs, ShowTheSheetsPerSetOfTheAutomaticTrays) {
    ExportedFunc_SetMediaTypeSequenceBypass(20);
    for (const auto& [value, text] : {std::pair{2u, "2"},
                                      {50u, "50"},
                                      {255u, "255"},
                                      {0u, "2"},
                                      {1u, "2"},
                                      {256u, "255"},
                                      {0x10003u, "255"},
                                      {0x80000000u, "255"},
                                      {0xFFFFFFFFu, "255"}}) {
        ExportedFunc_SetMediaTypeSequence(value);
        Look([&text = text](HWND window) { EXPECT_EQ(CaptionOf(window, Sequence), text); });
    }
}

TEST_P(MediaTypeDialogs, ListTheWeightsOnceAPaperTypeIsChosen) {
    ExportedFunc_SetCurrent(GetParam().weight, 8);
    Look([](HWND window) {
        EXPECT_EQ(RowsOf(GetDlgItem(window, Weight)), Texts{});
        Choose(window, PaperType, 0);
        EXPECT_EQ(RowsOf(GetDlgItem(window, Weight)), WeightTexts());
        EXPECT_EQ(SelectedIn(window, Weight), 8);
    });
}

// First row, end and row of the default by paper type; the others have no weight.
TEST_P(MediaTypeDialogs, ListTheWeightsThatAreOpenToEachPaperType) {
    struct Rows {
        int first, end, chosen;
    };
    std::map<int, Rows> rowsOf;
    for (const int type : {0, 1, 2, 3, 4, 12, 13, 15})
        rowsOf[type] = {0, 12, 2};
    rowsOf[5] = {1, 4, 2};
    for (const int type : {7, 8, 9, 10, 14})
        rowsOf[type] = {4, 12, 4};
    ExportedFunc_SetCurrent(GetParam().weight, 0xFFFF);
    Look([&](HWND window) {
        const HWND weight = GetDlgItem(window, Weight);
        for (int type = 0; type < 59; ++type) {
            const Texts before = RowsOf(weight);
            Choose(window, PaperType, type);
            const bool hasWeight = rowsOf.contains(type);
            EXPECT_EQ(IsEnabled(window, Weight), hasWeight) << type;
            EXPECT_EQ(IsEnabled(window, WeightLabel), hasWeight) << type;
            EXPECT_FALSE(IsShown(window, Weight)) << type;
            if (!hasWeight) {
                EXPECT_EQ(RowsOf(weight), before) << type;
                continue;
            }
            const Rows& rows = rowsOf[type];
            EXPECT_EQ(RowsOf(weight),
                      Texts(WeightTexts().begin() + rows.first, WeightTexts().begin() + rows.end))
                << type;
            EXPECT_EQ(SelectedIn(window, Weight), rows.chosen - rows.first) << type;
            for (int row = rows.first; row < rows.end; ++row)
                EXPECT_EQ(SendMessageA(weight, CB_GETITEMDATA, static_cast<WPARAM>(row - rows.first), 0),
                          row);
        }
    });
}

TEST_P(MediaTypeDialogs, DisableTheWeightAndKeepItsListForPaperTypes6And11) {
    for (const int type : {6, 11}) {
        Look([type](HWND window) {
            Choose(window, PaperType, 5);
            const Texts rows = RowsOf(GetDlgItem(window, Weight));
            Choose(window, PaperType, type);
            EXPECT_FALSE(IsEnabled(window, Weight));
            EXPECT_FALSE(IsEnabled(window, WeightLabel));
            EXPECT_EQ(RowsOf(GetDlgItem(window, Weight)), rows);
        });
    }
}

TEST_P(MediaTypeDialogs, FallBackToWeight2ForPaperType5WithACurrentWeightOf8) {
    ExportedFunc_SetCurrent(GetParam().weight, 8);
    EXPECT_EQ(Run(*dialog, {Choosing(PaperType, 5), Pressing(IDOK)}), IDOK);
    EXPECT_EQ(Current(GetParam().weight), 2u);
}

TEST_P(MediaTypeDialogs, DisableTheWeightIfNoPaperTypeIsSelected) {
    Look([](HWND window) {
        Choose(window, PaperType, 0);
        EXPECT_TRUE(IsEnabled(window, Weight));
        Choose(window, PaperType, -1);
        EXPECT_FALSE(IsEnabled(window, Weight));
        EXPECT_FALSE(IsEnabled(window, WeightLabel));
    });
}

TEST_P(MediaTypeDialogs, ActOnNoOtherNotification) {
    Look([this](HWND window) {
        for (const int code : {2, 7, 8, 9, 10, 0x100, 0x300, 0xFFFF})
            for (const int control : {IDOK, IDCANCEL, PaperType, Sequence})
                EXPECT_EQ(dialog->OnCommand(static_cast<WORD>(code), static_cast<WORD>(control), nullptr), 1);
        EXPECT_TRUE(IsWindow(window));
    });
}

TEST_P(MediaTypeDialogs, LeaveTheStoreAloneUntilOk) {
    ExportedFunc_SetCurrent(GetParam().paperType, 3);
    ExportedFunc_SetCurrent(GetParam().weight, 3);
    ExportedFunc_SetCurrent(GetParam().color, 3);
    const Step change = [](HWND window) {
        Choose(window, PaperType, 7);
        Choose(window, Color, 9);
        Press(window, Defaults);
    };
    const Step close = [](HWND window) { PostMessageA(window, WM_CLOSE, 0, 0); };
    for (const Step& end : {Pressing(IDCANCEL), close, Keying(VK_ESCAPE)}) {
        EXPECT_EQ(Run(*dialog, {change, end}), IDCANCEL);
        EXPECT_EQ(Current(GetParam().paperType), 3u);
        EXPECT_EQ(Current(GetParam().weight), 3u);
        EXPECT_EQ(Current(GetParam().color), 3u);
    }
}

TEST_P(MediaTypeDialogs, EndWithOkByTheEnterKey) {
    EXPECT_EQ(Run(*dialog, {Choosing(PaperType, 7), Keying(VK_RETURN)}), IDOK);
    EXPECT_EQ(Current(GetParam().paperType), 7u);
}

TEST_P(MediaTypeDialogs, TakeAChoiceByTheArrowKeys) {
    const Step toPaperType = [](HWND window) { SetFocus(GetDlgItem(window, PaperType)); };
    EXPECT_EQ(Run(*dialog, {toPaperType, Keying(VK_DOWN), Keying(VK_DOWN), Pressing(IDOK)}), IDOK);
    EXPECT_EQ(Current(GetParam().paperType), 2u);
    EXPECT_EQ(Current(GetParam().weight), 0u);
}

TEST_P(MediaTypeDialogs, StartWithTheFocusOnTheFirstControlThatCanBeUsed) {
    Look([](HWND window) {
        const int first = GetParam().templateId == kBypassTemplate ? FromAutoTray : PaperType;
        const HWND control = GetDlgItem(window, first);
        EXPECT_TRUE(GetFocus() == control || IsChild(control, GetFocus()));
    });
}

TEST_P(MediaTypeDialogs, TakeTheProfileOfTheStore) {
    ExportedFunc_SetProfile("missing");
    Look([](HWND) {});
    EXPECT_STREQ(block.Profile, "missing");
    // As after a profile that can't be opened.
    EXPECT_EQ(profile.m_Item[0].exists, 1);
}

// A line of a profile that could name a custom paper never gets so far.
TEST_P(MediaTypeDialogs, KeepTheBuiltInNamesWithAProfileFile) {
    Traces traces;
    traces.Write(traces.MakeDirectories(FolderPath(CSIDL_COMMON_DOCUMENTS),
                                        {"Zephra", "KP Controller", "Orvane X100", "profile"}) +
                     "\\office.cps",
                 "CustomPaperName1=Linen\n");
    ExportedFunc_SetProfile("office");
    Look([](HWND window) { EXPECT_EQ(RowsOf(GetDlgItem(window, PaperType)), PaperTypeTexts()); });
    EXPECT_EQ(profile.m_Item[3].exists, 1);
    EXPECT_EQ(profile.m_Item[4].exists, 0);
}

TEST_P(MediaTypeDialogs, PutAProfilesNamesOfCustomPapersOnTheirRows) {
    Look([this](HWND window) {
        const HWND combo = GetDlgItem(window, PaperType);
        profile.m_Item[29].value = "Linen"; // the first custom paper
        profile.m_Item[31].value = "Felt";
        profile.m_Item[48].value = "Cotton"; // the last one
        profile.m_Item[49].value = "none";
        ExportedFunc_SetCurrent(GetParam().paperType, 24);
        dialog->ListPaperTypes(&profile);

        Texts texts = PaperTypeTexts();
        texts[22] = "Linen";
        texts[24] = "Felt";
        texts[41] = "Cotton";
        EXPECT_EQ(RowsOf(combo), texts);
        for (int row = 0; row < 59; ++row)
            EXPECT_EQ(SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(row), 0), row);
        EXPECT_EQ(SelectedIn(window, PaperType), 24);

        dialog->ListPaperTypes(nullptr);
        EXPECT_EQ(RowsOf(combo), PaperTypeTexts());
    });
}

// The options of the setting have the tags 0 to 3; any other value has none.
TEST_P(MediaTypeDialogs, LogTheTagOfThePunchedPaper) {
    const MainLog log;
    for (const auto& [drilled, logged] :
         {std::pair{2u, " drilled=2 tag=2 "}, {3u, " drilled=3 tag=3 "}, {4u, " drilled=4 tag=0 "}}) {
        for (const int keyword : {MediaTypeDrilled, MediaTypeDrilledBypass})
            ExportedFunc_SetCurrent(keyword, keyword == GetParam().drilled ? drilled : 1);
        Look([](HWND) {});
        EXPECT_TRUE(std::ranges::any_of(log.Messages(), [&logged = logged](const std::string& line) {
            return line.find("LogPaperValues() ") != std::string::npos &&
                   line.find(logged) != std::string::npos;
        })) << logged;
    }
}

TEST_P(MediaTypeDialogs, DoWithoutAProfile) {
    dialog->profile = nullptr;
    Look([](HWND window) { EXPECT_EQ(RowsOf(GetDlgItem(window, PaperType)), PaperTypeTexts()); });
}

TEST_P(MediaTypeDialogs, DoNotOpenWithoutTheSheetsSession) {
    EndSession();
    EXPECT_EQ(Run(*dialog, {}), 0);
    dialog->session = nullptr;
    EXPECT_EQ(Run(*dialog, {}), 0);
}

TEST_P(MediaTypeDialogs, CanOnlyBeLeftOnceTheirSessionHasGone) {
    for (const int button : {IDOK, IDCANCEL}) {
        CSessionAccessor::Instance()->SetSession(&block);
        EXPECT_EQ(Run(*dialog,
                      {Choosing(PaperType, 7), [this](HWND) { EndSession(); }, Pressing(Defaults),
                       [](HWND window) { EXPECT_EQ(SelectedIn(window, PaperType), 7); }, Pressing(button)}),
                  IDCANCEL);
        EXPECT_EQ(Current(GetParam().paperType), 0u);
    }
}

TEST_P(MediaTypeDialogs, GiveNothingWithoutATemplate) {
    dialog->templateId = 4999;
    EXPECT_EQ(Run(*dialog, {}), 0);
}

TEST_P(MediaTypeDialogs, CanBeOpenedAgain) {
    EXPECT_EQ(Run(*dialog, {Choosing(PaperType, 7), Pressing(IDOK)}), IDOK);
    EXPECT_EQ(Look([](HWND window) { EXPECT_EQ(SelectedIn(window, PaperType), 7); }), IDCANCEL);
}

} // namespace
