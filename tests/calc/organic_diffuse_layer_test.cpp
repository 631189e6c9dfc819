// The diffuse layers: their volume, the counter-ion enrichment that balances
// each fraction's charge, and the balances of mass and charge once the bulk
// solution holds only bulkFraction of the volume.
#include <gtest/gtest.h>

#include <cmath>

#include "calc/assemble_system.h"
#include "calc/organic_model.h"
#include "calc/solver.h"
#include "calc/organic_test_support.h"

namespace tormel::test {

namespace {

// Amount of system component j summed from the species: the bulk share of
// the dissolved species, their diffuse-layer shares (each weighed by the
// coefficient, or not) and the organic species.
double AmountFromSpecies(const OrganicWater& w, int32_t j, bool weighLayerByCoefficient) {
    const int32_t count = static_cast<int32_t>(w.chem.species.size());
    const auto& fr = w.state.organic.fractions;
    double sum = 0;
    for (int32_t s = 0; s < count; ++s) {
        const Species& sp = w.chem.species[s];
        for (int32_t e = 0; e < sp.componentTerms; ++e) {
            const CompositionTerm& t = w.chem.composition[Position(s, e, count)];
            if (t.systemComponent != j) continue;
            if (IsOrganicKind(sp.kind)) {
                sum += t.coefficient * sp.concentration;
            } else if (IsDissolvedKind(sp.kind)) {
                const double layer = fr[0].volume * sp.organicTerms[0] + fr[1].volume * sp.organicTerms[1];
                sum += t.coefficient * sp.concentration * w.state.bulkFraction +
                       (weighLayerByCoefficient ? t.coefficient : 1) * layer;
            }
        }
    }
    return sum;
}

// A carbonate water with calcium and copper at a proton balance.
OrganicWater CarbonateWater(int32_t model) {
    OrganicWater w(model, 10, 0.5);
    if (!w.ok) return w;
    w.SetTotals({{"H", 2.5e-3}, {"Na", 1e-3}, {"Cl", 1e-3}, {"Ca", 1e-3}, {"CO3", 2e-3}, {"Cu(II)", 1e-7}});
    return w;
}

}  // namespace

// V = (4 pi / 3) ((r + 1/kappa)^3 - r^3) (N_A 1000 / M) C K_D |Z| / (1 + K_D |Z|),
// 1/kappa = 3.039e-10 m / sqrt(I). Values worked by hand with the published
// per-gram-of-humic-substance parameters (fulvic r 0.8 nm, M 1500; humic
// r 1.72 nm, M 15000; K_D 1000; I 0.01 M; C 0.005 g/L).
TEST(OrganicDiffuseLayer, VolumeOfOneLayer) {
    OrganicParameters fulvic;
    fulvic.radius = 8e-10;
    fulvic.molarMass = 1500;
    fulvic.diffuseFactor = 1000;
    EXPECT_NEAR(DiffuseLayerVolume(fulvic, 0.005, -3e-3, 0.01), 3.5367e-4, 1e-8);
    OrganicParameters humic = fulvic;
    humic.radius = 1.72e-9;
    humic.molarMass = 15000;
    EXPECT_NEAR(DiffuseLayerVolume(humic, 0.005, -2e-3, 0.01), 5.7580e-5, 1e-9);
    // an uncharged particle has no layer; the layer thins as I rises
    EXPECT_EQ(DiffuseLayerVolume(fulvic, 0.005, 0, 0.01), 0);
    EXPECT_GT(DiffuseLayerVolume(fulvic, 0.005, -3e-3, 0.001), 5 * DiffuseLayerVolume(fulvic, 0.005, -3e-3, 0.1));
}

// After a solve each layer's counter-ions balance its fraction's charge,
// co-ions are kept out, neutral species have their bulk concentration, and
// the layers together stay below V_max.
TEST(OrganicDiffuseLayer, CounterIonsBalanceTheCharge) {
    for (int32_t model = Model5; model <= Model7; ++model) {
        OrganicWater w = CarbonateWater(model);
        ASSERT_TRUE(w.ok);
        const CalculationOutcome out = w.Run();
        ASSERT_TRUE(out.solve.converged) << out.solve.message;
        const auto& fr = w.state.organic.fractions;
        EXPECT_DOUBLE_EQ(w.state.bulkFraction, 1 - fr[0].volume - fr[1].volume);
        EXPECT_LT(fr[0].volume + fr[1].volume, fr[0].parameters.maxDiffuseVolume);
        for (int32_t f = 0; f < 2; ++f) {
            const double r = w.state.organic.carry[f].enrichment;
            EXPECT_GT(r, 1);
            double counterIons = 0;
            for (const Species& sp : w.chem.species) {
                if (!IsDissolvedKind(sp.kind)) continue;
                if (sp.charge > 0 && sp.kind != SpeciesKind::FreeHydroxide) counterIons += sp.concentration * std::pow(r, sp.charge);
                if (sp.charge < 0) { EXPECT_EQ(sp.organicTerms[f], 0) << sp.name; }
                if (sp.charge == 0) { EXPECT_DOUBLE_EQ(sp.organicTerms[f], sp.concentration) << sp.name; }
                if (sp.charge > 0) {
                    EXPECT_NEAR(sp.organicTerms[f], sp.concentration * std::pow(r, sp.charge),
                                1e-12 * sp.organicTerms[f]);
                }
            }
            const double q = w.state.organic.carry[f].charge * fr[f].concentration / fr[f].volume;
            EXPECT_NEAR(-counterIons, q, 2e-6 * std::fabs(q)) << "model " << model << " fraction " << f;
        }
    }
}

// Every component's given total is recovered from the species when the
// diffuse-layer amounts are weighed by the coefficient, H+ included (H2CO3
// holds two protons, also inside the layers). Without the coefficient the
// proton balance misses the layers' second proton of every H2CO3.
TEST(OrganicDiffuseLayer, BalancesCloseWithCoefficientWeighedLayers) {
    OrganicWater w = CarbonateWater(Model7);
    ASSERT_TRUE(w.ok);
    const CalculationOutcome out = w.Run();
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    for (const char* name : {"Na", "Cl", "Ca", "CO3", "Cu(II)"}) {
        const int32_t j = w.SystemIndexOf(name);
        ASSERT_GE(j, 0) << name;
        const double given = w.chem.systemComponents[j].balanceTotal;
        EXPECT_NEAR(AmountFromSpecies(w, j, true), given, 2e-6 * given) << name;
    }
    const double protons = w.chem.systemComponents[0].balanceTotal;
    EXPECT_NEAR(AmountFromSpecies(w, 0, true), protons, 2e-6 * protons);
    const double missed = AmountFromSpecies(w, 0, true) - AmountFromSpecies(w, 0, false);
    EXPECT_GT(missed, 1e-4 * protons);  // far beyond the criterion

    // charge: what the given totals carry is found in the bulk, the layers
    // and the organic matter together
    double given = 0;
    for (const SystemComponent& sc : w.chem.systemComponents) given += sc.charge * sc.givenValue;
    given -= w.input.components[w.chem.db().hydroxideIndex].inputValue;
    double found = 0;
    const auto& fr = w.state.organic.fractions;
    for (const Species& sp : w.chem.species) {
        if (IsOrganicKind(sp.kind))
            found += sp.charge * sp.concentration;
        else if (IsDissolvedKind(sp.kind))
            found += sp.charge * (sp.concentration * w.state.bulkFraction + fr[0].volume * sp.organicTerms[0] +
                                  fr[1].volume * sp.organicTerms[1]);
    }
    EXPECT_NEAR(found, given, 1e-5 * std::fabs(given));
}

// Z and R are set once per program run (a new solver state) and carry over
// from one calculation to the next: the next solve starts its constants from
// the carried charge, and the same water solved again agrees with itself.
TEST(OrganicDiffuseLayer, ChargeAndEnrichmentCarryOver) {
    OrganicWater w = CarbonateWater(Model6);
    ASSERT_TRUE(w.ok);
    EXPECT_EQ(w.state.organic.carry[0].charge, -0.0001);
    EXPECT_EQ(w.state.organic.carry[1].enrichment, 10.0);
    const CalculationOutcome first = w.Run();
    ASSERT_TRUE(first.solve.converged) << first.solve.message;
    const OrganicCarryOver fulvic = w.state.organic.carry[0];
    const OrganicCarryOver humic = w.state.organic.carry[1];
    EXPECT_LT(fulvic.charge, -1e-3);
    EXPECT_NE(humic.enrichment, 10.0);

    CalcContext ctx{w.chem, w.input, w.state};
    ASSERT_TRUE(AssembleSystem(ctx));
    InitialiseSolve(ctx);
    EXPECT_EQ(w.state.organic.carry[0].charge, fulvic.charge);
    const OrganicSite& site = w.state.organic.fractions[0].sites[0];
    const Species& protonated = w.chem.species[site.protonatedSpecies];
    const double w0 = w.state.organic.fractions[0].parameters.electrostaticP * std::log10(w.state.ionicStrength);
    EXPECT_NEAR(protonated.workingLogK,
                protonated.logK - 2 * w0 * fulvic.charge / std::log(10.0) + w.state.logGamma1, 1e-12);

    const CalculationOutcome second = w.Run();
    ASSERT_TRUE(second.solve.converged) << second.solve.message;
    EXPECT_NEAR(w.state.organic.carry[0].charge, fulvic.charge, 1e-5 * std::fabs(fulvic.charge));
    EXPECT_NEAR(w.state.organic.carry[1].enrichment, humic.enrichment, 1e-4 * humic.enrichment);
}

// The charge moves by at most 0.01 per iteration at the start of a solve.
TEST(OrganicDiffuseLayer, ChargeStepIsLimited) {
    OrganicWater w = CarbonateWater(Model7);
    ASSERT_TRUE(w.ok);
    w.state.organic.carry[0].charge = 0.05;  // far off, and of the wrong sign
    w.state.maxIterations = 1;
    w.Run();
    EXPECT_NEAR(w.state.organic.carry[0].charge, 0.04, 1e-9);
    w.state.organic.carry[0].charge = 0.05;
    w.state.maxIterations = 2;
    w.Run();
    EXPECT_NEAR(w.state.organic.carry[0].charge, 0.03, 1e-9);  // same direction: no shrink
}

}  // namespace tormel::test
