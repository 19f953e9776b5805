#include "settings/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

namespace {

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// What stands behind the white space and the sign that a number's text may begin with.
struct Unsigned {
    std::string_view text;
    bool isNegative;
};

Unsigned WithoutSign(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    return {text, isNegative};
}

template <class Integer>
Integer IntegerFromText(std::string_view signedText) {
    using Limits = std::numeric_limits<Integer>;
    using Magnitude = std::make_unsigned_t<Integer>;
    const auto [text, isNegative] = WithoutSign(signedText);
    Magnitude magnitude = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), magnitude);
    // The lowest signed number's magnitude is above Limits::max() and ends here too.
    if (result.ec == std::errc::result_out_of_range || magnitude > static_cast<Magnitude>(Limits::max()))
        return isNegative && Limits::is_signed ? Limits::min() : Limits::max();
    return static_cast<Integer>(isNegative ? Magnitude{0} - magnitude : magnitude);
}

// Whether a number without a sign that no double can hold is too large for it rather than too small: by the
// power of ten of its first digit that is not 0.
bool IsTooLarge(std::string_view number) {
    std::int64_t power = 0;
    bool isBehindPoint = false;
    bool isBehindZeros = false;
    while (!number.empty() && (IsDigit(number.front()) || number.front() == '.')) {
        isBehindPoint = isBehindPoint || number.front() == '.';
        if (IsDigit(number.front())) {
            isBehindZeros = isBehindZeros || number.front() != '0';
            power += isBehindZeros && !isBehindPoint;
            power -= !isBehindZeros && isBehindPoint;
        }
        number.remove_prefix(1);
    }
    if (!number.empty())
        power += I32FromText(number.substr(1));
    return power > 0;
}

bool IsExponentLetter(char c) {
    return c == 'e' || c == 'E';
}

// Whether a letter behind a number announces an exponent that does not follow.
bool IsExponentMissing(std::string_view number, std::string_view behind) {
    return !behind.empty() && IsExponentLetter(behind.front()) &&
           std::ranges::none_of(number, IsExponentLetter);
}

double MagnitudeFromText(std::string_view text) {
    // Words that std::from_chars takes for numbers begin otherwise.
    if (text.empty() || !(IsDigit(text.front()) || text.front() == '.'))
        return 0;
    double magnitude = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), magnitude);
    const auto length = static_cast<std::size_t>(result.ptr - text.data());
    const std::string_view number = text.substr(0, length);
    if (IsExponentMissing(number, text.substr(length)))
        return 0;
    if (result.ec != std::errc::result_out_of_range)
        return magnitude;
    return IsTooLarge(number) ? std::numeric_limits<double>::max() : 0;
}

} // namespace

std::int32_t I32FromText(std::string_view text) {
    return IntegerFromText<std::int32_t>(text);
}

std::uint32_t U32FromText(std::string_view text) {
    return IntegerFromText<std::uint32_t>(text);
}

std::int64_t I64FromText(std::string_view text) {
    return IntegerFromText<std::int64_t>(text);
}

std::string TextFromNumber(std::int64_t number) {
    char text[std::numeric_limits<std::int64_t>::digits10 + 2]; // a digit more than that, and the sign
    return {text, std::to_chars(std::begin(text), std::end(text), number).ptr};
}

std::int32_t FixedFromText(std::string_view signedText, FixedScale scale) {
    using Limits = std::numeric_limits<std::int32_t>;
    const auto [text, isNegative] = WithoutSign(signedText);
    const double magnitude = MagnitudeFromText(text);
    const double units = std::floor((isNegative ? -magnitude : magnitude) * static_cast<int>(scale) + 0.5);
    return static_cast<std::int32_t>(std::clamp(units, double{Limits::min()}, double{Limits::max()}));
}

std::string TextFromFixed(std::int32_t units, FixedScale scale) {
    if (units == 0)
        return "0.0";
    const std::int64_t magnitude = std::abs(std::int64_t{units});
    const std::int64_t ofOne = static_cast<int>(scale);
    std::string text = units < 0 ? "-" : "";
    text += TextFromNumber(magnitude / ofOne);
    text += '.';
    // With a digit ahead, so that the decimals keep their zeros.
    text += TextFromNumber(magnitude % ofOne + ofOne).substr(1);
    return text;
}
