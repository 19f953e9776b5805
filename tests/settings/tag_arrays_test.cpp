#include "session/keyword.h"
#include "settings/InterchangeOptionTag.h"
#include "settings/tag_search.h"
#include "tests/support/tag_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <numeric>

namespace {

using Tags = std::vector<std::int32_t>;

constexpr int kIntMin = std::numeric_limits<int>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();

Tags TagsOf(int number) {
    const std::int32_t* array = nullptr;
    int count = -1;
    EXPECT_EQ(GetTagIndexArrayFromKeyword(number, &array, &count), 1) << number;
    return {array, array + count};
}

const std::int32_t* ArrayOf(int number) {
    const std::int32_t* array = nullptr;
    int count = 0;
    GetTagIndexArrayFromKeyword(number, &array, &count);
    return array;
}

struct Answer {
    int result;
    int value; // 77 if it was left alone
    bool operator==(const Answer&) const = default;
};

Answer TagNumberOf(int number, int optionIndex) {
    Answer answer{0, 77};
    answer.result = GetTagNumberFromPreset(number, optionIndex, &answer.value);
    return answer;
}

Answer OptionIndexOf(int number, std::int32_t tag) {
    Answer answer{0, 77};
    answer.result = GetOptionIndexFromTagNumber(number, tag, &answer.value);
    return answer;
}

TEST(TagListing, NamesItsKeywordsByTheirNumbers) {
    const auto arrays = ListedTagArrays();
    EXPECT_EQ(arrays.size(), 213u);
    for (const ListedTagArray& array : arrays) {
        if (array.number < kKeywordCount) {
            EXPECT_EQ(array.name, kKeywordNames[static_cast<std::size_t>(array.number)]);
        }
    }
}

TEST(TagArrays, AreTheListedOnesForEveryNumberOfTheRange) {
    std::map<int, Tags> listed;
    for (const ListedTagArray& array : ListedTagArrays())
        listed[array.number] = array.tags;
    for (int number = 0; number <= 562; ++number)
        EXPECT_EQ(TagsOf(number), listed.contains(number) ? listed[number] : (Tags{0, 1})) << number;
}

// The arrays from 300 up once more by hand.
TEST(TagArrays, FromNumber300UpAreTheseAndZeroOneForAllOthers) {
    const Tags zeroOne{0, 1};
    const Tags zeroToFour{0, 1, 2, 3, 4};
    const Tags pressureLevels{0, 1, 2, 3, 4, 5};
    const Tags backlight{0, 1, 2, 3, 4, 5, 6};
    const std::map<int, Tags> arrays{
        {300, {1,  2,  3,  4,  5,  6,  7,  8,  10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 22,
               30, 38, 53, 57, 62, 65, 66, 67, 68, 76, 82, 77, 84, 78, 79, 83, 88, 89, 104}},
        {303, {1}},
        {304, {1}},
        {305, zeroOne},
        {306, zeroOne},
        {308, {1, 2, 5, 6, 12, 16}},
        {309, {1, 2}},
        {310, {1, 2}},
        {311, {0, 1, 2, 3}},
        {320, zeroOne},
        {321, zeroToFour},
        {322, zeroToFour},
        {323, zeroToFour},
        {324, zeroToFour},
        {519, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}},
        {520, zeroOne},
        {523, zeroOne},
        {524, pressureLevels},
        {526, zeroOne},
        {527, pressureLevels},
        {529, zeroOne},
        {530, pressureLevels},
        {532, zeroOne},
        {533, pressureLevels},
        {535, zeroOne},
        {536, pressureLevels},
        {547, zeroOne},
        {548, {0, 1, 2}},
        {550, {0, 1, 2, 3, 4, 5, 7, 20, 25, 27}},
        {554, {0, 1, 2}},
        {560, backlight},
        {561, backlight},
        {562, zeroOne},
    };
    for (int number = 300; number <= 570; ++number) {
        const auto found = arrays.find(number);
        EXPECT_EQ(TagsOf(number), found == arrays.end() ? zeroOne : found->second) << number;
    }
}

TEST(TagArrays, AreZeroOneForTheGapAndForEveryNumberOutsideTheRange) {
    for (const int number : {327, 563, 564, 999, 0x10000 + 4, kIntMax, -1, -4, kIntMin})
        EXPECT_EQ(TagsOf(number), (Tags{0, 1})) << number;
}

TEST(TagArrays, HaveOneArrayOfFinishedAndSheetSizes) {
    EXPECT_EQ(ArrayOf(299), ArrayOf(300));
}

TEST(TagArrays, HaveOneArrayOfSevenForBacklightModeAndLevel) {
    EXPECT_EQ(ArrayOf(560), ArrayOf(561));
    EXPECT_EQ(TagsOf(560).size(), 7u);
}

TEST(TagArrays, LeadFromIndexToTagAndBackForEveryOptionOfEveryNumber) {
    for (int number = 0; number <= 563; ++number) {
        const Tags tags = TagsOf(number);
        for (int index = 0; index < static_cast<int>(tags.size()); ++index) {
            const Answer tag = TagNumberOf(number, index);
            EXPECT_EQ(tag, (Answer{1, tags[static_cast<std::size_t>(index)]})) << number << " " << index;
            EXPECT_EQ(OptionIndexOf(number, tag.value), (Answer{1, index})) << number << " " << index;
        }
    }
}

TEST(GetTagNumberFromPreset, GivesTag25ForTray7) {
    EXPECT_EQ(TagNumberOf(4, 6), (Answer{1, 7}));
    EXPECT_EQ(TagNumberOf(4, 7), (Answer{1, 25}));
}

TEST(GetTagNumberFromPreset, LeavesTheTagAloneForTray8) {
    EXPECT_EQ(TagNumberOf(4, 8), (Answer{0, 77}));
}

TEST(GetTagNumberFromPreset, HasTwoOptionsForANumberAboveTheRange) {
    EXPECT_EQ(TagNumberOf(999, 1), (Answer{1, 1}));
    EXPECT_EQ(TagNumberOf(999, 2), (Answer{0, 77}));
}

TEST(GetTagNumberFromPreset, RefusesTheIndexBehindTheLastForEveryNumber) {
    for (int number = 0; number <= 563; ++number)
        EXPECT_EQ(TagNumberOf(number, static_cast<int>(TagsOf(number).size())), (Answer{0, 77})) << number;
}

TEST(GetTagNumberFromPreset, RefusesNegativeAndHugeIndices) {
    for (const int number : {4, 327, 999, -1, kIntMin, kIntMax})
        for (const int index : {-1, kIntMin, kIntMax})
            EXPECT_EQ(TagNumberOf(number, index), (Answer{0, 77})) << number << " " << index;
}

TEST(GetOptionIndexFromTagNumber, HasNoTrayWithTag6) {
    EXPECT_EQ(OptionIndexOf(4, 6), (Answer{0, 77}));
}

TEST(GetOptionIndexFromTagNumber, FindsTrayTags7And25) {
    EXPECT_EQ(OptionIndexOf(4, 7), (Answer{1, 6}));
    EXPECT_EQ(OptionIndexOf(4, 25), (Answer{1, 7}));
}

TEST(GetOptionIndexFromTagNumber, LeavesTheIndexAloneForTagsThatNoOptionHas) {
    for (const int number : {4, 303, 327, 999, -1, kIntMin, kIntMax})
        for (const std::int32_t tag : {-1, 1000, kIntMin, kIntMax})
            EXPECT_EQ(OptionIndexOf(number, tag), (Answer{0, 77})) << number << " " << tag;
}

TEST(FirstIndexOf, GivesTheFirstIndexOfARepeatedElement) {
    const std::array<std::int32_t, 5> tags{4, 9, 7, 9, 4};
    EXPECT_EQ(FirstIndexOf(tags, 9), 1);
    EXPECT_EQ(FirstIndexOf(tags, 4), 0);
    EXPECT_EQ(FirstIndexOf(tags, 7), 2);
}

TEST(FirstIndexOf, IsMinusOneForAnElementThatIsNotThere) {
    EXPECT_EQ(FirstIndexOf(std::array<std::int32_t, 2>{0, 1}, 2), -1);
    EXPECT_EQ(FirstIndexOf({}, 0), -1);
}

TEST(ProvisionalTagArrays, AreTheTraysOrTheIndicesUpTo31) {
    Tags indices(32);
    std::iota(indices.begin(), indices.end(), 0);
    int trays = 0;
    int others = 0;
    for (const ListedTagArray& array : ListedTagArrays()) {
        if (array.state != "provisional")
            continue;
        const bool isTray = array.name.ends_with("Tray");
        EXPECT_EQ(TagsOf(array.number), isTray ? (Tags{0, 1, 2, 3, 4, 5, 7, 25}) : indices) << array.name;
        ++(isTray ? trays : others);
    }
    EXPECT_EQ(trays, 15);
    EXPECT_EQ(others, 126);
}

} // namespace
