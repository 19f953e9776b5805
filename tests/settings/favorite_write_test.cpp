#include "settings/favorite_writer.h"

#include "Common/text.h"
#include "settings/InterchangeOptionTag.h"
#include "tests/settings/fake_document.h"
#include "tests/settings/favorite_fixture.h"
#include "tests/settings/travelling_fields.h"
#include "tests/support/ansi_text.h"
#include "tests/support/tag_listing.h"
#include "tests/support/utf8_text.h"

#include <algorithm>
#include <map>

namespace {

using Lines = std::vector<std::string>;

class FavoriteWriteTest : public FavoriteTest {
  protected:
    FavoriteWriteTest() {
        setting.FileVer = 2;
        setting.IotVer = 10;
        setting.CharCode = 4294967295u;
        CopyText(setting.Comment, "表のコメント");
        CopyText(setting.PageSize, "A4");
    }

    Lines Written() {
        FakeDocument fake;
        EXPECT_TRUE(WriteFavoriteDocument(setting, fake));
        return fake.Lines();
    }
};

// By key: those of the listing, and for the families, whose rule tag_description_test.cpp holds, the table's.
std::map<std::string, std::string> Descriptions() {
    std::map<std::string, std::string> descriptions;
    for (const ListedTagDescription& row : ListedTagDescriptions())
        descriptions[row.key] = AnsiText(row.description);
    EXPECT_EQ(descriptions.size(), 531u);
    for (const ListedTag& tag : ListedTags()) {
        std::string longName;
        std::string description;
        CTagTable().GetTagInfo(tag.key, &longName, &description);
        descriptions.emplace(tag.key, description);
    }
    return descriptions;
}

// The elements of PrintOption, each value as `valueOf` gives it.
template <class ValueOf>
Lines OptionLines(ValueOf valueOf) {
    const auto descriptions = Descriptions();
    Lines lines;
    for (const ListedTag& tag : ListedTags()) {
        if (IsAuthentication(tag.key))
            continue;
        lines.push_back("<!--" + descriptions.at(tag.key) + "-->");
        lines.push_back("<" + tag.longName + ">");
        lines.push_back("'" + valueOf(tag.key) + "'");
        lines.push_back("</" + tag.longName + ">");
    }
    EXPECT_EQ(lines.size(), 860u * 4);
    return lines;
}

} // namespace

TEST_F(FavoriteWriteTest, TheHeaderStandsInItsOrderEachElementAfterItsComment) {
    const Lines expected{
        "<?xml version='1.0' encoding='UTF-8'?>",
        "<!--お気に入り-->",
        "<Favorite>",
        "<!--ファイルバージョン-->",
        "<FileVer>",
        "'2'",
        "</FileVer>",
        "<!--IOTバージョン-->",
        "<IotVer>",
        "'10'",
        "</IotVer>",
        "<!--文字コード-->",
        "<CharCode>",
        "'4294967295'",
        "</CharCode>",
        "<!--コメント-->",
        "<Comment>",
        "'表のコメント'",
        "</Comment>",
        "<!--原稿サイズ-->",
        "<PageSize>",
        "'A4'",
        "</PageSize>",
        "<!--プリントオプション-->",
        "<PrintOption>",
    };
    const Lines written = Written();
    ASSERT_GT(written.size(), expected.size());
    EXPECT_EQ(Lines(written.begin(), written.begin() + static_cast<std::ptrdiff_t>(expected.size())),
              expected);
}

TEST_F(FavoriteWriteTest, EveryRowOfTheTagTableStandsInItsOrderAfterItsDescription) {
    for (const TravellingField& field : TravellingFields()) {
        if (field.IsText())
            field.PutText(setting.PrintOption(), "t" + field.tag.substr(0, field.field.width - 2));
        else
            field.PutNumber(setting.PrintOption(), 2 + static_cast<std::int64_t>(field.field.offset));
    }
    const Lines expected = OptionLines([&](const std::string& key) { return Value(key.c_str()); });
    Lines written = Written();
    ASSERT_EQ(written.size(), 25 + expected.size() + 2);
    EXPECT_EQ(Lines(written.begin() + 25, written.end() - 2), expected);
    EXPECT_EQ(Lines(written.end() - 2, written.end()), (Lines{"</PrintOption>", "</Favorite>"}));
}

TEST_F(FavoriteWriteTest, AValueThatIsEmptyStillProducesItsElement) {
    const Lines written = Written();
    std::size_t empty = 0;
    for (std::size_t i = 0; i + 1 < written.size(); ++i)
        empty += written[i].starts_with("<") && written[i + 1] == "''";
    // The 391 rows that reach no field, and the 67 texts but for the three of authentication.
    EXPECT_EQ(empty, 391u + 64u);
}

TEST_F(FavoriteWriteTest, AuthenticationIsNeverWritten) {
    Store("OAJ", "1");
    Store("OAJUI", "someone");
    Store("OAJP", "secret");
    Store("OAJA", "account");
    for (const std::string& line : Written()) {
        EXPECT_FALSE(line.starts_with("<AuthJob")) << line;
        for (const char* text : {"someone", "secret", "account"})
            EXPECT_EQ(line.find(text), std::string::npos) << line;
    }
}

TEST_F(FavoriteWriteTest, TheFileHoldsTheDocumentInUtf8) {
    const std::string path = PathOf("a.pfk");
    ASSERT_EQ(manager.SaveFavoriteFromPath(setting, path.c_str()), 1);
    std::string content = Content(path);
    std::erase(content, '\n');
    std::erase(content, '\r');
    const std::string begin = Utf8(
        u8"<?xml version='1.0' encoding='UTF-8'?><!--お気に入り--><Favorite>"
        u8"<!--ファイルバージョン--><FileVer>2</FileVer><!--IOTバージョン--><IotVer>10</IotVer>"
        u8"<!--文字コード--><CharCode>4294967295</CharCode><!--コメント--><Comment>表のコメント</Comment>"
        u8"<!--原稿サイズ--><PageSize>A4</PageSize><!--プリントオプション--><PrintOption>"
        u8"<!--PostScript Custom Page Size・幅--><CustomPaperWidth>");
    EXPECT_EQ(content.substr(0, begin.size()), begin);
    EXPECT_TRUE(content.ends_with("</StapleMechanism></PrintOption></Favorite>"));
}

TEST_F(FavoriteWriteTest, ControlCharactersAreLeftOutSoThatTheFileCanBeRead) {
    CopyText(setting.Comment, "a\x01\r\n\tb");
    Store("OFol", "c\x1F"
                  "d");
    const std::string path = PathOf("a.pfk");
    ASSERT_EQ(manager.SaveFavoriteFromPath(setting, path.c_str()), 1);
    CFavoriteSetting read;
    ASSERT_EQ(manager.LoadFavoriteFromPath(read, path.c_str()), 1);
    EXPECT_STREQ(read.Comment.data(), "ab");
    EXPECT_EQ(Value("OFol", read), "cd");
}

TEST_F(FavoriteWriteTest, AFieldWithoutEndIsWrittenWhole) {
    setting.Comment.fill('c');
    const Lines written = Written();
    EXPECT_NE(std::ranges::find(written, "'" + std::string(256, 'c') + "'"), written.end());
}

TEST_F(FavoriteWriteTest, WhereNothingCanBeSavedTheAnswerIsZero) {
    EXPECT_EQ(manager.SaveFavoriteFromPath(setting, PathOf("none/a.pfk").c_str()), 0);
    EXPECT_EQ(manager.SaveFavoriteFromPath(setting, nullptr), 0);
    std::filesystem::create_directory(PathOf("a.pfk"));
    EXPECT_EQ(manager.SaveFavoriteFromPath(setting, PathOf("a.pfk").c_str()), 0);
    EXPECT_EQ(CountFiles(), 1u);
}

TEST_F(FavoriteWriteTest, WriteXmlPrintOptionAppendsToTheRootThatItIsGiven) {
    FakeDocument fake;
    const auto root = fake.CreateElement("Root");
    ASSERT_TRUE(fake.AppendChild(*root));
    EXPECT_EQ(manager.WriteXmlPrintOption(setting, fake, *root), 1);
    const Lines lines = fake.Lines();
    EXPECT_EQ(lines.size(), 2 + 2 + 860u * 4);
    EXPECT_EQ(Lines(lines.begin(), lines.begin() + 2), (Lines{"<Root>", "<PrintOption>"}));
}

TEST_F(FavoriteWriteTest, AStepThatFailsAnywhereFailsTheWhole) {
    FakeDocument whole;
    ASSERT_TRUE(WriteFavoriteDocument(setting, whole));
    // Two for each instruction, comment, element and text.
    EXPECT_EQ(whole.steps, 2 * (1 + 1 + 1 + 5 * 3 + 2 + 860 * 3));
    // The options' steps repeat themselves; favorite_log_test.cpp has them all.
    for (int step = 1; step <= whole.steps; step += step < 60 ? 1 : 7) {
        FakeDocument failing;
        failing.failingStep = step;
        ASSERT_FALSE(WriteFavoriteDocument(setting, failing)) << step;
        ASSERT_EQ(failing.steps, step);
    }
}
