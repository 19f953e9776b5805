// The option lists that the pages show against the tag arrays.
#include "options/PrintOptionSetting.h"
#include "settings/InterchangeOptionTag.h"
#include "tests/support/tag_listing.h"

#include <gtest/gtest.h>

#include <set>

namespace {

// 0 for a setting without a list.
int OptionCount(int number) {
    int count = 0;
    return GetPrintOptionStringList(&number, nullptr, 0, &count) ? count : 0;
}

int TagCount(int number) {
    const std::int32_t* array = nullptr;
    int count = 0;
    GetTagIndexArrayFromKeyword(number, &array, &count);
    return count;
}

TEST(TagArrays, HaveATagForEachOptionOfAList) {
    int compared = 0;
    for (const ListedTagArray& array : ListedTagArrays()) {
        const int options = OptionCount(array.number);
        if (options == 0 || array.state != "settled" || array.number == keyword::NUP)
            continue;
        EXPECT_EQ(TagCount(array.number), options) << array.number << " " << array.name;
        ++compared;
    }
    EXPECT_EQ(compared, 26);
}

// The seventh has a picture and a tag only.
TEST(TagArrays, HaveSevenTagsForTheSixRowsOfNup) {
    EXPECT_EQ(OptionCount(keyword::NUP), 6);
    EXPECT_EQ(TagCount(keyword::NUP), 7);
}

TEST(ProvisionalTagArrays, LoseNoOptionOfAList) {
    for (const ListedTagArray& array : ListedTagArrays()) {
        if (array.state == "provisional") {
            EXPECT_LE(OptionCount(array.number), TagCount(array.number)) << array.number << " " << array.name;
        }
    }
}

// PageOrientation is stored as it is, and the list at 336 belongs to another setting than the named value of
// that number.
TEST(TagArrays, OfTwoTagsLoseNoOptionOfAList) {
    std::set<int> excluded{keyword::PageOrientation, option_item::KW_MEDIATYPEWEIGHT2};
    for (const ListedTagArray& array : ListedTagArrays())
        excluded.insert(array.number);
    for (int number = 0; number <= 562; ++number) {
        if (!excluded.contains(number)) {
            EXPECT_LE(OptionCount(number), 2) << number;
        }
    }
}

} // namespace
