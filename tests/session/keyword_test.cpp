#include "session/keyword.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace {

struct Row {
    int id;
    std::string name;
};

std::vector<Row> ListedKeywords() {
    std::ifstream file(ZR_TEST_DATA_DIR "/keywords.tsv");
    std::vector<Row> rows;
    for (Row row; file >> row.id >> row.name;)
        rows.push_back(row);
    return rows;
}

TEST(KeywordTable, HoldsTheListedNamesAtTheListedNumbers) {
    const auto rows = ListedKeywords();
    ASSERT_EQ(rows.size(), 327u);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].id, static_cast<int>(i));
        EXPECT_EQ(kKeywordNames[i], rows[i].name);
    }
}

TEST(KeywordTable, Has327UniqueNames) {
    const std::set<std::string_view> names(kKeywordNames.begin(), kKeywordNames.end());
    EXPECT_EQ(names.size(), 327u);
}

TEST(KeywordTable, KeepsTheSpellingsOfTheDescriptionFile) {
    EXPECT_STREQ(kKeywordNames[13], "FittenToPaper");
    EXPECT_STREQ(kKeywordNames[229], "SeparetionsProcess");
    EXPECT_STREQ(kKeywordNames[243], "LayoutRepeatAutoCalculatation");
}

TEST(FindKeyword, FindsEveryListedName) {
    for (const Row& row : ListedKeywords())
        EXPECT_EQ(FindKeyword(row.name), row.id) << row.name;
}

TEST(FindKeyword, FindsTheEndsAndTheLandmarksOfTheTable) {
    EXPECT_EQ(FindKeyword("PageSize"), 0);
    EXPECT_EQ(FindKeyword("DuplexMode"), 104);
    EXPECT_EQ(FindKeyword("Collate"), 109);
    EXPECT_EQ(FindKeyword("CustomPaperWidth"), 301);
    EXPECT_EQ(FindKeyword("Resolution"), 305);
    EXPECT_EQ(FindKeyword("RepeatExceptionPage"), 326);
}

TEST(FindKeyword, RefusesANameThatDiffersInCase) {
    EXPECT_EQ(FindKeyword("pagesize"), -1);
    EXPECT_EQ(FindKeyword("PAGESIZE"), -1);
    EXPECT_EQ(FindKeyword("collate"), -1);
}

TEST(FindKeyword, RefusesEveryNameWithItsFirstLetterInTheOtherCase) {
    for (const Row& row : ListedKeywords()) {
        std::string name = row.name;
        name[0] = static_cast<char>(name[0] ^ 0x20);
        EXPECT_EQ(FindKeyword(name), -1) << name;
    }
}

TEST(FindKeyword, RefusesBeginningsAndContinuationsOfANameUnlessTheyAreNamesThemselves) {
    std::set<std::string> names;
    for (const Row& row : ListedKeywords())
        names.insert(row.name);
    for (const std::string& name : names) {
        const std::string shorter = name.substr(0, name.size() - 1);
        EXPECT_EQ(FindKeyword(shorter) >= 0, names.contains(shorter)) << shorter;
        EXPECT_EQ(FindKeyword(name + "X"), -1) << name;
    }
}

TEST(FindKeyword, RefusesTheEmptyAndTheOverlongName) {
    EXPECT_EQ(FindKeyword(""), -1);
    EXPECT_EQ(FindKeyword(std::string(100'000, 'A')), -1);
}

TEST(FindKeyword, ComparesBytesAndSoRefusesANameBehindANul) {
    EXPECT_EQ(FindKeyword(std::string("Tray\0", 5)), -1);
    EXPECT_EQ(FindKeyword("Tray\x81"), -1);
}

} // namespace
