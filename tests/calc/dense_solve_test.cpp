// The fallback's linear solvers: pivoting where the plain elimination would
// divide by zero, refusing singular systems, and the damped least-squares
// step that stays defined for them.
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "calc/dense_solve.h"

namespace tormel::test {

TEST(DenseSolve, PivotingSolvesAndSingularSystemsAreRefused) {
    struct Case {
        const char* what;
        std::vector<double> a, b, x;  // x empty: refused
    };
    const Case cases[] = {
        {"zero first pivot", {0, 1, 1, 0}, {2, 3}, {3, 2}},
        {"tiny first pivot", {1e-20, 1, 1, 1}, {1, 2}, {1, 1}},
        {"three unknowns", {2, 1, 0, 1, 3, 1, 0, 1, 4}, {3, 5, 5}, {1, 1, 1}},
        {"dependent rows", {1, 2, 2, 4}, {1, 2}, {}},
        {"zero column", {1, 0, 1, 0}, {1, 1}, {}},
    };
    for (const Case& c : cases) {
        std::vector<double> x;
        const int32_t size = static_cast<int32_t>(c.b.size());
        const bool solved = SolvePivoted(c.a, c.b, size, x);
        ASSERT_EQ(solved, !c.x.empty()) << c.what;
        for (size_t i = 0; i < c.x.size(); ++i) EXPECT_NEAR(x[i], c.x[i], 1e-12) << c.what;
    }
}

// The Newton step's use: factors in place, refusing only an exactly zero
// pivot and results that are not finite.
TEST(DenseSolve, InPlaceSolveRefusesOnlyZeroPivotsAndNonFiniteResults) {
    std::vector<double> a = {1e-20, 1, 1, 1}, b = {1, 2};
    ASSERT_TRUE(SolvePivotedInPlace(a, b, 2, 0));
    EXPECT_NEAR(b[0], 1, 1e-12);
    EXPECT_NEAR(b[1], 1, 1e-12);
    a = {1, 2, 2, 4};
    b = {1, 2};
    EXPECT_FALSE(SolvePivotedInPlace(a, b, 2, 0));
    const double inf = std::numeric_limits<double>::infinity();
    a = {inf, 1, 1, 1};
    b = {1, 1};
    EXPECT_FALSE(SolvePivotedInPlace(a, b, 2, 0));
    EXPECT_TRUE(SolvePivotedInPlace(a, b, 0, 0)) << "an empty system is solved";
}

TEST(DenseSolve, DampedLeastSquaresStepIsDefinedForSingularSystemsAndShrinksWithDamping) {
    const std::vector<double> a = {1, 2, 2, 4}, b = {1, 2};
    std::vector<double> light, heavy;
    ASSERT_TRUE(SolveDampedLeastSquares(a, b, 2, 1e-6, light));
    ASSERT_TRUE(SolveDampedLeastSquares(a, b, 2, 1e3, heavy));
    // the lightly damped step solves the consistent system; the heavy one goes
    // a short way down the steepest descent scaled by the column norms:
    // a^T b = (5, 10) over diag(a^T a) = (5, 20)
    EXPECT_NEAR(light[0] + 2 * light[1], 1, 1e-4);
    EXPECT_NEAR(heavy[1] / heavy[0], 0.5, 1e-2);
    EXPECT_LT(heavy[0] * heavy[0] + heavy[1] * heavy[1], light[0] * light[0] + light[1] * light[1]);
    EXPECT_GT(heavy[0], 0);
    EXPECT_GT(heavy[1], 0);
}

}  // namespace tormel::test
