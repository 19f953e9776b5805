#include "settings/standard_values.h"

#include "Common/name_index.h"
#include "oemps/devmode_fields.h"

#include <array>
#include <cstddef>

namespace {

struct StandardValue {
    std::string_view name;
    std::int64_t number;
    std::string_view text;
};

constexpr auto kResetValues = std::to_array<StandardValue>({
#define ZR_STANDARD_TEXT(name, value) {#name, 0, value},
#define ZR_STANDARD_NUMBER(name, value) {#name, value, ""},
#include "settings/standard_values.def"
});

constexpr std::string_view ResetName(std::size_t row) {
    return kResetValues[row].name;
}
constexpr NameIndex<kResetValues.size(), ResetName> kResetByName;

// The private DEVMODE holds these in the store's units: the two lengths that are converted between the two
// are among the values of a reset.
constexpr std::string_view RecordName(std::size_t row) {
    const devmode::FieldDescriptor& field = devmode::kFields[row];
    const bool inStore = field.travel != devmode::Travel::Header && field.travel != devmode::Travel::Stays;
    return inStore ? field.name : std::string_view();
}
constexpr NameIndex<devmode::kFields.size(), RecordName> kRecordByName;

constexpr StandardValue Find(std::string_view name) {
    if (const int row = kResetByName.Find(name); row >= 0)
        return kResetValues[static_cast<std::size_t>(row)];
    if (const int row = kRecordByName.Find(name); row >= 0) {
        const devmode::FieldDescriptor& field = devmode::kFields[static_cast<std::size_t>(row)];
        return {field.name, static_cast<std::int64_t>(field.number), field.text};
    }
    return {name, 0, ""};
}

static_assert(Find("ChgPrintPaperSizeWidth").number == 297000,
              "in the store's unit, thousandths of a millimetre");

} // namespace

std::int64_t StandardNumber(std::string_view name) {
    return Find(name).number;
}

std::string_view StandardText(std::string_view name) {
    return Find(name).text;
}
