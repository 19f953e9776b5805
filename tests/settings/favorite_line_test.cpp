#include "tests/settings/favorite_fixture.h"
#include "tests/support/tag_listing.h"

#include <array>
#include <cstring>

namespace {

class FavoriteLineTest : public FavoriteTest {
  protected:
    // The line of these tags in a buffer of `size` bytes, which must be zero behind it.
    std::string Line(std::vector<std::string> tags, std::size_t size = 15000) {
        std::vector<char> line(size, 'x');
        EXPECT_EQ(CFavoriteFileManager(std::move(tags)).GetPrintOptionBuf(setting, line), 1);
        const std::string text(line.data(), strnlen(line.data(), size));
        EXPECT_LT(text.size(), size);
        EXPECT_EQ(std::string(line.begin() + static_cast<std::ptrdiff_t>(text.size()), line.end()),
                  std::string(size - text.size(), '\0'));
        return text;
    }
};

} // namespace

TEST_F(FavoriteLineTest, HoldsTagsAndValuesSeparatedByTabs) {
    Store("ONOC", "3");
    Store("OFol", "表");
    EXPECT_EQ(Line({"ONOC", "OFol", "OTra"}), "ONOC=3\tOFol=表\tOTra=0");
}

TEST_F(FavoriteLineTest, AnEmptyValueAndAnUnknownTagHaveNothingBehindTheSign) {
    EXPECT_EQ(Line({"OFol", "None", "EXT_PAGEORDER", "OUC"}), "OFol=\tNone=\tEXT_PAGEORDER=\tOUC=");
}

TEST_F(FavoriteLineTest, HoldsAuthenticationToo) {
    Store("OAJUI", "someone");
    EXPECT_EQ(Line({"OAJ", "OAJUI"}), "OAJ=0\tOAJUI=someone");
}

TEST_F(FavoriteLineTest, OfNoTagsIsEmpty) {
    EXPECT_EQ(Line({}), "");
}

TEST_F(FavoriteLineTest, KeepsTheOrderOfTheTags) {
    EXPECT_EQ(Line({"OTra", "ONOC", "OTra"}), "OTra=0\tONOC=0\tOTra=0");
}

TEST_F(FavoriteLineTest, KeepsWhatFitsWithItsNul) {
    Store("ONOC", "1234");
    EXPECT_EQ(Line({"ONOC"}, 10), "ONOC=1234");
    EXPECT_EQ(Line({"ONOC"}, 9), "ONOC=123");
    EXPECT_EQ(Line({"ONOC", "ONOC"}, 12), "ONOC=1234\tO");
    EXPECT_EQ(Line({"ONOC", "ONOC"}, 1), "");
}

TEST_F(FavoriteLineTest, IsCutOnACharacterBoundaryAndNothingFollows) {
    Store("OFol", "表表");
    EXPECT_EQ(Line({"OFol", "ONOC"}, 10), "OFol=表表");
    EXPECT_EQ(Line({"OFol", "ONOC"}, 9), "OFol=表");
    EXPECT_EQ(Line({"OFol", "ONOC"}, 8), "OFol=表");
}

TEST_F(FavoriteLineTest, Of15000BytesHolds14999) {
    const std::string comment(60, 'c');
    Store("OUC", comment);
    const std::vector<std::string> tags(300, "OUC");
    std::string whole;
    for (const std::string& tag : tags)
        whole += (whole.empty() ? "" : "\t") + tag + "=" + comment;
    ASSERT_GT(whole.size(), 15000u);
    EXPECT_EQ(Line(tags), whole.substr(0, 14999));
}

TEST_F(FavoriteLineTest, OfAllTagsHoldsEachInTableOrder) {
    std::vector<std::string> tags;
    std::string expected;
    for (const ListedTag& tag : ListedTags()) {
        tags.push_back(tag.key);
        expected += (expected.empty() ? "" : "\t") + tag.key + "=" + Value(tag.key.c_str());
    }
    ASSERT_LT(expected.size(), 15000u);
    EXPECT_EQ(Line(tags), expected);
}

TEST_F(FavoriteLineTest, WhatIsNoTagHasNoValue) {
    std::array<char, 100> line{};
    EXPECT_EQ(CFavoriteFileManager({"ONOC", "", "OTra"}).GetPrintOptionBuf(setting, line), 0);
    EXPECT_EQ(CFavoriteFileManager({}).GetPrintOptionBuf(setting, {}), 0);
}
