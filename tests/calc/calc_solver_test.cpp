// The solver on the synthetic database: every solution is checked against
// the mass balances, the mass-action laws written with Davies activities, the
// ionic strength and, with a proton balance, electroneutrality.
#include <gtest/gtest.h>

#include <cmath>

#include "calc/assemble_system.h"
#include "calc/run_calculation.h"
#include "calc/solution_checks.h"
#include "calc/solver.h"

namespace tormel::test {

namespace {

constexpr double kTight = 1e-5;  // relative, for a criterion of 1.000001
// log units: the last iteration moves I (and so the activity coefficients)
// by less than the criterion after the species were formed
constexpr double kLaw = 1e-7;

CalculationOutcome Calculate(CalcFixture& f) {
    CalcContext ctx = f.Context();
    return RunCalculation(ctx, false);
}

void ExpectRelative(double actual, double expected, double tolerance, const char* what) {
    EXPECT_NEAR(actual, expected, tolerance * std::fabs(expected)) << what;
}

}  // namespace

TEST(CalcSolver, CalciumChlorideCarbonateAtFixedPh) {
    CalcFixture f;
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.SetTotals({{kNa, 1e-3}, {kCa, 1e-3}, {kCl, 2e-3}, {kCO3, 1e-3}});
    const CalculationOutcome out = Calculate(f);
    ASSERT_TRUE(out.assembled);
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    const double I = f.state.ionicStrength;
    ExpectRelative(IonicStrengthOf(f), I, kTight, "ionic strength");
    // pH as given
    EXPECT_NEAR(LogAct(f, "free H"), -7.0, kLaw);
    // mass balances, summed here from the species
    ExpectRelative(Conc(f, "free Ca") + Conc(f, "CaCl+") + Conc(f, "CaCO3") + Conc(f, "CaOH+"), 1e-3, kTight, "Ca");
    ExpectRelative(Conc(f, "free Cl") + Conc(f, "CaCl+") + Conc(f, "NaCl"), 2e-3, kTight, "Cl");
    ExpectRelative(Conc(f, "free CO3") + Conc(f, "HCO3-") + Conc(f, "H2CO3") + Conc(f, "CaCO3"), 1e-3, kTight, "CO3");
    ExpectRelative(Conc(f, "free Na") + Conc(f, "NaCl"), 1e-3, kTight, "Na");
    // mass-action laws with activities
    const double h = LogAct(f, "free H");
    EXPECT_NEAR(LogAct(f, "free OH") + h, -14.0, kLaw);
    EXPECT_NEAR(LogAct(f, "HCO3-") - h - LogAct(f, "free CO3"), 10.33, kLaw);
    EXPECT_NEAR(LogAct(f, "H2CO3") - 2 * h - LogAct(f, "free CO3"), 16.681, kLaw);
    EXPECT_NEAR(LogAct(f, "CaCO3") - LogAct(f, "free Ca") - LogAct(f, "free CO3"), 3.22, kLaw);
    EXPECT_NEAR(LogAct(f, "CaOH+") + h - LogAct(f, "free Ca"), -12.78, kLaw);
    EXPECT_NEAR(LogAct(f, "CaCl+") - LogAct(f, "free Ca") - LogAct(f, "free Cl"), 0.4, kLaw);
    // the post-processing fills the sums of the unbalanced H+
    const Species& oh = f.chem.species[f.chem.freeHydroxideSpecies];
    EXPECT_NEAR(f.chem.systemComponents[0].sumDissolved,
                Conc(f, "free H") - oh.concentration + Conc(f, "HCO3-") + 2 * Conc(f, "H2CO3") - Conc(f, "CaOH+"),
                1e-15);
    EXPECT_TRUE(f.state.resultExists);
}

TEST(CalcSolver, SodiumBicarbonateByProtonBalance) {
    CalcFixture f;
    f.SetTotals({{kH, 1e-3}, {kNa, 1e-3}, {kCO3, 1e-3}});
    const CalculationOutcome out = Calculate(f);
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    // electroneutral: the given totals carry no net charge
    double cations = 0, anions = 0;
    SpeciesChargeSums(f.chem, cations, anions);
    ExpectRelative(cations, anions, kTight, "charge balance");
    // proton balance
    const double protons =
        Conc(f, "free H") - Conc(f, "free OH") + Conc(f, "HCO3-") + 2 * Conc(f, "H2CO3");
    ExpectRelative(protons, 1e-3, kTight, "proton total");
    const double h = LogAct(f, "free H");
    EXPECT_NEAR(LogAct(f, "HCO3-") - h - LogAct(f, "free CO3"), 10.33, kLaw);
    EXPECT_NEAR(LogAct(f, "free OH") + h, -14.0, kLaw);
    // a bicarbonate solution: pH near (pK1 + pK2)/2 = 8.3
    EXPECT_NEAR(-h, 8.27, 0.05);
}

TEST(CalcSolver, NetProtonTotalAtHydroxideReferenceUsesDonorAcceptorRatio) {
    CalcFixture f;
    f.Set(kH, InputType::TotalConc, 0);  // Na2CO3: no protons beyond the reference forms
    f.SetTotals({{kNa, 2e-3}, {kCO3, 1e-3}});
    const CalculationOutcome out = Calculate(f);
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    const double donors = Conc(f, "free H") + Conc(f, "HCO3-") + 2 * Conc(f, "H2CO3");
    ExpectRelative(donors, Conc(f, "free OH"), 1e-4, "donors = acceptors");
    EXPECT_GT(-LogAct(f, "free H"), 10.5);  // alkaline
}

TEST(CalcSolver, AcidStrongEnoughToForbidNewtonStillConverges) {
    // free H+ above 1e-4 keeps the Newton step off in proton-balance mode
    CalcFixture f;
    f.SetTotals({{kH, 0.02}, {kCl, 0.02}});
    const CalculationOutcome out = Calculate(f);
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    ExpectRelative(Conc(f, "free H") - Conc(f, "free OH"), 0.02, kTight, "proton total");
}

TEST(CalcSolver, NoMassBalanceComponents) {
    CalcFixture f;
    f.Set(kH, InputType::FreeAct, 1e-6);
    f.Set(kNa, InputType::FreeConc, 0.01);
    f.Set(kCl, InputType::FreeConc, 0.01);
    const CalculationOutcome out = Calculate(f);
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    EXPECT_EQ(f.state.newton.n, 0);
    EXPECT_DOUBLE_EQ(Conc(f, "free Na"), 0.01);
    EXPECT_NEAR(LogAct(f, "NaCl") - LogAct(f, "free Na") - LogAct(f, "free Cl"), 0.3, kLaw);
    // the ionic strength is the only iterated quantity
    ExpectRelative(IonicStrengthOf(f), f.state.ionicStrength, kTight, "ionic strength");
    // the balance sums of fixed components are filled after the solve
    ExpectRelative(f.chem.systemComponents[f.chem.placement[kNa].systemIndex].sumDissolved,
                   0.01 + Conc(f, "NaCl"), 1e-12, "Na sum");
}

TEST(CalcSolver, GasFixesTheDissolvedLigand) {
    CalcFixture f;
    f.Set(kH, InputType::FreeAct, 1e-8);
    f.SetTotals({{kCa, 5e-4}, {kCl, 1e-3}});
    f.Set(kCO2Gas, InputType::GasPres, std::pow(10.0, -3.5));
    const CalculationOutcome out = Calculate(f);
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    // log P = log a(CO3) + 2 log a(H) + 18.147
    EXPECT_NEAR(LogAct(f, "free CO3") + 2 * LogAct(f, "free H") + 18.147, -3.5, kLaw);
    EXPECT_NEAR(LogAct(f, "CaCO3") - LogAct(f, "free Ca") - LogAct(f, "free CO3"), 3.22, kLaw);
    // dissolved carbonate is the gas's dissolved total
    const SystemComponent& gas = f.chem.systemComponents[f.chem.placement[kCO2Gas].systemIndex];
    ExpectRelative(gas.sumDissolved,
                   Conc(f, "free CO3") + Conc(f, "HCO3-") + Conc(f, "H2CO3") + Conc(f, "CaCO3"), 1e-12, "DIC");
}

TEST(CalcSolver, RedoxSplitFollowsThePe) {
    CalcFixture f;
    f.input.redox = true;
    f.Set(kH, InputType::FreeAct, std::pow(10.0, -2.5));
    f.SetTotals({{kFe3, 2e-4}, {kCl, 1e-3}});
    f.Set(kElectron, InputType::FreeAct, std::pow(10.0, -12.8));
    const CalculationOutcome out = Calculate(f);
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    // Fe+3 = Fe+2 - e, log K -13.02: log a3 = -13.02 + log a2 + pe
    EXPECT_NEAR(LogAct(f, "free Fe(III)") - LogAct(f, "free Fe(II)"), -13.02 + 12.8, kLaw);
    ExpectRelative(Conc(f, "free Fe(II)") + Conc(f, "free Fe(III)") + Conc(f, "FeCl+2") + Conc(f, "FeOH+"), 2e-4,
                   kTight, "Fe");
    EXPECT_NEAR(LogAct(f, "FeCl+2") - LogAct(f, "free Fe(III)") - LogAct(f, "free Cl"), 1.48, kLaw);
}

TEST(CalcSolver, RedoxGroupFixedByFreeMemberActivity) {
    CalcFixture f;
    f.input.redox = true;
    f.Set(kH, InputType::FreeAct, 1e-3);
    f.Set(kFe3, InputType::FreeAct, 1e-6);
    f.Set(kCl, InputType::TotalConc, 1e-3);
    f.Set(kElectron, InputType::FreeAct, std::pow(10.0, -13.5));
    const CalculationOutcome out = Calculate(f);
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    EXPECT_NEAR(LogAct(f, "free Fe(III)"), -6, kLaw);
    EXPECT_NEAR(LogAct(f, "free Fe(III)") - LogAct(f, "free Fe(II)"), -13.02 + 13.5, kLaw);
}

TEST(CalcSolver, AdsorptionBalancesSitesAndMetals) {
    CalcFixture f;
    f.input.adsorption = true;
    f.Set(kH, InputType::FreeAct, std::pow(10.0, -7.5));
    f.SetTotals({{kCa, 1e-4}, {kCl, 2e-4}, {kSite, 2e-4}});
    const CalculationOutcome out = Calculate(f);
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    ExpectRelative(Conc(f, "free Hfo_wOH") + Conc(f, "Hfo_wOH2+") + Conc(f, "Hfo_wOCa+"), 2e-4, kTight, "sites");
    const SystemComponent& ca = f.chem.systemComponents[f.chem.placement[kCa].systemIndex];
    ExpectRelative(ca.sumAdsorbed, Conc(f, "Hfo_wOCa+"), 1e-12, "adsorbed Ca");
    ExpectRelative(ca.sumDissolved + ca.sumAdsorbed, 1e-4, kTight, "Ca");
    // adsorbed species have no activity coefficient; dissolved terms keep theirs
    const double h = LogAct(f, "free H");
    EXPECT_NEAR(LogAct(f, "Hfo_wOH2+") - LogAct(f, "free Hfo_wOH") - h, 7.29, kLaw);
    EXPECT_NEAR(LogAct(f, "Hfo_wOCa+") + h - LogAct(f, "free Hfo_wOH") - LogAct(f, "free Ca"), -5.85, kLaw);
    // adsorbed species stay out of the ionic strength
    ExpectRelative(IonicStrengthOf(f), f.state.ionicStrength, kTight, "I");
}

TEST(CalcSolver, CriterionIsTightenedInStages) {
    // the same water at three criteria: each solution meets its criterion,
    // and a criterion looser than 1.0001 stops at the first stage
    for (double criterion : {1.001, 1.0001, 1.00001, 1.000001, 1 / 1.000001}) {
        CalcFixture f;
        f.input.convergenceCriterion = criterion;
        f.SetTotals({{kH, 1e-3}, {kNa, 1e-3}, {kCa, 5e-4}, {kCl, 1e-3}, {kCO3, 1e-3}});
        const CalculationOutcome out = Calculate(f);
        ASSERT_TRUE(out.solve.converged) << criterion;
        // the stage the solve ends at: the input criterion, or 1.0001 when that is looser
        const double normalised = criterion >= 1 ? criterion : 1 / criterion;
        const double stage = std::min(normalised, 1.0001);
        EXPECT_LE(out.solve.worstRatio, stage) << criterion;
        EXPECT_NEAR(f.state.workingCriterion, stage, 1e-12) << criterion;
        const double ca = Conc(f, "free Ca") + Conc(f, "CaCl+") + Conc(f, "CaCO3") + Conc(f, "CaOH+");
        EXPECT_NEAR(ca, 5e-4, 5e-4 * (stage - 1) * 1.01) << criterion;
    }
}

TEST(CalcSolver, IonicStrengthStartValues) {
    CalcFixture f;
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.SetTotals({{kCa, 0.01}, {kCl, 0.02}});
    CalcContext ctx = f.Context();
    ASSERT_TRUE(AssembleSystem(ctx));
    // first calculation of the run: half the sum of total z^2 (H+ starts at 1e-7)
    InitialiseSolve(ctx);
    EXPECT_NEAR(f.state.ionicStrength, 0.5 * (0.01 * 4 + 0.02) + 5e-7, 1e-8);
    // a later calculation keeps the previous I, capped at 0.5
    f.state.ionicStrength = 2.0;
    InitialiseSolve(ctx);
    EXPECT_DOUBLE_EQ(f.state.ionicStrength, 0.5);
    // a fixed ionic strength never moves
    f.input.ionicStrengthFixed = true;
    f.input.fixedIonicStrength = 0.1;
    const CalculationOutcome out = Calculate(f);
    ASSERT_TRUE(out.solve.converged);
    EXPECT_DOUBLE_EQ(f.state.ionicStrength, 0.1);
    ExpectRelative(f.state.ionicStrengthFromComposition, IonicStrengthOf(f), 1e-12, "computed I");
}

TEST(CalcSolver, CancelStopsWithoutResults) {
    CalcFixture f;
    f.SetTotals({{kH, 1e-3}, {kNa, 1e-3}, {kCO3, 1e-3}});
    UiServices ui;
    std::vector<SolverProgress> reports;
    ui.progress = [&](const SolverProgress& p) {
        reports.push_back(p);
        return p.iteration == 3;
    };
    bool built = false;
    CalcContext ctx = f.Context();
    ctx.ui = &ui;
    ctx.buildResults = [&](CalcContext&) { built = true; };
    const CalculationOutcome out = RunCalculation(ctx, true);
    EXPECT_TRUE(out.solve.cancelled);
    EXPECT_FALSE(out.solve.converged);
    EXPECT_EQ(out.solve.iterations, 3);
    EXPECT_FALSE(built);
    EXPECT_FALSE(f.state.resultExists);
    ASSERT_EQ(reports.size(), 3u);
    EXPECT_EQ(reports[0].iteration, 1);
    EXPECT_FALSE(reports[0].worstComponent.empty());
    // without progress nothing can cancel, and the results are built
    const CalculationOutcome full = RunCalculation(ctx, false);
    EXPECT_TRUE(full.solve.converged);
    EXPECT_TRUE(built);
}

TEST(CalcSolver, IterationBoundEndsWithNamedWorstComponent) {
    CalcFixture f;
    f.state.maxIterations = 2;
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.SetTotals({{kCa, 1e-3}, {kCl, 2e-3}});
    bool built = false;
    CalcContext ctx = f.Context();
    ctx.buildResults = [&](CalcContext&) { built = true; };
    const CalculationOutcome out = RunCalculation(ctx, false);
    EXPECT_FALSE(out.solve.converged);
    EXPECT_FALSE(out.solve.cancelled);
    EXPECT_EQ(out.solve.iterations, 2);
    EXPECT_GT(out.solve.worstRatio, 1.0);
    EXPECT_FALSE(out.solve.worstComponent.empty());
    EXPECT_NE(out.solve.message.find(out.solve.worstComponent), std::string::npos);
    EXPECT_FALSE(built);
}

}  // namespace tormel::test
