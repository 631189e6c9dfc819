// The neutral-solution calculation on the synthetic database: a water whose
// given totals carry a net charge is made neutral by adjusting Na+ or Cl-.
// The end state is checked by charge sums formed here from the species.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "calc/compare.h"
#include "calc/neutralise.h"
#include "calc/solution_checks.h"
#include "calc/solver_options.h"
#include "support/recording_ui.h"

namespace tormel::test {

namespace {

constexpr double kCriterion = 1.000001;

std::string Text(std::string_view /*section*/, std::string_view key) {
    if (key == "NeutrCaption1") return "Neutral solution by adjusting";
    if (key == "NeutrCaption2") return "or";
    if (key == "NeutrLbl1") return "Pass";
    if (key == "NeutrLbl2") return "Added:";
    return std::string(key);
}

struct NeutralFixture : CalcFixture {
    RecordingUi ui;
    std::vector<NeutraliseWindowText> window;
    bool windowOpen = false;
    int builds = 0;
    int solves = 0;
    bool cancelAtSecondSolve = false;

    NeutralFixture() {
        input.convergenceCriterion = kCriterion;
        input.forceNeutral = true;
        input.neutraliseCation = kNa;
        input.neutraliseAnion = kCl;
        ui.services.showNeutralise = [this](const NeutraliseWindowText& text) {
            windowOpen = true;
            window.push_back(text);
        };
        ui.services.closeNeutralise = [this] { windowOpen = false; };
        ui.services.progress = [this](const SolverProgress& p) {
            if (p.iteration == 1) ++solves;
            return cancelAtSecondSolve && solves == 2;
        };
    }
    NeutraliseOutcome Run() {
        CalcContext ctx{chem, input, state, &ui.services};
        ctx.text = Text;
        ctx.buildResults = [this](CalcContext&) { ++builds; };
        return Neutralise(ctx);
    }
    const SystemComponent& Unknown(int32_t component) const {
        return chem.systemComponents[chem.placement[component].systemIndex];
    }
};

// Positive and negative charge carried by the dissolved species.
void ChargeSums(const CalcFixture& f, double& positive, double& negative) {
    positive = negative = 0;
    for (const Species& sp : f.chem.species) {
        if (sp.kind == SpeciesKind::SolidSpecies || sp.kind == SpeciesKind::AdsorbedSpecies) continue;
        (sp.charge > 0 ? positive : negative) += std::abs(sp.charge) * sp.concentration;
    }
}

void ExpectNeutral(const NeutralFixture& f) {
    double positive = 0, negative = 0;
    ChargeSums(f, positive, negative);
    EXPECT_TRUE(RelativelyEqual(positive, negative, kCriterion)) << positive << " vs " << negative;
}

}  // namespace

TEST(Neutralise, ExcessCationChargeRaisesTheAnionAtFixedPh) {
    NeutralFixture f;
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.SetTotals({{kNa, 2e-3}, {kCa, 1e-3}, {kCl, 1e-3}});
    const NeutraliseOutcome out = f.Run();
    ASSERT_TRUE(out.neutral) << out.message;
    EXPECT_GT(out.passes, 0);
    ExpectNeutral(f);
    // the chloride total was raised in the assembled layer: about the missing 3 mM of charge
    const double chloride = f.Unknown(kCl).givenValue;
    EXPECT_NEAR(chloride, 4e-3, 1e-4);
    EXPECT_NEAR(Conc(f, "free Cl") + Conc(f, "CaCl+") + Conc(f, "NaCl"), chloride, 1e-5 * chloride);
    // with a fixed pH there is no first estimate: the input keeps its value
    EXPECT_EQ(f.input.components[kCl].inputValue, 1e-3);
    EXPECT_EQ(f.Unknown(kNa).givenValue, 2e-3);
    // the window: caption with both ions once assembled, the pass and the amount added so far
    ASSERT_GE(f.window.size(), 3u);
    EXPECT_EQ(f.window[0].caption, "Neutral solution by adjusting (?)");
    EXPECT_EQ(f.window[1].caption, "Neutral solution by adjusting Na or Cl");
    EXPECT_EQ(f.window.back().line1, "Pass " + std::to_string(out.passes + 1));
    EXPECT_EQ(f.window.back().line2.rfind("Added: ", 0), 0u) << f.window.back().line2;
    EXPECT_FALSE(f.windowOpen);
    EXPECT_EQ(f.builds, 1);
    EXPECT_TRUE(f.state.resultExists);
}

TEST(Neutralise, ExcessAnionChargeRaisesTheCation) {
    NeutralFixture f;
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.SetTotals({{kNa, 1e-3}, {kCl, 5e-3}});
    const NeutraliseOutcome out = f.Run();
    ASSERT_TRUE(out.neutral) << out.message;
    ExpectNeutral(f);
    EXPECT_NEAR(f.Unknown(kNa).givenValue, 5e-3, 1e-4);
    EXPECT_EQ(f.Unknown(kCl).givenValue, 5e-3);
}

TEST(Neutralise, AlreadyNeutralSolvesOnce) {
    NeutralFixture f;
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.SetTotals({{kNa, 1e-3}, {kCl, 1e-3}});
    const NeutraliseOutcome out = f.Run();
    ASSERT_TRUE(out.neutral) << out.message;
    EXPECT_EQ(out.passes, 0);
    EXPECT_EQ(f.solves, 1);
    EXPECT_EQ(f.Unknown(kCl).givenValue, 1e-3);
    EXPECT_EQ(f.window.back().line1, "Pass 1");
    EXPECT_EQ(f.window.back().line2, "");
}

TEST(Neutralise, AnionNotInTheInputJoinsTheSystem) {
    NeutralFixture f;
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.Set(kNa, InputType::TotalConc, 2e-3);
    const NeutraliseOutcome out = f.Run();
    ASSERT_TRUE(out.neutral) << out.message;
    ASSERT_GT(f.chem.placement[kCl].systemIndex, 0);
    ExpectNeutral(f);
    // the first pass gave chloride its input value; later passes adjust the assembled total
    EXPECT_GT(f.input.components[kCl].inputValue, 1.5e-3);
    EXPECT_NEAR(f.Unknown(kCl).givenValue, 2e-3, 1e-4);
}

TEST(Neutralise, ProtonBalanceTakesTheFirstEstimateFromTheTotals) {
    // Na2CO3 + NaHCO3 with 1 mM too much Na: the totals' excess goes to Cl
    NeutralFixture f;
    f.SetTotals({{kH, 1e-3}, {kNa, 4e-3}, {kCO3, 2e-3}, {kCl, 1e-4}});
    const NeutraliseOutcome out = f.Run();
    ASSERT_TRUE(out.neutral) << out.message;
    ExpectNeutral(f);
    // positive 1e-3 (H) + 4e-3 (Na), negative 4e-3 (CO3) + 1e-4: the estimate adds 0.9 mM to the input
    EXPECT_NEAR(f.input.components[kCl].inputValue, 1e-3, 1e-15);
    EXPECT_NEAR(f.Unknown(kCl).givenValue, 1e-3, 1e-6);

    // an anion not yet in the input gets the estimate and joins: the first solve is neutral
    NeutralFixture g;
    g.SetTotals({{kH, 1e-3}, {kNa, 4e-3}, {kCO3, 2e-3}});
    const NeutraliseOutcome joined = g.Run();
    ASSERT_TRUE(joined.neutral) << joined.message;
    EXPECT_EQ(joined.passes, 0);
    EXPECT_NEAR(g.input.components[kCl].inputValue, 1e-3, 1e-15);
    ExpectNeutral(g);
}

TEST(Neutralise, CancelEndsWithoutResults) {
    NeutralFixture f;
    f.cancelAtSecondSolve = true;
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.SetTotals({{kNa, 2e-3}, {kCl, 1e-3}});
    const NeutraliseOutcome out = f.Run();
    EXPECT_TRUE(out.cancelled);
    EXPECT_FALSE(out.neutral);
    EXPECT_EQ(f.builds, 0);
    EXPECT_FALSE(f.state.resultExists);
    EXPECT_FALSE(f.windowOpen);
    // the assembled layer keeps the total of the cancelled pass
    EXPECT_GT(f.Unknown(kCl).givenValue, 1e-3);
}

TEST(Neutralise, PassesAreBoundedWithAClearMessage) {
    // Carbonate at pH 4 is nearly all H2CO3: adding it hardly adds charge, and
    // the damped passes cannot close the gap within the bound.
    NeutralFixture f;
    f.input.neutraliseAnion = kCO3;
    f.Set(kH, InputType::FreeAct, 1e-4);
    f.SetTotals({{kNa, 1e-3}, {kCO3, 1e-4}});
    const NeutraliseOutcome out = f.Run();
    EXPECT_FALSE(out.neutral);
    EXPECT_EQ(out.passes, kSolverOptions.maxNeutralisePasses);
    EXPECT_EQ(out.message.rfind("not neutral after 200 passes, residual charge ", 0), 0u) << out.message;
    EXPECT_EQ(out.message.substr(out.message.size() - 5), " eq/L");
    EXPECT_EQ(f.builds, 0);
}

}  // namespace tormel::test
