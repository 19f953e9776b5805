// The numbers of the custom page size dialog: lengths in thousandths of a unit, what an edit shows of them,
// and what it reads as.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Numbers of the dialog's units.
namespace page_unit {
enum PageUnit : int { Inch, Millimeter, Point, Count };
} // namespace page_unit

// A length in each unit, to one decimal.
using LengthByUnit = std::array<float, page_unit::Count>;

struct PageSizeLimits {
    std::uint32_t widthMin;
    std::uint32_t heightMin;
    std::uint32_t widthMax;
    std::uint32_t heightMax;
};
// Both ends belong to what is allowed. The largest width is 12.568 inch, though 320 mm are more.
PageSizeLimits PageSizeLimitsOf(int unit);

// With one decimal, whatever the locale.
std::string LengthText(float length);
std::string LengthText(std::uint32_t thousandths);
// "(3.5, 12.6)"
std::string LengthLimitsText(std::uint32_t min, std::uint32_t max);

// How much of an edit's text counts.
inline constexpr std::size_t kLengthTextCharacters = 32;

// Reads a decimal number as atof does, whatever the locale, and cuts it to thousandths. What is no number,
// words for infinity among it, is 0; so is what is negative. What is too large is the largest.
std::uint32_t ThousandthsFromText(std::string_view text);

// What an edit would show of the length in each unit.
LengthByUnit LengthInAllUnits(std::uint32_t thousandths, int fromUnit);
// Of a length as an edit shows it.
std::uint32_t ThousandthsFromShown(float length);

struct ConvertedLength {
    float shown;
    std::uint32_t thousandths;
};
ConvertedLength ConvertLength(std::uint32_t thousandths, int fromUnit, int toUnit);

bool IsInRange(std::uint32_t length, std::uint32_t min, std::uint32_t max);

// True for the output paper sizes that are two sheets beside each other.
bool IsDoubleWidthSheet(std::uint32_t tag);

struct PageSize {
    std::uint32_t width;
    std::uint32_t height;
    bool operator==(const PageSize&) const = default;
};
// One of the two sheets beside each other, of what is stored for both: upright for direction 1, else lying.
PageSize HalfOfDoubleWidthSheet(const PageSize& size, std::uint32_t direction);
