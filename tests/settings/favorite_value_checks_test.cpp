#include "settings/value_checks.h"

#include "tests/settings/favorite_fixture.h"
#include "tests/support/tag_listing.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

struct Range {
    std::string name;
    long min;
    long max;
    long value;
};

// Every check of the range form.
const std::vector<Range> kRanges{
    {"MixSizeFirstPageSize", 1, 16, 2},
    {"MixSizeRotation", 0, 3, 0},
    {"JobMarkNumOfSheets", 3, 100, 3},
    {"AutoJobStartType", 0, 3, 1},
    {"AutoJobStartSpecifiedHour", 0, 23, 12},
    {"AutoJobStartElapsedDays", 0, 999, 0},
    {"AutoJobStartElapsedHours", 0, 23, 1},
    {"CreaseMode", 1, 11, 1},
    {"CreaseNum", 1, 5, 1},
    {"CreasePosition1", 6803, 367597, 6803},
    {"CreasePosition2", 20976, 367597, 20976},
    {"CreasePosition3", 35150, 367597, 35150},
    {"CreasePosition4", 49323, 367597, 49323},
    {"CreasePosition5", 63496, 367597, 63496},
    {"CreasePressureLevel1", 0, 5, 0},
    {"CreasePressureLevel2", 0, 5, 0},
    {"CreasePressureLevel3", 0, 5, 0},
    {"CreasePressureLevel4", 0, 5, 0},
    {"CreasePressureLevel5", 0, 5, 0},
    {"TopAndTailTrimFinishSize", 103181, 179262, 160441},
    {"MinimumLineWidthValue", 0, 10000, 120},
    {"CustomCoverPageNum", 1, 100, 1},
    {"CoverPageTray", 0, 27, 27},
    {"SamplePrintCopyInterval", 1, 9999, 50},
    {"SamplePrintSheetInterval", 1, 65500, 50},
    {"SamplePrintSheetNum", 1, 65500, 1},
    {"Magnification", 100, 10000, 1000},
    {"FormOrigin", 0, 4, 1},
    {"ImpositionFormOrigin", 0, 4, 1},
    {"RecordDivNumOfPages", 1, 9999, 1},
    {"SeparatorsSets", 1, 9999, 1},
    {"MediaTypeWeightValue", 52, 400, 90},
    {"MediaTypeSequence", 2, 255, 2},
    {"PaperTypeCustomNumber", 1, 40, 1},
    {"RepeatExceptionPageNum", 1, 9999, 1},
    {"OffsetUnit", 1, 9999, 1},
    {"NumberOfFoldSheets", 1, 5, 1},
    {"InkWarningAmount", 1, 400, 300},
    {"HairLineWarningPoint", 1, 1000, 90},
    {"QrThreshold", 1, 255, 128},
    {"MemoFontSize", 1, 99, 8},
    {"PaginationFontSize", 1, 99, 10},
    {"ImpositionPaginationFontSize", 1, 99, 10},
    {"LayoutRepeatX", 1, 99, 1},
    {"LayoutRepeatY", 1, 99, 1},
    {"NumberOfFascicle", 1, 999, 16},
    {"MixSizeFirstPageOrientation", 1, 2, 1},
    {"MixSizeMixedPageOrientation", 1, 2, 1},
    {"TopAndTailTrimMode", 1, 2, 1},
    {"CoverPageStkType", 1, 2, 2},
    {"EdgeDensityLevel", 1, 3, 2},
    {"RgbSkinImprovementLevel", 1, 3, 2},
    {"ImageBacklightCorrectionLevel", 1, 3, 2},
    {"GraphicsScreen", 1, 9, 5},
    {"CmykKPreservation", 0, 2, 2},
};

// Every check of the boolean form; the default of each is 1.
const std::set<std::string> kBooleans{"UsePdlRgbRenderingIntent", "UsePdlCmykRenderingIntent",
                                      "BlendingColorSpace", "CmykKReset", "TopAndTailTrimSameCutSize"};

std::string Checked(const std::string& name, std::string text) {
    CheckValue(name, text);
    return text;
}

TEST(ValueCheck, OfARangeTakesTheNumbersInItAndGivesTheDefaultForOthers) {
    for (const Range& range : kRanges) {
        const std::string value = std::to_string(range.value);
        for (const long accepted : {range.min, range.max})
            EXPECT_EQ(Checked(range.name, std::to_string(accepted)), std::to_string(accepted)) << range.name;
        for (const long refused : {range.min - 1, range.max + 1})
            EXPECT_EQ(Checked(range.name, std::to_string(refused)), value) << range.name;
    }
}

TEST(ValueCheck, OfARangeLeavesAnEmptyTextEmptyWhereZeroIsInRange) {
    for (const Range& range : kRanges)
        EXPECT_EQ(Checked(range.name, ""), range.min <= 0 ? "" : std::to_string(range.value)) << range.name;
}

TEST(ValueCheck, ReadsANumberUpToWhereItEnds) {
    EXPECT_EQ(Checked("CreaseNum", " 3x"), " 3x");
    EXPECT_EQ(Checked("CreaseNum", "x3"), "1");
    EXPECT_EQ(Checked("MixSizeRotation", "x"), "x");
    EXPECT_EQ(Checked("CreaseNum", "99999999999999999999"), "1");
}

TEST(ValueCheck, OfABooleanReplacesAnEmptyTextAndWhatIsAboveOne) {
    for (const std::string& name : kBooleans) {
        EXPECT_EQ(Checked(name, ""), "1") << name;
        EXPECT_EQ(Checked(name, "2"), "1") << name;
        EXPECT_EQ(Checked(name, "1"), "1") << name;
        EXPECT_EQ(Checked(name, "0"), "0") << name;
    }
}

TEST(ValueCheck, OtherNamesTakeAnyText) {
    std::set<std::string> checked = kBooleans;
    for (const Range& range : kRanges)
        checked.insert(range.name);
    EXPECT_EQ(checked.size(), kRanges.size() + kBooleans.size());
    std::size_t others = 0;
    for (const ListedTag& tag : ListedTags()) {
        if (checked.contains(tag.longName))
            continue;
        ++others;
        EXPECT_EQ(Checked(tag.longName, ""), "") << tag.longName;
        EXPECT_EQ(Checked(tag.longName, "-70000"), "-70000") << tag.longName;
        EXPECT_EQ(Checked(tag.longName, "999999"), "999999") << tag.longName;
    }
    EXPECT_EQ(others, 864 - checked.size());
    for (const char* header : {"FileVer", "IotVer", "CharCode", "Comment", "PageSize", ""})
        EXPECT_EQ(Checked(header, ""), "") << header;
}

// Deliberate: the first check passes what the second one would.
TEST(ValueCheck, OfCmykKPreservationStandsTwiceToNoEffect) {
    std::vector<std::string> names;
#define ZR_RANGE(name, min, max, value) names.emplace_back(#name);
#define ZR_BOOL(name, value) names.emplace_back(#name);
#include "settings/value_checks.def"
    std::map<std::string, int> times;
    for (const std::string& name : names)
        ++times[name];
    EXPECT_EQ(times.extract("CmykKPreservation").mapped(), 2);
    for (const auto& [name, count] : times)
        EXPECT_EQ(count, 1) << name;
    EXPECT_EQ(Checked("CmykKPreservation", ""), "");
}

using ValueCheckOfFile = FavoriteTest;

TEST_F(ValueCheckOfFile, GivesEachMissingElementItsDefault) {
    ASSERT_EQ(Read("<Favorite/>"), 1);
    std::map<std::string, std::string> expected;
    for (const Range& range : kRanges)
        if (range.min > 0)
            expected[range.name] = std::to_string(range.value);
    for (const std::string& name : kBooleans)
        expected[name] = "1";
    for (const ListedTag& tag : ListedTags()) {
        if (!expected.contains(tag.longName))
            continue;
        CFavoriteSetting other;
        std::string text = expected[tag.longName];
        text.resize(kOptionValueSize);
        AccessPrintOption(tag.key.c_str(), text.data(), &other, kStoreOption);
        EXPECT_EQ(Value(tag.key.c_str()), Value(tag.key.c_str(), other)) << tag.longName;
    }
    EXPECT_EQ(Value("OCrN"), "1");
    EXPECT_EQ(Value("OCrP3"), "35150");
    EXPECT_EQ(Value("OMTWV"), "90");
    EXPECT_EQ(Value("CCKR"), "1");
    EXPECT_EQ(Value("CCKP"), "0");
    EXPECT_EQ(Value("SCPSTy"), "2");
    EXPECT_EQ(Value("OCPT"), "0");
}

TEST_F(ValueCheckOfFile, LeavesAnElementThatIsThereAlone) {
    ASSERT_EQ(Read(FileOf(
                  {{"CreaseNum", ""}, {"CreaseMode", "77"}, {"CmykKReset", ""}, {"CmykKPreservation", "9"}})),
              1);
    EXPECT_EQ(Value("OCrN"), "0");
    EXPECT_EQ(Value("OCrM"), "77");
    EXPECT_EQ(Value("CCKR"), "0");
    EXPECT_EQ(Value("CCKP"), "9");
}

} // namespace
