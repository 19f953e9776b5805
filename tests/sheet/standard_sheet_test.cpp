// The page "基本" on the sheet of the real driver: every row of every control, what follows from it in the
// store, message boxes, dialogs. The scripts are written here from tables. The settings go by the keyword
// numbers of the keyword table, the controls by the ids of the page.
#include "tests/sheet/device_data.h"
#include "tests/sheet/program.h"
#include "tests/sheet/text_script.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

class StandardSheet : public testing::Test {
  protected:
    static void SetUpTestSuite() { FitDevice(); }
    static void TearDownTestSuite() {
        UnfitDevice();
        ClearPrinter();
    }
    void SetUp() override { ClearPrinter(); }

    static void Play(const std::string& text) { PlayText(text); }
};

struct MixedRow {
    int control;
    int row;
    const char* name;
};

constexpr MixedRow kMixedRows[] = {
    {1273, 5, "ホチキス-1ヵ所（サイズ混在）"}, {1273, 10, "ホチキス-2ヵ所（サイズ混在）"},
    {1155, 5, "パンチ-(サイズ混在)2穴"},       {1155, 10, "パンチ-(サイズ混在)3穴"},
    {1155, 15, "パンチ-(サイズ混在)4穴"},      {1156, 6, "紙折り-Z折り (サイズ混在)"}};

bool IsForMixedSizes(int control, int row) {
    return std::ranges::any_of(
        kMixedRows, [&](const MixedRow& mixed) { return mixed.control == control && mixed.row == row; });
}

struct RowControl {
    int control;
    int keyword;
    int rows;
};

// Each control alone, all others at their defaults: nothing conflicts then but the rows for mixed sizes.
TEST_F(StandardSheet, WritesEachRowOfEachControl) {
    std::string script;
    for (const auto& [control, keyword, rows] : {RowControl{6014, 3, 6},
                                                 {6010, 104, 5},
                                                 {1291, 138, 2},
                                                 {5002, 13, 5},
                                                 {1281, 4, 8},
                                                 {1277, 106, 5},
                                                 {1257, 108, 3},
                                                 {1273, 111, 22},
                                                 {1156, 114, 11}}) {
        for (int row = rows - 1; row >= 0; --row) {
            if (!IsForMixedSizes(control, row))
                script += Choose(control, row) + ExpectCurrent(keyword, row);
        }
    }
    Play(script + "expect enabled apply\npress cancel\n");
}

struct PunchRow {
    int row;
    int punch;
    int holes;
};

TEST_F(StandardSheet, WritesThePairOfEachPunchRow) {
    std::string script;
    for (const auto& [row, punch, holes] : {PunchRow{1, 1, 1},
                                            {2, 2, 1},
                                            {3, 3, 1},
                                            {4, 4, 1},
                                            {6, 1, 2},
                                            {7, 2, 2},
                                            {8, 3, 2},
                                            {9, 4, 2},
                                            {11, 1, 3},
                                            {12, 2, 3},
                                            {13, 3, 3},
                                            {14, 4, 3},
                                            {0, 0, 1}})
        script += Choose(1155, row) + ExpectCurrent(112, punch) + ExpectCurrent(113, holes);
    Play(script + "press cancel\n");
}

std::string Quoted(const std::string& text) {
    return "\\\"" + text + "\\\"";
}

// Mixed sizes are switched on in the job properties only, so that these rows are told and not offered.
TEST_F(StandardSheet, TakesRowsForMixedSizesBackWhileMixedSizesAreOff) {
    std::string script;
    for (const auto& [control, row, name] : kMixedRows) {
        const std::string id = std::to_string(control);
        script += "choose " + id + Line("", row) + "expect message \"" +
                  Quoted("サイズ混在原稿をプリントする-オフ") + "と" + Quoted(name) +
                  "を同時に指定できません。\\n\\nジョブプロパティ画面より" +
                  Quoted("サイズ混在原稿をプリントする") + "を" + Quoted("オン") +
                  "に設定してください。\"\nanswer ok\nexpect row " + id + " 0\n";
    }
    Play(script + ExpectCurrent(111, 0) + ExpectCurrent(112, 0) + ExpectCurrent(114, 0) + "press cancel\n");
}

TEST_F(StandardSheet, TakesRowsForMixedSizesWhileMixedSizesAreOn) {
    std::string script = "set bank Current 307 1\n";
    script += Choose(1273, 10) + ExpectCurrent(111, 10) + Choose(1273, 0);
    script += Choose(1155, 10) + ExpectCurrent(112, 5) + ExpectCurrent(113, 2) + Choose(1155, 0);
    script += Choose(1156, 6) + ExpectCurrent(114, 6);
    Play(script + "press cancel\n");
}

TEST_F(StandardSheet, WritesTheBoxesTheOrientationAndTheCopies) {
    std::string script;
    for (const auto& [control, keyword] : {std::pair{1244, 14}, {1275, 109}, {1278, 110}}) {
        const std::string check = "check " + std::to_string(control);
        script += check + " on\n" + ExpectCurrent(keyword, 1) + check + " off\n" + ExpectCurrent(keyword, 0);
    }
    script += "check 6002 on\n" + ExpectCurrent(2, 1) + "check 6001 on\n" + ExpectCurrent(2, 0) +
              "expect disabled 6000\n";
    script += "type 6004 25\n" + ExpectCurrent(1, 25);
    // What no job can have is put right when the edit field loses the focus.
    script += "type 6004 0\nclick 6001\nexpect text 6004 25\n" + ExpectCurrent(1, 25);
    script += "type 6004 12345\nexpect text 6004 1234\n" + ExpectCurrent(1, 1234);
    Play(script + "press cancel\n");
}

// 49 sizes beside the custom one, which opens a dialog.
TEST_F(StandardSheet, WritesEachOutputSize) {
    std::string script = "expect hidden 1337\n";
    for (int row = 48; row >= 0; --row)
        script += Choose(5001, row) + ExpectCurrent(12, row);
    Play(script + "expect hidden 1337\npress cancel\n");
}

// The forms of the printer's description, sorted by name, without the custom one.
TEST_F(StandardSheet, WritesTheFormOfEachDocumentSize) {
    Play("choose 5000 \"A3(297x420mm)\"\nexpect text 5000 \"A3(297x420mm)\"\nbank Current 0\n"
         "choose 5000 \"A4(210x297mm)\"\nexpect hidden 1329\npress ok\n");
}

constexpr char kOffer[] =
    "expect message \"\\\"ホチキス-左２ヵ所\\\"と\\\"紙折り-二つ折り(内側に印字)\\\"を同時に指定できません。"
    "\\n\\\"ホチキス-左２ヵ所\\\"をしないに変更しますか？\"\n";

TEST_F(StandardSheet, LetsTheOtherSettingGiveWayWhenTheUserAgrees) {
    Play(Choose(1273, 8) + "choose 1156 1\n" + kOffer + "answer ok\nexpect row 1156 1\nexpect row 1273 0\n" +
         ExpectCurrent(114, 1) + ExpectCurrent(111, 0) + "press cancel\n");
}

TEST_F(StandardSheet, TakesTheChoiceBackWhenTheUserDeclines) {
    Play(Choose(1273, 8) + "choose 1156 1\n" + kOffer +
         "answer cancel\nexpect row 1156 0\nexpect row 1273 8\n" + ExpectCurrent(114, 0) +
         ExpectCurrent(111, 8) + "press cancel\n");
}

TEST_F(StandardSheet, OpensTheCustomSizeDialogForTheLastOutputSize) {
    Play("choose 5001 49\nexpect text 1330 \"297.0\"\nexpect text 1326 \"210.0\"\nclick 1322\n"
         "expect visible 1337\nexpect row 5001 49\nclick 1337\nclick 1322\npress cancel\n");
}

std::string CustomSize(const std::string& unit, const std::string& width, const std::string& height,
                       const std::string& storedWidth, const std::string& storedHeight) {
    return "click 1337\nclick " + unit + "\ntype 1330 " + width + "\ntype 1326 " + height +
           "\nclick 1321\nexpect value ChgPrintPaperSizeWidth " + storedWidth +
           "\nexpect value ChgPrintPaperSizeLength " + storedHeight + "\n";
}

// What is stored is in 1/1000 mm.
TEST_F(StandardSheet, StoresTheCustomSizeOfEachUnit) {
    Play("choose 5001 49\nclick 1322\n" + CustomSize("1319", "150", "250.5", "150000", "250500") +
         CustomSize("1318", "5", "10", "127000", "254000") +
         CustomSize("1320", "300", "600", "105834", "211668") + "press cancel\n");
}

TEST_F(StandardSheet, KeepsTheTextsOfACustomSizeWhenTheUnitChangesAndComesBack) {
    Play("choose 5001 49\ntype 1330 100\ntype 1326 200\nclick 1318\nexpect text 1330 \"3.9\"\n"
         "expect text 1316 \"(3.5, 12.6)\"\nclick 1319\nexpect text 1330 \"100.0\"\nexpect text 1326 "
         "\"200.0\"\n"
         "click 1322\npress cancel\n");
}

TEST_F(StandardSheet, BringsACustomSizeIntoItsLimitsWhenTheFieldIsLeft) {
    Play("choose 5001 49\ntype 1330 88\ntype 1326 210\nexpect text 1330 \"89.0\"\ntype 1330 0\nclick 1319\n"
         "expect text 1330 \"89.0\"\nclick 1322\npress cancel\n");
}

constexpr char kContradiction[] =
    "expect message \"入力したカスタムページサイズ パラーメターが矛盾しています。\\n"
    "[OK]をクリックすると、システムが自動的に矛盾を解決します。[キャンセル]"
    "をクリックすると、自分で矛盾を解決できます。\\n\"\n";

// Enter leaves the field where it is, so that its text is not put right before.
TEST_F(StandardSheet, AsksAboutACustomSizeBeyondItsLimits) {
    Play("choose 5001 49\nclick 1318\ntype 1330 12.6\nkey enter\n" + std::string(kContradiction) +
         "answer cancel\nexpect text 1330 12.6\nkey enter\n" + kContradiction +
         "answer ok\nexpect visible 1337\nexpect value ChgPrintPaperSizeWidth 320040\npress cancel\n");
}

TEST_F(StandardSheet, WritesTheMediaOfTheAutomaticTrays) {
    Play("click 1280\n" + Choose(1286, 2) + Choose(1258, 3) + ExpectCurrent(15, 0) + "click 1\n" +
         ExpectCurrent(15, 2) + ExpectCurrent(17, 3) + "press cancel\n");
}

TEST_F(StandardSheet, ForgetsTheMediaOfACancelledDialog) {
    Play("click 1280\n" + Choose(1286, 2) + "click 2\n" + ExpectCurrent(15, 0) +
         "click 1280\nexpect row 1286 0\n" + "click 2\npress cancel\n");
}

TEST_F(StandardSheet, OffersTheAutomaticTrayBeforeTheMediaDialog) {
    const std::string ask =
        "click 1280\nexpect message "
        "\"現在の用紙トレイは自動選択ではありません。\\n用紙トレイを自動選択に変更しますか？\"\n";
    Play(Choose(1281, 1) + ask + "answer no\nclick 2\nexpect row 1281 1\n" + ask + "answer yes\nclick 2\n" +
         "expect row 1281 0\n" + ExpectCurrent(4, 0) + "press cancel\n");
}

// Of the sheet's own settings, which only the job properties have: 134 is ImpositionMode, 135
// ImpositionCustomMode, 244 FinishSheetDirection and 249 SheetDirection. Row 2 of the output sizes is A3,
// 168378 by 238110 of 1/14400 inch.
constexpr char kJobImposition[] = "set bank Current 134 2\n";

TEST_F(StandardSheet, LaysOutTwoByTwoOnTheOutputSize) {
    Play(std::string(kJobImposition) +
         "set bank Current 135 1\nset bank Current 244 0\nset bank Current 249 0\nset value LayoutRepeatX 2\n"
         "set value LayoutRepeatY 2\n" +
         Choose(5001, 2) +
         "expect value FinishedSizeHeight 119055\nexpect value FinishedSizeWidth 84189\n"
         "expect value LayoutRepeatX 2\nexpect value LayoutRepeatY 2\n" +
         ExpectCurrent(249, 0) + "press cancel\n");
}

TEST_F(StandardSheet, HalvesTheOutputSizeForABooklet) {
    Play(std::string(kJobImposition) + "set bank Current 135 2\n" + Choose(5001, 2) +
         "expect value FinishedSizeHeight 168378\nexpect value FinishedSizeWidth 119055\npress cancel\n");
}

TEST_F(StandardSheet, LeavesTheFinishedSizeOfAJobWithoutImposition) {
    Play("set value FinishedSizeHeight 7\nset value FinishedSizeWidth 8\n" + Choose(5001, 2) +
         "expect value FinishedSizeHeight 7\nexpect value FinishedSizeWidth 8\npress cancel\n");
}

TEST_F(StandardSheet, RestoresTheDefaultsAndLeavesApplyAsItIs) {
    Play(Choose(6010, 1) + Choose(1273, 8) +
         "check 6002 on\npress apply\nexpect disabled apply\nclick 1012\n"
         "expect row 6010 0\nexpect row 1273 0\nexpect checked 6001 on\nexpect disabled apply\n" +
         ExpectCurrent(104, 0) + ExpectCurrent(111, 0) + ExpectCurrent(2, 0) + "press ok\n");
}

TEST_F(StandardSheet, KeepsWhatIsAcceptedForTheNextProcess) {
    Play(Choose(6010, 2) + Choose(6014, 3) + Choose(1273, 8) + Choose(1155, 6) + Choose(1277, 1) +
         Choose(1281, 2) + "check 1278 on\ntype 6004 42\npress ok\n");
    Play("expect row 6010 2\nexpect row 6014 3\nexpect row 1273 8\nexpect row 1155 6\nexpect row 1277 1\n"
         "expect row 1281 2\nexpect checked 1278 on\nexpect text 6004 42\nexpect disabled apply\npress "
         "cancel\n");
}

TEST_F(StandardSheet, ForgetsWhatIsCancelled) {
    Play(Choose(6010, 2) + "press cancel\n");
    Play("expect row 6010 0\npress cancel\n");
}

TEST_F(StandardSheet, TurnsBackARowThatTheDeviceCannotDo) {
    UnfitDevice();
    Play("expect hidden 1273\nexpect hidden 1155\nexpect hidden 1156\nexpect hidden 1257\nchoose 1281 5\n"
         "expect row 1281 0\n" +
         ExpectCurrent(4, 0) + "press cancel\n");
    FitDevice();
}

TEST_F(StandardSheet, IsPicturedWithItsDialogs) {
    EXPECT_EQ(RunDriverhost({L"--script", ScriptFile(L"pictures.txt")}).output, "");
}

} // namespace
