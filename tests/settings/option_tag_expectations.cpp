#include "tests/settings/option_tag_expectations.h"

#include "settings/print_option_tag_access.h"
#include "tests/settings/option_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>

using ddb::Block;
using ddb::CPrintOptionEx;

namespace {

bool IsTenths(const ListedOptionField& field) {
    return field.type == "i32 fixed" && field.name.ends_with("Mag");
}

// A value as it is stored, the number that it becomes and the text that is fetched.
struct Sample {
    std::string stored;
    std::int64_t number;
    std::string fetched;
};

std::vector<Sample> SamplesFor(const ListedOptionField& field) {
    if (field.name == "NumOfCopies")
        return {{" 27x", 27, "27"}, {"-12", 1, "1"}, {"", 1, "1"}, {"99999999999", 9999, "9999"}};
    if (field.type == "i32")
        return {
            {"-12", -12, "-12"}, {" 27x", 27, "27"}, {"", 0, "0"}, {"99999999999", 2147483647, "2147483647"}};
    if (field.type == "u32")
        return {{"-1", 4294967295, "4294967295"},
                {" 27x", 27, "27"},
                {"x", 0, "0"},
                {"99999999999", 4294967295, "4294967295"}};
    if (field.type == "i64")
        return {{"-9000000000", -9000000000, "-9000000000"},
                {"", 0, "0"},
                {"99999999999999999999", INT64_MAX, "9223372036854775807"}};
    if (IsTenths(field))
        return {{"12.5", 125, "12.5"},
                {"-0.26", -3, "-0.3"},
                {"", 0, "0.0"},
                {"1e10", 2147483647, "214748364.7"}};
    return {{"12.5", 1250, "12.50"},
            {"-0.126", -13, "-0.13"},
            {"", 0, "0.0"},
            {"-1e10", INT32_MIN, "-21474836.48"}};
}

void PutListed(OptionBlocks& blocks, const ListedOptionField& field, const Sample& sample) {
    std::vector<std::uint8_t>& block = blocks.at(field.block);
    const auto bytes = std::span(block).subspan(field.offset, field.width);
    if (field.type == "text")
        PutTextInto(bytes, sample.fetched);
    else
        PutLittleEndian(bytes, static_cast<std::uint64_t>(sample.number));
    if (field.flag)
        block.at(field.flag) = 1;
}

// Both ways, in a set whose bytes are all 0x5A, so that bytes changed elsewhere are seen.
void ExpectStoresAndFetches(const std::string& tag, const ListedOptionField& field, const Sample& sample) {
    SCOPED_TRACE(tag + " <- " + sample.stored);
    PlainSetting setting;
    FillWith(setting.PrintOption(), 0x5A);
    OptionBlocks expected = BlocksOf(setting.PrintOption());
    PutListed(expected, field, sample);
    Store(setting, tag, sample.stored);
    EXPECT_EQ(BlocksOf(setting.PrintOption()), expected);
    EXPECT_EQ(Fetch(setting, tag), sample.fetched);
    EXPECT_EQ(BlocksOf(setting.PrintOption()), expected);
}

} // namespace

OptionBlocks BlocksOf(const CPrintOptionEx& option) {
    OptionBlocks blocks;
    for (const auto& [name, block] :
         {std::pair{"m_Record", Block::Record}, {"m_JobInfo", Block::JobInfo}, {"m_Ex", Block::Ex}}) {
        const auto bytes = option.Bytes(block);
        blocks[name] = {bytes.begin(), bytes.end()};
    }
    return blocks;
}

void FillWith(CPrintOptionEx& option, std::uint8_t byte) {
    for (const Block block : kAllBlocks)
        std::ranges::fill(option.Bytes(block), byte);
}

void Store(CSettingInfo& setting, const std::string& tag, std::string value) {
    EXPECT_EQ(AccessPrintOption(tag.c_str(), value.data(), &setting, kStoreOption), 1) << tag;
}

std::string Fetch(CSettingInfo& setting, const std::string& tag, const std::string& untouched) {
    std::vector<char> value(kOptionValueSize, '\0');
    std::ranges::copy(untouched, value.begin());
    EXPECT_EQ(AccessPrintOption(tag.c_str(), value.data(), &setting, kFetchOption), 1) << tag;
    return value.data();
}

std::map<std::string, ListedOptionField> ListedFieldsByTag() {
    const std::map<std::string, std::string> tagsOfOthers{
        {"PageSize", "EXT_PGSIZE"}, {"Resolution", "Depth"}, {"Scale", "PG_MAGNI"}};
    std::map<std::string, ListedOptionField> fields;
    auto listed = ListedRecordFields();
    std::ranges::copy(ListedExtraFields(), std::back_inserter(listed));
    for (const ListedOptionField& field : listed) {
        if (!field.tag.empty())
            fields[field.tag] = field;
        else if (const auto other = tagsOfOthers.find(field.name); other != tagsOfOthers.end())
            fields[other->second] = field;
    }
    return fields;
}

void ExpectReaches(const std::string& tag, const ListedOptionField& field) {
    if (field.type == "text") {
        const std::size_t most = field.width - 1;
        for (const std::string& text : {std::string("a\x88\xF3 z"), std::string(), std::string(most, 'w')})
            ExpectStoresAndFetches(tag, field, {text, 0, text});
        for (const std::string& beyond : {std::string("w"), std::string(kOptionValueSize - 1 - most, 'w')})
            ExpectStoresAndFetches(tag, field, {std::string(most, 'w') + beyond, 0, std::string(most, 'w')});
        const std::string kept(most - 1, 'w');
        ExpectStoresAndFetches(tag, field, {kept + "\x83\x5C", 0, kept});
        return;
    }
    for (const Sample& sample : SamplesFor(field))
        ExpectStoresAndFetches(tag, field, sample);
}

void ExpectReachesNothing(const std::string& tag) {
    SCOPED_TRACE(tag);
    PlainSetting setting;
    FillWith(setting.PrintOption(), 0x5A);
    const OptionBlocks before = BlocksOf(setting.PrintOption());
    Store(setting, tag, "1");
    EXPECT_EQ(BlocksOf(setting.PrintOption()), before);
    EXPECT_EQ(Fetch(setting, tag, "kept"), "kept");
    std::string value = "kept";
    FetchOption(tag, setting.PrintOption(), value);
    EXPECT_EQ(value, "kept");
}
