// Tests on the shipped raw database converted from the MINTEQA2 v4 data. The
// expected constants are taken by hand from minteq.v4.dat (line numbers in
// the comments) and turned into formation constants on our components.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "calc/real_database.h"

namespace tormel {
namespace {

using test::RealDatabase;
using test::RealDatabaseMessages;

constexpr double kEps = 1e-9;

// The loaded real database; an empty one, and a failed test, when it cannot be loaded.
const ChemicalSystem& RealChem() {
    static const ChemicalSystem empty;
    const ChemicalSystem* chem = RealDatabase();
    if (!chem) ADD_FAILURE() << "the raw database in data/RawData could not be loaded";
    return chem ? *chem : empty;
}

// Index of the equilibrium of this type, name and charge; -1 when absent.
int FindEquilibrium(const ChemicalSystem& chem, int type, const std::string& name, int charge = 0) {
    for (int i = 0; i < chem.db().EquilibriumCount(); ++i) {
        const Equilibrium& e = chem.db().equilibria[i];
        if (e.type == type && e.name == name &&
            (e.charge == charge || type == EqSolid || type == EqGas || type == EqRedox))
            return i;
    }
    return -1;
}

int Comp(const ChemicalSystem& chem, const std::string& name) {
    int i = chem.db().FindComponent(name);
    EXPECT_GE(i, 0) << "component " << name;
    return i;
}

// The non-zero coefficients of an equilibrium by component name.
std::map<std::string, int> Terms(const ChemicalSystem& chem, int e) {
    std::map<std::string, int> out;
    for (int c = 0; c < chem.db().ComponentCount(); ++c)
        if (chem.db().Coefficient(c, e) != 0) out[chem.db().components[c].name] = chem.db().Coefficient(c, e);
    return out;
}

const Equilibrium& Eq(const ChemicalSystem& chem, int type, const std::string& name, int charge = 0) {
    int i = FindEquilibrium(chem, type, name, charge);
    if (i < 0) {
        ADD_FAILURE() << "equilibrium " << name << " (type " << type << ", charge " << charge << ") missing";
        static const Equilibrium none;
        return none;
    }
    return chem.db().equilibria[i];
}

TEST(RealDatabase, LoadsWithoutMessagesAndKeepsTheLoaderInvariants) {
    ASSERT_NE(RealDatabase(), nullptr) << "the raw database in data/RawData could not be loaded";
    EXPECT_EQ(RealDatabaseMessages(), 0u) << "the loader warned (more than four components in an equilibrium?)";
    const ChemicalSystem& chem = *RealDatabase();
    ASSERT_GT(chem.db().ComponentCount(), 50);
    ASSERT_GT(chem.db().EquilibriumCount(), 1000);

    // H+ first, water first, electron and hydroxide found through the water.
    EXPECT_EQ(chem.db().components[0].name, "H");
    EXPECT_EQ(chem.db().components[0].type, Cation);
    EXPECT_EQ(chem.db().components[0].charge, 1);
    EXPECT_EQ(chem.db().hydrogenIndex, 0);
    EXPECT_EQ(chem.db().waterEquilibriumIndex, 0);
    EXPECT_EQ(chem.db().equilibria[0].type, EqWater);
    EXPECT_EQ(chem.db().equilibria[0].name, "H2O");
    ASSERT_GT(chem.db().hydroxideIndex, 0);
    EXPECT_EQ(chem.db().components[chem.db().hydroxideIndex].name, "OH");
    EXPECT_EQ(chem.db().components[chem.db().hydroxideIndex].charge, -1);
    EXPECT_EQ(chem.db().components[0].waterPartnerOfH, chem.db().hydroxideIndex);
    EXPECT_EQ(chem.db().components[chem.db().electronIndex].name, "e");
    EXPECT_EQ(chem.db().components[chem.db().electronIndex].type, Electron);
    EXPECT_LE(chem.db().maxComponentsPerEquilibrium, 4);

    // Types in range and grouped, so that every type range is one block.
    std::set<std::string> names;
    for (int c = 0; c < chem.db().ComponentCount(); ++c) {
        const Component& k = chem.db().components[c];
        EXPECT_GE(k.type, Cation);
        EXPECT_LE(k.type, Organic);
        if (c > 0) { EXPECT_GE(k.type, chem.db().components[c - 1].type) << k.name; }
        EXPECT_TRUE(names.insert(k.name).second) << "component name twice: " << k.name;
        if (k.type == Cation || k.type == Ligand) { EXPECT_GT(k.molarMass, 0) << k.name; }
        if (k.type == Organic) { EXPECT_TRUE(k.organicModel >= Model5 && k.organicModel <= Model7) << k.name; }
    }
    for (int e = 0; e < chem.db().EquilibriumCount(); ++e) {
        const Equilibrium& q = chem.db().equilibria[e];
        EXPECT_GE(q.type, EqWater);
        EXPECT_LE(q.type, EqOrganic);
        if (e > 0) {
            const Equilibrium& p = chem.db().equilibria[e - 1];
            EXPECT_GE(q.type, p.type) << q.name;
            if (q.type == EqOrganic && p.type == EqOrganic) { EXPECT_GE(q.organicModel, p.organicModel) << q.name; }
        }
        int nonZero = 0;
        for (int c = 0; c < chem.db().ComponentCount(); ++c) nonZero += chem.db().Coefficient(c, e) != 0;
        EXPECT_EQ(nonZero, q.componentCount) << q.name;
        EXPECT_GE(q.componentCount, 1) << q.name;
        EXPECT_LE(q.componentCount, 4) << q.name;
        if (q.type == EqRedox || q.type == EqGas) {
            EXPECT_GT(q.linkedComponent, 0) << q.name;
            EXPECT_EQ(q.linkedCoefficient, 1) << q.name;
            EXPECT_EQ(chem.db().Coefficient(q.linkedComponent, e), 0)
                << q.name << ": the linked component is not a term";
        }
        if (q.type == EqGas) { EXPECT_EQ(chem.db().components[q.linkedComponent].type, Gas) << q.name; }
        if (q.type == EqOrganic) {
            int organic = 0;
            for (int c = 0; c < chem.db().ComponentCount(); ++c)
                if (chem.db().Coefficient(c, e) != 0 && chem.db().components[c].type == Organic) {
                    ++organic;
                    EXPECT_EQ(chem.db().components[c].organicModel, q.organicModel) << q.name;
                }
            EXPECT_EQ(organic, 1) << q.name;
        }
    }
}

TEST(RealDatabase, EveryEquilibriumCarriesAResolvableLiteratureReference) {
    const ChemicalSystem& chem = RealChem();
    ASSERT_GT(chem.db().LiteratureReferenceCount(), 10);
    for (const Equilibrium& q : chem.db().equilibria) {
        EXPECT_GE(q.literatureRef, 0) << q.name;
        EXPECT_LT(q.literatureRef, chem.db().LiteratureReferenceCount()) << q.name;
    }
    std::set<std::string> lines;
    for (const std::string& line : chem.db().literature) {
        EXPECT_FALSE(line.empty());
        EXPECT_LE(line.size(), 258u) << line;
        EXPECT_TRUE(lines.insert(line).second) << "reference twice: " << line;
    }
    // Codes of known compilations are written out as citations.
    auto citation = [&](const Equilibrium& q) { return chem.db().literature[q.literatureRef]; };
    EXPECT_NE(citation(Eq(chem, EqComplex, "CaHCO3", 1)).find("NIST Critically Selected Stability Constants"),
              std::string::npos);
    EXPECT_NE(citation(Eq(chem, EqRedox, "Fe(II)")).find("Bard A.J."), std::string::npos);
    EXPECT_NE(citation(Eq(chem, EqAdsorption, "Hfo_wOZn", 1)).find("Dzombak"), std::string::npos);
    EXPECT_NE(citation(Eq(chem, EqOrganic, "Cu(II)-HA6", 1)).find("Model VI"), std::string::npos);
    // The model's own reference is that of its organic equilibria.
    for (int code = Model5; code <= Model7; ++code) {
        int ref = chem.db().Organic(code).literatureRef;
        ASSERT_GT(ref, 0);
        EXPECT_NE(chem.db().literature[ref].find("Tipping"), std::string::npos);
    }
}

TEST(RealDatabase, AqueousComplexesMatchTheSourceData) {
    const ChemicalSystem& chem = RealChem();
    // 4824: Ca+2 + H+ + CO3-2 = CaHCO3+, log_k 11.599, delta_h 5.4 kJ (NIST46.2)
    const Equilibrium& cahco3 = Eq(chem, EqComplex, "CaHCO3", 1);
    EXPECT_NEAR(cahco3.logK, 11.599, kEps);
    EXPECT_TRUE(cahco3.hasEnthalpy);
    EXPECT_NEAR(cahco3.enthalpy, 5400, 1e-6);
    EXPECT_EQ(cahco3.deltaZ2, 4 + 1 + 4 - 1);
    EXPECT_EQ(Terms(chem, FindEquilibrium(chem, EqComplex, "CaHCO3", 1)),
              (std::map<std::string, int>{{"Ca", 1}, {"H", 1}, {"CO3", 1}}));
    // 1486: Al+3 + 4 F- = AlF4-, log_k 19.4, delta_h 8.7 kJ
    const Equilibrium& alf4 = Eq(chem, EqComplex, "AlF4", -1);
    EXPECT_NEAR(alf4.logK, 19.4, kEps);
    EXPECT_NEAR(alf4.enthalpy, 8700, 1e-6);
    EXPECT_EQ(alf4.deltaZ2, 9 + 4 - 1);
    EXPECT_EQ(Terms(chem, FindEquilibrium(chem, EqComplex, "AlF4", -1)),
              (std::map<std::string, int>{{"Al", 1}, {"F", 4}}));
    // 4608: 2 H+ + CO3-2 = H2CO3 (dissolved CO2), log_k 16.681
    EXPECT_NEAR(Eq(chem, EqComplex, "H2CO3", 0).logK, 16.681, kEps);
    // FeSO4+ (Fe(III), 3104) and FeSO4 (Fe(II)) share a formula and differ by charge.
    EXPECT_NEAR(Eq(chem, EqComplex, "FeSO4", 1).logK, 4.05, kEps);
    EXPECT_EQ(Terms(chem, FindEquilibrium(chem, EqComplex, "FeSO4", 1)),
              (std::map<std::string, int>{{"Fe(III)", 1}, {"SO4", 1}}));
    EXPECT_EQ(Terms(chem, FindEquilibrium(chem, EqComplex, "FeSO4", 0)),
              (std::map<std::string, int>{{"Fe(II)", 1}, {"SO4", 1}}));
    // Hydrolysis is written with H+: 534: H2O = OH- + H+ log_k -13.997 gives
    // the water equilibrium H+ + OH- = H2O.
    const Equilibrium& water = chem.db().equilibria[0];
    EXPECT_NEAR(water.logK, 13.997, kEps);
    EXPECT_NEAR(water.enthalpy, -55810, 1e-6);
    EXPECT_EQ(water.deltaZ2, 2);
    EXPECT_EQ(Terms(chem, 0), (std::map<std::string, int>{{"H", 1}, {"OH", 1}}));
    // The MSA size of a complex where one is known (HCO3-, the fitted NO3- diameter).
    EXPECT_NEAR(Eq(chem, EqComplex, "HCO3", -1).complexDiameter, 2.001e-10, 1e-20);
}

TEST(RealDatabase, ComplexesWrittenOnOtherSpeciesAreRewrittenOnTheComponents) {
    const ChemicalSystem& chem = RealChem();
    // Hg(2)'s master species is Hg(OH)2; the free ion Hg+2 is our component:
    // 542ff.: Hg(OH)2 + 2 H+ = Hg+2 + 2 H2O, log_k 6.194, delta_h -39.72 kJ.
    const Equilibrium& hgoh2 = Eq(chem, EqComplex, "Hg(OH)2", 0);
    EXPECT_NEAR(hgoh2.logK, -6.194, kEps);
    EXPECT_NEAR(hgoh2.enthalpy, 39720, 1e-6);
    EXPECT_EQ(Terms(chem, FindEquilibrium(chem, EqComplex, "Hg(OH)2", 0)),
              (std::map<std::string, int>{{"Hg(II)", 1}, {"H", -2}}));
    // 1990: Hg(OH)2 + 2 H+ + Cl- = HgCl+ + 2 H2O, log_k 13.494, delta_h -62.72 kJ
    // -> Hg+2 + Cl- = HgCl+, log K 13.494 - 6.194, delta H -62.72 + 39.72 kJ.
    const Equilibrium& hgcl = Eq(chem, EqComplex, "HgCl", 1);
    EXPECT_NEAR(hgcl.logK, 7.3, kEps);
    EXPECT_NEAR(hgcl.enthalpy, -23000, 1e-6);
    EXPECT_EQ(hgcl.deltaZ2, 4 + 1 - 1);
    EXPECT_EQ(Terms(chem, FindEquilibrium(chem, EqComplex, "HgCl", 1)),
              (std::map<std::string, int>{{"Hg(II)", 1}, {"Cl", 1}}));
    // Polysulfide written on HS-: HS- = S-2 + H+ (log_k -17.3).
    EXPECT_EQ(Terms(chem, FindEquilibrium(chem, EqComplex, "S", -2)),
              (std::map<std::string, int>{{"HS", 1}, {"H", -1}}));
    EXPECT_EQ(Eq(chem, EqComplex, "S", -2).deltaZ2, 1 - 1 - 4);
}

TEST(RealDatabase, RedoxCouplesLinkOneComponentToAnother) {
    const ChemicalSystem& chem = RealChem();
    // 281: Fe+3 + e- = Fe+2, log_k 13.032, delta_h -42.7 kJ (Bard85)
    const Equilibrium& fe = Eq(chem, EqRedox, "Fe(II)");
    EXPECT_EQ(fe.linkedComponent, Comp(chem, "Fe(II)"));
    EXPECT_NEAR(fe.logK, 13.032, kEps);
    EXPECT_NEAR(fe.enthalpy, -42700, 1e-6);
    EXPECT_EQ(fe.deltaZ2, 9 + 1 - 4);  // the electron counts with its charge -1
    EXPECT_EQ(Terms(chem, FindEquilibrium(chem, EqRedox, "Fe(II)")),
              (std::map<std::string, int>{{"Fe(III)", 1}, {"e", 1}}));
    // SO4-2 + 9 H+ + 8 e- = HS- + 4 H2O, log_k 33.66
    const Equilibrium& hs = Eq(chem, EqRedox, "HS");
    EXPECT_EQ(hs.linkedComponent, Comp(chem, "HS"));
    EXPECT_NEAR(hs.logK, 33.66, kEps);
    EXPECT_EQ(Terms(chem, FindEquilibrium(chem, EqRedox, "HS")),
              (std::map<std::string, int>{{"SO4", 1}, {"H", 9}, {"e", 8}}));
    // Cr(OH)2+ + 2 H+ + e- = Cr+2 (2.947) with Cr(OH)2+ + 2 H+ = Cr+3 (9.5688):
    // Cr+3 + e- = Cr+2, log K -6.6218.
    EXPECT_NEAR(Eq(chem, EqRedox, "Cr(II)").logK, 2.947 - 9.5688, kEps);
    // 0.5 Hg2+2 + e- = Hg (6.5667) through 2 Hg(OH)2 + 4 H+ + 2 e- = Hg2+2 (43.185):
    // Hg+2 + 2 e- = Hg, log K (43.185 - 2 x 6.194)/2 + 6.5667.
    EXPECT_NEAR(Eq(chem, EqRedox, "Hg(0)").logK, (43.185 - 2 * 6.194) / 2 + 6.5667, kEps);
    EXPECT_EQ(Terms(chem, FindEquilibrium(chem, EqRedox, "Hg(0)")),
              (std::map<std::string, int>{{"Hg(II)", 1}, {"e", 2}}));
    // The loader chains each redox group.
    const Component& fe3 = chem.db().components[Comp(chem, "Fe(III)")];
    EXPECT_EQ(fe3.redoxNext, Comp(chem, "Fe(II)"));
    EXPECT_EQ(chem.db().components[Comp(chem, "SO4")].redoxNext + chem.db().components[Comp(chem, "SO4")].redoxPrev,
              Comp(chem, "HS"));
}

TEST(RealDatabase, GasesGiveTheirPressureFromTheLigand) {
    const ChemicalSystem& chem = RealChem();
    // 12618: CO2 + H2O = 2 H+ + CO3-2, log_k -18.147, delta_h 4.06 kJ.
    // Stored as the formation of the gas: CO3-2 + 2 H+ = CO2(g), log K 18.147,
    // so log P = log a(CO3) + 2 log a(H+) + 18.147.
    int e = FindEquilibrium(chem, EqGas, "CO2(g)");
    ASSERT_GE(e, 0);
    const Equilibrium& co2 = chem.db().equilibria[e];
    EXPECT_NEAR(co2.logK, 18.147, kEps);
    EXPECT_NEAR(co2.enthalpy, -4060, 1e-6);
    EXPECT_EQ(co2.deltaZ2, 4 + 2);
    EXPECT_EQ(Terms(chem, e), (std::map<std::string, int>{{"CO3", 1}, {"H", 2}}));
    int gas = Comp(chem, "CO2(g)");
    EXPECT_EQ(co2.linkedComponent, gas);
    EXPECT_EQ(chem.db().components[gas].type, Gas);
    EXPECT_EQ(chem.db().components[gas].linkedLigand, Comp(chem, "CO3"));
    EXPECT_EQ(chem.db().components[Comp(chem, "CO3")].gasPartner, gas);
    // H2S = H+ + HS-, log_k -8.01
    EXPECT_NEAR(Eq(chem, EqGas, "H2S(g)").logK, 8.01, kEps);
}

TEST(RealDatabase, SolidsAreStoredAsFormationConstants) {
    const ChemicalSystem& chem = RealChem();
    // 11693: CaCO3 = Ca+2 + CO3-2, log_k -8.48, delta_h -8 kJ
    const Equilibrium& calcite = Eq(chem, EqSolid, "Calcite");
    EXPECT_NEAR(calcite.logK, 8.48, kEps);
    EXPECT_NEAR(calcite.enthalpy, 8000, 1e-6);
    EXPECT_EQ(calcite.deltaZ2, 8);
    EXPECT_EQ(Terms(chem, FindEquilibrium(chem, EqSolid, "Calcite")),
              (std::map<std::string, int>{{"Ca", 1}, {"CO3", 1}}));
    // 11965: CaSO4:2H2O = Ca+2 + SO4-2 + 2 H2O, log_k -4.61 (water drops out)
    EXPECT_NEAR(Eq(chem, EqSolid, "Gypsum").logK, 4.61, kEps);
    // 10993: Fe(OH)3 + 3 H+ = Fe+3 + 3 H2O, log_k 3.191
    const Equilibrium& fh = Eq(chem, EqSolid, "Ferrihydrite");
    EXPECT_NEAR(fh.logK, -3.191, kEps);
    EXPECT_EQ(fh.deltaZ2, 9 - 3);
    EXPECT_EQ(Terms(chem, FindEquilibrium(chem, EqSolid, "Ferrihydrite")),
              (std::map<std::string, int>{{"Fe(III)", 1}, {"H", -3}}));
    // 10425: Ag = Ag+ + e-: the electron enters dz^2 like a singly charged ion
    EXPECT_EQ(Eq(chem, EqSolid, "Agmetal").deltaZ2, 1 + 1);
    // A solid named like an aqueous species is still read as the solid.
    EXPECT_GE(FindEquilibrium(chem, EqSolid, "Hg(OH)2"), 0);
    // Fractional stoichiometry is left out.
    EXPECT_LT(FindEquilibrium(chem, EqSolid, "Fe(OH)2.7Cl.3"), 0);
}

TEST(RealDatabase, AdsorbedSpeciesCountOnlyDissolvedChargesInDeltaZ2) {
    const ChemicalSystem& chem = RealChem();
    EXPECT_EQ(chem.db().components[Comp(chem, "Hfo_wOH")].type, Ads);
    EXPECT_EQ(chem.db().components[Comp(chem, "Hfo_sOH")].type, Ads);
    // 12804: Hfo_wOH + Zn+2 = Hfo_wOZn+ + H+, log_k -1.99
    int e = FindEquilibrium(chem, EqAdsorption, "Hfo_wOZn", 1);
    ASSERT_GE(e, 0);
    EXPECT_NEAR(chem.db().equilibria[e].logK, -1.99, kEps);
    EXPECT_EQ(chem.db().equilibria[e].deltaZ2, 4 - 1);
    EXPECT_EQ(Terms(chem, e), (std::map<std::string, int>{{"Hfo_wOH", 1}, {"Zn", 1}, {"H", -1}}));
    // 12720: Hfo_sOH + Ca+2 = Hfo_sOHCa+2, log_k 4.97
    const Equilibrium& ca = Eq(chem, EqAdsorption, "Hfo_sOHCa", 2);
    EXPECT_NEAR(ca.logK, 4.97, kEps);
    EXPECT_EQ(ca.deltaZ2, 4);
    // Hfo_wOH + H+ = Hfo_wOH2+ (7.29) and Hfo_wOH = Hfo_wO- + H+ (-8.93)
    EXPECT_EQ(Eq(chem, EqAdsorption, "Hfo_wOH2", 1).deltaZ2, 1);
    EXPECT_NEAR(Eq(chem, EqAdsorption, "Hfo_wO", -1).logK, -8.93, kEps);
    EXPECT_EQ(Eq(chem, EqAdsorption, "Hfo_wO", -1).deltaZ2, -1);
}

TEST(RealDatabase, OrganicEquilibriaCarryThePublishedMetalConstants) {
    const ChemicalSystem& chem = RealChem();
    // Model 6, humic acid, Cu: log KMA 2.0, delta LK1 2.8, delta LK2 2.34.
    int e = FindEquilibrium(chem, EqOrganic, "Cu(II)-HA6", 1);
    ASSERT_GE(e, 0);
    const Equilibrium& cu6 = chem.db().equilibria[e];
    EXPECT_EQ(cu6.organicModel, Model6);
    EXPECT_NEAR(cu6.logK, 2.0, kEps);
    EXPECT_NEAR(cu6.organicReal1, 2.8, kEps);
    EXPECT_NEAR(cu6.organicReal2, 2.34, kEps);
    EXPECT_EQ(Terms(chem, e), (std::map<std::string, int>{{"Cu(II)", 1}, {"HA6", 1}}));
    // Its hydrolysed form binds with the same constants.
    int oh = FindEquilibrium(chem, EqOrganic, "Cu(II)OH-HA6", 0);
    ASSERT_GE(oh, 0);
    EXPECT_NEAR(chem.db().equilibria[oh].logK, 2.0, kEps);
    EXPECT_EQ(Terms(chem, oh), (std::map<std::string, int>{{"Cu(II)", 1}, {"H", -1}, {"HA6", 1}}));
    // Model 7, fulvic acid, Cu: log KMA 2.16, delta LK2 2.34.
    const Equilibrium& cu7 = Eq(chem, EqOrganic, "Cu(II)-FA7", 1);
    EXPECT_EQ(cu7.organicModel, Model7);
    EXPECT_NEAR(cu7.logK, 2.16, kEps);
    EXPECT_NEAR(cu7.organicReal2, 2.34, kEps);
    // Model 5, fulvic acid, Ca: pKMHA 2.2; no hydrolysed Ca species.
    EXPECT_NEAR(Eq(chem, EqOrganic, "Ca-FA5", 1).logK, 2.2, kEps);
    EXPECT_LT(FindEquilibrium(chem, EqOrganic, "CaOH-FA5", 0), 0);
    // Model 6 has no published Ag constant, Model 7 has one.
    EXPECT_LT(FindEquilibrium(chem, EqOrganic, "Ag-FA6", 0), 0);
    EXPECT_NEAR(Eq(chem, EqOrganic, "Ag-HA7", 0).logK, 1.44, kEps);

    // One fulvic and one humic component per model; the humic one's name
    // begins with "HA", and the fulvic one comes first.
    for (int code = Model5; code <= Model7; ++code) {
        std::vector<std::string> organics;
        for (const Component& k : chem.db().components)
            if (k.type == Organic && k.organicModel == code) organics.push_back(k.name);
        ASSERT_EQ(organics.size(), 2u);
        EXPECT_NE(organics[0].rfind("HA", 0), 0u);
        EXPECT_EQ(organics[1].rfind("HA", 0), 0u);
    }
}

TEST(RealDatabase, OrganicModelParametersArePerGramOfCarbon) {
    const ChemicalSystem& chem = RealChem();
    ASSERT_EQ(chem.db().Organic(Model5).values.size(), 12u);
    ASSERT_EQ(chem.db().Organic(Model6).values.size(), 13u);
    ASSERT_EQ(chem.db().Organic(Model7).values.size(), 13u);
    const auto& m6 = chem.db().Organic(Model6).values;
    // pK_A 3.2 (FA) and 4.1 (HA), as published.
    EXPECT_NEAR(m6[0][0], 3.2, kEps);
    EXPECT_NEAR(m6[0][1], 4.1, kEps);
    // n_A 4.8e-3 mol per g humic substance -> 9.6e-3 per g C; n_B half of it.
    EXPECT_NEAR(m6[6][0], 9.6e-3, 1e-15);
    EXPECT_NEAR(m6[7][0], 4.8e-3, 1e-15);
    // P -115 and -330 halved; radius unchanged; M 1500 halved; K_D 1000 halved.
    EXPECT_NEAR(m6[8][0], -57.5, kEps);
    EXPECT_NEAR(m6[8][1], -165, kEps);
    EXPECT_NEAR(m6[9][1], 1.72e-9, 1e-20);
    EXPECT_NEAR(m6[10][0], 750, kEps);
    EXPECT_NEAR(m6[11][1], 500, kEps);
    EXPECT_NEAR(m6[12][0], 0.25, kEps);
    // Model 5: share of sites in pairs at position 4, n_A at 5.
    const auto& m5 = chem.db().Organic(Model5).values;
    EXPECT_NEAR(m5[4][0], 0.40, kEps);
    EXPECT_NEAR(m5[5][1], 2 * 3.29e-3, 1e-15);
    // Model 7 humic P -196 halved.
    EXPECT_NEAR(chem.db().Organic(Model7).values[8][1], -98, kEps);
}

TEST(RealDatabase, FreeIonsCarryMolarMassesAndMsaDiameters) {
    const ChemicalSystem& chem = RealChem();
    const Component& ca = chem.db().components[Comp(chem, "Ca")];
    EXPECT_EQ(ca.type, Cation);
    EXPECT_EQ(ca.charge, 2);
    EXPECT_NEAR(ca.molarMass, 40.078, kEps);
    EXPECT_NEAR(ca.ionDiameter, 5.792e-10, 1e-20);  // fitted to CaCl2
    // Molar mass of the whole master species: CO3 = 12.0111 + 3 x 16.
    const Component& co3 = chem.db().components[Comp(chem, "CO3")];
    EXPECT_EQ(co3.type, Ligand);
    EXPECT_NEAR(co3.molarMass, 60.0111, kEps);
    EXPECT_NEAR(co3.ionDiameter, 4.5e-10, 1e-20);  // not fitted: Kielland's size
    EXPECT_NEAR(chem.db().components[Comp(chem, "H4SiO4")].molarMass, 28.0843 + 4 * 1.0079 + 4 * 16, kEps);
    EXPECT_NEAR(chem.db().components[0].ionDiameter, 4.855e-10, 1e-20);  // fitted to HCl
    // No published size: 0.
    EXPECT_EQ(chem.db().components[Comp(chem, "Edta")].ionDiameter, 0);
    // Neutral acids are ligands; the neutral metal Hg(0) is a cation.
    EXPECT_EQ(chem.db().components[Comp(chem, "H3BO3")].type, Ligand);
    EXPECT_EQ(chem.db().components[Comp(chem, "Hg(0)")].type, Cation);
}

}  // namespace
}  // namespace tormel
