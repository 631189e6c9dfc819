#include "calc/compare.h"

#include <algorithm>
#include <cmath>

namespace tormel {

static double RatioFactor(double c) { return c >= 1 ? c : 1 / c; }

bool RelativelyEqual(double a, double b, double c) {
    if (a < 0 && b < 0) {
        a = -a;
        b = -b;
    }
    const double hi = std::max(a, b);
    const double lo = std::min(a, b);
    const double f = RatioFactor(c);
    if (hi == 0 && lo == 0) return true;
    if (hi != 0 && lo != 0) return lo * f >= hi;
    // exactly one of them is zero
    if (hi > 0) return f - 1 > hi;
    return std::fabs(lo) < f - 1;
}

bool LogEqual(double a, double b, double c) {
    const double f = RatioFactor(c);
    return std::log10(f) > std::max(a, b) - std::min(a, b);
}

}  // namespace tormel
