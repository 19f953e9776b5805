#include "Common/profile_items.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

using namespace std::string_literals;

namespace {

struct Expected {
    std::string name;
    std::int32_t type = 0;
    std::string value;
};

// The table by hand: 29 slots one by one, then the two ranges of text items.
std::vector<Expected> ExpectedTable() {
    std::vector<Expected> table = {
        {"HasOption_InputSlot", 0, "Tray1"},
        {"HasOption_InputSlot", 0, "Tray2"},
        {"HasOption_InputSlot", 0, "Tray3"},
        {"", 0, ""},
        {"HasOption_InputSlot", 0, "Manual"},
        {"", 0, ""},
        {"HasOption_InputSlot", 0, "Tray6"},
        {"HasOption_InputSlot", 0, "Tray7"},
        {"", 0, ""},
        {"", 0, ""},
        {"HasOption_InputSlot", 0, "Tray8"},
        {"HasOption_InputSlot", 0, "Tray9"},
        {"", 0, ""},
        {"", 0, ""},
        {"", 0, ""},
        {"", 0, ""},
        {"", 0, ""},
        {"", 0, ""},
        {"HasOption_InputSlot", 0, "STK"},
        {"HasOption_CFinisher", 0, "true"},
        {"HasOption_DFinisher", 0, "true"},
        {"HasOption_ZQStaple", 0, "true"},
        {"HasOption_Booklet", 0, "true"},
        {"HasOption_ZQPunch", 0, "true"},
        {"HasOption_ZQFold", 0, "true"},
        {"HasOption_ZQTrimmer", 0, "true"},
        {"HasOption_ZQSFold", 0, "true"},
        {"HasOption_OutputTray_StackerTray", 0, "true"},
        {"HasOption_OutputTray_StackerTopTray", 0, "true"},
    };
    for (int number = 1; number <= 20; ++number)
        table.push_back({"CustomPaperName" + std::to_string(number), 1, ""});
    for (int number = 1; number <= 100; ++number)
        table.push_back({"Watermark" + std::to_string(number), 1, ""});
    return table;
}

std::array<ProfileItem, kProfileItemCount> FreshItems() {
    std::array<ProfileItem, kProfileItemCount> items;
    InitProfileItems(items);
    return items;
}

ProfileItem Presence(std::string name, std::string value) {
    return {std::move(name), 0, std::move(value), 0};
}
ProfileItem Text(std::string name) {
    return {std::move(name), 1, "", 0};
}

std::vector<std::int32_t> Flags(const std::vector<ProfileItem>& items) {
    std::vector<std::int32_t> flags;
    for (const ProfileItem& item : items)
        flags.push_back(item.exists);
    return flags;
}

// The slots that are marked after one line against the real table.
std::vector<std::size_t> MarkedBy(std::string_view line) {
    auto items = FreshItems();
    ScanProfileLine(items, line);
    std::vector<std::size_t> marked;
    for (std::size_t slot = 0; slot < items.size(); ++slot)
        if (items[slot].exists)
            marked.push_back(slot);
    return marked;
}

using Slots = std::vector<std::size_t>;

} // namespace

TEST(ProfileItems, AreTheWholeTable) {
    const auto items = FreshItems();
    const std::vector<Expected> table = ExpectedTable();
    ASSERT_EQ(table.size(), 149u);
    ASSERT_EQ(items.size(), 149u);
    for (std::size_t slot = 0; slot < items.size(); ++slot) {
        EXPECT_EQ(items[slot].name, table[slot].name) << slot;
        EXPECT_EQ(items[slot].type, table[slot].type) << slot;
        EXPECT_EQ(items[slot].value, table[slot].value) << slot;
        EXPECT_EQ(items[slot].exists, 0) << slot;
    }
}

TEST(ProfileItems, ComeBackToTheirStartButEmptySlotsKeepTheirTexts) {
    std::array<ProfileItem, kProfileItemCount> items;
    for (ProfileItem& item : items)
        item = {"other", 7, "else", 1};
    InitProfileItems(items);
    const std::vector<Expected> table = ExpectedTable();
    for (std::size_t slot = 0; slot < items.size(); ++slot) {
        const bool isEmpty = table[slot].name.empty();
        EXPECT_EQ(items[slot].exists, 0) << slot;
        EXPECT_EQ(items[slot].name, isEmpty ? "other" : table[slot].name) << slot;
        EXPECT_EQ(items[slot].type, isEmpty ? 7 : table[slot].type) << slot;
        EXPECT_EQ(items[slot].value, isEmpty ? "else" : table[slot].value) << slot;
    }
}

TEST(ProfileLine, MarksATrayByItsNameWithAnySeparator) {
    EXPECT_EQ(MarkedBy("HasOption_InputSlot Tray1"), Slots{0});
    EXPECT_EQ(MarkedBy("HasOption_InputSlot=Tray1"), Slots{0});
    EXPECT_EQ(MarkedBy("HasOption_InputSlot=Tray2"), Slots{1});
    EXPECT_EQ(MarkedBy("HasOption_InputSlot=Tray3"), Slots{2});
}

TEST(ProfileLine, MarksOnlyTheFirstSlotThatItHits) {
    EXPECT_EQ(MarkedBy("HasOption_InputSlot Tray1 Tray2"), Slots{0});
    EXPECT_EQ(MarkedBy("HasOption_InputSlot Tray3 Tray2"), Slots{1});
}

TEST(ProfileLine, HoldsTheValueAlsoInFrontOfTheName) {
    EXPECT_EQ(MarkedBy("Tray2 HasOption_InputSlot"), Slots{1});
}

TEST(ProfileLine, IsCaseSensitive) {
    EXPECT_EQ(MarkedBy("hasoption_inputslot Tray1"), Slots{3});
    EXPECT_EQ(MarkedBy("HasOption_InputSlot tray1"), Slots{3});
}

// The first empty slot takes what the trays leave; what stands behind it in the table is never reached.
TEST(ProfileLine, MarksSlot3IfItHitsNoneOfSlots0To2) {
    EXPECT_EQ(MarkedBy("HasOption_InputSlot"), Slots{3});
    EXPECT_EQ(MarkedBy("HasOption_InputSlot Manual"), Slots{3});
    EXPECT_EQ(MarkedBy("HasOption_InputSlot STK"), Slots{3});
    EXPECT_EQ(MarkedBy("HasOption_CFinisher true"), Slots{3});
    EXPECT_EQ(MarkedBy("nothing of it"), Slots{3});
    EXPECT_EQ(MarkedBy(""), Slots{3});
}

TEST(ProfileLine, OfATextItemNeverReachesItBehindSlot3) {
    auto items = FreshItems();
    for (const char* line : {"CustomPaperName1=Plain", "CustomPaperName20=Thick", "Watermark100=x"})
        ScanProfileLine(items, line);
    EXPECT_EQ(items[3].exists, 1);
    for (std::size_t slot = 29; slot < items.size(); ++slot) {
        EXPECT_EQ(items[slot].value, "") << slot;
        EXPECT_EQ(items[slot].exists, 0) << slot;
    }
}

TEST(ProfileLine, GivesATextItemTheRestBehindTheEqualsSignUntrimmed) {
    std::vector<ProfileItem> items{Text("Paper1"), Text("Paper2")};
    ScanProfileLine(items, "  Paper2= a=b \t");
    EXPECT_EQ(items[0].value, "");
    EXPECT_EQ(items[1].value, " a=b \t");
    EXPECT_EQ(Flags(items), (std::vector<std::int32_t>{0, 0}));
}

TEST(ProfileLine, MayGiveATextItemAnEmptyText) {
    std::vector<ProfileItem> items{Text("Paper1")};
    items[0].value = "old";
    ScanProfileLine(items, "Paper1=");
    EXPECT_EQ(items[0].value, "");
}

TEST(ProfileLine, ForWatermark10IsNotSwallowedByWatermark1) {
    std::vector<ProfileItem> items{Text("Watermark1"), Text("Watermark10")};
    ScanProfileLine(items, "Watermark10=draft");
    EXPECT_EQ(items[0].value, "");
    EXPECT_EQ(items[1].value, "draft");
}

TEST(ProfileLine, CountsOnlyTheFirstOccurrenceOfATextItemsName) {
    std::vector<ProfileItem> items{Text("W1"), Presence("W1", "")};
    ScanProfileLine(items, "W1 W1=x");
    EXPECT_EQ(items[0].value, "");
    EXPECT_EQ(items[1].exists, 1);
}

TEST(ProfileLine, StopsAtATextItemThatTakesIt) {
    std::vector<ProfileItem> items{Text("A"), Presence("A", "")};
    ScanProfileLine(items, "A=1");
    EXPECT_EQ(items[0].value, "1");
    EXPECT_EQ(items[1].exists, 0);
}

TEST(ProfileLine, ThatEndsWithATextItemsNameIsOutOfRange) {
    std::vector<ProfileItem> items{Presence("B", "C"), Text("Paper1"), Presence("", "")};
    ScanProfileLine(items, "B C");
    try {
        ScanProfileLine(items, "xPaper1");
        FAIL() << "nothing was thrown";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "invalid string position");
    }
    EXPECT_EQ(Flags(items), (std::vector<std::int32_t>{1, 0, 0})) << "the table stays as read so far";
}

TEST(ProfileLine, TakesTheFirstCharacterForATextItemWithoutAName) {
    std::vector<ProfileItem> items{Text("")};
    ScanProfileLine(items, "=x");
    EXPECT_EQ(items[0].value, "x");
    EXPECT_THROW(ScanProfileLine(items, ""), std::out_of_range);
}

TEST(ProfileLine, StopsAtAnItemOfAnotherType) {
    for (const std::int32_t type : {2, -1}) {
        std::vector<ProfileItem> items{{"A", type, "", 0}, Presence("A", "")};
        ScanProfileLine(items, "A");
        EXPECT_EQ(Flags(items), (std::vector<std::int32_t>{0, 0}));
        ScanProfileLine(items, "B");
        ScanProfileLine(items, "xA");
        EXPECT_EQ(Flags(items), (std::vector<std::int32_t>{0, 0}));
    }
}

TEST(ProfileLine, PassesOverAnItemOfAnotherTypeWhoseNameItLacks) {
    std::vector<ProfileItem> items{{"A", 2, "", 0}, Presence("B", "")};
    ScanProfileLine(items, "B");
    EXPECT_EQ(Flags(items), (std::vector<std::int32_t>{0, 1}));
}

TEST(ProfileLine, FindsAnEmptyValueInAnyLine) {
    std::vector<ProfileItem> items{Presence("A", ""), Presence("", "")};
    ScanProfileLine(items, "A");
    EXPECT_EQ(Flags(items), (std::vector<std::int32_t>{1, 0}));
    ScanProfileLine(items, "b");
    EXPECT_EQ(Flags(items), (std::vector<std::int32_t>{1, 1}));
}

TEST(ProfileLine, MayHoldNul) {
    EXPECT_EQ(MarkedBy("\0HasOption_InputSlot\0Tray2\0"s), Slots{1});
    std::vector<ProfileItem> items{Text("A")};
    ScanProfileLine(items, "A=\0x"s);
    EXPECT_EQ(items[0].value, "\0x"s);
}

TEST(ProfileLine, AgainstNoItemsDoesNothing) {
    ScanProfileLine({}, "HasOption_InputSlot Tray1");
}
