#pragma once
// The leading decimal digits of a double, correctly rounded as printf rounds
// them, without the C library: the value is scaled by powers of ten in
// double-double arithmetic (an error near 1e-30 of the value), so the digits
// are exact unless the value lies within 1e-9 of a digit's rounding half,
// where the caller formats with the library instead.
#include <cstdint>

namespace tormel {

// The first `count` (1..17) significant digits of |value| as an integer, and
// the decimal exponent of the first: |value| ~ digits x 10^(exponent - count
// + 1). False for zero, a value that is not finite or not within 1e-300 to
// 1e300, or one too near a rounding half.
bool SignificantDigits(double value, int count, uint64_t& digits, int& exponent);

}  // namespace tormel
