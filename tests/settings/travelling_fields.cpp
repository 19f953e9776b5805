#include "tests/settings/travelling_fields.h"

#include "tests/settings/option_bytes.h"
#include "tests/support/tag_listing.h"

#include <gtest/gtest.h>

#include <map>

std::span<const std::uint8_t> TravellingField::FieldIn(const ddb::CPrintOptionEx& option) const {
    return option.Bytes(field.Block()).subspan(field.offset, field.width);
}

std::span<std::uint8_t> TravellingField::FieldIn(ddb::CPrintOptionEx& option) const {
    return option.Bytes(field.Block()).subspan(field.offset, field.width);
}

std::vector<std::uint8_t> TravellingField::BytesIn(const ddb::CPrintOptionEx& option) const {
    const auto own = FieldIn(option);
    std::vector<std::uint8_t> bytes(own.begin(), own.end());
    if (field.flag)
        bytes.push_back(option.Bytes(field.Block())[field.flag]);
    return bytes;
}

std::int64_t TravellingField::NumberIn(const ddb::CPrintOptionEx& option) const {
    const std::uint64_t number = LittleEndianIn(FieldIn(option));
    const bool isSigned = field.type != "u32" && field.width == 4;
    return isSigned ? static_cast<std::int32_t>(number) : static_cast<std::int64_t>(number);
}

std::string TravellingField::TextIn(const ddb::CPrintOptionEx& option) const {
    return ::TextIn(FieldIn(option));
}

void TravellingField::PutNumber(ddb::CPrintOptionEx& option, std::int64_t number) const {
    PutLittleEndian(FieldIn(option), static_cast<std::uint64_t>(number));
}

void TravellingField::PutText(ddb::CPrintOptionEx& option, const std::string& text) const {
    PutTextInto(FieldIn(option), text);
    if (field.flag)
        option.Bytes(field.Block())[field.flag] = 1;
}

bool IsAuthentication(const std::string& tag) {
    return tag == "OAJ" || tag == "OAJUI" || tag == "OAJP" || tag == "OAJA";
}

std::vector<TravellingField> TravellingFields() {
    std::map<std::string, ListedOptionField> byTag;
    for (const auto& fields : {ListedRecordFields(), ListedExtraFields()})
        for (const ListedOptionField& field : fields) {
            if (!field.tag.empty())
                byTag.emplace(field.tag, field);
            // Two fields are reached by their numbers alone.
            if (field.number == 0)
                byTag.emplace("EXT_PGSIZE", field);
            if (field.number == 305)
                byTag.emplace("Depth", field);
        }
    std::vector<TravellingField> travelling;
    for (const ListedTag& tag : ListedTags())
        if (const auto found = byTag.find(tag.key); found != byTag.end() && !IsAuthentication(tag.key))
            travelling.push_back({tag.key, tag.longName, found->second});
    EXPECT_EQ(travelling.size(), 469u);
    return travelling;
}
