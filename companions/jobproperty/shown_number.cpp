// Numbers between the key's units and what users read and write.
#include "companions/jobproperty/folded_text.h"
#include "companions/jobproperty/job_settings.h"
#include "companions/jobproperty/setting_rows.h"

#include <cstdlib>

namespace jobproperty {
namespace {

constexpr std::int64_t PowerOfTen(int exponent) {
    std::int64_t power = 1;
    while (exponent-- > 0)
        power *= 10;
    return power;
}

// Beyond these no product below has its place in 64 bits. The key holds 32 bits.
constexpr std::int64_t kMostKeyUnits = std::int64_t{1} << 40;
constexpr std::size_t kMostDigits = 12;

// A decimal number: its digits, and how many of them stand behind the point.
struct Decimal {
    std::int64_t digits = 0;
    int decimals = 0;
};

std::int64_t KeyUnits(const SettingInfo& setting, const Decimal& shown) {
    return RoundedQuotient(shown.digits * setting.scale, setting.divisor * PowerOfTen(shown.decimals));
}

Decimal ShownUnits(const SettingInfo& setting, std::int64_t value, int decimals) {
    return {RoundedQuotient(value * setting.divisor * PowerOfTen(decimals), setting.scale), decimals};
}

std::string TextOf(const Decimal& number) {
    std::string text = std::to_string(std::abs(number.digits));
    const auto decimals = static_cast<std::size_t>(number.decimals);
    if (text.size() <= decimals)
        text.insert(0, decimals + 1 - text.size(), '0');
    if (decimals > 0)
        text.insert(text.size() - decimals, 1, '.');
    return number.digits < 0 ? '-' + text : text;
}

// Takes the sign from the text: -1, or 1.
int TakeSign(std::u16string_view& text) {
    const bool isSigned = !text.empty() && (text.front() == u'-' || text.front() == u'+');
    const int sign = isSigned && text.front() == u'-' ? -1 : 1;
    text.remove_prefix(isSigned ? 1 : 0);
    return sign;
}

// Zeros at the end of the decimals say nothing.
std::u16string_view WithoutLastZeros(std::u16string_view text) {
    if (text.find(u'.') != text.npos)
        text = text.substr(0, text.find_last_not_of(u'0') + 1);
    return text;
}

// Digits, the first one not behind a point, and at most one point.
std::optional<Decimal> ReadDecimal(std::u16string_view text) {
    if (text.empty() || text.front() < u'0' || text.front() > u'9')
        return std::nullopt;
    Decimal number;
    std::size_t digits = 0;
    bool isBehindPoint = false;
    for (const char16_t code : WithoutLastZeros(text)) {
        if (code == u'.' && !isBehindPoint) {
            isBehindPoint = true;
            continue;
        }
        digits += number.digits != 0 ? 1 : 0;
        if (code < u'0' || code > u'9' || digits >= kMostDigits)
            return std::nullopt;
        number.digits = number.digits * 10 + (code - u'0');
        number.decimals += isBehindPoint ? 1 : 0;
    }
    return number;
}

} // namespace

std::optional<std::int64_t> ParseNumber(const SettingInfo& setting, std::string_view text) {
    const std::vector<std::u16string> words = FoldedWords(text);
    if (words.size() != 1)
        return std::nullopt;
    std::u16string_view digits = words.front();
    const int sign = TakeSign(digits);
    std::optional<Decimal> number = ReadDecimal(digits);
    if (!number || number->decimals > setting.decimals)
        return std::nullopt;
    number->digits *= sign;
    const std::int64_t value = KeyUnits(setting, *number);
    return value >= setting.least && value <= setting.most ? std::optional(value) : std::nullopt;
}

std::string FormatNumber(const SettingInfo& setting, std::int64_t value) {
    if (value < -kMostKeyUnits || value > kMostKeyUnits)
        return std::to_string(value);
    int decimals = 0;
    while (decimals < setting.decimals && KeyUnits(setting, ShownUnits(setting, value, decimals)) != value)
        ++decimals;
    return TextOf(ShownUnits(setting, value, decimals));
}

} // namespace jobproperty
