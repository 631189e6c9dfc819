// What the assembly forms from the input. The constants, coefficients and
// charge terms of the species it forms are checked through the mass-action
// laws of the solver tests; here only which species and unknowns exist.
#include <gtest/gtest.h>

#include "calc/assemble_system.h"
#include "calc/calc_fixture.h"
#include "calc/temperature.h"

namespace tormel::test {

namespace {
bool Assemble(CalcFixture& f) {
    CalcContext ctx = f.Context();
    return AssembleSystem(ctx).assembled;
}
}  // namespace

TEST(CalcAssembly, ComplexNeedsAllItsComponents) {
    CalcFixture f;
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.SetTotals({{kCa, 1e-3}, {kCl, 2e-3}});
    ASSERT_TRUE(Assemble(f));
    EXPECT_GE(f.SpeciesIndex("CaCl+"), 0);
    EXPECT_GE(f.SpeciesIndex("CaOH+"), 0);
    EXPECT_LT(f.SpeciesIndex("NaCl"), 0);    // Na has value 0
    EXPECT_LT(f.SpeciesIndex("CaCO3"), 0);   // CO3 has value 0
    EXPECT_EQ(f.chem.systemComponents.size(), 3u);
}

// An input problem needs one component input per database component; one
// made for another database, or never sized, assembles nothing.
TEST(CalcAssembly, InputsOfAnotherDatabaseAreRefused) {
    for (int32_t surplus : {-1, 1}) {
        CalcFixture f;
        f.Set(kH, InputType::FreeAct, 1e-7);
        f.SetTotals({{kCa, 1e-3}, {kCl, 2e-3}});
        f.input.components.resize(f.input.components.size() + surplus);
        SCOPED_TRACE(surplus);
        EXPECT_FALSE(Assemble(f));
        EXPECT_TRUE(f.chem.systemComponents.empty());
    }
}

TEST(CalcAssembly, RedoxGroupIsOneUnknownOnlyWithTheRedoxOption) {
    CalcFixture f;
    f.input.redox = true;
    f.Set(kH, InputType::FreeAct, 1e-3);
    f.Set(kFe3, InputType::TotalConc, 2e-4);  // only the oxidised member is given
    f.Set(kElectron, InputType::FreeAct, 1e-12);
    ASSERT_TRUE(Assemble(f));
    EXPECT_TRUE(f.chem.placement[kFe2].inInput);
    int32_t groupUnknowns = 0;
    for (const SystemComponent& sc : f.chem.systemComponents)
        if (sc.name == "Fe(II)" || sc.name == "Fe(III)") ++groupUnknowns;
    EXPECT_EQ(groupUnknowns, 1);
    const int32_t fe3 = f.SpeciesIndex("free Fe(III)");
    ASSERT_GE(fe3, 0);
    EXPECT_EQ(f.chem.species[fe3].kind, SpeciesKind::RedoxPartner);
    // without redox the member stays alone
    CalcFixture g;
    g.Set(kH, InputType::FreeAct, 1e-3);
    g.Set(kFe3, InputType::TotalConc, 2e-4);
    ASSERT_TRUE(Assemble(g));
    EXPECT_FALSE(g.chem.placement[kFe2].inInput);
    EXPECT_GT(g.chem.placement[kFe3].systemIndex, 0);
}

TEST(CalcAssembly, TemperatureCorrectionModes) {
    CalcFixture f;
    f.input.temperature = 10;
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.Set(kCa, InputType::TotalConc, 1e-3);  // brings CaOH+, whose enthalpy is unknown
    f.Set(kCO3, InputType::TotalConc, 1e-3);
    f.input.temperatureCorrection = 1;
    ASSERT_TRUE(Assemble(f));
    EXPECT_FALSE(f.chem.temperatureCorrectionApplied);
    f.input.temperatureCorrection = 2;
    ASSERT_TRUE(Assemble(f));
    EXPECT_TRUE(f.chem.temperatureCorrectionApplied);
    const Species& hco3 = f.chem.species[f.SpeciesIndex("HCO3-")];
    EXPECT_DOUBLE_EQ(hco3.tempCorrection, TemperatureTerm(10, -14900));
    EXPECT_EQ(f.chem.species[f.SpeciesIndex("CaOH+")].tempCorrection, 0.0);
    // free OH: the water reaction reversed
    EXPECT_DOUBLE_EQ(f.chem.species[f.chem.freeHydroxideSpecies].tempCorrection, -TemperatureTerm(10, -55840));
    // mode 1 corrects when every species has its enthalpy
    f.Set(kCa, InputType::TotalConc, 0);
    f.input.temperatureCorrection = 1;
    ASSERT_TRUE(Assemble(f));
    EXPECT_TRUE(f.chem.temperatureCorrectionApplied);
    f.input.temperatureCorrection = 0;
    ASSERT_TRUE(Assemble(f));
    EXPECT_FALSE(f.chem.temperatureCorrectionApplied);
}

TEST(CalcAssembly, AdsorbedSpeciesOnlyWithTheAdsorptionOption) {
    CalcFixture f;
    f.input.adsorption = true;
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.SetTotals({{kCa, 1e-3}, {kSite, 1e-4}});
    ASSERT_TRUE(Assemble(f));
    for (const char* name : {"free Hfo_wOH", "Hfo_wOCa+"}) {
        const int32_t s = f.SpeciesIndex(name);
        ASSERT_GE(s, 0) << name;
        EXPECT_EQ(f.chem.species[s].kind, SpeciesKind::AdsorbedSpecies) << name;
    }
    // the reaction shown for it: Hfo_wOH + Ca = Hfo_wOCa+ + H
    const int32_t row = f.chem.species[f.SpeciesIndex("Hfo_wOCa+")].reactionRow;
    const int32_t width = f.chem.db().maxComponentsPerEquilibrium;
    EXPECT_EQ(f.chem.reactionProducts[Position(0, row, width)].name, "H");
    EXPECT_EQ(f.chem.reactionProducts[Position(1, row, width)].name, "Hfo_wOCa+");
    EXPECT_EQ(f.chem.reactionReactants[Position(0, row, width)].name, "Ca");
    f.input.adsorption = false;
    ASSERT_TRUE(Assemble(f));
    EXPECT_LT(f.SpeciesIndex("Hfo_wOCa+"), 0);
}

}  // namespace tormel::test
