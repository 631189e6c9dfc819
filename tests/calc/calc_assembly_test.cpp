#include <gtest/gtest.h>

#include "calc/assemble_system.h"
#include "calc/calc_fixture.h"
#include "calc/temperature.h"

namespace tormel::test {

namespace {
bool Assemble(CalcFixture& f) {
    CalcContext ctx = f.Context();
    return AssembleSystem(ctx);
}

int32_t Coefficient(const ChemicalSystem& chem, int32_t s, int32_t systemComponent) {
    const int32_t count = static_cast<int32_t>(chem.species.size());
    for (int32_t e = 0; e < chem.species[s].componentTerms; ++e) {
        const CompositionTerm& t = chem.composition[Position(s, e, count)];
        if (t.systemComponent == systemComponent) return t.coefficient;
    }
    return 0;
}
}  // namespace

TEST(CalcAssembly, OnlyHydrogenGivesHydrogenAndHydroxide) {
    CalcFixture f;
    f.Set(kH, InpTypeFreeAct, 1e-7);
    ASSERT_TRUE(Assemble(f));
    ASSERT_EQ(f.chem.systemComponents.size(), 1u);
    EXPECT_EQ(f.chem.systemComponents[0].name, "H");
    ASSERT_EQ(f.chem.species.size(), 2u);
    EXPECT_EQ(f.chem.species[0].name, "free H");
    EXPECT_EQ(f.chem.species[1].name, "free OH");
    EXPECT_EQ(f.chem.species[1].kind, FreeHydroxide);
    EXPECT_EQ(Coefficient(f.chem, 1, 0), -1);
    EXPECT_DOUBLE_EQ(f.chem.species[1].logK, -14.0);
    EXPECT_EQ(f.chem.freeHydroxideSpecies, 1);
    // free species have no reaction row and no literature
    EXPECT_EQ(f.chem.species[0].reactionRow, -1);
    EXPECT_EQ(f.chem.species[0].literatureRef, -1);
}

TEST(CalcAssembly, ComplexNeedsAllItsComponents) {
    CalcFixture f;
    f.Set(kH, InpTypeFreeAct, 1e-7);
    f.SetTotals({{kCa, 1e-3}, {kCl, 2e-3}});
    ASSERT_TRUE(Assemble(f));
    EXPECT_GE(f.SpeciesIndex("CaCl+"), 0);
    EXPECT_GE(f.SpeciesIndex("CaOH+"), 0);
    EXPECT_LT(f.SpeciesIndex("NaCl"), 0);    // Na has value 0
    EXPECT_LT(f.SpeciesIndex("CaCO3"), 0);   // CO3 has value 0
    // system components in component order, each complex's row on them
    ASSERT_EQ(f.chem.systemComponents.size(), 3u);
    EXPECT_EQ(f.chem.systemComponents[1].name, "Ca");
    EXPECT_EQ(f.chem.systemComponents[2].name, "Cl");
    const int32_t caoh = f.SpeciesIndex("CaOH+");
    EXPECT_EQ(Coefficient(f.chem, caoh, 0), -1);
    EXPECT_EQ(Coefficient(f.chem, caoh, 1), 1);
    // substituted through H+: dz^2 from the unknowns, 4 - 1 - 1
    EXPECT_EQ(f.chem.species[caoh].deltaZ2, 2);
    EXPECT_EQ(f.chem.complexSpeciesRange.first, 4);  // free H, free OH, free Ca, free Cl
}

TEST(CalcAssembly, GasLigandComplexTakesTheGasConstant) {
    CalcFixture f;
    f.Set(kH, InpTypeFreeAct, 1e-8);
    f.Set(kCa, InpTypeTotalConc, 1e-3);
    f.Set(kCO2Gas, InpTypeGasPres, 3.16e-4);
    ASSERT_TRUE(Assemble(f));
    const int32_t gasLigand = f.SpeciesIndex("free CO3");
    ASSERT_GE(gasLigand, 0);
    EXPECT_EQ(f.chem.species[gasLigand].kind, GasLigand);
    EXPECT_DOUBLE_EQ(f.chem.species[gasLigand].logK, -18.147);
    EXPECT_EQ(f.chem.species[gasLigand].deltaZ2, -6);
    const int32_t gas = f.chem.components[kCO2Gas].systemIndex;
    ASSERT_GT(gas, 0);
    EXPECT_EQ(f.chem.components[kCO3].systemIndex, -gasLigand);
    const int32_t caco3 = f.SpeciesIndex("CaCO3");
    ASSERT_GE(caco3, 0);
    EXPECT_NEAR(f.chem.species[caco3].logK, 3.22 - 18.147, 1e-12);
    EXPECT_EQ(Coefficient(f.chem, caco3, gas), 1);
    EXPECT_EQ(Coefficient(f.chem, caco3, 0), -2);
    EXPECT_EQ(Coefficient(f.chem, caco3, f.chem.components[kCa].systemIndex), 1);
    // Ca 4 + gas 0 - 2 H+ - 0
    EXPECT_EQ(f.chem.species[caco3].deltaZ2, 2);
}

TEST(CalcAssembly, RedoxGroupJoinsWhenOneMemberIsGiven) {
    CalcFixture f;
    f.input.redox = true;
    f.Set(kH, InpTypeFreeAct, 1e-3);
    f.Set(kFe3, InpTypeTotalConc, 2e-4);  // only the oxidised member is given
    f.Set(kElectron, InpTypeFreeAct, 1e-12);
    ASSERT_TRUE(Assemble(f));
    EXPECT_TRUE(f.chem.components[kFe2].inInput);
    // one unknown for the group, named after its head, balanced by the sum
    int32_t groupUnknowns = 0;
    for (const SystemComponent& sc : f.chem.systemComponents)
        if (sc.name == "Fe(II)" || sc.name == "Fe(III)") ++groupUnknowns;
    EXPECT_EQ(groupUnknowns, 1);
    const int32_t head = f.chem.components[kFe2].systemIndex;
    ASSERT_GT(head, 0);
    EXPECT_EQ(f.chem.systemComponents[head].balanceKind, InpTypeTotalConc);
    EXPECT_DOUBLE_EQ(f.chem.systemComponents[head].givenValue, 2e-4);
    const int32_t fe3 = f.SpeciesIndex("free Fe(III)");
    ASSERT_GE(fe3, 0);
    EXPECT_EQ(f.chem.species[fe3].kind, RedoxPartner);
    EXPECT_EQ(f.chem.components[kFe3].systemIndex, -fe3);
    EXPECT_DOUBLE_EQ(f.chem.species[fe3].logK, -13.02);
    const int32_t electron = f.chem.components[kElectron].systemIndex;
    EXPECT_EQ(Coefficient(f.chem, fe3, electron), -1);  // Fe+3 = Fe+2 - e
    EXPECT_EQ(Coefficient(f.chem, fe3, head), 1);
    // the complex of the partner is formed from the head and the electron
    const int32_t fecl = f.SpeciesIndex("FeCl+2");
    EXPECT_LT(fecl, 0);  // Cl is not in the input
    // without redox the member stays alone
    CalcFixture g;
    g.Set(kH, InpTypeFreeAct, 1e-3);
    g.Set(kFe3, InpTypeTotalConc, 2e-4);
    ASSERT_TRUE(Assemble(g));
    EXPECT_FALSE(g.chem.components[kFe2].inInput);
    EXPECT_GT(g.chem.components[kFe3].systemIndex, 0);
}

TEST(CalcAssembly, RedoxGroupWithFreeMemberIsFixedByIt) {
    CalcFixture f;
    f.input.redox = true;
    f.Set(kH, InpTypeFreeAct, 1e-3);
    f.Set(kFe2, InpTypeTotalConc, 1e-4);
    f.Set(kFe3, InpTypeFreeAct, 1e-6);
    ASSERT_TRUE(Assemble(f));
    const SystemComponent& head = f.chem.systemComponents[f.chem.components[kFe2].systemIndex];
    EXPECT_EQ(head.balanceKind, 5);
    EXPECT_EQ(head.givenMember, kFe3);
    EXPECT_DOUBLE_EQ(head.givenValue, 1e-6);
}

TEST(CalcAssembly, TemperatureCorrectionModes) {
    CalcFixture f;
    f.input.temperature = 10;
    f.Set(kH, InpTypeFreeAct, 1e-7);
    f.Set(kCa, InpTypeTotalConc, 1e-3);  // brings CaOH+, whose enthalpy is unknown
    f.Set(kCO3, InpTypeTotalConc, 1e-3);
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
    f.Set(kCa, InpTypeTotalConc, 0);
    f.input.temperatureCorrection = 1;
    ASSERT_TRUE(Assemble(f));
    EXPECT_TRUE(f.chem.temperatureCorrectionApplied);
    f.input.temperatureCorrection = 0;
    ASSERT_TRUE(Assemble(f));
    EXPECT_FALSE(f.chem.temperatureCorrectionApplied);
}

TEST(CalcAssembly, AdsorbedSpeciesRowsAndCharges) {
    CalcFixture f;
    f.input.adsorption = true;
    f.Set(kH, InpTypeFreeAct, 1e-7);
    f.SetTotals({{kCa, 1e-3}, {kSite, 1e-4}});
    ASSERT_TRUE(Assemble(f));
    const int32_t site = f.SpeciesIndex("free Hfo_wOH");
    ASSERT_GE(site, 0);
    EXPECT_EQ(f.chem.species[site].kind, AdsorbedSpecies);
    const int32_t caSite = f.SpeciesIndex("Hfo_wOCa+");
    ASSERT_GE(caSite, 0);
    // only the dissolved terms count: Ca 4 - H 1
    EXPECT_EQ(f.chem.species[caSite].deltaZ2, 3);
    // reaction: Hfo_wOH + Ca = Hfo_wOCa+ + H
    const int32_t row = f.chem.species[caSite].reactionRow;
    const int32_t width = f.chem.maxComponentsPerEquilibrium;
    EXPECT_EQ(f.chem.reactionProducts[Position(0, row, width)].name, "H");
    EXPECT_EQ(f.chem.reactionProducts[Position(1, row, width)].name, "Hfo_wOCa+");
    EXPECT_EQ(f.chem.reactionReactants[Position(0, row, width)].name, "Ca");
    // without the adsorption option no adsorbed species are formed
    f.input.adsorption = false;
    ASSERT_TRUE(Assemble(f));
    EXPECT_LT(f.SpeciesIndex("Hfo_wOCa+"), 0);
}

}  // namespace tormel::test
