#include "pages/custom_page_size.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace {

constexpr std::array<PageSizeLimits, page_unit::Count> kLimits{
    {{3504, 3858, 12568, 47244}, {89000, 98000, 320000, 1200000}, {252282, 277794, 907065, 3401568}}};

// [from][to]
constexpr float kFactors[page_unit::Count][page_unit::Count]{
    {1.0F, 25.4F, 72.0F},
    {0.03937F, 1.0F, 2.83464F},
    {0.01389F, 0.35278F, 1.0F},
};

std::size_t Index(int unit) {
    const bool isUnit = unit >= 0 && unit < page_unit::Count;
    return static_cast<std::size_t>(isUnit ? unit : static_cast<int>(page_unit::Millimeter));
}

float Factor(int from, int to) {
    return kFactors[Index(from)][Index(to)];
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t DigitsFrom(std::string_view text, std::size_t at) {
    const auto end = std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), IsDigit);
    return static_cast<std::size_t>(end - text.begin());
}

// The decimal number without a sign that a text begins with; a letter for an exponent counts only with
// digits.
std::string_view NumberPart(std::string_view text) {
    std::size_t end = DigitsFrom(text, 0);
    std::size_t digits = end;
    if (end < text.size() && text[end] == '.') {
        const std::size_t decimals = DigitsFrom(text, end + 1);
        digits += decimals - (end + 1);
        end = decimals;
    }
    if (digits == 0)
        return {};
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t power = end + 1;
        if (power < text.size() && (text[power] == '+' || text[power] == '-'))
            ++power;
        if (const std::size_t behind = DigitsFrom(text, power); behind > power)
            end = behind;
    }
    return text.substr(0, end);
}

double Number(std::string_view number) {
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec != std::errc::result_out_of_range)
        return value;
    // With so few characters only an exponent leads there.
    return number.find('-') == std::string_view::npos ? std::numeric_limits<double>::max() : 0;
}

std::uint32_t Cut(double number) {
    constexpr double kMost = std::numeric_limits<std::uint32_t>::max();
    return number > 0 ? static_cast<std::uint32_t>(std::min(number, kMost)) : 0;
}

} // namespace

PageSizeLimits PageSizeLimitsOf(int unit) {
    return kLimits[Index(unit)];
}

std::string LengthText(float length) {
    // The longest float has 39 digits before its point.
    std::array<char, 48> text;
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), length, std::chars_format::fixed, 1);
    return {text.data(), result.ptr};
}

std::string LengthText(std::uint32_t thousandths) {
    return LengthText(static_cast<float>(thousandths) / 1000.0F);
}

std::string LengthLimitsText(std::uint32_t min, std::uint32_t max) {
    return "(" + LengthText(min) + ", " + LengthText(max) + ")";
}

std::uint32_t ThousandthsFromText(std::string_view text) {
    text = text.substr(0, kLengthTextCharacters);
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    if (text.starts_with('-'))
        return 0;
    if (text.starts_with('+'))
        text.remove_prefix(1);
    return Cut(Number(NumberPart(text)) * 1000.0);
}

LengthByUnit LengthInAllUnits(std::uint32_t thousandths, int fromUnit) {
    LengthByUnit lengths{};
    for (std::size_t unit = 0; unit < lengths.size(); ++unit) {
        const float length =
            static_cast<float>(thousandths) * Factor(fromUnit, static_cast<int>(unit)) / 1000.0F;
        // The trip through text is the rounding.
        lengths[unit] = static_cast<float>(Number(LengthText(length)));
    }
    return lengths;
}

std::uint32_t ThousandthsFromShown(float length) {
    return Cut((length * 10000.0F + 5.0F) / 10.0F);
}

ConvertedLength ConvertLength(std::uint32_t thousandths, int fromUnit, int toUnit) {
    const float shown =
        (static_cast<float>(thousandths) * Factor(fromUnit, toUnit) * 10.0F + 5.0F) / 10000.0F;
    return {shown, Cut(shown * 1000.0 + 0.05)};
}

bool IsInRange(std::uint32_t length, std::uint32_t min, std::uint32_t max) {
    return length >= min && length <= max;
}

bool IsDoubleWidthSheet(std::uint32_t tag) {
    return tag == 30 || tag == 38 || tag == 66 || tag == 104;
}

PageSize HalfOfDoubleWidthSheet(const PageSize& size, std::uint32_t direction) {
    const auto [less, more] = std::minmax({size.width / 2, size.height});
    return direction == 1 ? PageSize{less, more} : PageSize{more, less};
}
