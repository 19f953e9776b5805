#include "session/keyword.h"
#include "settings/print_option_fields.h"
#include "tests/settings/print_option_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>

namespace ddb {
namespace {

std::string TypeName(const FieldDescriptor& field) {
    switch (field.type) {
    case FieldType::I32: return "i32";
    case FieldType::U32: return "u32";
    case FieldType::I64: return "i64";
    case FieldType::Fixed100:
    case FieldType::Fixed10: return "i32 fixed";
    case FieldType::Text: return "text";
    }
    return "none";
}

std::string BlockName(Block block) {
    return block == Block::Record ? "m_Record" : block == Block::JobInfo ? "m_JobInfo" : "m_Ex";
}

void ExpectEqual(const FieldDescriptor& field, const ListedOptionField& listed) {
    SCOPED_TRACE(listed.name);
    EXPECT_EQ(field.name, listed.name);
    EXPECT_EQ(BlockName(field.block), listed.block);
    EXPECT_EQ(field.offset, listed.offset);
    EXPECT_EQ(field.tag, listed.tag);
    EXPECT_EQ(field.number, listed.number);
    EXPECT_EQ(TypeName(field), listed.type);
    EXPECT_EQ(field.width, listed.width);
    EXPECT_EQ(field.flag, listed.flag);
    EXPECT_EQ(field.start, listed.start);
}

std::vector<ListedOptionField> ListedNamedFields() {
    std::vector<ListedOptionField> fields = ListedRecordFields();
    for (const ListedOptionField& field : ListedExtraFields())
        if (!field.name.empty())
            fields.push_back(field);
    return fields;
}

TEST(PrintOptionFields, AreThoseOfTheListingInItsOrder) {
    EXPECT_EQ(ListedRecordFields().size(), 556u);
    EXPECT_EQ(ListedExtraFields().size(), 16u);
    const auto listed = ListedNamedFields();
    ASSERT_EQ(listed.size(), 560u);
    ASSERT_EQ(kFields.size(), 560u);
    for (std::size_t i = 0; i < listed.size(); ++i)
        ExpectEqual(kFields[i], listed[i]);
}

TEST(PrintOptionFields, ThatAreOnlyCarriedAreThoseOfTheListing) {
    std::vector<ListedOptionField> listed;
    for (const ListedOptionField& field : ListedExtraFields())
        if (field.name.empty())
            listed.push_back(field);
    ASSERT_EQ(listed.size(), 12u);
    ASSERT_EQ(kCarriedFields.size(), 12u);
    for (std::size_t i = 0; i < listed.size(); ++i) {
        EXPECT_EQ(BlockName(kCarriedFields[i].block), listed[i].block);
        EXPECT_EQ(kCarriedFields[i].offset, listed[i].offset);
        EXPECT_EQ(kCarriedFields[i].start, listed[i].start);
    }
}

// Rows repeated by hand, so that an edit of the table together with the listing is seen.
TEST(PrintOptionFields, HaveTheseTellingRows) {
    ExpectEqual(FieldAt(FieldId::RipMode), {"m_Record", 4, "RipMode", "CRM", 137, "i32", 4, 0, -1});
    ExpectEqual(FieldAt(FieldId::RscRegistName),
                {"m_Record", 16, "RscRegistName", "ORRN", 342, "text", 101, 21876, 0});
    ExpectEqual(FieldAt(FieldId::AutoJobStartSpecifiedDayAndTime),
                {"m_Record", 200, "AutoJobStartSpecifiedDayAndTime", "OAJSSDAT", 517, "i64", 8, 0, -1});
    ExpectEqual(FieldAt(FieldId::SPages), {"m_Record", 4578, "SPages", "SP", 505, "text", 1025, 21907, 0});
    ExpectEqual(FieldAt(FieldId::ImpositionOtherStkName),
                {"m_Record", 7076, "ImpositionOtherStkName", "SIOSN", 507, "text", 257, 21988, 0});
    ExpectEqual(FieldAt(FieldId::TrimmerFinishedSize),
                {"m_Record", 13736, "TrimmerFinishedSize", "OTFS", 378, "i32 fixed", 4, 0, -2147483648});
    ExpectEqual(FieldAt(FieldId::CreepTotalOffset),
                {"m_Record", 15520, "CreepTotalOffset", "LCTO", 461, "u32", 4, 0, -2147483648});
    ExpectEqual(FieldAt(FieldId::PerfectBindSettingsFile),
                {"m_Record", 16292, "PerfectBindSettingsFile", "", 380, "text", 101, 0, 0});
    ExpectEqual(FieldAt(FieldId::JobInfoAccount),
                {"m_JobInfo", 67, "JobInfoAccount", "JAc", 511, "text", 34, 0, 0});
    ExpectEqual(FieldAt(FieldId::PageOrientation),
                {"m_Ex", 40, "PageOrientation", "EXT_ORIENTATION", 2, "i32", 4, 0, 1});
}

TEST(PrintOptionFields, AreScaledByTenInTheFourMagnifiedPositionsAndByAHundredInTheTenOthers) {
    std::set<std::string_view> tens;
    std::set<std::string_view> hundreds;
    for (const FieldDescriptor& field : kFields) {
        if (field.type == FieldType::Fixed10)
            tens.insert(field.name);
        if (field.type == FieldType::Fixed100)
            hundreds.insert(field.name);
    }
    EXPECT_EQ(tens, (std::set<std::string_view>{"PrintPositionFrontWidthMag", "PrintPositionFrontLengthMag",
                                                "PrintPositionBackWidthMag", "PrintPositionBackLengthMag"}));
    EXPECT_EQ(hundreds, (std::set<std::string_view>{"ChgPrintPaperSizeWidth", "ChgPrintPaperSizeLength",
                                                    "CustomPaperWidth", "CustomPaperHeight",
                                                    "TrimmerFinishedSize", "TrimmerCutSize",
                                                    "PrintPositionFrontWidth", "PrintPositionFrontLength",
                                                    "PrintPositionBackWidth", "PrintPositionBackLength"}));
}

TEST(PrintOptionFields, DoNotOverlapAndLieInTheirBlocks) {
    std::map<Block, std::set<std::size_t>> taken;
    const auto take = [&](Block block, std::size_t at) {
        EXPECT_LT(at, SizeOf(block));
        EXPECT_TRUE(taken[block].insert(at).second) << BlockName(block) << " " << at;
    };
    for (const FieldDescriptor& field : kFields) {
        for (std::size_t at = field.offset; at < field.End(); ++at)
            take(field.block, at);
        if (field.flag)
            take(field.block, field.flag);
    }
    for (const CarriedField& field : kCarriedFields)
        for (std::size_t at = field.offset; at < field.offset + 4u; ++at)
            take(field.block, at);
    EXPECT_EQ(SizeOf(Block::Record), 22120u);
    EXPECT_EQ(SizeOf(Block::JobInfo), 2352u);
    EXPECT_EQ(SizeOf(Block::Ex), 44u);
}

TEST(PrintOptionFields, Have69FlagsInTheFlagArea) {
    int flags = 0;
    for (const FieldDescriptor& field : kFields) {
        if (!field.flag)
            continue;
        ++flags;
        EXPECT_TRUE(field.IsText()) << field.name;
        EXPECT_GE(field.flag, 21870) << field.name;
        EXPECT_LE(field.flag, 21999) << field.name;
    }
    EXPECT_EQ(flags, 69);
}

TEST(FindFieldByTag, FindsEveryListedTag) {
    int tags = 0;
    for (const ListedOptionField& listed : ListedNamedFields()) {
        if (listed.tag.empty())
            continue;
        ++tags;
        const FieldDescriptor* field = FindFieldByTag(listed.tag);
        ASSERT_NE(field, nullptr) << listed.tag;
        EXPECT_EQ(field->name, listed.name);
    }
    EXPECT_EQ(tags, 489);
}

TEST(FindFieldByTag, FindsNothingByTextsThatAreNoTag) {
    std::set<std::string> tags;
    for (const ListedOptionField& listed : ListedNamedFields())
        tags.insert(listed.tag);
    for (const std::string& tag : tags)
        for (const std::string& text :
             {tag + "X", tag + std::string(1, '\0'), tag.substr(0, tag.size() / 2), "x" + tag})
            if (!tags.contains(text)) {
                EXPECT_EQ(FindFieldByTag(text), nullptr) << text;
            }
    for (const std::string& text : {std::string(), std::string("crm"), std::string("RipMode"),
                                    std::string("\xFF\x81"), std::string(1'000'000, 'O')})
        EXPECT_EQ(FindFieldByTag(text), nullptr);
}

// A favourite file has these settings under EXT_PGSIZE, Depth and PG_MAGNI, which are no tags of the record.
TEST(FindFieldByTag, DoesNotKnowTheTagsOfThePageSizeTheResolutionAndTheScale) {
    EXPECT_EQ(FieldAt(FieldId::PageSize).tag, "");
    EXPECT_EQ(FieldAt(FieldId::Resolution).tag, "");
    EXPECT_EQ(FieldAt(FieldId::Scale).tag, "");
    for (const char* tag : {"EXT_PGSIZE", "Depth", "PG_MAGNI", "EXT_PAGEORDER"})
        EXPECT_EQ(FindFieldByTag(tag), nullptr) << tag;
}

TEST(FindFieldByValueNumber, FindsEveryNumberUpTo562ButThree) {
    std::map<int, std::string> listed;
    for (const ListedOptionField& field : ListedNamedFields())
        EXPECT_TRUE(listed.emplace(field.number, field.name).second) << field.name;
    for (int number = 0; number <= 562; ++number) {
        const FieldDescriptor* field = FindFieldByValueNumber(number);
        if (number == 284 || number == 325 || number == 327) {
            EXPECT_EQ(field, nullptr) << number;
            continue;
        }
        ASSERT_NE(field, nullptr) << number;
        EXPECT_EQ(field->number, number);
        EXPECT_EQ(field->name, listed.at(number)) << number;
    }
}

TEST(FindFieldByValueNumber, FindsNothingOutsideTheNumbers) {
    for (const int number : {-1, 563, 564, 32767, 65536, 65536 + 137, INT32_MIN, INT32_MAX})
        EXPECT_EQ(FindFieldByValueNumber(number), nullptr) << number;
}

TEST(FindFieldByValueNumber, GivesAKeywordTheFieldOfItsNameButInTwoCases) {
    std::map<std::string_view, std::string_view> differing;
    for (const FieldDescriptor& field : kFields)
        if (field.number < kKeywordCount &&
            kKeywordNames[static_cast<std::size_t>(field.number)] != field.name)
            differing[kKeywordNames[static_cast<std::size_t>(field.number)]] = field.name;
    EXPECT_EQ(differing,
              (std::map<std::string_view, std::string_view>{
                  {"Copies", "NumOfCopies"}, {"CustomChgPaperDirection", "ChgPrintPaperDirection"}}));
}

TEST(FindFieldByValueNumber, GivesEachCreaseAndTrimFieldTheNextNumberInRecordOrder) {
    const char* const names[] = {"Crease",
                                 "CreaseMode",
                                 "CreaseOutputDirection",
                                 "CreaseNum",
                                 "CreasePosition1",
                                 "CreaseDirection1",
                                 "CreasePressureLevel1",
                                 "CreasePosition2",
                                 "CreaseDirection2",
                                 "CreasePressureLevel2",
                                 "CreasePosition3",
                                 "CreaseDirection3",
                                 "CreasePressureLevel3",
                                 "CreasePosition4",
                                 "CreaseDirection4",
                                 "CreasePressureLevel4",
                                 "CreasePosition5",
                                 "CreaseDirection5",
                                 "CreasePressureLevel5",
                                 "TopAndTailTrim",
                                 "TopAndTailTrimMode",
                                 "TopAndTailTrimFinishSize",
                                 "TopAndTailTrimSameCutSize",
                                 "TopAndTailTrimRearCutSize",
                                 "TopAndTailTrimFrontCutSize"};
    int number = 518;
    for (const char* name : names)
        EXPECT_EQ(FindFieldByValueNumber(number++)->name, name);
    EXPECT_EQ(number, 543);
    EXPECT_EQ(FindFieldByValueNumber(543)->name, "CmykKPreservation");
    EXPECT_EQ(FindFieldByValueNumber(505)->name, "SPages");
}

} // namespace
} // namespace ddb
