#include "settings/value_checks.h"

#include "tests/settings/favorite_fixture.h"
#include "tests/settings/value_check_listing.h"
#include "tests/support/tag_listing.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

// Every check of the boolean form; the default of each is 1.
const std::set<std::string> kBooleans{"UsePdlRgbRenderingIntent", "UsePdlCmykRenderingIntent",
                                      "BlendingColorSpace", "CmykKReset", "TopAndTailTrimSameCutSize"};

std::string Checked(const std::string& name, std::string text) {
    CheckValue(name, text);
    return text;
}

TEST(ValueCheck, OfARangeTakesTheNumbersInItAndGivesTheDefaultForOthers) {
    for (const ListedRange& range : kListedRanges) {
        const std::string value = std::to_string(range.value);
        for (const long accepted : {range.min, range.max})
            EXPECT_EQ(Checked(range.name, std::to_string(accepted)), std::to_string(accepted)) << range.name;
        for (const long refused : {range.min - 1, range.max + 1})
            EXPECT_EQ(Checked(range.name, std::to_string(refused)), value) << range.name;
    }
}

TEST(ValueCheck, OfARangeLeavesAnEmptyTextEmptyWhereZeroIsInRange) {
    for (const ListedRange& range : kListedRanges)
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
    for (const ListedRange& range : kListedRanges)
        checked.insert(range.name);
    EXPECT_EQ(checked.size(), kListedRanges.size() + kBooleans.size());
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
    for (const ListedRange& range : kListedRanges)
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
