#include "tests/oemps/devmode_records.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

std::unique_ptr<PrivateDevMode> MakeOfVersion1() {
    auto record = MakeDefault();
    record->dwVersion = 1;
    return record;
}

TEST(Merge, TakesLineFeedsAndTabsOutOfText) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    SetText(source->UserComment, "one\ttwo\nthree");
    EXPECT_EQ(CDevMode::Merge(*target, source.get()), 1);
    EXPECT_EQ(std::string(target->UserComment, 64), "onetwothree" + std::string(53, '\0'));
}

TEST(Merge, StripsControlCharactersButKeepsThoseOfFavoriteNameAndProfile) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    SetText(source->FavoriteName, "fav\x01\x1F");
    SetText(source->Profile, "\ta.cps\n");
    SetText(source->JobName, "\x01job\x1F");
    CDevMode::Merge(*target, source.get());
    EXPECT_STREQ(target->FavoriteName, "fav\x01\x1F");
    EXPECT_STREQ(target->Profile, "\ta.cps\n");
    EXPECT_STREQ(target->JobName, "job");
}

TEST(Merge, KeepsBytesFrom32UpSoThatDoubleByteCharactersSurvive) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    // A double-byte space, a kanji, half-width kana, and the bytes at the borders.
    SetText(source->JobName, "\x81\x40\x8E\x86\xB1\x20\x7F\xFC\n");
    CDevMode::Merge(*target, source.get());
    EXPECT_STREQ(target->JobName, "\x81\x40\x8E\x86\xB1\x20\x7F\xFC");
}

TEST(Merge, StripsTheReservedSlotsUpTo13212AndThoseOfTheStocksButNotThe32After) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    SetText(source->reserved11712[0], "a\nb");
    SetText(source->reserved11712[14], "a\nb");
    SetText(source->reserved13212[0], "a\nb");
    SetText(source->reserved13312[0], "a\nb");
    SetText(source->reserved13312[31], "a\nb");
    SetText(source->reserved17516[0], "a\nb");
    SetText(source->reserved17744[0], "a\nb");
    SetText(source->reserved23052[0], "a\nb");
    CDevMode::Merge(*target, source.get());
    EXPECT_STREQ(target->reserved11712[0], "ab");
    EXPECT_STREQ(target->reserved11712[14], "ab");
    EXPECT_STREQ(target->reserved13212[0], "ab");
    EXPECT_STREQ(target->reserved13312[0], "a\nb");
    EXPECT_STREQ(target->reserved13312[31], "a\nb");
    EXPECT_STREQ(target->reserved17516[0], "ab");
    EXPECT_STREQ(target->reserved17744[0], "ab");
    EXPECT_STREQ(target->reserved23052[0], "ab");
}

TEST(Merge, Cleans120Of154Texts) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    std::vector<std::size_t> texts;
#define ZR_TEXT(offset, name, width, value, travel, control) texts.push_back(offset);
#define ZR_SPARE_TEXTS(offset, count, width, cleared, control)                                               \
    for (std::size_t i = 0; i < count; ++i)                                                                  \
        texts.push_back(offset + i * width);
#include "oemps/private_devmode.def"
    ASSERT_EQ(texts.size(), 154u);
    for (const std::size_t text : texts)
        std::memcpy(&BytesOf(*source)[text], "\ax", 3);
    CDevMode::Merge(*target, source.get());
    int cleaned = 0;
    for (const std::size_t text : texts)
        cleaned += std::memcmp(&BytesOf(*target)[text], "x", 2) == 0;
    EXPECT_EQ(cleaned, 120);
}

TEST(Merge, BringsAModifiedOf7As1AndLeaves0) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    source->Modified = 7;
    CDevMode::Merge(*target, source.get());
    EXPECT_EQ(target->Modified, 1u);
    source->Modified = 0;
    CDevMode::Merge(*target, source.get());
    EXPECT_EQ(target->Modified, 0u);
}

TEST(Merge, TakesModifiedFromTheSourceEvenIfItsHeaderDoesNotFit) {
    const auto source = MakeOfVersion1();
    const auto target = MakeDefault();
    source->Modified = 0x100;
    CDevMode::Merge(*target, source.get());
    EXPECT_EQ(target->Modified, 1u);
    source->Modified = 0;
    target->Modified = 9;
    CDevMode::Merge(*target, source.get());
    EXPECT_EQ(target->Modified, 0u);
}

TEST(Merge, StripsTheTargetsOwnTextIfTheSourceIsRefused) {
    const auto source = MakeOfVersion1();
    const auto target = MakeDefault();
    SetText(source->JobName, "theirs");
    SetText(target->JobName, "mi\nne");
    CDevMode::Merge(*target, source.get());
    EXPECT_STREQ(target->JobName, "mine");
}

// Accepted: a source of another layout still gives these 70 numbers.
TEST(Merge, TakesSomeNumbersFromASourceWhoseHeaderDoesNotFit) {
    const auto source = MakeFilled('s');
    source->dwVersion = 1;
    const auto target = MakeDefault();
    PrivateDevMode expected = *target;
    expected.Modified = 1;
    for (const auto& [offset, count] : kWordsOfAnySource)
        std::memset(&BytesOf(expected)[offset], 's', count * 4);
    CDevMode::Merge(*target, source.get());
    EXPECT_EQ(FirstDifference(*target, expected), kDevModeSize);
}

TEST(Merge, ReadsAnUnterminatedTextOnIntoTheFieldsBehindIt) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    SetText(source->JobName, std::string(512, 'j'));
    SetText(source->LogicalPageRange, "1\n2");
    CDevMode::Merge(*target, source.get());
    EXPECT_STREQ(target->LogicalPageRange, "12");

    source->JobName[0] = '\n';
    CDevMode::Merge(*target, source.get());
    EXPECT_EQ(std::string(target->JobName, 516), std::string(511, 'j') + "12" + std::string(3, '\0'));
}

// Modified is 0 or 1 by then, and three of its bytes are NULs.
TEST(Merge, EndsEveryUnterminatedTextInModifiedAndReachesNothingBehindIt) {
    const auto source = MakeFilled('x');
    const auto target = MakeDefault();
    SetText(source->FavoriteName, "f\n");
    CDevMode::Merge(*target, source.get());
    EXPECT_STREQ(target->FavoriteName, "f\n");
}

TEST(Merge, StripsTheOneOutOfModifiedWhenTheAccountBeforeItIsUnterminated) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    SetText(source->JobInfoAccount, "\n" + std::string(32, 'a'));
    source->Modified = 1;
    BytesOf(*target)[23767] = 'p'; // the pad, which no copy fills
    CDevMode::Merge(*target, source.get());
    EXPECT_EQ(std::string(target->JobInfoAccount, 33), std::string(32, 'a') + "p");
    EXPECT_EQ(target->Modified, 0u);
}

TEST(Merge, PutsNumbersBackThatTheStripShifted) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    SetText(source->TextTonerCurveName, "\n" + std::string(99, 't'));
    source->GraphicsTreatmentBase = 0x41414141;
    std::memset(&BytesOf(*target)[5453], 'p', 3); // the pad, which no copy fills
    CDevMode::Merge(*target, source.get());
    EXPECT_EQ(std::string(target->TextTonerCurveName, 100), std::string(99, 't') + "p");
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&BytesOf(*target)[5453]), 3), "ppA");
    EXPECT_EQ(target->GraphicsTreatmentBase, 0x41414141);
}

TEST(Merge, ShiftsABlockWithoutNulAsOneString) {
    const auto source = MakeFilled('x');
    const auto target = MakeFilled('x');
    std::memcpy(source->JobName, "\nab\n", 4);
    CDevMode::Merge(*target, source.get());
    EXPECT_EQ(ViewOf(*target).substr(12, 600), "ab" + std::string(598, 'x'));
    // Two line feeds and the 1 of Modified are gone, and the string ended with that.
    EXPECT_EQ(ViewOf(*target).substr(23764, 8), std::string("xx\0\0\0\0\0\0", 8));
    EXPECT_EQ(ViewOf(*target).substr(24108), "xxxx");
}

TEST(Merge, AfterConvertChangesNothingButModifiedForARecordWithCleanText) {
    const auto source = MakeDefault();
    source->Modified = 4;
    const auto target = MakeFilled(0xCC);
    CDevMode::Convert(*target, source.get());
    PrivateDevMode expected = *target;
    expected.Modified = 1;
    CDevMode::Merge(*target, source.get());
    EXPECT_EQ(FirstDifference(*target, expected), kDevModeSize);
}

TEST(Merge, OfATextThatIsAllControlCharactersLeavesZeros) {
    const auto source = MakeDefault();
    const auto target = MakeDefault();
    SetText(source->Tags, std::string(511, '\t'));
    CDevMode::Merge(*target, source.get());
    EXPECT_EQ(std::string(target->Tags, 512), std::string(512, '\0'));
}

// A block of random bytes out of the given ones.
std::unique_ptr<PrivateDevMode> MakeRandom(std::mt19937& random, std::string_view alphabet) {
    auto record = std::make_unique<PrivateDevMode>();
    std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
    for (unsigned char& byte : BytesOf(*record))
        byte = static_cast<unsigned char>(alphabet[pick(random)]);
    SetHeader(*record);
    return record;
}

// The strip in one pass gives what removing one character after the other gives.
class MergeOfHostileText : public testing::TestWithParam<std::string_view> {};

TEST_P(MergeOfHostileText, IsThatOfThePlainAlgorithm) {
    std::mt19937 random(20240601);
    for (int round = 0; round < 4; ++round) {
        const auto source = MakeRandom(random, GetParam());
        const auto target = MakeRandom(random, GetParam());
        PrivateDevMode expected = *target;
        PlainMerge(expected, *source);
        CDevMode::Merge(*target, source.get());
        ASSERT_EQ(FirstDifference(*target, expected), kDevModeSize) << "round " << round;
    }
}

constexpr std::string_view kHostileAlphabets[] = {
    "\x01",
    "\x1F\x20",
    {"\0\n", 2},
    {"\0ab\n", 4},
    "abcdefghijklmnopqrstuvwxyz0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ\t",
    {"\0aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"
     "aaa"
     "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"
     "aaaa\n",
     213},
    "x",
};

INSTANTIATE_TEST_SUITE_P(Alphabets, MergeOfHostileText, testing::ValuesIn(kHostileAlphabets),
                         [](const auto& alphabet) { return "Number" + std::to_string(alphabet.index); });

} // namespace
