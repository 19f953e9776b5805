// The dialog お気に入りの読み込みと保存 on the sheet of the real driver, behind the button 1398: the list
// 4008, the fields 1207 (name) and 1206 (comment), the buttons 4006 (load) and 1214 (save), and the file
// dialogs, whose field for the name is 1148.
#include "tests/sheet/favorite_files.h"
#include "tests/sheet/text_script.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Names = std::vector<std::string>;

constexpr char kForbidden[] = "次の文字または名前は使用できません。\\n\\\\/:*?\\\"<>|";
constexpr char kLength[] = "名前は1から27バイト(半角27/全角13文字)で指定してください。";
constexpr char kReserved[] = "次の文字または名前は使用できません。\\n標準";

std::string Taken(const std::string& name) {
    return "「" + name + "」は既に存在します。\\n別の名前を指定してください。";
}

std::string Refused(const std::string& message) {
    return "expect message \"" + message + "\"\nanswer ok\n";
}

std::string Save(const std::string& name, const std::string& comment = "") {
    return "click 1214\ntype 1226 \"" + name + "\"\ntype 1227 \"" + comment + "\"\nclick 1\n";
}

std::string PickFile(int button, const std::string& word) {
    return Line("click", button) + "type 1148 " + word + "\nclick 1\n";
}
constexpr int kLoad = 4006;
constexpr int kStore = 1214;

class FavoriteExchangeSheet : public testing::Test {
  protected:
    static void TearDownTestSuite() {
        ClearFavorites();
        ClearPrinter();
    }
    void SetUp() override {
        ClearPrinter();
        ClearFavorites();
    }

    // A favourite's file: two-sided printing on A4, saved by the sheet itself.
    static std::string SavedFile() {
        PlayText("choose 5000 \"A4(210x297mm)\"\n" + Choose(6010, 1) + Save("見本", "元の覚え書き") +
                 "press cancel\n");
        const std::string file = ReadText(FavoriteFile("見本"));
        ClearFavorites();
        return file;
    }

    ExchangeFolder m_folder;
};

TEST_F(FavoriteExchangeSheet, ShowsNothingToRenameWithoutFavorites) {
    PlayText(
        "click 1398\nexpect rows 4008 0\nexpect disabled 4008\nexpect disabled 1207\nexpect disabled 1206\n"
        "expect disabled 1214\nexpect enabled 4006\nclick 1\nexpect text 1300 標準\npress cancel\n");
}

TEST_F(FavoriteExchangeSheet, ShowsTheSelectedFavorite) {
    PlayText(Save("一", "初め") + Save("二", "次") +
             "click 1398\nexpect text 4008 二\nexpect text 1207 二\nexpect text 1206 次\nchoose 4008 \"一\"\n"
             "expect text 1207 一\nexpect text 1206 初め\nclick 2\nexpect text 1300 二\npress cancel\n");
}

TEST_F(FavoriteExchangeSheet, Renames) {
    PlayText(Choose(6010, 1) + Save("両面") +
             "click 1398\ntype 1207 新しい名前\nclick 1\n"
             "expect text 1300 新しい名前\nexpect rows 1300 2\nexpect row 6010 1\npress cancel\n");
    EXPECT_EQ(FavoriteNames(), (Names{"新しい名前"}));
}

TEST_F(FavoriteExchangeSheet, ForgetsARenamingThatIsCancelled) {
    PlayText(Save("両面") +
             "click 1398\ntype 1207 新しい名前\nkey escape\nexpect text 1300 両面\npress cancel\n");
    EXPECT_EQ(FavoriteNames(), (Names{"両面"}));
}

TEST_F(FavoriteExchangeSheet, ChangesAComment) {
    PlayText(Save("両面", "初め") + "click 1398\ntype 1206 直した\nclick 1\nclick 1398\n"
                                    "expect text 1206 直した\nclick 2\npress cancel\n");
    PlayText("click 1398\nexpect text 1206 直した\nclick 2\npress cancel\n");
}

TEST_F(FavoriteExchangeSheet, RefusesNamesThatNoFavoriteCanHave) {
    PlayText(Save("一") + Save("二") + "click 1398\ntype 1207 a/b\nclick 1\n" + Refused(kForbidden) +
             "type 1207 標準\nclick 1\n" + Refused(kReserved) + "type 1207 \"\"\nclick 1\n" +
             Refused(kLength) + "type 1207 1234567890123456789012345678\nclick 1\n" + Refused(kLength) +
             "type 1207 一\nclick 1\n" + Refused(Taken("一")) + "click 2\npress cancel\n");
    EXPECT_EQ(FavoriteNames().size(), 2u);
}

TEST_F(FavoriteExchangeSheet, GoesBackToARowWhoseNewNameIsRefused) {
    PlayText(Save("一") + Save("二") + "click 1398\nchoose 4008 \"一\"\ntype 1207 a*b\nchoose 4008 \"二\"\n" +
             Refused(kForbidden) + "expect text 4008 一\nclick 2\npress cancel\n");
}

TEST_F(FavoriteExchangeSheet, AppliesARenamingWhenAnotherRowIsChosen) {
    PlayText(Save("一") + Save("二") +
             "click 1398\nchoose 4008 \"一\"\ntype 1207 壱\nchoose 4008 \"二\"\n"
             "expect text 1207 二\nclick 2\npress cancel\n");
    EXPECT_EQ(FavoriteNames().size(), 2u);
    PlayText("choose 1300 \"壱\"\npress cancel\n");
}

TEST_F(FavoriteExchangeSheet, LoadsAFile) {
    WriteText(m_folder.File("持込.pfk"), SavedFile());
    PlayText(
        "click 1398\n" + PickFile(kLoad, m_folder.Word("持込.pfk")) +
        "expect text 4008 持込\nexpect text 1207 持込\nexpect text 1206 元の覚え書き\nexpect enabled 1214\n"
        "click 1\nexpect text 1300 持込\nexpect row 6010 1\npress cancel\n");
    EXPECT_EQ(FavoriteNames(), (Names{"持込"}));
}

TEST_F(FavoriteExchangeSheet, LoadsNothingWhenTheFileDialogIsCancelled) {
    PlayText("click 1398\nclick 4006\nclick 2\nexpect rows 4008 0\nclick 2\npress cancel\n");
}

constexpr char kOtherFormat[] = "このファイルは形式が異なるため読み込めません。";

TEST_F(FavoriteExchangeSheet, RefusesAFileOfAnOlderFormat) {
    WriteText(m_folder.File("古い.pfk"), ReadText(ZR_TEST_DATA_DIR "/favorite_old.pfk"));
    PlayText("click 1398\n" + PickFile(kLoad, m_folder.Word("古い.pfk")) + Refused(kOtherFormat) +
             "expect rows 4008 0\nclick 2\npress cancel\n");
    EXPECT_EQ(FavoriteNames(), Names{});
}

TEST_F(FavoriteExchangeSheet, RefusesABrokenFile) {
    const std::string file = SavedFile();
    WriteText(m_folder.File("半分.pfk"), file.substr(0, file.size() / 2));
    WriteText(m_folder.File("空.pfk"), "");
    for (const char* name : {"半分.pfk", "空.pfk"})
        PlayText("click 1398\n" + PickFile(kLoad, m_folder.Word(name)) + Refused(kOtherFormat) +
                 "expect rows 4008 0\nclick 2\npress cancel\n");
    EXPECT_EQ(FavoriteNames(), Names{});
}

std::string WithPageSize(std::string file, const std::string& utf8Size) {
    const std::size_t begin = file.find("<PageSize>") + 10;
    return file.replace(begin, file.find("</PageSize>") - begin, utf8Size);
}

TEST_F(FavoriteExchangeSheet, WarnsOfADocumentSizeThatThePrinterLacks) {
    WriteText(m_folder.File("よそ.pfk"), WithPageSize(SavedFile(), "Unknown size"));
    PlayText(
        "click 1398\n" + PickFile(kLoad, m_folder.Word("よそ.pfk")) +
        Refused("「よそ」の原稿サイズはこのプリンターでは使用できません。\\n原稿サイズを確認してください。") +
        "expect text 4008 よそ\nclick 1\nexpect row 6010 1\npress cancel\n");
    EXPECT_EQ(FavoriteNames(), (Names{"よそ"}));
}

TEST_F(FavoriteExchangeSheet, WarnsOfAFileWithoutADocumentSize) {
    WriteText(m_folder.File("無し.pfk"), WithPageSize(SavedFile(), ""));
    PlayText("click 1398\n" + PickFile(kLoad, m_folder.Word("無し.pfk")) +
             Refused("このお気に入りには原稿サイズが記録されていません。\\n原稿サイズを確認してください。") +
             "expect text 4008 無し\nclick 1\npress cancel\n");
}

// The dialog for the file stays open behind each message.
TEST_F(FavoriteExchangeSheet, RefusesToLoadUnderNamesThatAreTakenOrThatNoFavoriteCanHave) {
    const std::string file = SavedFile();
    const std::string tooLong = "123456789012345678901234567";
    for (const std::string& name : {std::string("標準"), tooLong, std::string("見本")})
        WriteText(m_folder.File(name + ".pfk"), file);
    WriteText(m_folder.File("良い.pfk"), file);
    PlayText(Save("見本") + "click 1398\n" + PickFile(kLoad, m_folder.Word("標準.pfk")) + Refused(kReserved) +
             "type 1148 " + m_folder.Word(tooLong + ".pfk") + "\nclick 1\n" +
             Refused("ファイル名が長すぎます。\\nファイル名が26バイト以内のファイルを選択してください。") +
             "type 1148 " + m_folder.Word("見本.pfk") + "\nclick 1\n" + Refused(Taken("見本")) +
             "type 1148 " + m_folder.Word("良い.pfk") +
             "\nclick 1\nexpect rows 4008 2\nclick 1\npress cancel\n");
}

TEST_F(FavoriteExchangeSheet, SavesAFileThatIsReadAgain) {
    PlayText(Choose(6010, 1) + Save("両面", "覚え") + "click 1398\n" +
             PickFile(kStore, m_folder.Word("持出")) + "click 2\npress cancel\n");
    EXPECT_NE(ReadText(m_folder.File("持出.pfk")).find("<DuplexMode>1</DuplexMode>"), std::string::npos);
    EXPECT_EQ(FavoriteNames(), (Names{"両面"}));
    ClearFavorites();
    PlayText("click 1398\n" + PickFile(kLoad, m_folder.Word("持出.pfk")) +
             "expect text 1206 覚え\nclick 1\nexpect text 1300 持出\nexpect row 6010 1\npress cancel\n");
}

TEST_F(FavoriteExchangeSheet, DoesNotOverwriteAFile) {
    WriteText(m_folder.File("持出.pfk"), "other");
    PlayText(Save("両面") + "click 1398\n" + PickFile(kStore, m_folder.Word("持出.pfk")) +
             Refused(Taken("持出")) + "type 1148 " + m_folder.Word("別名") +
             "\nclick 1\nclick 2\npress cancel\n");
    EXPECT_EQ(ReadText(m_folder.File("持出.pfk")), "other");
    EXPECT_NE(ReadText(m_folder.File("別名.pfk")), "");
}

} // namespace
