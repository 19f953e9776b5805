// Favourites that are large, deep or long in any of their parts.
#include "tests/settings/favorite_hostile_fixture.h"

#include <algorithm>
#include <span>

namespace {

constexpr std::size_t kFourMegabytes = 4194304;

} // namespace

TEST_F(FavoriteHostile, TenThousandLevelsAreReadOrRefusedWithoutHarm) {
    const std::string deep =
        Repeated(10'000, "<a>") + "<NumOfCopies>7</NumOfCopies>" + Repeated(10'000, "</a>");
    if (ExpectReadOrRefused(FavoriteAround(deep))) {
        EXPECT_EQ(Value("ONOC"), "7");
    }
    ExpectRefused(FavoriteAround(Repeated(10'000, "<a>")));
    ExpectReadOrRefused(Repeated(10'000, "<NumOfCopies>1") + Repeated(10'000, "</NumOfCopies>"));
}

TEST_F(FavoriteHostile, AHundredThousandSiblingsAreRead) {
    ExpectRead(
        FavoriteAround(Repeated(100'000, "<NumOfCopies>1</NumOfCopies>") + "<NumOfCopies>8</NumOfCopies>"));
    EXPECT_EQ(Value("ONOC"), "8");
}

TEST_F(FavoriteHostile, AFileOfFourMegabytesIsReadAndOneOfAByteMoreRefused) {
    const std::string good = FavoriteAround("<NumOfCopies>6</NumOfCopies>");
    const std::string most = good + std::string(kFourMegabytes - good.size(), '\n');
    EXPECT_EQ(LoadPath(Write("beyond.pfk", most + "\n")), -1);
    ExpectUntouched();
    EXPECT_EQ(LoadPath(Write("most.pfk", most)), 1);
    EXPECT_EQ(Value("ONOC"), "6");
}

TEST_F(FavoriteHostile, OfAFileOfAHundredMegabytesFourAreRead) {
    class Counted : public ByteSource {
      public:
        std::size_t Read(std::span<char> buffer) override {
            const std::size_t count = std::min(buffer.size(), 100u * 1024 * 1024 - total);
            std::ranges::fill(buffer.first(count), ' ');
            total += count;
            return count;
        }
        std::size_t total = 0;
    };
    Counted source;
    before = ImageOf(setting);
    EXPECT_EQ(manager.LoadFavorite(setting, source), -1);
    EXPECT_EQ(source.total, kFourMegabytes + 1);
    ExpectUntouched();

    const std::string path = Write("huge.pfk", FavoriteAround(""));
    std::filesystem::resize_file(path, 100u * 1024 * 1024);
    EXPECT_EQ(LoadPath(path), -1);
    ExpectUntouched();
    ExpectNextFileLoads();
}

TEST_F(FavoriteHostile, ATextOfAMegabyteIsCutToItsField) {
    ExpectRead(FavoriteAround("<OptionMemoFile>" + std::string(1'000'000, 'x') +
                              "</OptionMemoFile><NumOfCopies>" + std::string(1'000'000, '9') +
                              "</NumOfCopies>"));
    EXPECT_EQ(Value("OOMF"), std::string(100, 'x'));
    EXPECT_EQ(Value("ONOC"), "9999");
    ExpectRead("<Favorite><Comment>" + std::string(1'000'000, 'c') + "</Comment><PageSize>" +
               std::string(1'000'000, 'p') + "</PageSize></Favorite>");
    EXPECT_EQ(setting.Comment.data(), std::string(255, 'c'));
    EXPECT_EQ(setting.PageSize.data(), std::string(259, 'p'));
}

TEST_F(FavoriteHostile, ALongTextOfDoubleByteCharactersIsCutBetweenTwo) {
    ExpectRead(FavoriteAround("<OptionMemoFile>x" + Repeated(300'000, "\xE8\xA1\xA8") + "</OptionMemoFile>"));
    EXPECT_EQ(Value("OOMF"), "x" + Repeated(49, "\x95\x5C"))
        << "100 bytes are room for half a character more";
}

TEST_F(FavoriteHostile, AFloodOfAttributesIsReadOrRefusedWithoutHarm) {
    std::string attributes;
    for (int number = 0; number < 20'000; ++number)
        attributes += " a" + std::to_string(number) + "='NumOfCopies'";
    if (ExpectReadOrRefused(FavoriteAround("<x" + attributes + "/><NumOfCopies>3</NumOfCopies>"))) {
        EXPECT_EQ(Value("ONOC"), "3");
    }
    ExpectRefused(FavoriteAround("<x a='1' a='2'/>"));
    ExpectRead(FavoriteAround("<NumOfCopies value='4' xml:space='preserve'>5</NumOfCopies>"));
    EXPECT_EQ(Value("ONOC"), "5");
    ExpectReadOrRefused(FavoriteAround("<x a='" + std::string(1'000'000, 'y') + "'/>"));
}

TEST_F(FavoriteHostile, NumbersOfTenThousandDigitsEndAtTheFieldsLimits) {
    const std::string digits(10'000, '9');
    ExpectRead(FavoriteAround("<NumOfCopies>" + digits + "</NumOfCopies><IotVer>" + digits +
                              "</IotVer><FileVer>-" + digits + "</FileVer><CharCode>" +
                              std::string(10'000, '0') + "1</CharCode>"));
    EXPECT_EQ(Value("ONOC"), "9999");
    EXPECT_NE(setting.IotVer, 10u);
    EXPECT_NE(setting.FileVer, 2u);
    ExpectRead(FavoriteAround("<NumOfCopies>-" + digits + "</NumOfCopies>"));
    EXPECT_EQ(Value("ONOC"), "1");
}
