#include "settings/value_checks.h"

#include "Common/name_index.h"
#include "settings/number_text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace {

struct Check {
    std::string_view name;
    std::int32_t min;
    std::int32_t max;
    std::string_view value; // the default, in decimal
    bool takesEmpty;        // an empty text is judged as the number 0
};

// The boolean form asks for an empty text and for what is above 1, so that a negative number passes.
constexpr auto kChecks = std::to_array<Check>({
#define ZR_RANGE(name, min, max, value) {#name, min, max, #value, true},
#define ZR_BOOL(name, value) {#name, std::numeric_limits<std::int32_t>::min(), 1, #value, false},
#include "settings/value_checks.def"
});

constexpr std::size_t kNone = kChecks.size();

// The check of the same name behind this one.
constexpr auto kNext = [] {
    std::array<std::size_t, kChecks.size()> next{};
    for (std::size_t i = 0; i < kChecks.size(); ++i) {
        next[i] = kNone;
        for (std::size_t later = kChecks.size(); --later > i;)
            if (kChecks[later].name == kChecks[i].name)
                next[i] = later;
    }
    return next;
}();

constexpr bool IsFirstOfItsName(std::size_t check) {
    for (std::size_t i = 0; i < check; ++i)
        if (kNext[i] == check)
            return false;
    return true;
}

constexpr std::string_view FirstNameOf(std::size_t check) {
    return IsFirstOfItsName(check) ? kChecks[check].name : std::string_view();
}
constexpr NameIndex<kChecks.size(), FirstNameOf> kByName;

bool IsAccepted(const Check& check, std::string_view text) {
    if (text.empty() && !check.takesEmpty)
        return false;
    const std::int64_t number = I64FromText(text);
    return check.min <= number && number <= check.max;
}

} // namespace

void CheckValue(std::string_view longName, std::string& text) {
    const int first = kByName.Find(longName);
    if (first < 0)
        return;
    for (std::size_t i = static_cast<std::size_t>(first); i != kNone; i = kNext[i])
        if (!IsAccepted(kChecks[i], text))
            text = kChecks[i].value;
}
