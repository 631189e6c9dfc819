#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "calc/gauss_jordan.h"

namespace tormel {

namespace {
// max |A * B - I|
double IdentityError(const std::vector<double>& a, const std::vector<double>& b, int n) {
    double worst = 0;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            double sum = 0;
            for (int k = 0; k < n; ++k) sum += a[i * n + k] * b[k * n + j];
            worst = std::max(worst, std::fabs(sum - (i == j ? 1.0 : 0.0)));
        }
    return worst;
}
}  // namespace

TEST(CalcGaussJordan, InvertsWithAndWithoutRowExchange) {
    std::vector<double> inverse;
    const std::vector<double> plain = {4, 1, 2, 1, 3, 0, 2, 0, 5};
    ASSERT_TRUE(GaussJordanInvert(plain, 3, inverse));
    EXPECT_LT(IdentityError(plain, inverse, 3), 1e-14);
    // zero first pivot: the next row with a non-zero entry is exchanged in
    const std::vector<double> zeroPivot = {0, 2, 1, 3, 1, 0, 1, 0, 2};
    ASSERT_TRUE(GaussJordanInvert(zeroPivot, 3, inverse));
    EXPECT_LT(IdentityError(zeroPivot, inverse, 3), 1e-14);
}

TEST(CalcGaussJordan, ReportsSingularAndNonFiniteMatrices) {
    std::vector<double> inverse;
    // a column without any non-zero entry
    EXPECT_FALSE(GaussJordanInvert({1, 0, 2, 0}, 2, inverse));
    // rows that become dependent during the elimination
    EXPECT_FALSE(GaussJordanInvert({1, 2, 2, 4}, 2, inverse));
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(GaussJordanInvert({inf, 1, 1, 1}, 2, inverse));
    // an empty system inverts trivially
    EXPECT_TRUE(GaussJordanInvert({}, 0, inverse));
}

}  // namespace tormel
