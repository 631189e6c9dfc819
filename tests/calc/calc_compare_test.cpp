#include <gtest/gtest.h>

#include "calc/compare.h"

namespace tormel {

TEST(CalcCompare, RelativelyEqualRatioRule) {
    EXPECT_TRUE(RelativelyEqual(1.0, 1.00009, 1.0001));
    EXPECT_FALSE(RelativelyEqual(1.0, 1.00011, 1.0001));
    // order of the arguments does not matter
    EXPECT_FALSE(RelativelyEqual(1.00011, 1.0, 1.0001));
    // a criterion below 1 is read as its reciprocal
    EXPECT_TRUE(RelativelyEqual(1.0, 1.00009, 1 / 1.0001));
    // two negatives compare by magnitude; opposite signs never agree
    EXPECT_TRUE(RelativelyEqual(-2.0, -2.0001, 1.0001));
    EXPECT_FALSE(RelativelyEqual(-2.0, 2.0, 1.0001));
}

TEST(CalcCompare, RelativelyEqualZeros) {
    EXPECT_TRUE(RelativelyEqual(0.0, 0.0, 1.0001));
    // one zero: the other must be smaller than the criterion's margin
    EXPECT_TRUE(RelativelyEqual(0.0, 5e-5, 1.0001));
    EXPECT_FALSE(RelativelyEqual(0.0, 2e-4, 1.0001));
    EXPECT_TRUE(RelativelyEqual(-5e-5, 0.0, 1.0001));
    EXPECT_FALSE(RelativelyEqual(-2e-4, 0.0, 1.0001));
}

TEST(CalcCompare, LogEqual) {
    // log10(1.001) = 4.34e-4
    EXPECT_TRUE(LogEqual(-3.0, -3.0004, 1.001));
    EXPECT_FALSE(LogEqual(-3.0, -3.0005, 1.001));
    EXPECT_FALSE(LogEqual(2.0005, 2.0, 1 / 1.001));
}

}  // namespace tormel
