#include "oemps/satellite_names.h"

#include <gtest/gtest.h>

namespace {

constexpr LanguageId kJapanese = 0x0411;
constexpr LanguageId kGerman = 0x0407;
constexpr LanguageId kAustrianGerman = 0x0C07;
constexpr LanguageId kFrench = 0x040C;

} // namespace

TEST(SatelliteCandidates, AreNoneInTheJapaneseCodePage) {
    EXPECT_TRUE(SatelliteCandidates(kGerman, kFrench, 932).empty());
    EXPECT_TRUE(SatelliteCandidates(kJapanese, kJapanese, 932).empty());
}

TEST(SatelliteCandidates, GoFromTheUsersLanguageToTheSystemsThenTheFixedCodeThenEnglish) {
    const std::vector<SatelliteCandidate> expected{{0x0C07}, {0x07},          {0x040C},
                                                   {0x0C},   kFixedCandidate, {1033}};
    EXPECT_EQ(SatelliteCandidates(kAustrianGerman, kFrench, 1252), expected);
}

TEST(SatelliteCandidates, EndWithTheFixedCodeForAJapaneseUser) {
    const std::vector<SatelliteCandidate> expected{{0x0411}, {0x11}, {0x040C}, {0x0C}, kFixedCandidate};
    EXPECT_EQ(SatelliteCandidates(kJapanese, kFrench, 1252), expected);
}

TEST(SatelliteStem, IsThePathWithoutTheExtension) {
    EXPECT_EQ(SatelliteStem("C:\\drivers\\ZRPDS31J.dll"), "C:\\drivers\\ZRPDS31J");
    EXPECT_EQ(SatelliteStem("C:\\drivers\\3.1\\ZRPDS31J"), "C:\\drivers\\3.1\\ZRPDS31J");
    EXPECT_EQ(SatelliteStem("ZRPDS31J"), "ZRPDS31J");
}
