#include "tests/settings/xml_fixture.h"

#include "settings/xml_safety.h"

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

// Texts of the program, in code page 932 as everywhere; a file has them in UTF-8.
constexpr std::string_view kUtf8Favourite =
    "\xE3\x81\x8A\xE6\xB0\x97\xE3\x81\xAB\xE5\x85\xA5\xE3\x82\x8A"; // お気に入り
constexpr std::string_view kSecondByteBackslash = "表ソ能十予";     // 0x5C is the second byte of each

class XmlDocumentTest : public XmlTest {
  protected:
    // The text that an element's text comes back as from a file.
    std::string RoundTrip(std::string_view text) {
        Build("Comment", text);
        const std::string path = PathOf("round.pfk");
        EXPECT_TRUE(document.Save(path.c_str()));
        const auto read = layer.CreateDocument();
        EXPECT_TRUE(LoadFile(*read, path));
        return LastTexts(*read)["Comment"];
    }
};

} // namespace

TEST_F(XmlDocumentTest, WritesDeclarationCommentsAndElementsInTheirOrder) {
    const auto declaration = document.CreateProcessingInstruction("xml", "version='1.0' encoding='UTF-8'");
    const auto comment = document.CreateComment("お気に入り");
    const auto root = document.CreateElement("Favorite");
    ASSERT_TRUE(declaration && comment && root);
    ASSERT_TRUE(document.AppendChild(*declaration));
    ASSERT_TRUE(document.AppendChild(*comment));
    ASSERT_TRUE(document.AppendChild(*root));
    AddElement(*root, "FileVer", "2");
    AddElement(*root, "IotVer", "10");

    ASSERT_TRUE(document.Save(PathOf("a.pfk").c_str()));

    std::string content = Content(PathOf("a.pfk"));
    std::erase(content, '\n');
    std::erase(content, '\r');
    EXPECT_EQ(content, "<?xml version='1.0' encoding='UTF-8'?><!--"s.append(kUtf8Favourite) +
                           "--><Favorite><FileVer>2</FileVer><IotVer>10</IotVer></Favorite>");
}

TEST_F(XmlDocumentTest, IsEmptyAtFirst) {
    EXPECT_EQ(document.DocumentElement(), nullptr);
    EXPECT_EQ(PairsOf(document), Pairs{});
}

TEST_F(XmlDocumentTest, WalksElementsInTheOrderInWhichTheyBegin) {
    ASSERT_TRUE(document.Load("<r>1<a>2<b>3</b>4</a><!--no--><c><![CDATA[5]]></c><?no no?></r>"sv));
    EXPECT_EQ(PairsOf(document), (Pairs{{"r", "12345"}, {"a", "234"}, {"b", "3"}, {"c", "5"}}));
}

TEST_F(XmlDocumentTest, WalksThePresentTreeBeforeItIsSaved) {
    Build("Comment", "abc");
    EXPECT_EQ(PairsOf(document), (Pairs{{"Favorite", "abc"}, {"Comment", "abc"}}));
    EXPECT_NE(document.DocumentElement(), nullptr);
}

TEST_F(XmlDocumentTest, TheLastElementOfANameWinsWhereverItStands) {
    ASSERT_TRUE(document.Load("<r><A>1</A><B><A>2</A></B><A>3<A>4</A>5</A></r>"sv));
    EXPECT_EQ(LastTexts(document)["A"], "4");
}

TEST_F(XmlDocumentTest, TheWalkFindsWhatTheSearchByTagNameFinds) {
    ASSERT_TRUE(document.Load("<r><A>1</A><B><A>2</A>x</B><A>3<A>4</A>5</A><C/></r>"sv));
    for (const char* name : {"r", "A", "B", "C", "None"}) {
        const auto found = document.TextsByTagName(name);
        ASSERT_TRUE(found) << name;
        std::vector<std::string> walked;
        for (auto& [element, text] : PairsOf(document))
            if (element == name)
                walked.push_back(text);
        EXPECT_EQ(walked, *found) << name;
    }
}

TEST_F(XmlDocumentTest, ANameKeepsItsPrefix) {
    ASSERT_TRUE(document.Load("<r><D:A xmlns:D='d'>6</D:A><A>7</A></r>"sv));
    EXPECT_EQ(PairsOf(document), (Pairs{{"r", "67"}, {"D:A", "6"}, {"A", "7"}}));
}

TEST_F(XmlDocumentTest, AnEmptyTextStillMakesAnElement) {
    Build("PageSize", "");
    ASSERT_TRUE(document.Save(PathOf("a.pfk").c_str()));
    ASSERT_TRUE(LoadFile(document, PathOf("a.pfk")));
    EXPECT_EQ(PairsOf(document), (Pairs{{"Favorite", ""}, {"PageSize", ""}}));
}

TEST_F(XmlDocumentTest, JapaneseComesBack) {
    EXPECT_EQ(RoundTrip("漢字かなｶﾅ①～￥"), "漢字かなｶﾅ①～￥");
}

TEST_F(XmlDocumentTest, CharactersWhoseSecondByteIsABackslashComeBack) {
    EXPECT_EQ(RoundTrip(kSecondByteBackslash), kSecondByteBackslash);
}

TEST_F(XmlDocumentTest, MarkupAndSpacesInATextComeBack) {
    EXPECT_EQ(RoundTrip("  <a> & \"b\" 'c' ]]> <!DOCTYPE x> &amp; \\ "),
              "  <a> & \"b\" 'c' ]]> <!DOCTYPE x> &amp; \\ ");
}

TEST_F(XmlDocumentTest, ATextOfSpacesComesBack) {
    EXPECT_EQ(RoundTrip("   "), "   ");
}

TEST_F(XmlDocumentTest, EveryByteThatIsACharacterComesBack) {
    std::string all;
    for (int byte = 0x20; byte < 0x7F; ++byte)
        all += static_cast<char>(byte);
    for (int byte = 0xA1; byte < 0xE0; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(RoundTrip(all), all);
}

TEST_F(XmlDocumentTest, EveryPlainDoubleByteCharacterComesBack) {
    std::string all;
    for (int lead = 0x88; lead <= 0x9F; ++lead)
        for (int second = 0x40; second <= 0xFC; ++second)
            if (second != 0x7F && (lead != 0x88 || second >= 0x9F) &&
                (lead != 0x98 || second < 0x73 || second >= 0x9F))
                (all += static_cast<char>(lead)) += static_cast<char>(second);
    EXPECT_EQ(RoundTrip(all), all);
}

TEST_F(XmlDocumentTest, ControlCharactersAreLeftOutSoThatTheFileCanBeRead) {
    std::string text = "a";
    for (int byte = 0; byte < 0x20; ++byte)
        text += static_cast<char>(byte);
    EXPECT_EQ(RoundTrip(text + "b"), "ab");
}

TEST_F(XmlDocumentTest, AFirstByteWithoutItsSecondIsLeftOut) {
    EXPECT_EQ(RoundTrip("ab\x95"), "ab");
}

TEST_F(XmlDocumentTest, CharactersThatTheCodePageLacksAreReadAsQuestionMarks) {
    ASSERT_TRUE(document.Load("<r>a\xED\x95\x9C\xE8\xA1\xA8</r>"sv)); // a Hangul syllable, then 表
    EXPECT_EQ(LastTexts(document)["r"], "a?表");
}

// Of é, ¥ and © the page has characters that look alike; a pair of UTF-16 units is one character.
TEST_F(XmlDocumentTest, EachCharacterThatTheCodePageLacksIsReadAsOneQuestionMark) {
    ASSERT_TRUE(document.Load("<r>a\xC3\xA9"
                              "b\xC2\xA5"
                              "c\xC2\xA9"
                              "d\xF0\x9F\x98\x80"
                              "e</r>"sv));
    EXPECT_EQ(LastTexts(document)["r"], "a?b?c?d?e");
    EXPECT_EQ(document.TextsByTagName("r"), std::vector<std::string>{"a?b?c?d?e"});
}

TEST_F(XmlDocumentTest, ANameWithACharacterThatTheCodePageLacksIsNoOtherName) {
    ASSERT_TRUE(document.Load("<r><Comment>1</Comment><Comm\xC3\xA9nt>2</Comm\xC3\xA9nt></r>"sv));
    EXPECT_EQ(PairsOf(document), (Pairs{{"r", "12"}, {"Comment", "1"}, {"Comm?nt", "2"}}));
    EXPECT_EQ(document.TextsByTagName("Comment"), std::vector<std::string>{"1"});
}

TEST_F(XmlDocumentTest, ReadsUtf16OfBothOrders) {
    const std::u16string_view text = u"\xFEFF<?xml version='1.0' encoding='UTF-16'?><r>\x8868</r>";
    std::string little;
    std::string big;
    for (const char16_t unit : text) {
        (little += static_cast<char>(unit & 0xFF)) += static_cast<char>(unit >> 8);
        (big += static_cast<char>(unit >> 8)) += static_cast<char>(unit & 0xFF);
    }
    ASSERT_TRUE(document.Load(std::string_view(little)));
    EXPECT_EQ(LastTexts(document)["r"], "表");
    ASSERT_TRUE(document.Load(std::string_view(big)));
    EXPECT_EQ(LastTexts(document)["r"], "表");
}

TEST_F(XmlDocumentTest, ReadsUtf8WithAByteOrderMark) {
    ASSERT_TRUE(document.Load("\xEF\xBB\xBF<r>x</r>"sv));
    EXPECT_EQ(LastTexts(document)["r"], "x");
}

TEST_F(XmlDocumentTest, NamesThatAreNoneMakeNoElement) {
    for (const std::string_view name :
         {""sv, "1a"sv, "a b"sv, "a<b"sv, "a>"sv, "-a"sv, "a\0b"sv, "a:b"sv, "\x95"sv})
        EXPECT_EQ(document.CreateElement(name), nullptr) << name;
}

TEST_F(XmlDocumentTest, TextsThatWouldEndTheirNodeMakeNone) {
    for (const char* text : {"a--b", "a-", "-\x01-"})
        EXPECT_EQ(document.CreateComment(text), nullptr) << text;
    for (const char* text : {"a?>b", "?\x01>"})
        EXPECT_EQ(document.CreateProcessingInstruction("a", text), nullptr) << text;
}

TEST_F(XmlDocumentTest, TakesOneRootAndNoTextBesideIt) {
    Build("a", "b");
    const auto second = document.CreateElement("Second");
    const auto text = document.CreateTextNode("text");
    ASSERT_TRUE(second && text);
    EXPECT_FALSE(document.AppendChild(*second));
    EXPECT_FALSE(document.AppendChild(*text));
}

TEST_F(XmlDocumentTest, AdjacentTextsAreOneText) {
    const auto root = document.CreateElement("r");
    const auto first = document.CreateTextNode("a");
    const auto second = document.CreateTextNode("b");
    ASSERT_TRUE(document.AppendChild(*root));
    ASSERT_TRUE(document.AppendChild(*root, *first));
    ASSERT_TRUE(document.AppendChild(*root, *second));
    EXPECT_EQ(PairsOf(document), (Pairs{{"r", "ab"}}));
}

TEST_F(XmlDocumentTest, ANodeThatNobodyAppendedGoesAlone) {
    EXPECT_NE(document.CreateElement("r"), nullptr);
    EXPECT_EQ(document.DocumentElement(), nullptr);
}
