#include "session/units.h"

#include <cmath>

namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kUnitsPerInch = 14400.0;

// The low 32 bits of the number cut to an integer of 64 bits.
std::uint32_t LowWord(double number) {
    constexpr double kLimit = 9223372036854775808.0;
    if (!(number >= -kLimit && number < kLimit))
        return 0;
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(number));
}

} // namespace

double RoundToDigits(double x, int digits) {
    if (digits == 0)
        return std::floor(x + 0.5);
    const double power = std::pow(10.0, digits);
    return std::floor(power * x + 0.5) / power;
}

std::uint32_t Inch14400ToMicrons(std::uint32_t value, int digits) {
    const double millimetres = value * kMillimetresPerInch / kUnitsPerInch;
    // Cut, not rounded: 2.01 mm is a little less in binary and becomes 2009.
    return LowWord(RoundToDigits(millimetres, digits) * 1000.0);
}

std::uint32_t MicronsToInch14400(std::uint32_t value) {
    // The 32-bit cut comes before the division, and the division drops the remainder: stored records and
    // their readers count on the lower of two neighbours.
    return LowWord(std::floor(value * kUnitsPerInch / kMillimetresPerInch + 0.5)) / 1000;
}
