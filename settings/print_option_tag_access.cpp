#include "settings/print_option_tag_access.h"

#include "Common/name_index.h"
#include "Common/text.h"
#include "session/keyword.h"
#include "settings/copies_limits.h"
#include "settings/number_text.h"
#include "settings/print_option_access.h"
#include "settings/setting_info.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

using ddb::CPrintOptionEx;
using ddb::FieldDescriptor;
using ddb::FieldType;

namespace {

enum class DirectRule {
    AsItIs,
    CopiesLimits,
    LeftToField, // the row has no effect; the field that bears the tag takes the value by its type
};

// A tag that stands for a KeywordId before any field's tag is asked for.
struct DirectTag {
    std::string_view tag;
    int keyword;
    DirectRule rule = DirectRule::AsItIs;
};

// There is one such table for each kind of advanced printer features, all with these rows, so the features
// are not asked for.
constexpr auto kDirectTags = std::to_array<DirectTag>({
    {"EXT_PGSIZE", keyword::PageSize},
    {"OCPPST", keyword::ChgPrintPaperSizeType, DirectRule::LeftToField},
    {"OPPOC", keyword::PagePrintOnCenter},
    {"OFTP", keyword::FittenToPaper},
    {"Depth", keyword::Resolution},
    {"ONOC", keyword::Copies, DirectRule::CopiesLimits},
    {"EXT_ORIENTATION", keyword::PageOrientation},
    {"PG_MAGNI", keyword::Scale},
    {"EXT_NUP", keyword::NUP},
    {"OTra", keyword::Tray},
});

consteval bool AllDirectTagsHaveAField() {
    return std::ranges::all_of(kDirectTags, [](const DirectTag& tag) {
        return std::ranges::any_of(ddb::kFields, [&](const FieldDescriptor& field) {
            return field.number == tag.keyword && field.type == FieldType::I32;
        });
    });
}
static_assert(AllDirectTagsHaveAField(), "what a direct tag stores has 32 bits to go to");

constexpr std::string_view DirectTagOf(std::size_t row) {
    return kDirectTags[row].tag;
}
constexpr NameIndex<kDirectTags.size(), DirectTagOf> kByDirectTag;

// Null if the tag is left to the fields.
const DirectTag* FindDirectTag(std::string_view tag) {
    const int row = kByDirectTag.Find(tag);
    if (row < 0)
        return nullptr;
    const DirectTag& found = kDirectTags[static_cast<std::size_t>(row)];
    return found.rule == DirectRule::LeftToField ? nullptr : &found;
}

void StoreDirectly(const DirectTag& tag, std::string_view value, CPrintOptionEx& option) {
    std::int32_t number = I32FromText(value);
    if (tag.rule == DirectRule::CopiesLimits)
        number = CopiesInRange(number);
    SetI32(option, *ddb::FindFieldByValueNumber(tag.keyword), number);
}

void StoreByType(const FieldDescriptor& field, std::string_view value, CPrintOptionEx& option) {
    switch (field.type) {
    case FieldType::I32: SetI32(option, field, I32FromText(value)); break;
    case FieldType::U32: SetU32(option, field, U32FromText(value)); break;
    case FieldType::I64: SetI64(option, field, I64FromText(value)); break;
    case FieldType::Fixed100: SetI32(option, field, FixedFromText(value, FixedScale::Hundredths)); break;
    case FieldType::Fixed10: SetI32(option, field, FixedFromText(value, FixedScale::Tenths)); break;
    case FieldType::Text: SetText(option, field, value); break;
    }
}

std::string FetchByType(const FieldDescriptor& field, const CPrintOptionEx& option) {
    switch (field.type) {
    case FieldType::I32: return TextFromNumber(GetI32(option, field));
    case FieldType::U32: return TextFromNumber(GetU32(option, field));
    case FieldType::I64: return TextFromNumber(GetI64(option, field));
    case FieldType::Fixed100: return TextFromFixed(GetI32(option, field), FixedScale::Hundredths);
    case FieldType::Fixed10: return TextFromFixed(GetI32(option, field), FixedScale::Tenths);
    case FieldType::Text: return GetText(option, field);
    }
    return {};
}

} // namespace

const FieldDescriptor* FindTaggedField(std::string_view tag) {
    const DirectTag* direct = FindDirectTag(tag);
    return direct ? ddb::FindFieldByValueNumber(direct->keyword) : ddb::FindFieldByTag(tag);
}

void StoreOption(std::string_view tag, std::string_view value, CPrintOptionEx& option) {
    if (const DirectTag* direct = FindDirectTag(tag))
        StoreDirectly(*direct, value, option);
    else if (const FieldDescriptor* field = ddb::FindFieldByTag(tag))
        StoreByType(*field, value, option);
}

void FetchOption(std::string_view tag, const CPrintOptionEx& option, std::string& value) {
    if (const FieldDescriptor* field = FindTaggedField(tag))
        value = FetchByType(*field, option);
}

int AccessPrintOption(const char* tag, char* value, CSettingInfo* setting, int mode) {
    if (!tag || !setting)
        return 0;
    if (!value)
        return 1;
    if (mode == kStoreOption)
        StoreOption(tag, {value, strnlen(value, kOptionValueSize)}, setting->PrintOption());
    else if (const FieldDescriptor* field = FindTaggedField(tag); field && mode == kFetchOption)
        CopyText(std::span(value, kOptionValueSize), FetchByType(*field, setting->PrintOption()));
    return 1;
}
