#include "settings/store_values.h"

#include "Common/name_index.h"
#include "session/datamanager.h"
#include "settings/print_option_fields.h"
#include "settings/store_names.h"

#include <algorithm>

namespace {

#define ZR_GET_NUMBER(name, type)                                                                            \
    [] {                                                                                                     \
        type value{};                                                                                        \
        ExportedFunc_Get##name(&value);                                                                      \
        return static_cast<std::int64_t>(value);                                                             \
    }
#define ZR_SET_NUMBER(name, type) [](std::int64_t value) { ExportedFunc_Set##name(static_cast<type>(value)); }
#define ZR_GET_TEXT(name, width)                                                                             \
    [](StoreText& text) {                                                                                    \
        static_assert(width <= kWidestStoreText);                                                            \
        ExportedFunc_Get##name(text.data());                                                                 \
    }
#define ZR_SET_TEXT(name) [](const char* text) { ExportedFunc_Set##name(text); }
#define ZR_NUMBER_VALUE(name, type) {#name, ZR_GET_NUMBER(name, type), ZR_SET_NUMBER(name, type)},

constexpr auto kStoreValues = std::to_array<StoreValue>({
#define ZR_U32(name) ZR_NUMBER_VALUE(name, std::uint32_t)
#define ZR_I32(name) ZR_NUMBER_VALUE(name, std::int32_t)
#define ZR_U64(name) ZR_NUMBER_VALUE(name, std::uint64_t)
#define ZR_TEXT_VALUE(name, width) {#name, nullptr, nullptr, ZR_GET_TEXT(name, width), ZR_SET_TEXT(name)},
#define ZR_U32_SET_ONLY(name) {#name, nullptr, ZR_SET_NUMBER(name, std::uint32_t)},
#define ZR_TEXT_SET_ONLY(name, width) {#name, nullptr, nullptr, nullptr, ZR_SET_TEXT(name)},
#include "session/named_values.def"
});

constexpr std::string_view StoreName(std::size_t value) {
    return kStoreValues[value].name;
}
constexpr NameIndex<kStoreValues.size(), StoreName> kByName;

constexpr int kFirstNumber = ddb::FieldAt(ddb::FieldId::LogicalPageRange).number;
constexpr int kLastNumber = ddb::FieldAt(ddb::FieldId::StapleMechanism).number;
static_assert(kFirstNumber == 328 && kLastNumber == 562);

// The crease and trim values stay where they are, although both sides have them.
constexpr bool Stays(int number) {
    return number >= ddb::FieldAt(ddb::FieldId::Crease).number &&
           number <= ddb::FieldAt(ddb::FieldId::TopAndTailTrimFrontCutSize).number;
}

constexpr std::int16_t kNoValue = -1;

// Rows of kStoreValues from kFirstNumber on.
constexpr auto kRowOfNumber = [] {
    std::array<std::int16_t, kLastNumber - kFirstNumber + 1> rows{};
    rows.fill(kNoValue);
    for (const ddb::FieldDescriptor& field : ddb::kFields) {
        if (field.number < kFirstNumber || Stays(field.number))
            continue;
        const int row = kByName.Find(StoreNameOf(field));
        if (row < 0 || kStoreValues[static_cast<std::size_t>(row)].IsText() != field.IsText())
            throw "a field has no named value of its kind";
        rows[static_cast<std::size_t>(field.number - kFirstNumber)] = static_cast<std::int16_t>(row);
    }
    return rows;
}();
static_assert(std::ranges::count(kRowOfNumber, kNoValue) == 25, "all but the crease and trim values move");

} // namespace

std::span<const StoreValue> StoreValues() {
    return kStoreValues;
}

const StoreValue* FindStoreValue(int number) {
    if (number < kFirstNumber || number > kLastNumber)
        return nullptr;
    const std::int16_t row = kRowOfNumber[static_cast<std::size_t>(number - kFirstNumber)];
    return row == kNoValue ? nullptr : &kStoreValues[static_cast<std::size_t>(row)];
}
