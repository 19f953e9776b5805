#include "settings/xml_safety.h"

#include "tests/Common/memory_source.h"
#include "tests/settings/encoded_text.h"
#include "tests/settings/xml_fixture.h"

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

// An endless file that counts what is read of it.
class EndlessSource : public ByteSource {
  public:
    std::size_t Read(std::span<char> buffer) override {
        std::ranges::fill(buffer, ' ');
        total += buffer.size();
        return buffer.size();
    }
    std::size_t total = 0;
};

// A document of exactly so many bytes.
std::string OfSize(std::size_t size) {
    return "<r><a>x</a>"s + std::string(size - "<r><a>x</a></r>"sv.size(), ' ') + "</r>";
}

// Elements in elements, each with one letter before the next.
std::string OfLevels(std::size_t levels) {
    std::string bytes;
    for (std::size_t level = 0; level < levels; ++level)
        bytes += "<a>x";
    for (std::size_t level = 0; level < levels; ++level)
        bytes += "</a>";
    return bytes;
}

class XmlSafetyTest : public XmlTest {
  protected:
    void ExpectLevels(std::size_t levels) {
        const auto elements = document.Elements();
        ASSERT_TRUE(elements);
        ASSERT_EQ(elements->size(), levels);
        for (std::size_t level = 0; level < levels; ++level)
            ASSERT_EQ((*elements)[level].text.size(), levels - level);
    }
    void ExpectRefused(std::string_view bytes) {
        ASSERT_TRUE(document.Load("<before>1</before>"sv));
        EXPECT_FALSE(document.Load(bytes));
        EXPECT_EQ(document.DocumentElement(), nullptr);
        EXPECT_EQ(PairsOf(document), Pairs{});
        ASSERT_TRUE(document.Load("<after>1</after>"sv));
        EXPECT_EQ(LastTexts(document)["after"], "1");
    }
};

} // namespace

TEST(HoldsDeclaration, FindsBothWordsInEveryEncodingWithAndWithoutMark) {
    for (const Encoding encoding : kEncodings)
        for (const bool hasMark : {false, true}) {
            EXPECT_TRUE(HoldsDeclaration(Encoded(u"<!DOCTYPE r><r/>", encoding, hasMark)));
            EXPECT_TRUE(HoldsDeclaration(Encoded(u"<r><!ENTITY a 'b'></r>", encoding, hasMark)));
            EXPECT_FALSE(HoldsDeclaration(Encoded(u"<r>DOCTYPE ENTITY</r>", encoding, hasMark)));
        }
}

TEST(HoldsDeclaration, FindsAWordAtTheVeryEndAndNoneInNothing) {
    EXPECT_TRUE(HoldsDeclaration("<!DOCTYPE"));
    EXPECT_FALSE(HoldsDeclaration("<!DOCTYP"));
    EXPECT_FALSE(HoldsDeclaration(""));
}

TEST(HoldsDeclaration, LetsEscapedWordsOfATextPass) {
    EXPECT_FALSE(HoldsDeclaration("<r>&lt;!DOCTYPE r> &lt;!ENTITY a></r>"));
}

TEST(ReadXmlFile, TakesAFileOfTheLimitWholeAndNoneBeyondIt) {
    const std::string most(kMaxXmlFile, 'x');
    MemorySource fits(most, 1000);
    EXPECT_EQ(ReadXmlFile(fits), most);
    const std::string beyond = most + "x";
    MemorySource exceeds(beyond, 1000);
    EXPECT_EQ(ReadXmlFile(exceeds), std::nullopt);
}

TEST(ReadXmlFile, ReadsOneByteBeyondTheLimitOfALargerFile) {
    EndlessSource endless;
    EXPECT_EQ(ReadXmlFile(endless), std::nullopt);
    EXPECT_EQ(endless.total, 4194305u);
}

TEST(ReadXmlFile, OfAnEmptyFileIsEmpty) {
    MemorySource empty("");
    EXPECT_EQ(ReadXmlFile(empty), "");
}

TEST_F(XmlSafetyTest, AFileOfFourMegabytesIsReadAndALargerOneRefused) {
    EXPECT_TRUE(LoadFile(document, Write("most.pfk", OfSize(4194304))));
    EXPECT_EQ(LastTexts(document)["a"], "x");
    EXPECT_FALSE(LoadFile(document, Write("beyond.pfk", OfSize(4194305))));
    EXPECT_EQ(document.DocumentElement(), nullptr);
    ExpectRefused(OfSize(4194305));
}

TEST_F(XmlSafetyTest, ADocumentWhoseLoadFailedCanBeWritten) {
    EXPECT_FALSE(document.Load("<!DOCTYPE r><r/>"sv));
    EXPECT_EQ(document.TextsByTagName("r"), std::vector<std::string>());
    Build("a", "b");
    EXPECT_EQ(PairsOf(document), (Pairs{{"Favorite", "b"}, {"a", "b"}}));
    std::string bytes;
    EXPECT_TRUE(document.Serialize(bytes));
    EXPECT_NE(bytes.find("<a>b</a>"), bytes.npos);
}

TEST_F(XmlSafetyTest, AFileOfAHundredMegabytesIsRefused) {
    const std::string path = Write("huge.pfk", "<r>");
    std::filesystem::resize_file(path, 100u * 1024 * 1024);
    EXPECT_FALSE(LoadFile(document, path));
}

TEST_F(XmlSafetyTest, WhatIsNoXmlIsAFailedLoad) {
    EXPECT_FALSE(LoadFile(document, Write("text.pfk", "[Favorite]\r\nFileVer=2\r\n")));
    EXPECT_FALSE(LoadFile(document, Write("empty.pfk", "")));
    for (const std::string_view bytes :
         {""sv, " "sv, "text"sv, "<"sv, "<r>\x01</r>"sv, "<r/><r/>"sv, "<r>&none;</r>"sv, "<r></s>"sv,
          "\0\0\0\0"sv, "\xFF\xFE"sv, "<?xml version='1.0'?>"sv})
        ExpectRefused(bytes);
}

TEST_F(XmlSafetyTest, ADocumentCutAnywhereIsAFailedLoad) {
    const std::string_view whole = "<?xml version='1.0' encoding='UTF-8'?><!--c--><r><a>\xE8\xA1\xA8</a></r>";
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(document.Load(whole.substr(0, length))) << length;
    EXPECT_TRUE(document.Load(whole));
}

TEST_F(XmlSafetyTest, WrongEncodingsAreAFailedLoad) {
    ExpectRefused("<?xml version='1.0' encoding='UTF-8'?><r>\x95\x5C</r>"); // code page 932
    ExpectRefused("<?xml version='1.0' encoding='NoSuch'?><r>x</r>");
}

TEST_F(XmlSafetyTest, NestedEntitiesAreRefused) {
    std::string bytes = "<?xml version='1.0'?><!DOCTYPE r [<!ENTITY a0 'x'>";
    for (int level = 1; level < 10; ++level) {
        const std::string inner = "&a" + std::to_string(level - 1) + ";";
        bytes += "<!ENTITY a" + std::to_string(level) + " '";
        for (int count = 0; count < 10; ++count)
            bytes += inner;
        bytes += "'>";
    }
    ExpectRefused(bytes + "]><r>&a9;</r>");
}

TEST_F(XmlSafetyTest, ALongEntityUsedManyTimesIsRefused) {
    std::string bytes = "<!DOCTYPE r [<!ENTITY a '" + std::string(20000, 'x') + "'>]><r>";
    for (int count = 0; count < 5000; ++count)
        bytes += "&a;";
    ExpectRefused(bytes + "</r>");
}

TEST_F(XmlSafetyTest, ExternalEntitiesAndTypesAreRefused) {
    const std::string secret = Write("secret.txt", "secret");
    ExpectRefused("<!DOCTYPE r [<!ENTITY a SYSTEM '" + secret + "'>]><r>&a;</r>");
    ExpectRefused("<!DOCTYPE r SYSTEM '" + secret + "'><r/>");
    ExpectRefused("<!DOCTYPE r><r/>");
}

TEST_F(XmlSafetyTest, ADocumentTypeInUtf16IsRefused) {
    for (const Encoding encoding : {Encoding::Utf16Little, Encoding::Utf16Big})
        for (const bool hasMark : {false, true})
            ExpectRefused(
                Encoded(u"<?xml version='1.0' encoding='UTF-16'?><!DOCTYPE r><r/>", encoding, hasMark));
}

TEST_F(XmlSafetyTest, ADocumentTypeThatTheBytesHideIsRefusedAfterTheLoad) {
    // In UTF-7 the words stand in base 64.
    ExpectRefused(
        "<?xml version='1.0' encoding='UTF-7'?><+ACE-DOCTYPE r [<+ACE-ENTITY a 'b'>]><r>+ACY-a;</r>");
}

TEST_F(XmlSafetyTest, AFileOfTenThousandLevelsIsReadOrRefusedWithoutHarm) {
    const std::string bytes = OfLevels(10000);
    // The platform's parsers differ in how deep they go.
    if (document.Load(std::string_view(bytes)))
        ExpectLevels(10000);
    ASSERT_TRUE(document.Load("<after>1</after>"sv));
    EXPECT_EQ(LastTexts(document)["after"], "1");
}

TEST_F(XmlSafetyTest, AFileOfTwoHundredLevelsIsRead) {
    ASSERT_TRUE(document.Load(std::string_view(OfLevels(200))));
    ExpectLevels(200);
}

TEST_F(XmlSafetyTest, ATreeOfTenThousandLevelsIsWalkedAndFreed) {
    XmlNodeOwner parent = document.CreateElement("a");
    ASSERT_TRUE(document.AppendChild(*parent));
    for (int level = 0;; ++level) {
        ASSERT_TRUE(document.AppendChild(*parent, *document.CreateTextNode("x")));
        if (level == 9999)
            break;
        XmlNodeOwner child = document.CreateElement("a");
        ASSERT_TRUE(document.AppendChild(*parent, *child));
        parent = std::move(child);
    }
    ExpectLevels(10000);
}

TEST_F(XmlSafetyTest, AMillionElementsAreWalked) {
    std::string bytes = "<r>";
    for (int count = 0; count < 1000000; ++count)
        bytes += "<a/>";
    ASSERT_TRUE(document.Load(std::string_view(bytes += "</r>")));
    const auto elements = document.Elements();
    ASSERT_TRUE(elements);
    EXPECT_EQ(elements->size(), 1000001u);
}
