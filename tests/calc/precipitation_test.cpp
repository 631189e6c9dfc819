// Precipitation on the synthetic database with solids added for each
// scenario. Every solved system is checked against what must hold whatever
// path the iteration took: present solids exactly saturated and absent ones
// not oversaturated (saturation indices from Davies activities of the
// species and the database constant), and every mass balance closed over the
// species written out by name, solids included.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string>

#include "calc/assemble_system.h"
#include "calc/precipitation_invariants.h"
#include "calc/run_calculation.h"
#include "calc/solution_checks.h"
#include "support/database_builder.h"
#include "support/recording_ui.h"
#include "support/edit_database.h"

namespace tormel::test {

namespace {

constexpr double kCriterion = 1.000001;
constexpr double kBalance = 3e-6;  // relative, for the criterion above
constexpr double kSaturated = 1e-5;  // log units: a present solid's saturation index

// Appends a solid of the given formation constant (log K of the solid from
// its components at 25 °C), chosen for each scenario.
void AddSolidEquilibrium(ChemicalSystem& chem, const char* name, double logK,
                         std::initializer_list<ReactionTerm> terms) {
    Database& db = test::EditDatabase(chem);
    Equilibrium eq = MakeEquilibrium(EquilibriumType::Solid, name, 0, logK);
    eq.deltaZ2 = ChargeSquareSum(db, terms);
    const int32_t index = AppendEquilibrium(db, eq, terms);
    db.maxComponentsPerEquilibrium = std::max(db.maxComponentsPerEquilibrium, db.equilibria[index].componentCount);
    TypeRange& range = db.equilibriumRange[EquilibriumType::Solid];
    if (range.empty()) range.first = index;
    range.last = index;
}

std::string Text(std::string_view section, std::string_view key) {
    if (key == "NewSolid") return "Iteration";
    if (key == "Sentence1") return "These solids cannot form:";
    if (key == "Sentence2") return "- give a total.";
    if (key == "AddInfoSolid") return "The activity of a solid is 1.";
    return std::string(section) + "/" + std::string(key);
}

struct SolidsFixture : CalcFixture {
    RecordingUi ui;
    std::vector<SolverProgress> reports;

    SolidsFixture() {
        input.precipitation = true;
        input.convergenceCriterion = kCriterion;
        ui.services.progress = [this](const SolverProgress& p) {
            reports.push_back(p);
            return false;
        };
    }
    CalcContext Ctx() {
        CalcContext ctx{chem, input, state, &ui.services};
        ctx.text = Text;
        return ctx;
    }
    CalculationOutcome Run() {
        CalcContext ctx = Ctx();
        return RunCalculation(ctx, true);
    }
    double Amount(const std::string& solid) const {
        for (const Species& sp : chem.species)
            if (sp.kind == SpeciesKind::SolidSpecies && sp.name == solid) return sp.concentration;
        ADD_FAILURE() << "solid " << solid << " not assembled";
        return 0;
    }
    double SaturationIndex(const std::string& solid) const {
        const int32_t e = chem.db().FindEquilibrium(solid);
        double si = NAN;
        EXPECT_TRUE(e >= 0 && DatabaseSaturationIndex(chem, state, input, e, si)) << solid;
        return si;
    }
    // the iteration in which a solid entered, from the progress list; -1 never
    int32_t EnteredIn(const std::string& solid) const {
        for (const std::string& line : state.solidProgressLines) {
            const size_t colon = line.find(": ");
            if (colon != std::string::npos && line.substr(colon + 2) == solid)
                return std::stoi(line.substr(line.find(' ') + 1));
        }
        return -1;
    }
    // every solid of the system: present ones saturated, absent ones not oversaturated
    void ExpectSaturationEverywhere() const {
        const PrecipitationInvariants inv = CheckPrecipitation(chem, state, input);
        EXPECT_TRUE(inv.complete);
        EXPECT_LE(inv.worstPresentSi, kSaturated) << inv.worstPresentName;
        EXPECT_LE(inv.worstAbsentSi, SaturationSlack(kCriterion)) << inv.worstAbsentName;
        EXPECT_LE(inv.worstBalance, kBalance) << inv.worstBalanceName;
    }
};

void ExpectRelative(double actual, double expected, const char* what) {
    EXPECT_NEAR(actual, expected, kBalance * std::fabs(expected)) << what;
}

// Calcium total over the species of the synthetic database and the given solids.
double CalciumDissolved(const CalcFixture& f) {
    return Conc(f, "free Ca") + Conc(f, "CaCl+") + Conc(f, "CaCO3") + Conc(f, "CaOH+");
}
double CarbonateDissolved(const CalcFixture& f) {
    return Conc(f, "free CO3") + Conc(f, "HCO3-") + Conc(f, "H2CO3") + Conc(f, "CaCO3");
}

}  // namespace

TEST(PrecipitationAssembly, SolidsAreFormedLikeComplexesAndCounted) {
    SolidsFixture f;
    AddSolidEquilibrium(f.chem, "Calcite", 8.48, {{kCa, 1}, {kCO3, 1}});
    AddSolidEquilibrium(f.chem, "Portlandite", -22.8, {{kCa, 1}, {kH, -2}});
    AddSolidEquilibrium(f.chem, "Siderite", 10.24, {{kFe2, 1}, {kCO3, 1}});  // Fe(II) not in the input
    f.SetTotals({{kH, 1e-3}, {kCa, 1e-3}, {kCO3, 1e-3}});
    CalcContext ctx = f.Ctx();
    ASSERT_TRUE(AssembleSystem(ctx));
    const TypeRange range = f.chem.solidSpeciesRange;
    ASSERT_FALSE(range.empty());
    ASSERT_EQ(range.last - range.first, 1);  // siderite needs Fe(II)
    const Species& calcite = f.chem.species[range.first];
    EXPECT_EQ(calcite.kind, SpeciesKind::SolidSpecies);
    EXPECT_EQ(calcite.name, "Calcite");
    EXPECT_EQ(calcite.addInfo.value_or(""), "The activity of a solid is 1.");
    // its reaction is shown without phase labels
    const int32_t width = f.chem.db().maxComponentsPerEquilibrium;
    for (int32_t k = 0; k < width; ++k) {
        EXPECT_TRUE(f.chem.reactionReactants[Position(k, calcite.reactionRow, width)].phase.empty());
        EXPECT_TRUE(f.chem.reactionProducts[Position(k, calcite.reactionRow, width)].phase.empty());
    }
    // mass-balance units: Ca + CO3; Ca + |-2| H+ in proton-balance mode
    EXPECT_EQ(f.state.solidTotalCounts, (std::vector<int32_t>{2, 3}));

    SolidsFixture g;
    AddSolidEquilibrium(g.chem, "Portlandite", -22.8, {{kCa, 1}, {kH, -2}});
    g.Set(kH, InputType::FreeAct, 1e-12);
    g.Set(kCa, InputType::TotalConc, 1e-3);
    CalcContext gctx = g.Ctx();
    ASSERT_TRUE(AssembleSystem(gctx));
    EXPECT_EQ(g.state.solidTotalCounts, std::vector<int32_t>{1});  // a fixed pH balances nothing
}

TEST(PrecipitationAssembly, SolidThatNoBalanceLimitsRefusesTheCalculation) {
    SolidsFixture f;
    AddSolidEquilibrium(f.chem, "Calcite", 8.48, {{kCa, 1}, {kCO3, 1}});
    AddSolidEquilibrium(f.chem, "Portlandite", -22.8, {{kCa, 1}, {kH, -2}});
    AddSolidEquilibrium(f.chem, "Halite", -1.6, {{kNa, 1}, {kCl, 1}});
    f.Set(kH, InputType::FreeAct, 1e-8);
    f.Set(kCa, InputType::FreeAct, 1e-3);
    f.Set(kCO3, InputType::FreeConc, 1e-4);
    f.SetTotals({{kNa, 1e-3}, {kCl, 1e-3}});
    const CalculationOutcome out = f.Run();
    EXPECT_FALSE(out.assembled);
    EXPECT_EQ(out.solve.iterations, 0);
    EXPECT_FALSE(f.state.resultExists);
    EXPECT_EQ(out.refusal, "These solids cannot form: Calcite; Portlandite - give a total.");
    EXPECT_TRUE(f.ui.messages.empty()) << "the caller shows the warning";
}

TEST(Precipitation, CalciteFromAnOversaturatedWaterAtFixedPh) {
    SolidsFixture f;
    AddSolidEquilibrium(f.chem, "Calcite", 8.48, {{kCa, 1}, {kCO3, 1}});
    f.Set(kH, InputType::FreeAct, std::pow(10.0, -8.3));
    f.SetTotals({{kCa, 3e-3}, {kCO3, 4e-3}, {kNa, 2e-3}, {kCl, 6e-3}});
    const CalculationOutcome out = f.Run();
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    const double calcite = f.Amount("Calcite");
    EXPECT_GT(calcite, 1e-3);
    ExpectRelative(CalciumDissolved(f) + calcite, 3e-3, "Ca");
    ExpectRelative(CarbonateDissolved(f) + calcite, 4e-3, "CO3");
    f.ExpectSaturationEverywhere();
    // what the results show: the solid part of each component's balance
    const SystemComponent& ca = f.chem.systemComponents[f.chem.placement[kCa].systemIndex];
    ExpectRelative(ca.sumSolid, calcite, "Ca in solids");
    // the progress report: one line, the solids count, a full solids bar at the end
    ASSERT_EQ(f.state.solidProgressLines.size(), 1u);
    EXPECT_EQ(f.state.solidProgressLines[0], "Iteration " + std::to_string(f.EnteredIn("Calcite")) + ": Calcite");
    ASSERT_FALSE(f.reports.empty());
    EXPECT_EQ(f.reports.back().solidCount, 1);
    EXPECT_EQ(f.reports.back().solidLines, f.state.solidProgressLines);
    EXPECT_EQ(f.reports.back().solidBarPosition, 100);
}

TEST(Precipitation, UndersaturatedWaterFormsNothing) {
    SolidsFixture f;
    AddSolidEquilibrium(f.chem, "Calcite", 8.48, {{kCa, 1}, {kCO3, 1}});
    f.Set(kH, InputType::FreeAct, 1e-6);
    f.SetTotals({{kCa, 1e-4}, {kCO3, 1e-4}});
    ASSERT_TRUE(f.Run().solve.converged);
    EXPECT_EQ(f.Amount("Calcite"), 0.0);
    EXPECT_LT(f.SaturationIndex("Calcite"), 0);
    EXPECT_TRUE(f.state.solidProgressLines.empty());
}

TEST(Precipitation, HydroxideFromAProtonBalance) {
    // Ca(OH)2 solution beyond the solubility of portlandite: the solid holds
    // H+ (coefficient -2), the pH comes from the proton balance
    SolidsFixture f;
    AddSolidEquilibrium(f.chem, "Portlandite", -22.8, {{kCa, 1}, {kH, -2}});
    f.SetTotals({{kH, -0.1}, {kCa, 0.05}});
    const CalculationOutcome out = f.Run();
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    const double solid = f.Amount("Portlandite");
    EXPECT_GT(solid, 1e-3);
    ExpectRelative(Conc(f, "free Ca") + Conc(f, "CaOH+") + solid, 0.05, "Ca");
    // proton total beyond the reference forms: the solid counts -2 per unit
    const double protons = Conc(f, "free H") - Conc(f, "free OH") - Conc(f, "CaOH+") - 2 * solid;
    EXPECT_NEAR(protons, -0.1, kBalance * 0.1);
    // the given totals are neutral, and so is what stays dissolved
    double cations = 0, anions = 0;
    SpeciesChargeSums(f.chem, cations, anions);
    EXPECT_NEAR(cations, anions, kBalance * anions);
    f.ExpectSaturationEverywhere();
}

TEST(Precipitation, OneSolidPerComponentPerCheckButHydrogenIsSharedAtFixedPh) {
    SolidsFixture f;
    AddSolidEquilibrium(f.chem, "Calcite", 8.48, {{kCa, 1}, {kCO3, 1}});
    AddSolidEquilibrium(f.chem, "Portlandite", -22.8, {{kCa, 1}, {kH, -2}});
    AddSolidEquilibrium(f.chem, "Ferrihydrite", -3.19, {{kFe3, 1}, {kH, -3}});
    f.Set(kH, InputType::FreeAct, std::pow(10.0, -12.6));
    f.SetTotals({{kCa, 0.06}, {kCO3, 0.01}, {kFe3, 1e-5}, {kNa, 0.02}, {kCl, 0.1}});
    const CalculationOutcome out = f.Run();
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    const int32_t calcite = f.EnteredIn("Calcite");
    const int32_t portlandite = f.EnteredIn("Portlandite");
    const int32_t ferrihydrite = f.EnteredIn("Ferrihydrite");
    ASSERT_GT(calcite, 0);
    ASSERT_GT(portlandite, 0);
    ASSERT_GT(ferrihydrite, 0);
    // calcite and portlandite share Ca: never in the same check
    EXPECT_NE(calcite, portlandite);
    // ferrihydrite shares only the fixed H+ with them: it enters with the first of them
    EXPECT_EQ(ferrihydrite, std::min(calcite, portlandite));
    f.ExpectSaturationEverywhere();
    const double ca = CalciumDissolved(f) + f.Amount("Calcite") + f.Amount("Portlandite");
    ExpectRelative(ca, 0.06, "Ca");
}

// A solid that enters first (it is the more oversaturated at the start) and
// must then dissolve completely, because a second solid takes its cation
// down below its solubility: it leaves the equilibrium, reported absent
// (amount exactly 0) and undersaturated, with all it held back in solution.
TEST(Precipitation, SolidThatMustDissolveCompletelyLeaves) {
    SolidsFixture f;
    AddSolidEquilibrium(f.chem, "Calcite", 8.48, {{kCa, 1}, {kCO3, 1}});
    AddSolidEquilibrium(f.chem, "CaCl2(s)", 9.0, {{kCa, 1}, {kCl, 2}});
    f.Set(kH, InputType::FreeAct, 1e-10);
    f.SetTotals({{kCa, 0.01}, {kCO3, 0.005}, {kCl, 0.06}});
    const CalculationOutcome out = f.Run();
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    ASSERT_GT(f.EnteredIn("Calcite"), 0);
    EXPECT_GT(f.EnteredIn("CaCl2(s)"), f.EnteredIn("Calcite"));
    EXPECT_EQ(f.Amount("Calcite"), 0.0);
    EXPECT_LT(f.SaturationIndex("Calcite"), -0.1);
    // all carbonate is back in solution
    ExpectRelative(CarbonateDissolved(f), 0.005, "CO3");
    const double chloride = f.Amount("CaCl2(s)");
    EXPECT_GT(chloride, 0);  // saturated: the invariants check its index
    ExpectRelative(CalciumDissolved(f) + chloride, 0.01, "Ca");
    ExpectRelative(Conc(f, "free Cl") + Conc(f, "CaCl+") + 2 * chloride, 0.06, "Cl");
    f.ExpectSaturationEverywhere();
}

// A solid with a negative coefficient on a mass-balance component other
// than H+: forming it releases Na+ (Ca2+ + Cl- = solid + Na+, an exchanger).
TEST(Precipitation, SolidThatReleasesAComponent) {
    SolidsFixture f;
    AddSolidEquilibrium(f.chem, "CaCl(Na-1)(s)", 1.5, {{kCa, 1}, {kCl, 1}, {kNa, -1}});
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.SetTotals({{kCa, 0.01}, {kCl, 0.02}, {kNa, 0.001}});
    const CalculationOutcome out = f.Run();
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    const double solid = f.Amount("CaCl(Na-1)(s)");
    EXPECT_GT(solid, 1e-3);
    // the released Na+ is in solution beyond its given total
    ExpectRelative(Conc(f, "free Na") + Conc(f, "NaCl") - solid, 0.001, "Na");
    EXPECT_GT(Conc(f, "free Na"), 0.001);
    ExpectRelative(Conc(f, "free Ca") + Conc(f, "CaCl+") + Conc(f, "CaOH+") + solid, 0.01, "Ca");
    ExpectRelative(Conc(f, "free Cl") + Conc(f, "CaCl+") + Conc(f, "NaCl") + solid, 0.02, "Cl");
    f.ExpectSaturationEverywhere();
}

// Three solids where the third is made of the other two (2 Ca + CO3 + 2 Cl
// = Ca CO3 + Ca Cl2) and is the most stable: it forms from them until one of
// them is used up; the phase rule leaves room for two.
TEST(Precipitation, SolidMadeOfTwoPresentSolidsReplacesOneOfThem) {
    SolidsFixture f;
    AddSolidEquilibrium(f.chem, "Calcite", 8.48, {{kCa, 1}, {kCO3, 1}});
    AddSolidEquilibrium(f.chem, "CaCl2(s)", 8.0, {{kCa, 1}, {kCl, 2}});
    AddSolidEquilibrium(f.chem, "Ca2CO3Cl2(s)", 16.9, {{kCa, 2}, {kCO3, 1}, {kCl, 2}});
    f.Set(kH, InputType::FreeAct, 1e-10);
    f.SetTotals({{kCa, 0.02}, {kCO3, 0.005}, {kCl, 0.06}});
    const CalculationOutcome out = f.Run();
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    EXPECT_GT(f.EnteredIn("Ca2CO3Cl2(s)"), 0);
    EXPECT_GT(f.Amount("Ca2CO3Cl2(s)"), 0);
    const int32_t present = (f.Amount("Calcite") > 0) + (f.Amount("CaCl2(s)") > 0) + (f.Amount("Ca2CO3Cl2(s)") > 0);
    EXPECT_EQ(present, 2);
    const double ca = CalciumDissolved(f) + f.Amount("Calcite") + f.Amount("CaCl2(s)") + 2 * f.Amount("Ca2CO3Cl2(s)");
    ExpectRelative(ca, 0.02, "Ca");
    ExpectRelative(CarbonateDissolved(f) + f.Amount("Calcite") + f.Amount("Ca2CO3Cl2(s)"), 0.005, "CO3");
    f.ExpectSaturationEverywhere();
}

}  // namespace tormel::test
