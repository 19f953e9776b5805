// The favourites on the sheet of the real driver: the combo box 1300 with its mark, the buttons 1214 (save)
// and 1215 (delete), and the dialog that asks for a name, with its fields 1226 (name) and 1227 (comment).
// Keyword 104 is the duplex mode, whose combo box is 6010; 111 the staples', 1273; 2 the orientation.
#include "tests/sheet/device_data.h"
#include "tests/sheet/favorite_files.h"
#include "tests/sheet/program.h"
#include "tests/sheet/text_script.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Names = std::vector<std::string>;

class FavoriteSheet : public testing::Test {
  protected:
    static void SetUpTestSuite() { FitDevice(); }
    static void TearDownTestSuite() {
        UnfitDevice();
        ClearFavorites();
        ClearPrinter();
    }
    void SetUp() override {
        ClearPrinter();
        ClearFavorites();
    }
};

std::string Save(const std::string& name, const std::string& comment = "") {
    return "click 1214\ntype 1226 \"" + name + "\"\ntype 1227 \"" + comment + "\"\nclick 1\n";
}

std::string Selected(const std::string& text) {
    return "expect text 1300 \"" + text + "\"\n";
}

std::string CommentIn(const std::string& file) {
    const std::size_t begin = file.find("<Comment>") + 9;
    return file.substr(begin, file.find("</Comment>") - begin);
}

TEST_F(FavoriteSheet, OpensOnTheStandardSettings) {
    PlayText(Selected("標準") +
             "expect rows 1300 1\nexpect row 1300 0\nexpect disabled 1215\npress cancel\n");
}

TEST_F(FavoriteSheet, SavesTheSettingsUnderANewNameAndSelectsIt) {
    PlayText(Choose(6010, 1) + Save("会議資料", "両面で2部") + Selected("会議資料") +
             "expect rows 1300 2\nexpect enabled 1215\nexpect row 6010 1\npress cancel\n");
    EXPECT_EQ(FavoriteNames(), (Names{"会議資料"}));
    EXPECT_NE(ReadText(FavoriteFile("会議資料")).find("<DuplexMode>1</DuplexMode>"), std::string::npos);
}

TEST_F(FavoriteSheet, ShowsAFavoriteInTheNextProcess) {
    PlayText(Choose(6010, 1) + Save("会議資料") + "press cancel\n");
    PlayText(Selected("標準") + "expect rows 1300 2\nexpect item 1300 1 会議資料\nexpect row 6010 0\n" +
             Choose(1300, 1) + Selected("会議資料") + "expect row 6010 1\n" + ExpectCurrent(104, 1) +
             "press cancel\n");
}

TEST_F(FavoriteSheet, MarksTheStandardSettingsOnceOneIsChanged) {
    PlayText(Choose(6010, 1) + Selected("<変更>標準") +
             "expect row 1300 1\nexpect rows 1300 2\nexpect disabled 1215\n" + Choose(1273, 1) +
             Selected("<変更>標準") + "expect rows 1300 2\npress cancel\n");
}

TEST_F(FavoriteSheet, TakesTheMarkAwayWhenTheSettingIsChangedBack) {
    PlayText(Choose(6010, 1) + Selected("<変更>標準") + Choose(6010, 0) + Selected("標準") +
             "expect rows 1300 1\nexpect disabled 1215\npress cancel\n");
}

TEST_F(FavoriteSheet, MarksAFavoriteAndGivesItsDeleteButtonBackWithTheMarkGone) {
    PlayText(Choose(6010, 1) + Save("会議資料") + "expect enabled 1215\n" + Choose(6010, 2) +
             Selected("<変更>会議資料") + "expect disabled 1215\nexpect rows 1300 3\n" + Choose(6010, 1) +
             Selected("会議資料") + "expect enabled 1215\nexpect rows 1300 2\npress cancel\n");
}

TEST_F(FavoriteSheet, PicksByMouse) {
    PlayText(Choose(6010, 1) + Save("両面") + Choose(6010, 0) + Choose(1273, 1) + Save("綴じ") +
             "choose 1300 \"両面\"\nexpect row 6010 1\nexpect row 1273 0\n" + ExpectCurrent(104, 1) +
             ExpectCurrent(111, 0) + "choose 1300 \"綴じ\"\nexpect row 6010 0\nexpect row 1273 1\n" +
             ExpectCurrent(104, 0) + ExpectCurrent(111, 1) +
             "choose 1300 \"標準\"\nexpect row 6010 0\nexpect row 1273 0\nexpect disabled 1215\n" +
             ExpectCurrent(104, 0) + ExpectCurrent(111, 0) + "press cancel\n");
}

TEST_F(FavoriteSheet, PicksByKeyboard) {
    PlayText(Choose(6010, 1) + Save("両面") + "choose 1300 0\nexpect row 6010 0\nkey down\n" +
             Selected("両面") + "expect row 6010 1\nkey up\n" + Selected("標準") +
             "expect row 6010 0\npress cancel\n");
}

TEST_F(FavoriteSheet, PickedSettingsAreTheDriversOnceTheyAreApplied) {
    PlayText(Choose(6010, 1) + "check 6002 on\n" + Save("両面") + "choose 1300 0\npress apply\n" +
             Choose(1300, 1) + "press ok\n");
    PlayText("expect row 6010 1\nexpect checked 6002 on\nexpect bank Preview 104 1\n"
             "expect bank Preview 2 1\npress cancel\n");
}

TEST_F(FavoriteSheet, DropsTheMarkedRowWhenAnotherOneIsPicked) {
    PlayText(Save("両面") + Choose(6010, 1) + Selected("<変更>両面") + "expect rows 1300 3\nchoose 1300 0\n" +
             Selected("標準") + "expect rows 1300 2\nexpect row 6010 0\npress cancel\n");
}

TEST_F(FavoriteSheet, OffersAMarkedNameWithoutItsMarkAndWithItsComment) {
    PlayText(Save("両面", "覚え書き") + Choose(6010, 1) + Selected("<変更>両面") +
             "click 1214\nexpect text 1226 両面\nexpect text 1227 覚え書き\nclick 2\n" +
             Selected("<変更>両面") + "press cancel\n");
}

TEST_F(FavoriteSheet, OffersNoNameForTheStandardSettings) {
    PlayText("click 1214\nexpect text 1226 \"\"\nexpect text 1227 \"\"\nclick 2\npress cancel\n");
    EXPECT_EQ(FavoriteNames(), Names{});
}

constexpr char kOverwrite[] = "expect message \"同じ名前のお気に入りが存在します。\\n上書きしますか？\"\n";

TEST_F(FavoriteSheet, LeavesAFavoriteWhoseOverwritingIsDeclined) {
    PlayText(Save("両面", "初め") + "press cancel\n");
    const std::string before = ReadText(FavoriteFile("両面"));
    PlayText(Choose(6010, 1) + Save("両面", "次") + kOverwrite + "answer no\n" + Selected("<変更>標準") +
             "expect rows 1300 3\npress cancel\n");
    EXPECT_EQ(ReadText(FavoriteFile("両面")), before);
}

TEST_F(FavoriteSheet, OverwritesTheSettingsAndKeepsTheOldComment) {
    PlayText(Save("両面", "初め") + "press cancel\n");
    const std::string before = ReadText(FavoriteFile("両面"));
    PlayText(Choose(6010, 1) + Save("両面", "次") + kOverwrite + "answer yes\n" + Selected("両面") +
             "expect rows 1300 2\npress cancel\n");
    const std::string after = ReadText(FavoriteFile("両面"));
    EXPECT_EQ(CommentIn(after), CommentIn(before));
    EXPECT_NE(after.find("<DuplexMode>1</DuplexMode>"), std::string::npos);
}

TEST_F(FavoriteSheet, OverwritesTheChosenFavoriteWithItsChanges) {
    PlayText(Save("両面") + Choose(6010, 1) + "click 1214\nexpect text 1226 両面\nkey enter\n" + kOverwrite +
             "answer yes\n" + Selected("両面") + "expect row 6010 1\npress cancel\n");
    PlayText(Choose(1300, 1) + "expect row 6010 1\npress cancel\n");
}

TEST_F(FavoriteSheet, SavesNothingWhenTheDialogIsCancelled) {
    PlayText(Choose(6010, 1) + "click 1214\ntype 1226 無\nkey escape\n" + Selected("<変更>標準") +
             "expect rows 1300 2\npress cancel\n");
    EXPECT_EQ(FavoriteNames(), Names{});
}

std::string RefusedName(const std::string& name, const std::string& message) {
    return "type 1226 \"" + name + "\"\nclick 1\nexpect message \"" + message +
           "\"\nanswer ok\nexpect focus 1226\n";
}

TEST_F(FavoriteSheet, RefusesNamesThatNoFavoriteCanHave) {
    const std::string length = "名前は1から27バイト(半角27/全角13文字)で指定してください。";
    PlayText("click 1214\n" + RefusedName("", length) + RefusedName("   ", length) +
             RefusedName("　　", length) + RefusedName("1234567890123456789012345678", length) +
             RefusedName("一二三四五六七八九十一二三四", length) + RefusedName("a/b", length) +
             RefusedName("標準", "次の文字または名前は使用できません。\\n標準") + "click 2\npress cancel\n");
    EXPECT_EQ(FavoriteNames(), Names{});
}

TEST_F(FavoriteSheet, TakesTheLongestNamesAndOneWhoseSecondByteIsABackslash) {
    PlayText(Save("123456789012345678901234567") + Save("一二三四五六七八九十一二三") + Save("表") +
             "expect rows 1300 4\npress cancel\n");
    EXPECT_EQ(FavoriteNames().size(), 3u);
    PlayText("expect rows 1300 4\nchoose 1300 \"表\"\nexpect enabled 1215\npress cancel\n");
}

TEST_F(FavoriteSheet, RefusesACommentThatIsTooLong) {
    const std::string longest(255, 'c');
    PlayText(
        "click 1214\ntype 1226 長い\ntype 1227 " + longest +
        "c\nclick 1\nexpect message \"コメントは255バイト(半角255/全角127文字)以内で指定してください。\"\n"
        "answer ok\nexpect focus 1227\ntype 1227 " +
        longest + "\nclick 1\n" + Selected("長い") + "press cancel\n");
    EXPECT_EQ(CommentIn(ReadText(FavoriteFile("長い"))), longest);
}

constexpr char kDelete[] = "expect message \"選択したお気に入りを削除します。\\nよろしいですか？\"\n";

TEST_F(FavoriteSheet, DeletesAfterAskingAndGoesBackToTheStandardSettings) {
    PlayText(Choose(6010, 1) + Save("両面") + "click 1215\n" + kDelete + "answer no\n" + Selected("両面") +
             "expect rows 1300 2\nclick 1215\n" + kDelete + "answer yes\n" + Selected("標準") +
             "expect rows 1300 1\nexpect row 6010 0\nexpect disabled 1215\n" + ExpectCurrent(104, 0) +
             "press cancel\n");
    EXPECT_EQ(FavoriteNames(), Names{});
}

TEST_F(FavoriteSheet, RestoresTheStandardSettingsByTheButton) {
    PlayText(Choose(6010, 1) + Save("両面") + Choose(1273, 8) + Selected("<変更>両面") + "click 1012\n" +
             Selected("標準") + "expect row 6010 0\nexpect row 1273 0\nexpect rows 1300 2\n" +
             ExpectCurrent(104, 0) + ExpectCurrent(111, 0) + "press cancel\n");
}

// What stands in the file is no number that any setting has.
TEST_F(FavoriteSheet, StaysWholeWithAFavoriteOfAbsurdValues) {
    PlayText(Save("両面") + "press cancel\n");
    for (const char* absurd : {"4294967295", "2147483647", "-2147483648"}) {
        std::string file = ReadText(FavoriteFile("両面"));
        const std::size_t options = file.find("<PrintOption>");
        std::string spoilt = file.substr(0, options);
        for (std::size_t i = options; i < file.size();) {
            const bool isNumber = file[i] == '>' && i + 1 < file.size() &&
                                  (file[i + 1] == '-' || (file[i + 1] >= '0' && file[i + 1] <= '9'));
            spoilt += file[i++];
            if (isNumber) {
                spoilt += absurd;
                i = file.find('<', i);
            }
        }
        WriteText(FavoriteFile("外来"), spoilt);
        PlayText("choose 1300 \"外来\"\nexpect visible 6010\nexpect visible 1285\nexpect enabled 1214\npress "
                 "ok\n");
        PlayText("expect page 基本\npage 詳細設定\npage 基本\nchoose 1300 \"両面\"\nexpect row 6010 0\n"
                 "expect row 1273 0\npress ok\n");
    }
}

TEST_F(FavoriteSheet, ListsNoFileThatIsBroken) {
    PlayText(Save("両面") + "press cancel\n");
    const std::string file = ReadText(FavoriteFile("両面"));
    WriteText(FavoriteFile("半分"), file.substr(0, file.size() / 2));
    WriteText(FavoriteFile("空"), "");
    PlayText("expect rows 1300 2\nexpect item 1300 1 両面\npress cancel\n");
}

TEST_F(FavoriteSheet, IsPicturedWithItsDialogs) {
    EXPECT_EQ(RunDriverhost({L"--script", ScriptFile(L"pictures_favorites.txt")}).output, "");
    EXPECT_EQ(FavoriteNames(), Names{});
}

} // namespace
