#include <gtest/gtest.h>

#include <cmath>

#include "calc/activity.h"
#include "calc/solver.h"
#include "calc/temperature.h"

namespace tormel {

TEST(CalcActivity, DaviesValues) {
    EXPECT_NEAR(DaviesLogGamma1(0.5), -0.1342, 5e-5);
    EXPECT_EQ(DaviesLogGamma1(0), 0.0);
}

TEST(CalcActivity, TemperatureTerm) {
    EXPECT_EQ(TemperatureTerm(25.0, -55840), 0.0);
    EXPECT_EQ(ReverseTemperatureTerm(25.0, -55840), 0.0);
    // dH/(R ln 10) (1/298.15 - 1/283.15)
    const double expected = -55840 / (8.3144598 * std::log(10.0)) * (1 / 298.15 - 1 / 283.15);
    EXPECT_NEAR(TemperatureTerm(10.0, -55840), expected, 1e-12);
    EXPECT_GT(TemperatureTerm(10.0, -55840), 0);  // an exothermic reaction is stronger when cold
    EXPECT_NEAR(ReverseTemperatureTerm(10.0, -55840), -expected, 1e-12);
}

TEST(CalcActivity, ProgressBarScale) {
    SolverState st;
    // the first report sets the scale and shows position 3
    EXPECT_EQ(ProgressBarPosition(st, 1.0001, 2.0, true), 3);
    // the criterion itself is the end of the bar
    EXPECT_EQ(ProgressBarPosition(st, 1.0001, 1.0001, false), 300);
    EXPECT_EQ(ProgressBarPosition(st, 1.0001, 1.0, false), 300);
    const int32_t middle = ProgressBarPosition(st, 1.0001, 1.01, false);
    EXPECT_GT(middle, 3);
    EXPECT_LT(middle, 300);
    // a ratio worse than the scale's start re-scales the bar
    EXPECT_EQ(ProgressBarPosition(st, 1.0001, 1e6, false), 3);
}

}  // namespace tormel
