// Tests on the shipped raw database converted from the MINTEQA2 v4 data. The
// expected constants are taken by hand from minteq.v4.dat (line numbers in
// the golden copy's comments) and turned into formation constants on our
// components.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <set>
#include <string>

#include "calc/real_database.h"
#include "core/c_number.h"
#include "output/golden_file.h"

namespace tormel {
namespace {

using test::RealDatabase;
using test::RealDatabaseMessages;

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
    EXPECT_EQ(chem.components[0].name, "H");  // its type and charge: the golden copy
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
        // a record listing a component twice, or with a coefficient 0, would not match its count
        int nonZero = 0;
        for (int c = 0; c < chem.ComponentCount(); ++c) nonZero += chem.Coefficient(c, e) != 0;
        EXPECT_EQ(nonZero, q.componentCount) << q.name;
        EXPECT_GE(q.componentCount, 1) << q.name;
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

std::string Number(double value) { return FormatC("%.10g", value); }

// What the database holds for one case of tests/data/golden/real_database.txt.
std::string Described(const Database& chem, std::istringstream what) {
    std::string kind, name;
    what >> kind;
    if (kind == "component") {
        what >> name;
        const Component& k = chem.components[Comp(chem, name)];
        return "type " + std::to_string(CodeOf(k.type)) + ", charge " + std::to_string(k.charge) + ", molar mass " +
               Number(k.molarMass) + ", diameter " + Number(k.ionDiameter);
    }
    if (kind == "organic") {
        int model = 0, parameter = 0, fraction = 0;
        what >> model >> parameter >> fraction;
        return Number(chem.Organic(Model5 + model - 5).values.at(parameter)[fraction]);
    }
    static const std::vector<std::string> types = {"", "Water", "Complex", "Adsorption", "Redox", "Gas", "Solid", "Organic"};
    std::string type;
    int charge = 0;
    what >> type >> name >> charge;
    const auto code = std::find(types.begin(), types.end(), type) - types.begin();
    const int e = FindEquilibrium(chem, static_cast<EquilibriumType>(code), name, charge);
    if (e < 0) return "absent";
    const Equilibrium& q = chem.equilibria[e];
    std::string text = "log K " + Number(q.logK) + ", enthalpy " + (q.hasEnthalpy ? Number(q.enthalpy) : "-") +
                       ", dz2 " + std::to_string(q.deltaZ2) + ",";
    for (const auto& [component, coefficient] : Terms(chem, e)) text += " " + std::to_string(coefficient) + " " + component;
    if (q.linkedComponent > 0) text += ", gives " + chem.components[q.linkedComponent].name;
    if (q.complexDiameter > 0) text += ", diameter " + Number(q.complexDiameter);
    if (q.type == EquilibriumType::Organic)  // its model and the published delta LK1 / LK2
        text += ", model " + std::to_string(q.organicModel) + ", " + Number(q.organicReal1) + " / " + Number(q.organicReal2);
    return text;
}

TEST(RealDatabase, EquilibriaComponentsAndOrganicParametersAsTheirGoldenCopySays) {
    const Database& chem = RealChem();
    std::ifstream in(std::string(TORMEL_TEST_DATA) + "/golden/real_database.txt");
    std::string report, what;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("== ")) what = line.substr(3);
        if (line.starts_with("-> ")) line = "-> " + Described(chem, std::istringstream(what));
        report += line + "\n";
    }
    test::ExpectMatchesGolden(report, "real_database.txt");
}

TEST(RealDatabase, LinkedComponentsAndOrganicComponentsAreSetUp) {
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

}  // namespace
}  // namespace tormel
