#include "settings/favorite_texts.h"

#include "tests/settings/fake_document.h"
#include "tests/support/tag_listing.h"

#include <gtest/gtest.h>

#include <array>

namespace {

void Add(XmlElements& elements, std::string_view name, std::string_view text) {
    elements.Open(name);
    elements.AddText(text);
    elements.Close();
}

// The text of the last element of a name among these; "(none)" if there is none.
std::string LastOf(const XmlElements& elements, std::string_view name) {
    FavoriteDocument favorite(std::make_shared<const FavoriteTexts>(elements));
    std::optional<std::string> text;
    EXPECT_TRUE(favorite.FindLast(name, text));
    return text.value_or("(none)");
}

TEST(FavoriteElementNames, AreTheHeadersAndThenTheTagTablesLongNames) {
    const std::array<std::string_view, 5> headers{"FileVer", "IotVer", "CharCode", "Comment", "PageSize"};
    for (std::size_t row = 0; row < headers.size(); ++row)
        EXPECT_EQ(FavoriteElementName(row), headers[row]);
    const auto tags = ListedTags();
    ASSERT_EQ(headers.size() + tags.size(), kFavoriteNames);
    for (std::size_t row = 0; row < tags.size(); ++row)
        EXPECT_EQ(FavoriteElementName(headers.size() + row), tags[row].longName);
}

TEST(FavoriteElementNames, OthersHaveNoText) {
    XmlElements elements;
    for (const char* name : {"", "Favorite", "PrintOption", "OTra", "tray", "Tray ", "D:Tray"})
        Add(elements, name, "1");
    const FavoriteTexts texts(elements);
    for (std::size_t row = 0; row < kFavoriteNames; ++row)
        EXPECT_EQ(texts.Find(row), std::nullopt) << FavoriteElementName(row);
}

TEST(FavoriteTexts, TheLastElementOfANameWins) {
    XmlElements elements;
    Add(elements, "Tray", "1");
    Add(elements, "Comment", "a");
    Add(elements, "Tray", "2");
    EXPECT_EQ(LastOf(elements, "Tray"), "2");
    EXPECT_EQ(LastOf(elements, "Comment"), "a");
}

TEST(FavoriteTexts, AnEmptyTextIsNoMissingOne) {
    XmlElements elements;
    Add(elements, "Tray", "1");
    Add(elements, "Tray", "");
    EXPECT_EQ(LastOf(elements, "Tray"), "");
    EXPECT_EQ(LastOf(elements, "NumOfCopies"), "(none)");
}

TEST(FavoriteTexts, HoldEveryNamesText) {
    XmlElements elements;
    for (std::size_t row = 0; row < kFavoriteNames; ++row)
        Add(elements, FavoriteElementName(row), std::to_string(row));
    const FavoriteTexts texts(elements);
    for (std::size_t row = 0; row < kFavoriteNames; ++row)
        EXPECT_EQ(texts.Find(row), std::to_string(row));
}

TEST(FavoriteTexts, AreCutAt5399BytesOnACharacterBoundary) {
    XmlElements elements;
    Add(elements, "Tray", std::string(5399, 'a'));
    Add(elements, "Comment", std::string(5400, 'a'));
    Add(elements, "PageSize", std::string(5398, 'a') + "表b");
    EXPECT_EQ(LastOf(elements, "Tray"), std::string(5399, 'a'));
    EXPECT_EQ(LastOf(elements, "Comment"), std::string(5399, 'a'));
    EXPECT_EQ(LastOf(elements, "PageSize"), std::string(5398, 'a'));
}

TEST(FavoriteTexts, TakeNoMoreMemoryThanTheLastTexts) {
    XmlElements few;
    Add(few, "Tray", std::string(1000, 'a'));
    XmlElements many;
    for (int i = 0; i < 1000; ++i)
        Add(many, "Tray", std::string(1000, 'a'));
    EXPECT_GE(FavoriteTexts(few).Bytes(), 1000u);
    EXPECT_EQ(FavoriteTexts(many).Bytes(), FavoriteTexts(few).Bytes());
}

TEST(FavoriteDocument, WalksItsDocumentOnceAndWhenAsked) {
    FakeDocument document;
    document.elements.emplace();
    Add(*document.elements, "Tray", "5");
    FavoriteDocument favorite(document);
    EXPECT_EQ(document.walks, 0);
    std::optional<std::string> text;
    EXPECT_TRUE(favorite.FindLast("Tray", text));
    EXPECT_EQ(text, "5");
    EXPECT_TRUE(favorite.FindLast("Comment", text));
    EXPECT_EQ(text, std::nullopt);
    EXPECT_EQ(favorite.Texts(), favorite.Texts());
    EXPECT_EQ(document.walks, 1);
}

TEST(FavoriteDocument, AWalkThatFailsHasNoTexts) {
    FakeDocument document;
    FavoriteDocument favorite(document);
    std::optional<std::string> text;
    EXPECT_FALSE(favorite.FindLast("Tray", text));
    EXPECT_EQ(favorite.Texts(), nullptr);
}

TEST(FavoriteDocument, KnownTextsNeedNoDocument) {
    XmlElements elements;
    Add(elements, "Tray", "7");
    const auto known = std::make_shared<const FavoriteTexts>(elements);
    FavoriteDocument favorite(known);
    std::optional<std::string> text;
    EXPECT_TRUE(favorite.FindLast("Tray", text));
    EXPECT_EQ(text, "7");
    EXPECT_TRUE(favorite.FindLast("Elsewhere", text));
    EXPECT_EQ(text, std::nullopt);
    EXPECT_EQ(favorite.Texts(), known);
}

} // namespace
