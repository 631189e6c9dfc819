// Free fractions of Cu, Pb, Zn and Cd in a hard river water, set against
// in-situ measurements.
//
// Measured: Vega F.A., Weng L. (2013) Speciation of heavy metals in River
// Rhine. Water Research 47, 363-372 (abstract): free over total filtered
// metal by Donnan membrane technique 52 % Zn, 33 % Cd, 0.48 % Pb, 0.12 % Cu.
// The water: pH 7.99 and total hardness 2.18 mmol/L are the 2010 means of
// the Rhine at Lobith (RIWA annual report 2010, Anlage 1); its mean
// conductivity, 56.8 mS/m, gives I = 0.009 mol/L by the usual rule of
// 1.6e-5 per uS/cm, which the major ions below reproduce. The Ca:Mg split,
// the other major ions, the metal totals and DOC are typical values of our
// own, not those of the measured sample, so DOC runs over 2 to 5 mg C/L and
// each metal is compared at the DOC that comes closest.
//
// Tolerances, from what field studies report for the published humic
// models: Zn and Cd agree with measured free ions within less than an order
// of magnitude, while the models overestimate Cu complexation (Rouyn-Noranda
// lakes, WHAM VI and NICA-Donnan against in-situ measurements; Aquat.
// Geochem. 2010) and the Rhine study's own model missed Pb. Here Zn and Cd
// must come within a factor of 3, free Cu must not exceed the measured
// fraction by more than a factor of 3 nor fall below it by more than 1.5
// log units, and Pb must come within 2 log units.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "calc/organic_model.h"
#include "calc/organic_test_support.h"

namespace tormel::test {

namespace {

struct Metal {
    const char* component;
    double total;          // mol/L
    double measuredFree;   // free / total, measured
};

constexpr Metal kMetals[] = {
    {"Cu(II)", 4e-8, 0.0012},
    {"Pb", 1e-9, 0.0048},
    {"Zn", 1.5e-7, 0.52},
    {"Cd", 2e-10, 0.33},
};

// log10(calculated / measured) free fraction of each metal at one DOC.
void FreeFractionDeviations(int32_t model, double doc, double deviation[4]) {
    OrganicWater w(model, doc, 0.8);
    ASSERT_TRUE(w.ok) << "database not loaded";
    w.FixPh(7.99);
    w.SetTotals({{"Ca", 1.75e-3}, {"Mg", 0.43e-3}, {"Na", 2.5e-3}, {"K", 1.5e-4}, {"Cl", 2.8e-3}, {"SO4", 6e-4},
                 {"CO3", 2.7e-3}});
    for (const Metal& m : kMetals) w.Set(m.component, InputType::TotalConc, m.total);
    const CalculationOutcome out = w.Run();
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    EXPECT_NEAR(w.state.ionicStrength, 0.009, 0.001);
    std::printf("Model %d DOC %.0f: free %%", model + 3, doc);
    for (int i = 0; i < 4; ++i) {
        const SystemComponent& sc = w.chem.systemComponents[w.SystemIndexOf(kMetals[i].component)];
        const double free = sc.freeConcentration / sc.balanceTotal;
        deviation[i] = std::log10(free / kMetals[i].measuredFree);
        std::printf(" %s %.3g (bound %.3f)", kMetals[i].component, 100 * free, w.BoundFraction(kMetals[i].component));
    }
    std::printf("\n");
}

}  // namespace

TEST(OrganicRiverWater, FreeFractionsAgainstRhineMeasurements) {
    for (int32_t model = Model5; model <= Model7; ++model) {
        double closest[4] = {HUGE_VAL, HUGE_VAL, HUGE_VAL, HUGE_VAL};
        for (double doc : {2.0, 3.0, 5.0}) {
            double deviation[4];
            ASSERT_NO_FATAL_FAILURE(FreeFractionDeviations(model, doc, deviation));
            for (int i = 0; i < 4; ++i)
                if (std::fabs(deviation[i]) < std::fabs(closest[i])) closest[i] = deviation[i];
        }
        std::printf("Model %d closest log10(calculated/measured): Cu %+.2f Pb %+.2f Zn %+.2f Cd %+.2f\n", model + 3,
                    closest[0], closest[1], closest[2], closest[3]);
        const std::string where = "Model " + std::to_string(model + 3);
        EXPECT_LT(closest[0], std::log10(3.0)) << where << " Cu";
        EXPECT_GT(closest[0], -1.5) << where << " Cu";
        EXPECT_LT(std::fabs(closest[1]), 2.0) << where << " Pb";
        EXPECT_LT(std::fabs(closest[2]), std::log10(3.0)) << where << " Zn";
        EXPECT_LT(std::fabs(closest[3]), std::log10(3.0)) << where << " Cd";
    }
}

}  // namespace tormel::test
