#include "core/significant_digits.h"

#include <array>
#include <bit>
#include <cmath>

namespace tormel {

namespace {

constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                              1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kExactPower = 22;  // 10^22 is the largest power of ten a double holds exactly
constexpr uint64_t kIntPowers[] = {1ull,
                                   10ull,
                                   100ull,
                                   1000ull,
                                   10000ull,
                                   100000ull,
                                   1000000ull,
                                   10000000ull,
                                   100000000ull,
                                   1000000000ull,
                                   10000000000ull,
                                   100000000000ull,
                                   1000000000000ull,
                                   10000000000000ull,
                                   100000000000000ull,
                                   1000000000000000ull,
                                   10000000000000000ull,
                                   100000000000000000ull};

// Powers of ten from 10^-40 to 10^40, as near as repeated products and
// quotients come: they only settle an estimate that the scaling checks.
constexpr int kTabledPower = 40;
constexpr std::array<double, 2 * kTabledPower + 1> kApproximatePowers = [] {
    std::array<double, 2 * kTabledPower + 1> powers{};
    powers[kTabledPower] = 1;
    for (int k = 1; k <= kTabledPower; ++k) {
        powers[static_cast<size_t>(kTabledPower + k)] = powers[static_cast<size_t>(kTabledPower + k - 1)] * 10;
        powers[static_cast<size_t>(kTabledPower - k)] = powers[static_cast<size_t>(kTabledPower - k + 1)] / 10;
    }
    return powers;
}();

// An unevaluated sum hi + lo with |lo| at most half an ulp of hi.
struct DoubleDouble {
    double hi = 0;
    double lo = 0;

    void Normalise() {
        const double sum = hi + lo;
        lo = lo - (sum - hi);
        hi = sum;
    }
    // Times an exactly held power of ten: the product's rounding error is
    // recovered with a fused multiply-add.
    void Multiply(double power) {
        const double product = hi * power;
        lo = std::fma(hi, power, -product) + lo * power;
        hi = product;
        Normalise();
    }
    // Divided by an exactly held power of ten: the remainder of the
    // quotient is exact, and so is the part of lo it carries.
    void Divide(double power) {
        const double quotient = hi / power;
        const double remainder = std::fma(-quotient, power, hi);
        lo = (remainder + lo) / power;
        hi = quotient;
        Normalise();
    }
};

DoubleDouble Scaled(double magnitude, int shift) {
    DoubleDouble x{magnitude, 0};
    for (; shift > kExactPower; shift -= kExactPower) x.Multiply(kPowers[kExactPower]);
    for (; shift < -kExactPower; shift += kExactPower) x.Divide(kPowers[kExactPower]);
    if (shift > 0) x.Multiply(kPowers[shift]);
    if (shift < 0) x.Divide(kPowers[-shift]);
    return x;
}

}  // namespace

bool SignificantDigits(double value, int count, uint64_t& digits, int& exponent) {
    if (count < 1 || count > 17) return false;
    const double magnitude = std::fabs(value);
    if (!(magnitude >= 1e-300 && magnitude <= 1e300)) return false;
    const double low = kPowers[count - 1], high = kPowers[count];
    // floor(log10(2^e)) for the binary exponent e of the value: its decimal
    // exponent or one less, told apart by the next power of ten (a wrong
    // guess, out of the table or at a power itself, the scaling corrects)
    const int binaryExponent = static_cast<int>((std::bit_cast<uint64_t>(magnitude) >> 52) & 0x7FF) - 1023;
    exponent = (binaryExponent * 78913) >> 18;
    if (exponent + 1 >= -kTabledPower && exponent + 1 <= kTabledPower &&
        magnitude >= kApproximatePowers[static_cast<size_t>(exponent + 1 + kTabledPower)])
        ++exponent;
    // the scaled value hi + lo against the bounds: hi alone may round onto one
    const auto below = [](const DoubleDouble& x, double bound) { return x.hi < bound || (x.hi == bound && x.lo < 0); };
    DoubleDouble x;
    for (int attempt = 0;; ++attempt) {
        x = Scaled(magnitude, count - 1 - exponent);
        if (below(x, low) && attempt < 2)
            --exponent;
        else if (!below(x, high) && attempt < 2)
            ++exponent;
        else
            break;
    }
    if (below(x, low) || !below(x, high)) return false;
    // the whole part in integers (beyond 2^53 a double skips integers)
    // (hi is positive and below 1e17: truncation is its floor; above 2^53
    // the fraction is lo alone, of either sign and up to some units)
    const double whole = static_cast<double>(static_cast<int64_t>(x.hi));
    double fraction = (x.hi - whole) + x.lo;
    int64_t carry = static_cast<int64_t>(fraction);
    if (static_cast<double>(carry) > fraction) --carry;
    fraction -= static_cast<double>(carry);
    const int64_t wholeDigits = static_cast<int64_t>(whole) + carry;
    if (std::fabs(fraction - 0.5) < 1e-9 || wholeDigits < 0) return false;
    digits = static_cast<uint64_t>(wholeDigits) + (fraction > 0.5 ? 1 : 0);
    if (digits >= kIntPowers[count]) {  // 9.99..96 rounds up to 10.00..0: one more digit before the point
        digits /= 10;
        ++exponent;
    }
    return digits >= kIntPowers[count - 1];
}

}  // namespace tormel
