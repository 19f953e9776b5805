// Making a password unreadable where only the equality of two matters.
#pragma once

#include <string>
#include <string_view>

// A text of the same length and the same characters' widths. Each printable ASCII character, half-width
// katakana and valid trail byte becomes another one of its kind by a permutation that its place picks; lead
// bytes stay. Control bytes stay too, since the 95 printable characters cannot hold them as well one for one,
// and so does what is no character of code page 932. So equal texts stay equal and different ones different.
// This hides a password from a passing eye, not from an attack.
std::string ScramblePassword(std::string_view password);
