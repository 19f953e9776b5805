// Numbers of option values as text and back. Nothing here depends on the process's locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// A decimal integer: white space, a sign and digits, read up to where they end. No number gives 0, one out of
// range the nearest in it. An unsigned number may have a minus sign and then wraps, so that "-1" is
// 0xFFFFFFFF: signed values stand in unsigned fields.
std::int32_t I32FromText(std::string_view text);
std::uint32_t U32FromText(std::string_view text);
std::int64_t I64FromText(std::string_view text);

std::string TextFromNumber(std::int64_t number);

// How many of a fixed number's units make 1.
enum class FixedScale : int { Tenths = 10, Hundredths = 100 };

// A decimal number with or without an exponent, in units, halves upwards; otherwise as the integers. Words
// for infinity and not-a-number are no numbers, and neither is a number with an exponent's letter but no
// digits behind it: "7e", "12.5em".
std::int32_t FixedFromText(std::string_view text, FixedScale scale);

// With one decimal in tenths and two in hundredths, but 0 is "0.0" in both.
std::string TextFromFixed(std::int32_t units, FixedScale scale);
