#include "settings/favorite_texts.h"
#include "tests/settings/fake_document.h"
#include "tests/settings/favorite_fixture.h"
#include "tests/settings/travelling_fields.h"
#include "tests/support/utf8_text.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

class FavoriteReadTest : public FavoriteTest {
  protected:
    int ReadPath(const std::string& path) { return manager.LoadFavoriteFromPath(setting, path.c_str()); }
    std::string_view Comment() const { return setting.Comment.data(); }
};

TEST_F(FavoriteReadTest, AFileThatCantBeOpenedGivesZero) {
    EXPECT_EQ(ReadPath(PathOf("none.pfk")), 0);
    EXPECT_EQ(ReadPath(folder.string()), 0);
    EXPECT_EQ(manager.LoadFavoriteFromPath(setting, nullptr), 0);
}

TEST_F(FavoriteReadTest, AFileThatIsNoXmlAtAllGivesMinusOne) {
    EXPECT_EQ(ReadPath(Write("a.pfk", "no XML at all")), -1);
    EXPECT_EQ(ReadPath(Write("b.pfk", "")), -1);
    EXPECT_EQ(ReadPath(Write("c.pfk", "<Favorite><FileVer>2</FileVer>")), -1);
    EXPECT_EQ(ReadPath(Write("d.pfk", std::string(5'000'000, ' '))), -1);
    EXPECT_EQ(ReadPath(Write("e.pfk", "<!DOCTYPE Favorite><Favorite/>")), -1);
}

TEST_F(FavoriteReadTest, AFileThatIsNoXmlLeavesTheSettingAsItWas) {
    setting.FileVer = 7;
    Store("ONOC", "12");
    EXPECT_EQ(ReadPath(Write("a.pfk", "no XML at all")), -1);
    EXPECT_EQ(setting.FileVer, 7u);
    EXPECT_EQ(Value("ONOC"), "12");
}

TEST_F(FavoriteReadTest, TheHeaderIsRead) {
    EXPECT_EQ(Read(FileOf({{"FileVer", "2"},
                           {"IotVer", "10"},
                           {"CharCode", "1"},
                           {"Comment", Utf8(u8"表 &amp; 能")},
                           {"PageSize", "A4"}})),
              1);
    EXPECT_EQ(setting.FileVer, 2u);
    EXPECT_EQ(setting.IotVer, 10u);
    EXPECT_EQ(setting.CharCode, 1u);
    EXPECT_EQ(Comment(), "表 & 能");
    EXPECT_STREQ(setting.PageSize.data(), "A4");
}

TEST_F(FavoriteReadTest, AFileWithoutPageSizeReads) {
    setting.PageSize = {'A', '4'};
    EXPECT_EQ(Read(FileOf({{"FileVer", "2"}, {"IotVer", "10"}, {"CharCode", "0"}, {"Comment", "c"}})), 1);
    EXPECT_STREQ(setting.PageSize.data(), "");
    EXPECT_EQ(Comment(), "c");
}

TEST_F(FavoriteReadTest, AFileWithoutHeaderReadsAsZerosAndEmptyTexts) {
    setting.FileVer = setting.IotVer = setting.CharCode = 5;
    setting.Comment = {'x'};
    EXPECT_EQ(Read("<Favorite/>"), 1);
    EXPECT_EQ(setting.FileVer, 0u);
    EXPECT_EQ(setting.IotVer, 0u);
    EXPECT_EQ(setting.CharCode, 0u);
    EXPECT_EQ(Comment(), "");
}

TEST_F(FavoriteReadTest, NumbersOfTheHeaderAreReadUpToWhereTheyEnd) {
    EXPECT_EQ(Read(FileOf({{"FileVer", " +12abc"}, {"IotVer", "abc"}, {"CharCode", "4294967295"}})), 1);
    EXPECT_EQ(setting.FileVer, 12u);
    EXPECT_EQ(setting.IotVer, 0u);
    EXPECT_EQ(setting.CharCode, 4294967295u);
}

TEST_F(FavoriteReadTest, TextsOfTheHeaderAreZeroedBehindTheirEnd) {
    setting.Comment.fill('x');
    setting.PageSize.fill('x');
    EXPECT_EQ(Read(FileOf({{"Comment", "ab"}, {"PageSize", ""}})), 1);
    CFavoriteSetting expected;
    std::memcpy(expected.Comment.data(), "ab", 2);
    EXPECT_EQ(setting.Comment, expected.Comment);
    EXPECT_EQ(setting.PageSize, expected.PageSize);
}

TEST_F(FavoriteReadTest, TextsOfTheHeaderAreCutOnACharacterBoundary) {
    std::string utf8;
    std::string ansi;
    for (int i = 0; i < 130; ++i) {
        utf8 += Utf8(u8"表");
        ansi += "表";
    }
    EXPECT_EQ(Read(FileOf({{"Comment", utf8}, {"PageSize", "a" + utf8}})), 1);
    EXPECT_EQ(Comment(), ansi.substr(0, 254));
    EXPECT_EQ(setting.PageSize.data(), "a" + ansi.substr(0, 258));
}

TEST_F(FavoriteReadTest, TheLastOccurrenceOfAnElementWinsWhereverItStands) {
    EXPECT_EQ(Read("<Favorite><IotVer>9</IotVer><NumOfCopies>3</NumOfCopies>"
                   "<PrintOption><NumOfCopies>4</NumOfCopies></PrintOption>"
                   "<Other><IotVer>10</IotVer><Deep><NumOfCopies>5</NumOfCopies></Deep></Other></Favorite>"),
              1);
    EXPECT_EQ(setting.IotVer, 10u);
    EXPECT_EQ(Value("ONOC"), "5");
}

TEST_F(FavoriteReadTest, TheRootMayHaveAnyName) {
    EXPECT_EQ(Read("<NumOfCopies>6</NumOfCopies>"), 1);
    EXPECT_EQ(Value("ONOC"), "6");
}

TEST_F(FavoriteReadTest, UnknownElementsAreIgnored) {
    EXPECT_EQ(Read(FileOf({{"Scale", "50"}, {"ONOC", "9"}, {"NumOfCopies", "2"}})), 1);
    EXPECT_EQ(Value("ONOC"), "2");
}

TEST_F(FavoriteReadTest, AuthenticationTagsThatAreAbsentGetEmptyValues) {
    Store("OAJ", "1");
    Store("OAJUI", "user");
    Store("OAJP", "secret");
    Store("OAJA", "account");
    EXPECT_EQ(Read(FileOf({})), 1);
    EXPECT_EQ(Value("OAJ"), "0");
    EXPECT_EQ(Value("OAJUI"), "");
    EXPECT_EQ(Value("OAJP"), "");
    EXPECT_EQ(Value("OAJA"), "");
}

TEST_F(FavoriteReadTest, AnElementThatIsAbsentEmptiesItsField) {
    const auto fields = TravellingFields();
    for (const TravellingField& field : fields) {
        if (field.IsText())
            field.PutText(setting.PrintOption(), "x");
        else
            field.PutNumber(setting.PrintOption(), 3);
    }
    EXPECT_EQ(Read(FileOf({})), 1);
    CFavoriteSetting fresh;
    EXPECT_EQ(manager.LoadFavorite(fresh, *std::make_unique<MemorySource>("<Favorite/>")), 1);
    for (const TravellingField& field : fields)
        EXPECT_EQ(field.BytesIn(setting.PrintOption()), field.BytesIn(fresh.PrintOption())) << field.tag;
    EXPECT_EQ(Value("ONOC"), "1"); // never below 1
    EXPECT_EQ(Value("OTra"), "0");
    EXPECT_EQ(Value("OFol"), "");
}

TEST_F(FavoriteReadTest, EveryFieldIsReadFromItsElement) {
    for (const TravellingField& field : TravellingFields()) {
        const std::string text = field.IsText() ? "T" : field.field.type == "i32 fixed" ? "5.0" : "7";
        ASSERT_EQ(Read(FileOf({{field.longName, text}})), 1);
        if (field.IsText()) {
            EXPECT_EQ(field.TextIn(setting.PrintOption()), "T") << field.tag;
            EXPECT_TRUE(!field.field.flag || field.BytesIn(setting.PrintOption()).back() == 1) << field.tag;
        } else if (field.field.type == "i32 fixed") {
            const bool isInTenths = field.longName.ends_with("Mag");
            EXPECT_EQ(field.NumberIn(setting.PrintOption()), isInTenths ? 50 : 500) << field.tag;
        } else {
            EXPECT_EQ(field.NumberIn(setting.PrintOption()), 7) << field.tag;
        }
    }
}

TEST_F(FavoriteReadTest, AValueIsCutToItsField) {
    EXPECT_EQ(Read(FileOf({{"Folder", std::string(31, 'a') + Utf8(u8"表") + std::string(9000, 'b')}})), 1);
    EXPECT_EQ(Value("OFol"), std::string(31, 'a'));
}

TEST_F(FavoriteReadTest, WithoutADocumentNothingIsParsed) {
    EXPECT_EQ(manager.ParseXmlData(nullptr, setting), 0);
}

TEST_F(FavoriteReadTest, TagValueIsTheLastTextOfAnyName) {
    ASSERT_TRUE(
        document.Load(std::string_view("<r><Tray>1</Tray><Own>2</Own><Own>3</Own><Tray>4</Tray></r>")));
    FavoriteDocument favorite(document);
    std::string out = "before";
    EXPECT_EQ(manager.GetTagValue(favorite, "Tray", out), 1);
    EXPECT_EQ(out, "4");
    EXPECT_EQ(manager.GetTagValue(favorite, "Own", out), 1);
    EXPECT_EQ(out, "3");
    EXPECT_EQ(manager.GetTagValue(favorite, "Missing", out), 1);
    EXPECT_EQ(out, "");
    EXPECT_EQ(manager.GetTagValue(favorite, "CreaseNum", out), 1);
    EXPECT_EQ(out, "1");
}

TEST_F(FavoriteReadTest, TagValueOfAnUnlistedNameIsCutAsOthersAre) {
    ASSERT_TRUE(document.Load(std::string_view("<r><Own>" + std::string(6000, 'a') + "</Own></r>")));
    FavoriteDocument favorite(document);
    std::string out;
    EXPECT_EQ(manager.GetTagValue(favorite, "Own", out), 1);
    EXPECT_EQ(out, std::string(5399, 'a'));
}

TEST_F(FavoriteReadTest, TagValueOfElementsThatCantBeListedIsNone) {
    FakeDocument failing;
    FavoriteDocument favorite(failing);
    std::string out = "before";
    EXPECT_EQ(manager.GetTagValue(favorite, "Tray", out), 0);
    EXPECT_EQ(manager.GetTagValue(favorite, "Own", out), 0);
    EXPECT_EQ(out, "before");
    EXPECT_EQ(manager.ParseXmlData(&favorite, setting), 0);
}

} // namespace
