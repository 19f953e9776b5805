// Settings of the standard page that the device cannot do together: what the user is asked and what gives
// way.
#include "pages/controls.h"
#include "pages/standardpage.h"
#include "tests/pages/standard_page_driver.h"

namespace {

using namespace keyword;

struct Conflict {
    const char* name;
    Settings before;
    Settings defaults;
    int controlId;
    int row;
    Settings afterOk;
    int punchRowAfterOk;
    Settings afterCancel;
    int punchRowAfterCancel;
};

// Each setting in the way, alone and in chains. One OK clears a chain; a Cancel takes the own setting back,
// and a conflict that was there before then gives way all the same.
const std::vector<Conflict> kConflicts{
    // Off, though its default is on.
    {"ColorModelSpotColor",
     {{ColorMode, 1}, {SpotColorCorrection, 1}},
     {{SpotColorCorrection, 1}},
     1291,
     0,
     {{ColorMode, 0}, {SpotColorCorrection, 0}},
     0,
     {{ColorMode, 1}, {SpotColorCorrection, 1}},
     0},
    {"ColorModelTwoColors",
     {{ColorMode, 1}, {TwoColorPressSimulation, 1}},
     {},
     1291,
     0,
     {{ColorMode, 0}, {TwoColorPressSimulation, 0}},
     0,
     {{ColorMode, 1}, {TwoColorPressSimulation, 1}},
     0},
    {"ColorModelChain",
     {{ColorMode, 1}, {SpotColorCorrection, 1}, {TwoColorPressSimulation, 1}},
     {},
     1291,
     0,
     {{ColorMode, 0}, {SpotColorCorrection, 0}, {TwoColorPressSimulation, 0}},
     0,
     {{ColorMode, 1}, {SpotColorCorrection, 1}, {TwoColorPressSimulation, 1}},
     0},
    // Of the punch only the position goes.
    {"DuplexPunchOfBefore",
     {{Fold, 1}, {Punch, 1}, {PunchHoles, 1}},
     {{PunchHoles, 2}},
     6010,
     2,
     {{DuplexMode, 2}, {Fold, 1}, {Punch, 0}, {PunchHoles, 1}},
     0,
     {{DuplexMode, 0}, {Fold, 1}, {Punch, 0}, {PunchHoles, 1}},
     0},
    {"DuplexStapleOfBefore",
     {{Fold, 1}, {StapleMode, 1}},
     {},
     6010,
     1,
     {{DuplexMode, 1}, {Fold, 1}, {StapleMode, 0}},
     0,
     {{DuplexMode, 0}, {Fold, 1}, {StapleMode, 0}},
     0},
    {"DuplexMixedSizesOfBefore",
     {{StapleMode, 1}, {MixSizePrint, 1}},
     {},
     6010,
     1,
     {{DuplexMode, 1}, {StapleMode, 1}, {MixSizePrint, 0}},
     0,
     {{DuplexMode, 0}, {StapleMode, 1}, {MixSizePrint, 0}},
     0},
    {"StaplePunch",
     {{Punch, 2}, {PunchHoles, 1}},
     {{PunchHoles, 3}},
     1273,
     1,
     {{StapleMode, 1}, {Punch, 0}, {PunchHoles, 3}},
     0,
     {{StapleMode, 0}, {Punch, 2}, {PunchHoles, 1}},
     2},
    // The default is no more than another place.
    {"StaplePunchOfAnotherDefault",
     {{Punch, 2}, {PunchHoles, 1}},
     {{Punch, 3}, {PunchHoles, 2}},
     1273,
     1,
     {{StapleMode, 1}, {Punch, 3}, {PunchHoles, 2}},
     8,
     {{StapleMode, 0}, {Punch, 2}, {PunchHoles, 1}},
     2},
    {"StapleFold",
     {{Fold, 1}},
     {},
     1273,
     1,
     {{StapleMode, 1}, {Fold, 0}},
     0,
     {{StapleMode, 0}, {Fold, 1}},
     0},
    {"StapleChain",
     {{Fold, 4}, {Punch, 2}, {PunchHoles, 1}},
     {},
     1273,
     8,
     {{StapleMode, 8}, {Punch, 0}, {Fold, 0}},
     0,
     {{StapleMode, 0}, {Punch, 2}, {PunchHoles, 1}, {Fold, 4}},
     2},
    {"StapleSpotColorOfBefore",
     {{SpotColorCorrection, 1}},
     {},
     1273,
     1,
     {{StapleMode, 1}, {SpotColorCorrection, 0}},
     0,
     {{StapleMode, 0}, {SpotColorCorrection, 0}},
     0},
    {"PunchStaple",
     {{StapleMode, 1}, {PunchHoles, 3}},
     {},
     1155,
     2,
     {{Punch, 2}, {PunchHoles, 1}, {StapleMode, 0}},
     2,
     {{Punch, 0}, {PunchHoles, 3}, {StapleMode, 1}},
     0},
    {"PunchFold",
     {{Fold, 1}, {Punch, 0}, {PunchHoles, 2}},
     {},
     1155,
     1,
     {{Punch, 1}, {PunchHoles, 1}, {Fold, 0}},
     1,
     {{Punch, 0}, {PunchHoles, 2}, {Fold, 1}},
     0},
    {"PunchChain",
     {{StapleMode, 1}, {Fold, 5}, {PunchHoles, 1}},
     {},
     1155,
     7,
     {{Punch, 2}, {PunchHoles, 2}, {StapleMode, 0}, {Fold, 0}},
     7,
     {{Punch, 0}, {PunchHoles, 1}, {StapleMode, 1}, {Fold, 5}},
     0},
    {"FoldStaple",
     {{StapleMode, 1}},
     {},
     1156,
     1,
     {{Fold, 1}, {StapleMode, 0}},
     0,
     {{Fold, 0}, {StapleMode, 1}},
     0},
    {"FoldPunch",
     {{Punch, 1}, {PunchHoles, 1}},
     {{PunchHoles, 2}},
     1156,
     1,
     {{Fold, 1}, {Punch, 0}, {PunchHoles, 2}},
     0,
     {{Fold, 0}, {Punch, 1}, {PunchHoles, 1}},
     1},
    {"FoldChain",
     {{StapleMode, 1}, {Punch, 1}, {PunchHoles, 1}},
     {},
     1156,
     1,
     {{Fold, 1}, {StapleMode, 0}, {Punch, 0}},
     0,
     {{Fold, 0}, {StapleMode, 1}, {Punch, 1}, {PunchHoles, 1}},
     1},
};

class ConflictOf : public LoggedStandardPage, public testing::WithParamInterface<Conflict> {
  protected:
    void ExpectAfter(const Settings& after, int punchRow) {
        EXPECT_EQ(ValuesOf(after), Text(after));
        EXPECT_EQ(Row(1155), punchRow);
        for (const auto& [controlId, keyword] :
             {std::pair{6010, DuplexMode}, {1291, ColorMode}, {1273, StapleMode}, {1156, Fold}})
            EXPECT_EQ(Row(controlId), static_cast<int>(Current(keyword))) << controlId;
        EXPECT_EQ(ChangesSeen(), 1);
        EXPECT_FALSE(HasLogged("error"));
    }
};

INSTANTIATE_TEST_SUITE_P(StandardPage, ConflictOf, testing::ValuesIn(kConflicts),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(ConflictOf, SettingsGivesWayOnOk) {
    const Conflict& conflict = GetParam();
    OpenWith(conflict.before, conflict.defaults);
    const MessageBoxSeen box = ChooseAndAnswer(conflict.controlId, conflict.row, IDOK);
    EXPECT_EQ(box.caption, "KV Print Server");
    EXPECT_TRUE(box.canCancel);
    EXPECT_EQ(box.owner, GetAncestor(page, GA_ROOT));
    ExpectAfter(conflict.afterOk, conflict.punchRowAfterOk);
}

TEST_P(ConflictOf, SettingsIsTakenBackOnCancel) {
    const Conflict& conflict = GetParam();
    OpenWith(conflict.before, conflict.defaults);
    const MessageBoxSeen box = ChooseAndAnswer(conflict.controlId, conflict.row, IDCANCEL);
    EXPECT_EQ(box.caption, "KV Print Server");
    ExpectAfter(conflict.afterCancel, conflict.punchRowAfterCancel);
}

// The job's sheets differ in size, or do not: this page tells so and takes its own setting back.

const std::vector<Conflict> kMixedSizes{
    {"StapleForMixedSizes", {{StapleMode, 2}}, {}, 1273, 5, {{StapleMode, 2}, {MixSizePrint, 0}}, 0, {}, 0},
    {"StapleForMixedSizesInTwoPlaces",
     {{StapleMode, 2}},
     {},
     1273,
     10,
     {{StapleMode, 2}, {MixSizePrint, 0}},
     0,
     {},
     0},
    {"StapleForOneSize",
     {{StapleMode, 5}, {MixSizePrint, 1}},
     {},
     1273,
     1,
     {{StapleMode, 5}, {MixSizePrint, 1}},
     0,
     {},
     0},
    {"PunchForMixedSizes",
     {{Punch, 3}, {PunchHoles, 2}},
     {},
     1155,
     5,
     {{Punch, 3}, {PunchHoles, 2}, {MixSizePrint, 0}},
     8,
     {},
     0},
    {"PunchForOneSize",
     {{Punch, 5}, {PunchHoles, 3}, {MixSizePrint, 1}},
     {},
     1155,
     1,
     {{Punch, 5}, {PunchHoles, 3}, {MixSizePrint, 1}},
     15,
     {},
     0},
    {"FoldForMixedSizes", {{Fold, 2}}, {}, 1156, 6, {{Fold, 2}, {MixSizePrint, 0}}, 0, {}, 0},
    {"FoldForOneSize", {{Fold, 6}, {MixSizePrint, 1}}, {}, 1156, 1, {{Fold, 6}, {MixSizePrint, 1}}, 0, {}, 0},
};

class MixedSizesOf : public ConflictOf {};

INSTANTIATE_TEST_SUITE_P(StandardPage, MixedSizesOf, testing::ValuesIn(kMixedSizes),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(MixedSizesOf, SettingIsTakenBackSinceThePageCannotSetThem) {
    const Conflict& conflict = GetParam();
    // Were they set to their default, they would change.
    OpenWith(conflict.before, {{MixSizePrint, conflict.before.back().keyword != MixSizePrint}});
    const MessageBoxSeen box = ChooseAndAnswer(conflict.controlId, conflict.row, IDOK);
    EXPECT_FALSE(box.canCancel);
    ExpectAfter(conflict.afterOk, conflict.punchRowAfterOk);
}

class StandardPageConflicts : public LoggedStandardPage {
  protected:
    CStandardPageDlg Page() { return CStandardPageDlg(page, nullptr); }
};

TEST_F(StandardPageConflicts, AreToldWithTheWayOut) {
    OpenWith({{Punch, 1}, {PunchHoles, 1}});
    EXPECT_EQ(ChooseAndAnswer(1156, 1, IDCANCEL).text,
              "\"パンチ-左2穴\"と\"紙折り-二つ折り(内側に印字)\"を同時に指定できません。\n"
              "\"パンチ-左2穴\"をしないに変更しますか？");
}

TEST_F(StandardPageConflicts, WithMixedSizesAreToldWithWhereToSetThem) {
    OpenWith();
    EXPECT_EQ(
        ChooseAndAnswer(1273, 5, IDOK).text,
        "\"サイズ混在原稿をプリントする-オフ\"と\"ホチキス-1ヵ所（サイズ混在）\"を同時に指定できません。"
        "\n\nジョブプロパティ画面より\"サイズ混在原稿をプリントする\"を\"オン\"に設定してください。");
}

TEST_F(StandardPageConflicts, ThatDuplexSettlesByMixedSizesEnableWhatThoseDisabled) {
    OpenWith({{StapleMode, 1}, {MixSizePrint, 1}});
    for (const int id : {5001, 5002, 1244, 1281})
        ASSERT_FALSE(IsWindowEnabled(Control(id)));
    ChooseAndAnswer(6010, 1, IDOK);
    for (const int id : {5001, 5002, 1244, 1281})
        EXPECT_TRUE(IsWindowEnabled(Control(id))) << id;
}

TEST_F(StandardPageConflicts, MakeTheResultOneOnlyWithoutAny) {
    OpenWith({{ColorMode, 1}});
    for (const int id : {1291, 6010, 1273, 1155, 1156})
        SelectRow(Control(id), 0);
    EXPECT_EQ(Page().ApplyColorModel(&block), 1);
    EXPECT_EQ(Page().ApplyDuplex(&block), 1);
    EXPECT_EQ(Page().ApplyStaple(&block), 1);
    EXPECT_EQ(Page().ApplyPunch(&block), 1);
    EXPECT_EQ(Page().ApplyFold(&block), 1);
}

struct Caller {
    const char* name;
    int controlId;
    int row;
    Settings before;
    int (CStandardPageDlg::*apply)(SessionBlock*);
};

const std::vector<Caller> kCallers{
    {"ApplyColorModel",
     1291,
     0,
     {{ColorMode, 1}, {SpotColorCorrection, 1}},
     &CStandardPageDlg::ApplyColorModel},
    {"ApplyDuplex", 6010, 1, {{SpotColorCorrection, 1}}, &CStandardPageDlg::ApplyDuplex},
    {"ApplyStaple", 1273, 1, {{Fold, 1}}, &CStandardPageDlg::ApplyStaple},
    {"ApplyPunch", 1155, 1, {{Fold, 1}}, &CStandardPageDlg::ApplyPunch},
    {"ApplyFold", 1156, 1, {{StapleMode, 1}}, &CStandardPageDlg::ApplyFold},
};

TEST_F(StandardPageConflicts, MakeTheResultZeroWhicheverTheAnswer) {
    for (const Caller& caller : kCallers) {
        for (const int answer : {IDOK, IDCANCEL}) {
            OpenWith({{ColorMode, 0}, {SpotColorCorrection, 0}, {Fold, 0}, {StapleMode, 0}, {Punch, 0}});
            SetCurrent(caller.before);
            SelectRow(Control(caller.controlId), static_cast<std::uint32_t>(caller.row));
            auto box = AnswerNextMessageBox(answer);
            EXPECT_EQ((Page().*caller.apply)(&block), 0) << caller.name;
            EXPECT_FALSE(box.get().text.empty());
        }
    }
}

// A conflict that the row leaves as it is ends in an error line with the row's name; the value chosen stays.
struct Unsettled {
    const char* name;
    Settings before;
    Settings defaults;
    int controlId;
    int row;
    Settings after;
};

const std::vector<Unsettled> kUnsettled{
    {"ApplyColorModel",
     {{Fold, 1}, {StapleMode, 1}},
     {},
     1291,
     1,
     {{ColorMode, 1}, {Fold, 1}, {StapleMode, 1}}},
    {"ApplyFold", {{SpotColorCorrection, 1}}, {}, 1156, 1, {{Fold, 1}, {SpotColorCorrection, 1}}},
    {"ApplyDuplex",
     {{SpotColorCorrection, 1}},
     {{SpotColorCorrection, 1}},
     6010,
     1,
     {{DuplexMode, 1}, {SpotColorCorrection, 1}}},
    {"ApplyStaple", {{Fold, 1}}, {{Fold, 1}}, 1273, 1, {{StapleMode, 1}, {Fold, 1}}},
    {"ApplyPunch", {{Fold, 1}}, {{Fold, 1}}, 1155, 1, {{Punch, 1}, {PunchHoles, 1}, {Fold, 1}}},
};

TEST_F(StandardPageConflicts, ThatNothingSettlesAreLoggedWithTheRowsName) {
    for (const Unsettled& row : kUnsettled) {
        OpenWith({{Fold, 0}, {StapleMode, 0}, {SpotColorCorrection, 0}, {DuplexMode, 0}, {ColorMode, 0}},
                 {{Fold, 0}, {StapleMode, 0}, {SpotColorCorrection, 0}});
        SetCurrent(row.before);
        SetDefaults(row.defaults);
        ChooseAndAnswer(row.controlId, row.row, IDOK);
        EXPECT_TRUE(HasLogged(std::string(row.name) + "() result = 1 error")) << row.name;
        EXPECT_EQ(ValuesOf(row.after), Text(row.after)) << row.name;
        EXPECT_EQ(ChangesSeen(), 1);
    }
}

} // namespace
