// tests/data/print_option_v1.bin is the image of the first version, with every field of it set:
//
//   a text              its name and a comma over and over, as far as the field goes, and its flag 1
//   an i32              -1,000,000 - offset
//   an i32 fixed        1,000,000 + offset
//   a u32               4,000,000,000 + offset
//   an i64              1,000,000,000,000,000 + offset
//   a carried number    2,000,000 + offset
//
// with offsets in the field's block; reserved bytes as in a fresh set. It is never made anew: a later version
// reads what this one wrote.
#include "settings/Ddb_PrintOption.h"
#include "settings/print_option_access.h"
#include "tests/settings/print_option_listing.h"
#include "tests/support/file_contents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>

namespace ddb {
namespace {

constexpr std::size_t kImageSize = 24472;

std::string FrozenImage() {
    return FileContents(ZR_TEST_DATA_DIR "/print_option_v1.bin");
}

std::string TextFor(const ListedOptionField& field) {
    std::string text;
    while (text.size() < field.width)
        text += field.name + ",";
    return text.substr(0, field.width - 1);
}

std::int64_t NumberFor(const ListedOptionField& field) {
    const std::map<std::string, std::int64_t> bases{
        {"i32 fixed", 1'000'000}, {"u32", 4'000'000'000}, {"i64", 1'000'000'000'000'000}};
    const auto offset = static_cast<std::int64_t>(field.offset);
    return field.type == "i32" ? -1'000'000 - offset : bases.at(field.type) + offset;
}

// The listed fields that are in an image and have a name.
std::vector<ListedOptionField> SavedFields() {
    std::vector<ListedOptionField> fields = ListedRecordFields();
    for (const ListedOptionField& field : ListedExtraFields())
        if (field.block == "m_JobInfo" && !field.name.empty())
            fields.push_back(field);
    return fields;
}

const FieldDescriptor& FieldNamed(const std::string& name) {
    const auto found = std::ranges::find(kFields, name, &FieldDescriptor::name);
    EXPECT_NE(found, kFields.end()) << name;
    return found == kFields.end() ? kFields.front() : *found;
}

void LoadFrozen(CPersistent& option) {
    const std::string image = FrozenImage();
    ASSERT_EQ(image.size(), kImageSize);
    option.Load(image.data(), kImageSize);
}

std::int32_t NumberAt(std::span<const std::uint8_t> block, std::size_t offset) {
    std::int32_t number = 0;
    std::memcpy(&number, block.subspan(offset, sizeof number).data(), sizeof number);
    return number;
}

template <class Option>
void ExpectHoldsTheFrozenFields(const Option& option) {
    for (const ListedOptionField& listed : SavedFields()) {
        SCOPED_TRACE(listed.name);
        const FieldDescriptor& field = FieldNamed(listed.name);
        if (listed.type == "text")
            EXPECT_EQ(GetText(option, field), TextFor(listed));
        else if (listed.type == "i64")
            EXPECT_EQ(GetI64(option, field), NumberFor(listed));
        else if (listed.type == "u32")
            EXPECT_EQ(GetU32(option, field), NumberFor(listed));
        else
            EXPECT_EQ(GetI32(option, field), NumberFor(listed));
        if (listed.flag) {
            EXPECT_EQ(option.Bytes(Block::Record)[listed.flag], 1);
        }
    }
    for (const std::size_t offset : {368, 1708, 1740, 2004, 2008, 2012, 2020})
        EXPECT_EQ(NumberAt(option.Bytes(Block::JobInfo), offset), 2'000'000 + static_cast<int>(offset));
}

TEST(FrozenPrintOption, IsReadFieldByFieldByBothLargerClasses) {
    EXPECT_EQ(SavedFields().size(), 558u);
    CPrintOption option;
    LoadFrozen(option);
    ExpectHoldsTheFrozenFields(option);
    CPrintOptionEx extended;
    LoadFrozen(extended);
    ExpectHoldsTheFrozenFields(extended);
}

TEST(FrozenPrintOption, IsWrittenAgainByteForByte) {
    CPrintOptionEx option;
    LoadFrozen(option);
    std::string image(kImageSize, '\0');
    std::uint32_t size = kImageSize;
    option.Save(image.data(), &size);
    EXPECT_TRUE(image == FrozenImage());
}

TEST(FrozenPrintOption, IsWhatAFreshSetBecomesWhenEveryFieldIsSet) {
    CPrintOptionEx option;
    for (const ListedOptionField& listed : SavedFields()) {
        const FieldDescriptor& field = FieldNamed(listed.name);
        if (listed.type == "text")
            EXPECT_TRUE(SetText(option, field, TextFor(listed))) << listed.name;
        else if (listed.type == "i64")
            EXPECT_TRUE(SetI64(option, field, NumberFor(listed))) << listed.name;
        else
            EXPECT_TRUE(SetU32(option, field, static_cast<std::uint32_t>(NumberFor(listed)))) << listed.name;
    }
    for (const std::int32_t offset : {368, 1708, 1740, 2004, 2008, 2012, 2020}) {
        const std::int32_t number = 2'000'000 + offset;
        std::memcpy(option.Bytes(Block::JobInfo).data() + offset, &number, sizeof number);
    }
    std::string image(kImageSize, '\0');
    std::uint32_t size = kImageSize;
    option.Save(image.data(), &size);
    EXPECT_TRUE(image == FrozenImage());
}

// The file itself, at telling places: the job information first, then the record from 2352.
TEST(FrozenPrintOption, HasTheseBytes) {
    const std::string image = FrozenImage();
    ASSERT_EQ(image.size(), kImageSize);
    EXPECT_EQ(image.substr(0, 20), "JobInfoUserName,JobI");
    EXPECT_EQ(image.substr(66, 16), std::string("\0JobInfoAccount,", 16));
    EXPECT_EQ(image.substr(2008, 4), std::string("\x58\x8C\x1E\x00", 4)); // 2,002,008
    EXPECT_EQ(image.substr(2352, 4), "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(image.substr(2352 + 4, 4), "\xBC\xBD\xF0\xFF"); // RipMode, -1,000,004
    EXPECT_EQ(image.substr(2352 + 16, 14), "RscRegistName,");
    EXPECT_EQ(image.substr(2352 + 115, 5), std::string("s\0\0\0\0", 5)); // the 100th byte of its text
    EXPECT_EQ(image.substr(2352 + 120, 4), "\x78\x28\x6B\xEE");          // ForceOverwriteRsc, 4,000,000,120
    EXPECT_EQ(image.substr(2352 + 200, 8), std::string("\xC8\x80\xC6\xA4\x7E\x8D\x03\x00", 8));
    EXPECT_EQ(image.substr(2352 + 21860, 16), std::string(16, '\xFF'));           // the last reserved group
    EXPECT_EQ(image.substr(2352 + 21876, 4), std::string("\x01\x00\x01\x01", 4)); // flags of texts
    EXPECT_EQ(image.substr(2352 + 21996, 4), "\xFF\xFF\xFF\xFF");
}

} // namespace
} // namespace ddb
