#include "Common/device_configuration.h"

#include "Common/log.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <stdexcept>

namespace device_configuration {
namespace {

using enum ValueRule;

constexpr IndexRange kFirstOption[] = {{0, 0}};

// Trays 1 to 3 and the media entry count as fitted in any case.
constexpr IndexRange kTrayBase[] = {{0, 3}, {7, 7}};
constexpr KeyRule kTrayRules[] = {
    {"Number", Number, 1, {1, 1}},  {"Number", Number, 2, {2, 2}}, {"Number", Number, 3, {3, 3}},
    {"Number", Number, 4, {4, 4}},  {"Number", Number, 5, {5, 5}}, {"Number", Number, 7, {6, 6}},
    {"Number", Number, 25, {7, 7}},
};

constexpr KeyRule kOutputRules[] = {
    {"Type", Number, 12, {1, 1}},
    {"Type", Number, 13, {2, 2}},
    {"Type", Number, 3, {3, 3}},
    {"Type", Number, 6, {4, 4}},
};

constexpr KeyRule kPunchRules[] = {
    {"doublePunch", True, 0, {1, 5}},
    {"usDoublePunch", True, 0, {1, 5}},
    {"triplePunch", True, 0, {6, 10}},
    {"quadPunch", True, 0, {11, 15}},
};

constexpr KeyRule kStapleRules[] = {
    {"singleTop", True, 0, {1, 5}},      {"singleBottom", True, 0, {1, 5}},
    {"doubleStitch", True, 0, {6, 10}},  {"saddleFoldStaple", True, 0, {11, 13}},
    {"singleStitch", True, 0, {14, 17}}, {"quadStitch", True, 0, {18, 21}},
};

constexpr KeyRule kFoldRules[] = {
    {"saddleFoldNoStaple", True, 0, {1, 3}},
    {"zFold", True, 0, {4, 6}},
    {"triFoldC", True, 0, {7, 8}},
    {"triFoldZ", True, 0, {9, 10}},
};

constexpr KeyRule kJogRules[] = {
    {"offset", True, 0, {1, 2}},
};

constexpr bool IsSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// As C converts a decimal: white space and a sign may stand in front, and what follows the digits is left.
int ToNumber(std::string_view text) {
    const char* at = std::ranges::find_if_not(text, IsSpace);
    const char* const end = text.data() + text.size();
    // from_chars knows the minus sign only.
    if (at != end && *at == '+' && (end - at == 1 || at[1] != '-'))
        ++at;
    int number = 0;
    const auto [rest, error] = std::from_chars(at, end, number);
    if (error == std::errc::invalid_argument)
        throw std::invalid_argument("invalid stoi argument");
    if (error == std::errc::result_out_of_range)
        throw std::out_of_range("stoi argument out of range");
    return number;
}

void SetFlags(std::span<int> list, IndexRange range) {
    for (int index = range.first; index <= range.last && index < std::ssize(list); ++index)
        list[static_cast<std::size_t>(index)] = 1;
}

void ApplyPair(std::span<const KeyRule> rules, std::string_view key, std::string_view value,
               std::span<int> list) {
    std::optional<int> number;
    for (const KeyRule& rule : rules) {
        if (rule.key != key)
            continue;
        if (rule.value == Number && !number)
            number = ToNumber(value);
        if (rule.value == Number ? *number == rule.number : value == "True")
            SetFlags(list, rule.fitted);
    }
}

} // namespace

constexpr Query kTray{"GetTrayConfig", "error trayconfig", false, kTrayBase, kTrayRules};
constexpr Query kOutput{"GetOutputConfig", "error outputconfig", false, kFirstOption, kOutputRules};
constexpr Query kPunch{"GetPunchConfig", "error punchconfig", true, kFirstOption, kPunchRules};
constexpr Query kStaple{"GetStapleConfig", "error stapleconfig", true, kFirstOption, kStapleRules};
constexpr Query kFold{"GetFoldConfig", "error foldconfig", true, kFirstOption, kFoldRules};
// The first option of the offset stays 0, as nothing looks at it.
constexpr Query kJog{"GetJogConfig", "error jogconfig", true, {}, kJogRules};

int Answer(const Query& query, int* list, int listCount, const DeviceRecordMap& records) {
    WriteLog("%s %d行目 %s\n", __FILE__, __LINE__, query.name);
    if (!list || (query.needsCount && listCount < 1)) {
        WriteLog("%s %d行目 %s() %s = %d\n", __FILE__, __LINE__, query.name, query.errorText, listCount);
        return 0;
    }
    const std::span flags(list, static_cast<std::size_t>(std::max(listCount, 0)));
    std::ranges::fill(flags, 0);
    for (const IndexRange range : query.base)
        SetFlags(flags, range);
    for (const auto& [index, record] : records.All())
        for (const auto& [key, value] : record)
            ApplyPair(query.rules, key, value, flags);
    return 1;
}

} // namespace device_configuration
