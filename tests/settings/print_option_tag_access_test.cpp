#include "settings/print_option_tag_access.h"

#include "settings/print_option_access.h"
#include "tests/oemps/guarded_block.h"
#include "tests/settings/option_tag_expectations.h"
#include "tests/settings/random_text.h"
#include "tests/support/tag_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

using ddb::Block;
using ddb::CPrintOptionEx;
using ddb::FieldAt;
using ddb::FieldId;

namespace {

const char* const kTagsWithoutARow[] = {"OATSTB", "OPTB",   "OPTCNuB", "OMTPB",  "OMTDB",  "OMTTB",
                                        "OMTGFB", "OMTCMB", "OMTWB",   "OMTWVB", "OPCB",   "OMTSB",
                                        "OMTGB",  "OMDM",   "LIOT",    "SIOSTr", "SIOSTy", "LIOR"};

TEST(AccessPrintOption, StoresAndFetchesTheListedFieldsOf473TagsOfTheTable) {
    const auto fields = ListedFieldsByTag();
    int tags = 0;
    for (const ListedTag& tag : ListedTags())
        if (const auto field = fields.find(tag.key); field != fields.end()) {
            ExpectReaches(tag.key, field->second);
            ++tags;
        }
    EXPECT_EQ(ListedTags().size(), 864u);
    EXPECT_EQ(tags, 473);
}

TEST(AccessPrintOption, ReachesNoFieldByThe391OtherTagsOfTheTable) {
    const auto fields = ListedFieldsByTag();
    int tags = 0;
    for (const ListedTag& tag : ListedTags())
        if (!fields.contains(tag.key)) {
            ExpectReachesNothing(tag.key);
            ++tags;
        }
    EXPECT_EQ(tags, 391);
}

TEST(AccessPrintOption, ReachesNothingByTheDocumentsPageOrder) {
    ExpectReachesNothing("EXT_PAGEORDER");
}

// All but the last have a field all the same, but no tag leads to it.
TEST(AccessPrintOption, ReachesNothingByTheTagsOfThese21Keywords) {
    std::map<std::string, std::string> tags;
    for (const ListedTag& tag : ListedTags())
        tags[tag.longName] = tag.key;
    const char* const names[] = {"PageSizeControl",
                                 "JobRscSetType",
                                 "JobMark",
                                 "RecoverySeparator",
                                 "JobMarkOnRecoverySeparator",
                                 "CopyMark",
                                 "CopyMarkSwitch",
                                 "OffsetMark",
                                 "OffsetMarkByFilterControl",
                                 "CancelSmallImage",
                                 "SplitOutput",
                                 "PerfectBind",
                                 "AutoSelectIot",
                                 "SpecifyPreflight",
                                 "SaveFileDpi",
                                 "ColorRscSetType",
                                 "AdjustPerPage",
                                 "UnableObject",
                                 "RgbImageProfileType",
                                 "RgbTextProfileType",
                                 "StkPaperSizeType"};
    static_assert(std::size(names) == 21);
    for (const char* name : names) {
        ASSERT_TRUE(tags.contains(name)) << name;
        ExpectReachesNothing(tags[name]);
        EXPECT_EQ(std::ranges::count(ddb::kFields, name, &ddb::FieldDescriptor::name),
                  name == std::string_view("StkPaperSizeType") ? 0 : 1)
            << name;
    }
}

TEST(AccessPrintOption, ReachesTheFieldsOf18TagsThatHaveNoRowInTheTable) {
    static_assert(std::size(kTagsWithoutARow) == 18);
    const auto fields = ListedFieldsByTag();
    std::set<std::string> table;
    for (const ListedTag& tag : ListedTags())
        table.insert(tag.key);
    for (const char* tag : kTagsWithoutARow) {
        EXPECT_FALSE(table.contains(tag)) << tag;
        ASSERT_TRUE(fields.contains(tag)) << tag;
        ExpectReaches(tag, fields.at(tag));
    }
}

TEST(AccessPrintOption, ReachesAFieldBy492TagsInAll) {
    // 473 by the table's tags, 18 without a row and PG_MAGNI.
    EXPECT_EQ(ListedFieldsByTag().size(), 473u + 18u + 1u);
}

TEST(DirectTags, ReachTheseTenFields) {
    const struct {
        const char* tag;
        const char* block;
        std::size_t offset;
        const char* name;
    } rows[] = {
        {"EXT_PGSIZE", "m_Record", 3008, "PageSize"},
        {"OCPPST", "m_Record", 3020, "ChgPrintPaperSizeType"},
        {"OPPOC", "m_Record", 3168, "PagePrintOnCenter"},
        {"OFTP", "m_Record", 3160, "FittenToPaper"},
        {"Depth", "m_Record", 15384, "Resolution"},
        {"ONOC", "m_Record", 13644, "NumOfCopies"},
        {"EXT_ORIENTATION", "m_Ex", 40, "PageOrientation"},
        {"PG_MAGNI", "m_Record", 16124, "Scale"},
        {"EXT_NUP", "m_Ex", 0, "NUP"},
        {"OTra", "m_Record", 1832, "Tray"},
    };
    for (const auto& row : rows)
        ExpectReaches(row.tag, {row.block, row.offset, row.name, row.tag, -1, "i32", 4, 0, 0});
}

TEST(DirectTags, OfTheCopiesStoreNothingOutside1To9999) {
    PlainSetting setting;
    const auto copiesFor = [&](const char* value) {
        Store(setting, "ONOC", value);
        return GetI32(setting.PrintOption(), FieldAt(FieldId::NumOfCopies));
    };
    EXPECT_EQ(copiesFor("0"), 1);
    EXPECT_EQ(copiesFor("1"), 1);
    EXPECT_EQ(copiesFor("-3"), 1);
    EXPECT_EQ(copiesFor(""), 1);
    EXPECT_EQ(copiesFor("many"), 1);
    EXPECT_EQ(copiesFor("9999"), 9999);
    EXPECT_EQ(copiesFor("10000"), 9999);
    EXPECT_EQ(copiesFor("99999999999999999999"), 9999);
}

TEST(DirectTags, OfTheCopiesFetchANumberOutsideTheLimitsAsItIs) {
    PlainSetting setting;
    EXPECT_EQ(Fetch(setting, "ONOC"), "0");
    SetI32(setting.PrintOption(), FieldAt(FieldId::NumOfCopies), 20000);
    EXPECT_EQ(Fetch(setting, "ONOC"), "20000");
    SetI32(setting.PrintOption(), FieldAt(FieldId::NumOfCopies), -1);
    EXPECT_EQ(Fetch(setting, "ONOC"), "-1");
}

// "ソ" is the bytes 83 5C; the field takes 32 bytes.
TEST(AccessPrintOption, CutsATextAtACharacterBoundaryAndSetsItsFlag) {
    PlainSetting setting;
    Store(setting, "OFol", std::string(31, 'x') + "\x83\x5Cyz");
    EXPECT_EQ(Fetch(setting, "OFol"), std::string(31, 'x'));
    EXPECT_EQ(setting.PrintOption().Bytes(Block::Record)[21948], 1);
    Store(setting, "OFol", std::string(30, 'x') + "\x83\x5Cyz");
    EXPECT_EQ(Fetch(setting, "OFol"), std::string(30, 'x') + "\x83\x5C");
}

TEST(AccessPrintOption, TakesAnEmptyTextAndSetsItsFlag) {
    PlainSetting setting;
    Store(setting, "OFol", "before");
    setting.PrintOption().Bytes(Block::Record)[21948] = 0;
    Store(setting, "OFol", "");
    EXPECT_EQ(Fetch(setting, "OFol"), "");
    EXPECT_EQ(setting.PrintOption().Bytes(Block::Record)[21948], 1);
}

TEST(AccessPrintOption, Fetches1250HundredthsAs12Point50) {
    PlainSetting setting;
    SetI32(setting.PrintOption(), FieldAt(FieldId::CustomPaperWidth), 1250);
    EXPECT_EQ(Fetch(setting, "PSCPSW"), "12.50");
}

TEST(AccessPrintOption, FetchesUnsetFieldsAsTheNumbersTheyHold) {
    PlainSetting setting;
    setting.PrintOption() = CPrintOptionEx();
    EXPECT_EQ(Fetch(setting, "CRM"), "-1");              // i32
    EXPECT_EQ(Fetch(setting, "OFOR"), "4294967295");     // u32
    EXPECT_EQ(Fetch(setting, "OAJSSDAT"), "-1");         // i64
    EXPECT_EQ(Fetch(setting, "PSCPSW"), "-0.01");        // hundredths
    EXPECT_EQ(Fetch(setting, "OPPFWM"), "-214748364.8"); // tenths
    EXPECT_EQ(Fetch(setting, "LCTO"), "2147483648");     // u32
    EXPECT_EQ(Fetch(setting, "OFol"), "");
}

TEST(AccessPrintOption, TakesUnknownTagsSilently) {
    for (const std::string& tag :
         {std::string(), std::string("ono"), std::string("onoc"), std::string("ONOC "),
          std::string("NumOfCopies"), std::string("\x83"), std::string(100'000, 'O')})
        ExpectReachesNothing(tag);
}

TEST(AccessPrintOption, ReachesTheFiSettingAloneByODSAndTheFolderAloneByOFol) {
    ExpectReaches("ODS", {"m_Record", 13724, "FiSetting", "ODS", 107, "i32", 4, 0, -1});
    ExpectReaches("OFol", {"m_Record", 336, "Folder", "OFol", 553, "text", 33, 21948, 0});
}

TEST(AccessPrintOption, Gives0WithoutATagOrASetting) {
    PlainSetting setting;
    char value[kOptionValueSize] = "5";
    for (const int mode : {kFetchOption, kStoreOption}) {
        EXPECT_EQ(AccessPrintOption(nullptr, value, &setting, mode), 0);
        EXPECT_EQ(AccessPrintOption("OTra", value, nullptr, mode), 0);
        EXPECT_EQ(AccessPrintOption(nullptr, nullptr, nullptr, mode), 0);
    }
    EXPECT_STREQ(value, "5");
}

TEST(AccessPrintOption, DoesNothingWithoutAValue) {
    PlainSetting setting;
    const OptionBlocks before = BlocksOf(setting.PrintOption());
    for (const int mode : {kFetchOption, kStoreOption})
        EXPECT_EQ(AccessPrintOption("ONOC", nullptr, &setting, mode), 1);
    EXPECT_EQ(BlocksOf(setting.PrintOption()), before);
}

TEST(AccessPrintOption, DoesNothingInAnyOtherMode) {
    PlainSetting setting;
    const OptionBlocks before = BlocksOf(setting.PrintOption());
    for (const int mode : {-1, 2, 256, INT32_MIN, INT32_MAX}) {
        char value[kOptionValueSize] = "5";
        EXPECT_EQ(AccessPrintOption("OTra", value, &setting, mode), 1);
        EXPECT_STREQ(value, "5");
    }
    EXPECT_EQ(BlocksOf(setting.PrintOption()), before);
}

TEST(AccessPrintOption, WritesNothingBehindTheFetchedText) {
    PlainSetting setting;
    Store(setting, "OTra", "25");
    std::vector<char> value(kOptionValueSize, '\x7E');
    AccessPrintOption("OTra", value.data(), &setting, kFetchOption);
    EXPECT_STREQ(value.data(), "25");
    EXPECT_TRUE(std::all_of(value.begin() + 3, value.end(), [](char c) { return c == '\x7E'; }));
}

TEST(AccessPrintOption, FetchesATextWithoutANulInALoadedImageAsTheWholeField) {
    const auto fields = ListedFieldsByTag();
    PlainSetting setting;
    FillWith(setting.PrintOption(), 'z');
    for (const auto& [tag, field] : fields)
        if (field.type == "text") {
            EXPECT_EQ(Fetch(setting, tag), std::string(field.width, 'z')) << tag;
        }
}

TEST(AccessPrintOption, FetchesIntoABufferThatEndsWithItsSize) {
    const GuardedBlock buffer(kOptionValueSize);
    const auto value = reinterpret_cast<char*>(buffer.Bytes().data());
    PlainSetting setting;
    FillWith(setting.PrintOption(), 'z');
    for (const auto& [tag, field] : ListedFieldsByTag())
        EXPECT_EQ(AccessPrintOption(tag.c_str(), value, &setting, kFetchOption), 1);
}

TEST(AccessPrintOption, ReadsNoMoreThanTheBufferOfAValueWithoutANul) {
    const GuardedBlock buffer(kOptionValueSize);
    std::ranges::fill(buffer.Bytes(), static_cast<unsigned char>('7'));
    const auto value = reinterpret_cast<char*>(buffer.Bytes().data());
    PlainSetting setting;
    for (const char* tag : {"OFol", "OTra", "OFOR", "OAJSSDAT", "PSCPSW", "OPPFWM", "ONOC"})
        EXPECT_EQ(AccessPrintOption(tag, value, &setting, kStoreOption), 1);
    EXPECT_EQ(Fetch(setting, "OFol"), std::string(32, '7'));
    EXPECT_EQ(Fetch(setting, "OTra"), "2147483647");
    EXPECT_EQ(Fetch(setting, "PSCPSW"), "21474836.47");
}

TEST(StoreOption, TakesTextsThatAreNoCStrings) {
    CPrintOptionEx option;
    const std::string_view all = "OTraOFol25folder";
    StoreOption(all.substr(0, 4), all.substr(8, 2), option);
    StoreOption(all.substr(4, 4), all.substr(10), option);
    std::string value;
    FetchOption("OTra", option, value);
    EXPECT_EQ(value, "25");
    FetchOption("OFol", option, value);
    EXPECT_EQ(value, "folder");
}

void FillRandomly(CPrintOptionEx& option, const ddb::FieldDescriptor& field, std::mt19937& random) {
    if (field.IsText())
        SetText(option, field, RandomText(random, field.width - 1u));
    else if (field.type == ddb::FieldType::I64)
        SetI64(option, field, static_cast<std::int64_t>(std::uint64_t{random()} << 32 | random()));
    else if (field.name == "NumOfCopies")
        SetI32(option, field, static_cast<std::int32_t>(random() % 9999 + 1));
    else
        SetI32(option, field, static_cast<std::int32_t>(random()));
}

TEST(FetchOption, OfRandomContentsIsStoredBackAsTheSameBytesInEveryFieldWithATag) {
    std::mt19937 random(7);
    for (int round = 0; round < 30; ++round) {
        CPrintOptionEx option;
        CPrintOptionEx copy;
        for (const auto& [tag, listed] : ListedFieldsByTag()) {
            const auto field = std::ranges::find(ddb::kFields, listed.name, &ddb::FieldDescriptor::name);
            ASSERT_NE(field, ddb::kFields.end());
            FillRandomly(option, *field, random);
            std::string value;
            FetchOption(tag, option, value);
            StoreOption(tag, value, copy);
        }
        EXPECT_EQ(BlocksOf(copy), BlocksOf(option));
    }
}

} // namespace
