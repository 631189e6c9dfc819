// Tests on the shipped raw database converted from the MINTEQA2 v4 data. The
// expected constants are taken by hand from minteq.v4.dat (line numbers in
// the comments) and turned into formation constants on our components.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
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
const Database& RealChem() {
    static const Database empty;
    const ChemicalSystem* chem = RealDatabase();
    if (!chem) ADD_FAILURE() << "the raw database in data/RawData could not be loaded";
    return chem ? chem->db() : empty;
}

// Index of the equilibrium of this type, name and charge; -1 when absent.
int FindEquilibrium(const Database& chem, EquilibriumType type, const std::string& name, int charge = 0) {
    for (int i = 0; i < chem.EquilibriumCount(); ++i) {
        const Equilibrium& e = chem.equilibria[i];
        if (e.type == type && e.name == name &&
            (e.charge == charge || type == EquilibriumType::Solid || type == EquilibriumType::Gas ||
             type == EquilibriumType::Redox))
            return i;
    }
    return -1;
}

int Comp(const Database& chem, const std::string& name) {
    int i = chem.FindComponent(name);
    EXPECT_GE(i, 0) << "component " << name;
    return i;
}

// The non-zero coefficients of an equilibrium by component name.
std::map<std::string, int> Terms(const Database& chem, int e) {
    std::map<std::string, int> out;
    for (int c = 0; c < chem.ComponentCount(); ++c)
        if (chem.Coefficient(c, e) != 0) out[chem.components[c].name] = chem.Coefficient(c, e);
    return out;
}

const Equilibrium& Eq(const Database& chem, EquilibriumType type, const std::string& name, int charge = 0) {
    int i = FindEquilibrium(chem, type, name, charge);
    if (i < 0) {
        ADD_FAILURE() << "equilibrium " << name << " (type " << CodeOf(type) << ", charge " << charge << ") missing";
        static const Equilibrium none;
        return none;
    }
    return chem.equilibria[i];
}

TEST(RealDatabase, LoadsWithoutMessagesAndKeepsTheLoaderInvariants) {
    ASSERT_NE(RealDatabase(), nullptr) << "the raw database in data/RawData could not be loaded";
    EXPECT_EQ(RealDatabaseMessages(), 0u) << "the loader warned (more than four components in an equilibrium?)";
    const Database& chem = RealDatabase()->db();
    ASSERT_GT(chem.ComponentCount(), 50);
    ASSERT_GT(chem.EquilibriumCount(), 1000);

    // H+ first, water first, electron and hydroxide found through the water.
    EXPECT_EQ(chem.components[0].name, "H");
    EXPECT_EQ(chem.components[0].type, ComponentType::Cation);
    EXPECT_EQ(chem.components[0].charge, 1);
    EXPECT_EQ(chem.hydrogenIndex, 0);
    EXPECT_EQ(chem.waterEquilibriumIndex, 0);
    EXPECT_EQ(chem.equilibria[0].type, EquilibriumType::Water);
    EXPECT_EQ(chem.equilibria[0].name, "H2O");
    ASSERT_GT(chem.hydroxideIndex, 0);
    EXPECT_EQ(chem.components[chem.hydroxideIndex].name, "OH");
    EXPECT_EQ(chem.components[chem.hydroxideIndex].charge, -1);
    EXPECT_EQ(chem.components[0].waterPartnerOfH, chem.hydroxideIndex);
    EXPECT_EQ(chem.components[chem.electronIndex].name, "e");
    EXPECT_EQ(chem.components[chem.electronIndex].type, ComponentType::Electron);
    EXPECT_LE(chem.maxComponentsPerEquilibrium, 4);

    // Types in range and grouped, so that every type range is one block.
    std::set<std::string> names;
    for (int c = 0; c < chem.ComponentCount(); ++c) {
        const Component& k = chem.components[c];
        EXPECT_GE(k.type, ComponentType::Cation);
        EXPECT_LE(k.type, ComponentType::Organic);
        if (c > 0) { EXPECT_GE(k.type, chem.components[c - 1].type) << k.name; }
        EXPECT_TRUE(names.insert(k.name).second) << "component name twice: " << k.name;
        if (k.type == ComponentType::Cation || k.type == ComponentType::Ligand) { EXPECT_GT(k.molarMass, 0) << k.name; }
        if (k.type == ComponentType::Organic) { EXPECT_TRUE(k.organicModel >= Model5 && k.organicModel <= Model7) << k.name; }
    }
    for (int e = 0; e < chem.EquilibriumCount(); ++e) {
        const Equilibrium& q = chem.equilibria[e];
        EXPECT_GE(q.type, EquilibriumType::Water);
        EXPECT_LE(q.type, EquilibriumType::Organic);
        if (e > 0) {
            const Equilibrium& p = chem.equilibria[e - 1];
            EXPECT_GE(q.type, p.type) << q.name;
            if (q.type == EquilibriumType::Organic && p.type == EquilibriumType::Organic) { EXPECT_GE(q.organicModel, p.organicModel) << q.name; }
        }
        int nonZero = 0;
        for (int c = 0; c < chem.ComponentCount(); ++c) nonZero += chem.Coefficient(c, e) != 0;
        EXPECT_EQ(nonZero, q.componentCount) << q.name;
        EXPECT_GE(q.componentCount, 1) << q.name;
        EXPECT_LE(q.componentCount, 4) << q.name;
        if (q.type == EquilibriumType::Redox || q.type == EquilibriumType::Gas) {
            EXPECT_GT(q.linkedComponent, 0) << q.name;
            EXPECT_EQ(q.linkedCoefficient, 1) << q.name;
            EXPECT_EQ(chem.Coefficient(q.linkedComponent, e), 0)
                << q.name << ": the linked component is not a term";
        }
        if (q.type == EquilibriumType::Gas) { EXPECT_EQ(chem.components[q.linkedComponent].type, ComponentType::Gas) << q.name; }
        if (q.type == EquilibriumType::Organic) {
            int organic = 0;
            for (int c = 0; c < chem.ComponentCount(); ++c)
                if (chem.Coefficient(c, e) != 0 && chem.components[c].type == ComponentType::Organic) {
                    ++organic;
                    EXPECT_EQ(chem.components[c].organicModel, q.organicModel) << q.name;
                }
            EXPECT_EQ(organic, 1) << q.name;
        }
    }
}

TEST(RealDatabase, EveryEquilibriumCarriesAResolvableLiteratureReference) {
    const Database& chem = RealChem();
    ASSERT_GT(chem.LiteratureReferenceCount(), 10);
    for (const Equilibrium& q : chem.equilibria) {
        EXPECT_GE(q.literatureRef, 0) << q.name;
        EXPECT_LT(q.literatureRef, chem.LiteratureReferenceCount()) << q.name;
    }
    std::set<std::string> lines;
    for (const std::string& line : chem.literature) {
        EXPECT_FALSE(line.empty());
        EXPECT_LE(line.size(), 258u) << line;
        EXPECT_TRUE(lines.insert(line).second) << "reference twice: " << line;
    }
    // Codes of known compilations are written out as citations.
    auto citation = [&](const Equilibrium& q) { return chem.literature[q.literatureRef].str(); };
    EXPECT_NE(citation(Eq(chem, EquilibriumType::Complex, "CaHCO3", 1)).find("NIST Critically Selected Stability Constants"),
              std::string::npos);
    EXPECT_NE(citation(Eq(chem, EquilibriumType::Redox, "Fe(II)")).find("Bard A.J."), std::string::npos);
    EXPECT_NE(citation(Eq(chem, EquilibriumType::Adsorption, "Hfo_wOZn", 1)).find("Dzombak"), std::string::npos);
    EXPECT_NE(citation(Eq(chem, EquilibriumType::Organic, "Cu(II)-HA6", 1)).find("Model VI"), std::string::npos);
    // The model's own reference is that of its organic equilibria.
    for (int code = Model5; code <= Model7; ++code) {
        int ref = chem.Organic(code).literatureRef;
        ASSERT_GT(ref, 0);
        EXPECT_NE(chem.literature[ref].str().find("Tipping"), std::string::npos);
    }
}

// One equilibrium as the source data give it, turned into a formation on our
// components; NaN, kAny and empty fields are not checked.
constexpr int kAny = -999;
const double kNaN = std::numeric_limits<double>::quiet_NaN();
struct Expected {
    const char* source;  // the reaction in minteq.v4.dat (line)
    EquilibriumType type;
    const char* name;
    int charge;
    double logK;
    double enthalpy;  // J/mol
    int deltaZ2;
    std::map<std::string, int> terms;
    const char* linked = nullptr;  // the component a redox or gas equilibrium gives
};

TEST(RealDatabase, EquilibriaMatchTheSourceDataAsFormationsOnTheComponents) {
    const Database& chem = RealChem();
    const Expected cases[] = {
        {"4824: Ca+2 + H+ + CO3-2 = CaHCO3+, 11.599, 5.4 kJ", EquilibriumType::Complex, "CaHCO3", 1, 11.599, 5400, 4 + 1 + 4 - 1,
         {{"Ca", 1}, {"H", 1}, {"CO3", 1}}},
        {"1486: Al+3 + 4 F- = AlF4-, 19.4, 8.7 kJ", EquilibriumType::Complex, "AlF4", -1, 19.4, 8700, 9 + 4 - 1, {{"Al", 1}, {"F", 4}}},
        {"4608: 2 H+ + CO3-2 = H2CO3", EquilibriumType::Complex, "H2CO3", 0, 16.681, kNaN, kAny, {}},
        {"3104: Fe(III) sulphate, same formula as Fe(II)'s, told by charge", EquilibriumType::Complex, "FeSO4", 1, 4.05, kNaN, kAny,
         {{"Fe(III)", 1}, {"SO4", 1}}},
        {"Fe(II) sulphate", EquilibriumType::Complex, "FeSO4", 0, kNaN, kNaN, kAny, {{"Fe(II)", 1}, {"SO4", 1}}},
        {"534: H2O = OH- + H+, -13.997, written as H+ + OH- = H2O", EquilibriumType::Water, "H2O", 0, 13.997, -55810, 2,
         {{"H", 1}, {"OH", 1}}},
        {"542: Hg(OH)2 + 2 H+ = Hg+2 + 2 H2O, 6.194, -39.72 kJ, on the free ion", EquilibriumType::Complex, "Hg(OH)2", 0, -6.194, 39720,
         kAny, {{"Hg(II)", 1}, {"H", -2}}},
        {"1990: Hg(OH)2 + 2 H+ + Cl- = HgCl+ + 2 H2O, 13.494, -62.72 kJ, less Hg(OH)2's", EquilibriumType::Complex, "HgCl", 1,
         13.494 - 6.194, -62720 + 39720, 4 + 1 - 1, {{"Hg(II)", 1}, {"Cl", 1}}},
        {"HS- = S-2 + H+, on HS-", EquilibriumType::Complex, "S", -2, kNaN, kNaN, 1 - 1 - 4, {{"HS", 1}, {"H", -1}}},
        {"281: Fe+3 + e- = Fe+2, 13.032, -42.7 kJ; the electron counts with charge -1", EquilibriumType::Redox, "Fe(II)", 0, 13.032,
         -42700, 9 + 1 - 4, {{"Fe(III)", 1}, {"e", 1}}, "Fe(II)"},
        {"SO4-2 + 9 H+ + 8 e- = HS- + 4 H2O, 33.66", EquilibriumType::Redox, "HS", 0, 33.66, kNaN, kAny,
         {{"SO4", 1}, {"H", 9}, {"e", 8}}, "HS"},
        {"Cr(OH)2+ + 2 H+ + e- = Cr+2 (2.947) less Cr(OH)2+ + 2 H+ = Cr+3 (9.5688)", EquilibriumType::Redox, "Cr(II)", 0,
         2.947 - 9.5688, kNaN, kAny, {}},
        {"0.5 Hg2+2 + e- = Hg (6.5667) through 2 Hg(OH)2 + 4 H+ + 2 e- = Hg2+2 (43.185)", EquilibriumType::Redox, "Hg(0)", 0,
         (43.185 - 2 * 6.194) / 2 + 6.5667, kNaN, kAny, {{"Hg(II)", 1}, {"e", 2}}},
        {"12618: CO2 + H2O = 2 H+ + CO3-2, -18.147, 4.06 kJ, stored as the gas's formation", EquilibriumType::Gas, "CO2(g)", 0, 18.147,
         -4060, 4 + 2, {{"CO3", 1}, {"H", 2}}, "CO2(g)"},
        {"H2S = H+ + HS-, -8.01", EquilibriumType::Gas, "H2S(g)", 0, 8.01, kNaN, kAny, {}},
        {"11693: CaCO3 = Ca+2 + CO3-2, -8.48, -8 kJ", EquilibriumType::Solid, "Calcite", 0, 8.48, 8000, 8, {{"Ca", 1}, {"CO3", 1}}},
        {"11965: CaSO4:2H2O = Ca+2 + SO4-2 + 2 H2O, -4.61 (water drops out)", EquilibriumType::Solid, "Gypsum", 0, 4.61, kNaN, kAny, {}},
        {"10993: Fe(OH)3 + 3 H+ = Fe+3 + 3 H2O, 3.191", EquilibriumType::Solid, "Ferrihydrite", 0, -3.191, kNaN, 9 - 3,
         {{"Fe(III)", 1}, {"H", -3}}},
        {"10425: Ag = Ag+ + e-: the electron like a singly charged ion", EquilibriumType::Solid, "Agmetal", 0, kNaN, kNaN, 1 + 1, {}},
        {"12804: Hfo_wOH + Zn+2 = Hfo_wOZn+ + H+, -1.99; only dissolved charges count", EquilibriumType::Adsorption, "Hfo_wOZn", 1,
         -1.99, kNaN, 4 - 1, {{"Hfo_wOH", 1}, {"Zn", 1}, {"H", -1}}},
        {"12720: Hfo_sOH + Ca+2 = Hfo_sOHCa+2, 4.97", EquilibriumType::Adsorption, "Hfo_sOHCa", 2, 4.97, kNaN, 4, {}},
        {"Hfo_wOH + H+ = Hfo_wOH2+, 7.29", EquilibriumType::Adsorption, "Hfo_wOH2", 1, kNaN, kNaN, 1, {}},
        {"Hfo_wOH = Hfo_wO- + H+, -8.93", EquilibriumType::Adsorption, "Hfo_wO", -1, -8.93, kNaN, -1, {}},
        {"Model VI humic acid, Cu: log KMA 2.0", EquilibriumType::Organic, "Cu(II)-HA6", 1, 2.0, kNaN, kAny,
         {{"Cu(II)", 1}, {"HA6", 1}}},
        {"its hydrolysed form binds with the same constant", EquilibriumType::Organic, "Cu(II)OH-HA6", 0, 2.0, kNaN, kAny,
         {{"Cu(II)", 1}, {"H", -1}, {"HA6", 1}}},
        {"Model VII fulvic acid, Cu: log KMA 2.16", EquilibriumType::Organic, "Cu(II)-FA7", 1, 2.16, kNaN, kAny, {}},
        {"Model V fulvic acid, Ca: pKMHA 2.2", EquilibriumType::Organic, "Ca-FA5", 1, 2.2, kNaN, kAny, {}},
        {"Model VII's Ag constant", EquilibriumType::Organic, "Ag-HA7", 0, 1.44, kNaN, kAny, {}},
    };
    for (const Expected& c : cases) {
        SCOPED_TRACE(c.source);
        const int e = FindEquilibrium(chem, c.type, c.name, c.charge);
        ASSERT_GE(e, 0) << c.name << " missing";
        const Equilibrium& q = chem.equilibria[e];
        if (!std::isnan(c.logK)) { EXPECT_NEAR(q.logK, c.logK, kEps); }
        if (!std::isnan(c.enthalpy)) {
            EXPECT_TRUE(q.hasEnthalpy);
            EXPECT_NEAR(q.enthalpy, c.enthalpy, 1e-6);
        }
        if (c.deltaZ2 != kAny) { EXPECT_EQ(q.deltaZ2, c.deltaZ2); }
        if (!c.terms.empty()) { EXPECT_EQ(Terms(chem, e), c.terms); }
        if (c.linked) { EXPECT_EQ(q.linkedComponent, Comp(chem, c.linked)); }
    }
    // A solid named like an aqueous species is still the solid; fractional
    // stoichiometry is left out, and so are constants that were never published.
    EXPECT_GE(FindEquilibrium(chem, EquilibriumType::Solid, "Hg(OH)2"), 0);
    EXPECT_LT(FindEquilibrium(chem, EquilibriumType::Solid, "Fe(OH)2.7Cl.3"), 0);
    EXPECT_LT(FindEquilibrium(chem, EquilibriumType::Organic, "CaOH-FA5", 0), 0);
    EXPECT_LT(FindEquilibrium(chem, EquilibriumType::Organic, "Ag-FA6", 0), 0);
    // The MSA size of a complex where one is known (HCO3-, the fitted NO3- diameter).
    EXPECT_NEAR(Eq(chem, EquilibriumType::Complex, "HCO3", -1).complexDiameter, 2.001e-10, 1e-20);
}

TEST(RealDatabase, LinkedComponentsAndOrganicModelsAreSetUp) {
    const Database& chem = RealChem();
    // The loader chains each redox group and pairs each gas with its ligand.
    EXPECT_EQ(chem.components[Comp(chem, "Fe(III)")].redoxNext, Comp(chem, "Fe(II)"));
    EXPECT_EQ(chem.components[Comp(chem, "SO4")].redoxNext + chem.components[Comp(chem, "SO4")].redoxPrev,
              Comp(chem, "HS"));
    const int gas = Comp(chem, "CO2(g)");
    EXPECT_EQ(chem.components[gas].type, ComponentType::Gas);
    EXPECT_EQ(chem.components[gas].linkedLigand, Comp(chem, "CO3"));
    EXPECT_EQ(chem.components[Comp(chem, "CO3")].gasPartner, gas);
    EXPECT_EQ(chem.components[Comp(chem, "Hfo_wOH")].type, ComponentType::Ads);
    EXPECT_EQ(chem.components[Comp(chem, "Hfo_sOH")].type, ComponentType::Ads);

    // Organic equilibria carry their model and the published delta LK1 / LK2.
    const Equilibrium& cu6 = Eq(chem, EquilibriumType::Organic, "Cu(II)-HA6", 1);
    EXPECT_EQ(cu6.organicModel, Model6);
    EXPECT_NEAR(cu6.organicReal1, 2.8, kEps);
    EXPECT_NEAR(cu6.organicReal2, 2.34, kEps);
    const Equilibrium& cu7 = Eq(chem, EquilibriumType::Organic, "Cu(II)-FA7", 1);
    EXPECT_EQ(cu7.organicModel, Model7);
    EXPECT_NEAR(cu7.organicReal2, 2.34, kEps);
    // One fulvic and one humic component per model; the humic one's name
    // begins with "HA", and the fulvic one comes first.
    for (int code = Model5; code <= Model7; ++code) {
        std::vector<std::string> organics;
        for (const Component& k : chem.components)
            if (k.type == ComponentType::Organic && k.organicModel == code) organics.push_back(k.name);
        ASSERT_EQ(organics.size(), 2u);
        EXPECT_NE(organics[0].rfind("HA", 0), 0u);
        EXPECT_EQ(organics[1].rfind("HA", 0), 0u);
    }
}

TEST(RealDatabase, OrganicModelParametersArePerGramOfCarbon) {
    const Database& chem = RealChem();
    ASSERT_EQ(chem.Organic(Model5).values.size(), 12u);
    ASSERT_EQ(chem.Organic(Model6).values.size(), 13u);
    ASSERT_EQ(chem.Organic(Model7).values.size(), 13u);
    // {model, parameter, fraction (0 fulvic, 1 humic), value per g C, as published per g humic substance}
    const struct {
        int model, parameter, fraction;
        double value;
        const char* what;
    } cases[] = {
        {Model6, 0, 0, 3.2, "pK_A of FA"},
        {Model6, 0, 1, 4.1, "pK_A of HA"},
        {Model6, 6, 0, 9.6e-3, "n_A 4.8e-3 per g"},
        {Model6, 7, 0, 4.8e-3, "n_B half of n_A"},
        {Model6, 8, 0, -57.5, "P -115 halved"},
        {Model6, 8, 1, -165, "P -330 halved"},
        {Model6, 9, 1, 1.72e-9, "radius unchanged"},
        {Model6, 10, 0, 750, "M 1500 halved"},
        {Model6, 11, 1, 500, "K_D 1000 halved"},
        {Model6, 12, 0, 0.25, ""},
        {Model5, 4, 0, 0.40, "share of sites in pairs"},
        {Model5, 5, 1, 2 * 3.29e-3, "n_A"},
        {Model7, 8, 1, -98, "humic P -196 halved"},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(chem.Organic(c.model).values[c.parameter][c.fraction], c.value, 1e-12 * std::fabs(c.value))
            << c.what << " (model " << c.model << ", parameter " << c.parameter << ")";
}

TEST(RealDatabase, FreeIonsCarryMolarMassesAndMsaDiameters) {
    const Database& chem = RealChem();
    const Component& ca = chem.components[Comp(chem, "Ca")];
    EXPECT_EQ(ca.type, ComponentType::Cation);
    EXPECT_EQ(ca.charge, 2);
    EXPECT_NEAR(ca.molarMass, 40.078, kEps);
    EXPECT_NEAR(ca.ionDiameter, 5.792e-10, 1e-20);  // fitted to CaCl2
    // Molar mass of the whole master species: CO3 = 12.0111 + 3 x 16.
    const Component& co3 = chem.components[Comp(chem, "CO3")];
    EXPECT_EQ(co3.type, ComponentType::Ligand);
    EXPECT_NEAR(co3.molarMass, 60.0111, kEps);
    EXPECT_NEAR(co3.ionDiameter, 4.5e-10, 1e-20);  // not fitted: Kielland's size
    EXPECT_NEAR(chem.components[Comp(chem, "H4SiO4")].molarMass, 28.0843 + 4 * 1.0079 + 4 * 16, kEps);
    EXPECT_NEAR(chem.components[0].ionDiameter, 4.855e-10, 1e-20);  // fitted to HCl
    // No published size: 0.
    EXPECT_EQ(chem.components[Comp(chem, "Edta")].ionDiameter, 0);
    // Neutral acids are ligands; the neutral metal Hg(0) is a cation.
    EXPECT_EQ(chem.components[Comp(chem, "H3BO3")].type, ComponentType::Ligand);
    EXPECT_EQ(chem.components[Comp(chem, "Hg(0)")].type, ComponentType::Cation);
}

}  // namespace
}  // namespace tormel
