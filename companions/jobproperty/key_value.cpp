#include "companions/jobproperty/key_value.h"

#include "Common/name_index.h"
#include "session/keyword.h"
#include "settings/store_names.h"

#include <algorithm>
#include <array>

namespace jobproperty {
namespace {

struct NamedValue {
    std::string_view name;
    bool isSigned;
    std::size_t width; // of a text
};

constexpr auto kNamedValues = std::to_array<NamedValue>({
#define ZR_NAMED_VALUE(name, type) {#name, false, 0},
#define ZR_I32(name) {#name, true, 0},
#define ZR_TEXT_VALUE(name, width) {#name, false, width},
#define ZR_TEXT_SET_ONLY(name, width) {#name, false, width},
#include "session/named_values.def"
});

constexpr std::string_view NamedValueName(std::size_t value) {
    return kNamedValues[value].name;
}
constexpr NameIndex<kNamedValues.size(), NamedValueName> kNamedValueByName;

constexpr std::string_view StoreName(std::size_t field) {
    return ddb::kFields[field].number < kKeywordCount ? std::string_view() : StoreNameOf(ddb::kFields[field]);
}
constexpr NameIndex<ddb::kFields.size(), StoreName> kFieldByStoreName;

constexpr std::string_view RecordName(std::size_t field) {
    return devmode::kFields[field].name;
}
constexpr NameIndex<devmode::kFields.size(), RecordName> kRecordFieldByName;

const ddb::FieldDescriptor* FindFieldOfNamedValue(std::string_view name) {
    const int field = kFieldByStoreName.Find(name);
    return field < 0 ? nullptr : &ddb::kFields[static_cast<std::size_t>(field)];
}

const devmode::FieldDescriptor* FindRecordField(std::string_view name) {
    const int field = kRecordFieldByName.Find(name);
    return field < 0 ? nullptr : &devmode::kFields[static_cast<std::size_t>(field)];
}

// A text passes through the store, the print option set and the private DEVMODE; what is wider than one of
// them is cut on its way.
std::size_t NarrowestWidth(std::size_t width, const KeyValue& value) {
    if (value.field)
        width = std::min<std::size_t>(width, value.field->width);
    if (value.record)
        width = std::min<std::size_t>(width, value.record->width);
    return width;
}

KeyValue DescribeKeyword(int keyword) {
    return {.number = keyword, .isKeyword = true, .field = ddb::FindFieldByValueNumber(keyword)};
}

} // namespace

KeyValue DescribeKeyValue(std::string_view name) {
    if (const int keyword = FindKeyword(name); keyword >= 0)
        return DescribeKeyword(keyword);
    const NamedValue& value = kNamedValues[static_cast<std::size_t>(kNamedValueByName.Find(name))];
    KeyValue described{
        .isSigned = value.isSigned, .field = FindFieldOfNamedValue(name), .record = FindRecordField(name)};
    if (described.field)
        described.number = described.field->number;
    if (value.width > 0)
        described.textLimit = NarrowestWidth(value.width, described) - 1;
    return described;
}

} // namespace jobproperty
