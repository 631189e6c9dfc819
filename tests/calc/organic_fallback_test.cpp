// The solver's fallback with dissolved organic matter: the members of a pair
// or triple share one unknown, and a fallback that takes over early reaches
// the equilibrium the iteration reaches on its own.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "calc/fallback_unknowns.h"
#include "calc/organic_model.h"
#include "calc/organic_test_support.h"

namespace tormel::test {

namespace {

OrganicWater MetalWater(int32_t model, bool protonBalance) {
    OrganicWater w(model, 20, 0.5);
    if (!w.ok) return w;
    w.SetTotals({{"Na", 2e-4}, {"Cl", 2e-4}, {"Ca", 2e-4}, {"CO3", 1e-3}, {"Cu(II)", 1e-5}, {"Al", 1e-5}});
    if (protonBalance)
        w.Set("H", InputType::TotalConc, 1.2e-3);
    else
        w.FixPh(6.5);
    return w;
}

// free + protonated of a site component
double SiteTotal(const ChemicalSystem& chem, const OrganicSite& site) {
    const double hydrogen = chem.systemComponents[0].freeConcentration;
    const double k = std::exp(chem.species[site.protonatedSpecies].workingLogK * std::numbers::ln10);
    return chem.systemComponents[site.component].freeConcentration * (1 + hydrogen * k);
}

}  // namespace

// Every pair and triple is one unknown (its first member's balance), every
// other mass-balance component one of its own; written values give each
// member the site total the value stands for.
TEST(OrganicFallback, CombinationMembersShareOneUnknown) {
    for (int32_t model = Model5; model <= Model7; ++model) {
        SCOPED_TRACE(model);
        OrganicWater w = MetalWater(model, false);
        ASSERT_TRUE(w.ok);
        ASSERT_TRUE(w.Run().solve.converged);
        CalcContext ctx{w.chem, w.input, w.state};
        const FallbackLayout layout = FallbackLayoutOf(ctx);
        int32_t shared = 0;  // members beyond the first of every combination
        for (const OrganicFraction& fr : w.state.organic.fractions)
            for (const OrganicCombination& comb : fr.combinations) shared += comb.size - 1;
        ASSERT_GT(shared, 0);
        EXPECT_EQ(layout.FreeCount(), w.state.newton.n - shared);

        FallbackValues x = ReadFallbackValues(ctx, layout);
        for (double& v : x.logFree) v += 0.5;
        WriteFallbackValues(ctx, layout, x);
        for (const OrganicFraction& fr : w.state.organic.fractions)
            for (const OrganicCombination& comb : fr.combinations) {
                const OrganicSite& first = fr.sites[comb.firstSite];
                const int32_t row = layout.rowOf[first.component];
                ASSERT_GE(row, 0);
                for (int32_t k = 0; k < comb.size; ++k) {
                    const OrganicSite& site = fr.sites[comb.firstSite + k];
                    if (k > 0) {
                        EXPECT_EQ(layout.rowOf[site.component], -1);
                    }
                    const double expected = comb.size == 1 ? w.chem.systemComponents[site.component].freeConcentration
                                                           : SiteTotal(w.chem, site);
                    EXPECT_NEAR(std::log(expected), x.logFree[row], 1e-12);
                }
            }
    }
}

// With the iteration bound set so that the fallback takes over after the
// first hundred iterations, each model reaches the same free concentrations
// as the iteration alone, at a fixed pH and at a proton balance.
TEST(OrganicFallback, EarlyTakeoverReachesTheSameEquilibrium) {
    for (int32_t model = Model5; model <= Model7; ++model)
        for (bool protonBalance : {false, true}) {
            SCOPED_TRACE(testing::Message() << "model " << model << (protonBalance ? ", proton balance" : ""));
            OrganicWater alone = MetalWater(model, protonBalance);
            OrganicWater early = MetalWater(model, protonBalance);
            ASSERT_TRUE(alone.ok && early.ok);
            alone.state.fallbackAllowed = false;
            const CalculationOutcome a = alone.Run();
            ASSERT_TRUE(a.solve.converged) << a.solve.message;
            ASSERT_GT(a.solve.iterations, 101);
            early.state.maxIterations = 2101;  // the organic fallback has the last 2000
            const CalculationOutcome b = early.Run();
            ASSERT_TRUE(b.solve.converged) << b.solve.message;
            EXPECT_TRUE(b.solve.fallbackUsed);
            for (size_t j = 0; j < alone.chem.systemComponents.size(); ++j) {
                const double ca = alone.chem.systemComponents[j].freeConcentration;
                const double cb = early.chem.systemComponents[j].freeConcentration;
                EXPECT_NEAR(std::log(cb / ca), 0, 1e-4) << alone.chem.systemComponents[j].name;
            }
        }
}

}  // namespace tormel::test
