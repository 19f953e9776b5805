#include "oemps/devmode_fields.h"

#include <algorithm>

// What the walkers over the table rely on, checked wherever it is compiled.
namespace devmode {
namespace {

constexpr bool AreContiguous() {
    std::size_t end = 0;
    for (const FieldDescriptor& field : kFields) {
        if (field.offset != end)
            return false;
        end = field.End();
    }
    return end == kDevModeSize;
}

// An empty text could not even be cleared, and a default must leave room for its NUL.
constexpr bool HoldTheirDefaults() {
    return std::ranges::all_of(kFields, [](const FieldDescriptor& field) {
        return !field.IsText() || (field.text.size() < field.width && field.cleared <= field.width);
    });
}

// A route stores one 32-bit number.
constexpr bool RouteOnlyToWords() {
    return std::ranges::all_of(kFields, [](const FieldDescriptor& field) {
        return field.route == 0 || field.kind == FieldKind::NumberU32 || field.kind == FieldKind::NumberI32;
    });
}

static_assert(AreContiguous());
static_assert(HoldTheirDefaults());
static_assert(RouteOnlyToWords());

} // namespace
} // namespace devmode
