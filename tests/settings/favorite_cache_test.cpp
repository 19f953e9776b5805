#include "settings/favorite_cache.h"

#include "settings/favorite_texts.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using Texts = std::shared_ptr<const FavoriteTexts>;

constexpr FileStamp kStamp{.file = 2, .size = 3, .writeTime = 4, .changeTime = 5, .settled = true};

// Texts that take about so many bytes.
Texts TextsOf(std::size_t bytes = 0) {
    constexpr std::size_t kMostOfText = 5000;
    XmlElements elements;
    for (std::size_t row = 0; bytes > 0; ++row) {
        const std::size_t size = std::min(bytes, kMostOfText);
        elements.Open(FavoriteElementName(row));
        elements.AddText(std::string(size, 'x'));
        elements.Close();
        bytes -= size;
    }
    return std::make_shared<const FavoriteTexts>(elements);
}

Texts TextsWith(const char* name, const char* text) {
    XmlElements elements;
    elements.Open(name);
    elements.AddText(text);
    elements.Close();
    return std::make_shared<const FavoriteTexts>(elements);
}

std::string PathOf(std::size_t number) {
    return "folder\\" + std::to_string(number) + ".pfk";
}

FileStamp Unsettled(FileStamp stamp) {
    stamp.settled = false;
    return stamp;
}

} // namespace

TEST(FavoriteCache, KnowsNothingAtFirst) {
    EXPECT_EQ(FavoriteCache().Find("a.pfk", kStamp), nullptr);
}

TEST(FavoriteCache, GivesWhatWasKeptOfAPathAsOftenAsItIsAskedFor) {
    FavoriteCache cache;
    const Texts a = TextsOf();
    const Texts b = TextsOf();
    cache.Keep("a.pfk", kStamp, a);
    cache.Keep("b.pfk", kStamp, b);
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(cache.Find("a.pfk", kStamp), a);
        EXPECT_EQ(cache.Find("b.pfk", kStamp), b);
    }
    EXPECT_EQ(cache.Find("A.pfk", kStamp), nullptr);
    EXPECT_EQ(cache.Find("a.pf", kStamp), nullptr);
}

TEST(FavoriteCache, GivesNothingForAStampThatDiffersInAnyOfItsParts) {
    FavoriteCache cache;
    cache.Keep("a.pfk", kStamp, TextsOf());
    for (std::uint64_t FileStamp::*const part :
         {&FileStamp::file, &FileStamp::size, &FileStamp::writeTime, &FileStamp::changeTime}) {
        FileStamp other = kStamp;
        ++(other.*part);
        EXPECT_EQ(cache.Find("a.pfk", other), nullptr);
    }
    EXPECT_NE(cache.Find("a.pfk", kStamp), nullptr);
}

TEST(FavoriteCache, NeitherKeepsNorGivesWhatIsUnsettled) {
    FavoriteCache cache;
    cache.Keep("a.pfk", Unsettled(kStamp), TextsOf());
    EXPECT_EQ(cache.Find("a.pfk", Unsettled(kStamp)), nullptr);
    EXPECT_EQ(cache.Find("a.pfk", kStamp), nullptr);
    cache.Keep("b.pfk", kStamp, TextsOf());
    EXPECT_EQ(cache.Find("b.pfk", Unsettled(kStamp)), nullptr);
}

TEST(FavoriteCache, PutsWhatIsKeptLaterInThePlaceOfWhatWas) {
    FavoriteCache cache;
    FileStamp later = kStamp;
    ++later.writeTime;
    const Texts texts = TextsOf();
    cache.Keep("a.pfk", kStamp, TextsOf());
    cache.Keep("a.pfk", later, texts);
    EXPECT_EQ(cache.Find("a.pfk", kStamp), nullptr);
    EXPECT_EQ(cache.Find("a.pfk", later), texts);
}

TEST(FavoriteCache, ForgetsAFileThatIsGivenUnsettledOrWithoutTexts) {
    FavoriteCache cache;
    cache.Keep("a.pfk", kStamp, TextsOf());
    cache.Keep("a.pfk", Unsettled(kStamp), TextsOf());
    EXPECT_EQ(cache.Find("a.pfk", kStamp), nullptr);
    cache.Keep("a.pfk", kStamp, TextsOf());
    cache.Keep("a.pfk", kStamp, nullptr);
    EXPECT_EQ(cache.Find("a.pfk", kStamp), nullptr);
}

TEST(FavoriteCache, ForgetsAFileThatIsDroppedAndNoOther) {
    FavoriteCache cache;
    cache.Keep("a.pfk", kStamp, TextsOf());
    cache.Keep("b.pfk", kStamp, TextsOf());
    cache.Drop("a.pfk");
    cache.Drop("none.pfk");
    EXPECT_EQ(cache.Find("a.pfk", kStamp), nullptr);
    EXPECT_NE(cache.Find("b.pfk", kStamp), nullptr);
}

TEST(FavoriteCache, LeavesTextsToThoseWhoHoldThem) {
    Texts held;
    {
        FavoriteCache cache;
        cache.Keep("a.pfk", kStamp, TextsOf(10));
        held = cache.Find("a.pfk", kStamp);
        cache.Drop("a.pfk");
    }
    EXPECT_EQ(held->Find(0), "xxxxxxxxxx");
}

TEST(FavoriteCache, KeepsNoTextsOfMoreThan256Kilobytes) {
    // What texts take beside their characters is the same for all.
    const std::size_t room = 256 * 1024 - TextsOf()->Bytes() - 1000;
    FavoriteCache cache;
    cache.Keep("fits.pfk", kStamp, TextsOf(room));
    EXPECT_NE(cache.Find("fits.pfk", kStamp), nullptr);
    const Texts large = TextsOf(256 * 1024 + 1);
    ASSERT_GT(large->Bytes(), 262144u);
    cache.Keep("large.pfk", kStamp, large);
    EXPECT_EQ(cache.Find("large.pfk", kStamp), nullptr);
}

TEST(FavoriteCache, LetsTheFileThatWasKeptFirstGoWhenItHas4096) {
    FavoriteCache cache;
    const Texts texts = TextsOf();
    for (std::size_t number = 0; number < 4096; ++number)
        cache.Keep(PathOf(number), kStamp, texts);
    // Asking for a file doesn't keep it longer, keeping it again does.
    EXPECT_NE(cache.Find(PathOf(1), kStamp), nullptr);
    cache.Keep(PathOf(0), kStamp, texts);
    EXPECT_NE(cache.Find(PathOf(1), kStamp), nullptr);
    cache.Keep("new.pfk", kStamp, texts);
    EXPECT_EQ(cache.Find(PathOf(1), kStamp), nullptr);
    EXPECT_NE(cache.Find("new.pfk", kStamp), nullptr);
    for (std::size_t number = 2; number < 4096; ++number)
        ASSERT_NE(cache.Find(PathOf(number), kStamp), nullptr) << number;
    EXPECT_NE(cache.Find(PathOf(0), kStamp), nullptr);
}

TEST(FavoriteCache, LetsTheFilesThatWereKeptFirstGoWhenAllTake64Megabytes) {
    FavoriteCache cache;
    const Texts texts = TextsOf(200'000);
    const std::size_t most = 64u * 1024 * 1024 / texts->Bytes();
    for (std::size_t number = 0; number < most; ++number)
        cache.Keep(PathOf(number), kStamp, texts);
    for (std::size_t number = 0; number < most; ++number)
        ASSERT_NE(cache.Find(PathOf(number), kStamp), nullptr) << number;
    cache.Keep("new.pfk", kStamp, texts);
    EXPECT_EQ(cache.Find(PathOf(0), kStamp), nullptr);
    EXPECT_NE(cache.Find(PathOf(1), kStamp), nullptr);
    EXPECT_NE(cache.Find("new.pfk", kStamp), nullptr);
}

TEST(FavoriteCache, HasRoomAgainForWhatWasDropped) {
    FavoriteCache cache;
    const Texts texts = TextsOf(200'000);
    const std::size_t most = 64u * 1024 * 1024 / texts->Bytes();
    for (int time = 0; time < 3; ++time) {
        for (std::size_t number = 0; number < most; ++number)
            cache.Keep(PathOf(number), kStamp, texts);
        EXPECT_NE(cache.Find(PathOf(0), kStamp), nullptr);
        for (std::size_t number = 0; number < most; ++number)
            cache.Drop(PathOf(number));
    }
}

TEST(FavoriteCache, DropsTheFilesWithAPasswordAndNoOther) {
    FavoriteCache cache;
    cache.Keep("secure print.pfk", kStamp, TextsWith("SecPrintPassword", "p"));
    cache.Keep("resources.pfk", kStamp, TextsWith("RscPassword", "p"));
    cache.Keep("authentication.pfk", kStamp, TextsWith("AuthJobPassword", "p"));
    cache.Keep("empty.pfk", kStamp, TextsWith("SecPrintPassword", ""));
    cache.Keep("other.pfk", kStamp, TextsWith("Comment", "p"));
    cache.DropPasswords();
    EXPECT_EQ(cache.Find("secure print.pfk", kStamp), nullptr);
    EXPECT_EQ(cache.Find("resources.pfk", kStamp), nullptr);
    EXPECT_EQ(cache.Find("authentication.pfk", kStamp), nullptr);
    EXPECT_NE(cache.Find("empty.pfk", kStamp), nullptr);
    EXPECT_NE(cache.Find("other.pfk", kStamp), nullptr);
}

TEST(FavoriteCache, ShrinksByTheFilesThatWereKeptFirst) {
    FavoriteCache cache;
    const Texts texts = TextsOf(1000);
    for (std::size_t number = 0; number < 4; ++number)
        cache.Keep(PathOf(number), kStamp, texts);
    cache.ShrinkTo(4 * texts->Bytes());
    EXPECT_NE(cache.Find(PathOf(0), kStamp), nullptr);
    cache.ShrinkTo(3 * texts->Bytes() - 1);
    EXPECT_EQ(cache.Find(PathOf(0), kStamp), nullptr);
    EXPECT_EQ(cache.Find(PathOf(1), kStamp), nullptr);
    EXPECT_NE(cache.Find(PathOf(2), kStamp), nullptr);
    EXPECT_NE(cache.Find(PathOf(3), kStamp), nullptr);
    cache.ShrinkTo(0);
    EXPECT_EQ(cache.Find(PathOf(3), kStamp), nullptr);
}
