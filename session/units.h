// Lengths between the record, which holds 1/14400 inch, and the store, which holds thousandths of a
// millimetre.
#pragma once

#include <cstdint>

// Rounds halves up to this many decimals.
double RoundToDigits(double x, int digits);

// 1/14400 inch to thousandths of a millimetre, the millimetres being rounded to `digits` decimals in between.
// The low 32 bits of the result; 0 if it has no 64-bit value.
std::uint32_t Inch14400ToMicrons(std::uint32_t value, int digits);

// Thousandths of a millimetre to 1/14400 inch. Not the inverse: 168378 becomes 297000, and that becomes
// 168377.
std::uint32_t MicronsToInch14400(std::uint32_t value);
