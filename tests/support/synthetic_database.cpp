#include "support/synthetic_database.h"

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <stdexcept>

#include "core/database_reader_support.h"
#include "support/database_builder.h"

namespace tormel::test {

namespace {

Component OrganicComponent(const char* name, int32_t model) {
    Component c = MakeComponent(ComponentType::Organic, name, 0);
    c.organicModel = model;
    return c;
}

// Appends an equilibrium; its charge term is that of the shipped database:
// the sum of coefficient x charge^2 less the species' own charge^2 (surface
// species carry no activity coefficient, so theirs stays in).
Equilibrium& Add(Database& chem, EquilibriumType type, const char* name, int32_t charge, double logK,
                 std::initializer_list<ReactionTerm> terms, int32_t literature = -1) {
    Equilibrium e = MakeEquilibrium(type, name, charge, logK);
    e.literatureRef = literature;
    const int32_t dz2 = ChargeSquareSum(chem, terms);
    e.deltaZ2 = type == EquilibriumType::Adsorption ? dz2 : dz2 - charge * charge;
    return chem.equilibria[static_cast<size_t>(AppendEquilibrium(chem, e, terms))];
}

Equilibrium& WithEnthalpy(Equilibrium& e, double enthalpy) {
    e.hasEnthalpy = true;
    e.enthalpy = enthalpy;
    return e;
}

Equilibrium& Linked(Equilibrium& e, int32_t component) {
    e.linkedComponent = component;
    e.linkedCoefficient = 1;
    return e;
}

// What the loader records once the files are read: type ranges (nothing
// starts at index 0), the water pair, the largest reaction, each organic
// model's first literature reference past the first one, then the links.
void RecordAsTheLoaderDoes(Database& chem) {
    for (int32_t i = 0; i < chem.ComponentCount(); ++i) {
        const Component& c = chem.components[static_cast<size_t>(i)];
        if (c.type == ComponentType::Organic)
            ExtendTypeRange(chem.organicComponentRange[c.organicModel - Model5], i);
        else if (c.type == ComponentType::Electron)
            chem.electronIndex = i;
        else
            ExtendTypeRange(chem.componentRange[c.type], i);
    }
    for (int32_t e = 0; e < chem.EquilibriumCount(); ++e) {
        const Equilibrium& q = chem.equilibria[static_cast<size_t>(e)];
        chem.maxComponentsPerEquilibrium = std::max(chem.maxComponentsPerEquilibrium, q.componentCount);
        if (q.type == EquilibriumType::Organic) {
            ExtendTypeRange(chem.organicEquilibriumRange[q.organicModel - Model5], e);
            OrganicModelParameters& p = chem.Organic(q.organicModel);
            if (p.literatureRef == 0 && q.literatureRef > 0) p.literatureRef = q.literatureRef;
        } else if (q.type != EquilibriumType::Water) {
            ExtendTypeRange(chem.equilibriumRange[q.type], e);
        }
    }
    chem.waterEquilibriumIndex = kWater;
    chem.hydrogenIndex = kH;
    chem.hydroxideIndex = kOH;
    chem.components[kH].waterPartnerOfH = kOH;
    chem.components[kOH].waterPartnerOfOH = kH;
    LinkDatabase(chem);
}

}  // namespace

Database SyntheticDatabase() {
    Database chem;
    chem.components = {
        MakeComponent(ComponentType::Cation, "H", 1, 0, 9e-10),
        MakeComponent(ComponentType::Cation, "Na", 1, 0, 4.0e-10),
        MakeComponent(ComponentType::Cation, "Ca", 2, 0, 6e-10),
        MakeComponent(ComponentType::Cation, "Fe(II)", 2),
        MakeComponent(ComponentType::Cation, "Fe(III)", 3),
        MakeComponent(ComponentType::Cation, "Mn(II)", 2, 54.938, 6e-10),
        MakeComponent(ComponentType::Electron, "e", -1),
        MakeComponent(ComponentType::Ligand, "OH", -1),
        MakeComponent(ComponentType::Ligand, "Cl", -1, 0, 3.6e-10),
        MakeComponent(ComponentType::Ligand, "CO3", -2, 0, 4.5e-10),
        MakeComponent(ComponentType::Ads, "Hfo_wOH", 0),
        MakeComponent(ComponentType::RedSol, "MnO2(s)", 0, 86.94),
        MakeComponent(ComponentType::Gas, "CO2(g)", 0),
        OrganicComponent("FA5", Model5),
        OrganicComponent("HA5", Model5),
        OrganicComponent("FA7", Model7),
        OrganicComponent("HA7", Model7),
    };
    chem.literature = {"Reference one", "Nordstrom et al. (1990)", "Smith and Martell (2004) NIST 46",
                       "Tipping (1998) Humic ion-binding model VI"};

    WithEnthalpy(Add(chem, EquilibriumType::Water, "H2O", 0, 14.0, {{kH, 1}, {kOH, 1}}, 0), -55840);
    WithEnthalpy(Add(chem, EquilibriumType::Complex, "NaCl", 0, 0.3, {{kNa, 1}, {kCl, 1}}), 2000);
    WithEnthalpy(Add(chem, EquilibriumType::Complex, "CaCl+", 1, 0.4, {{kCa, 1}, {kCl, 1}}), 8000);
    WithEnthalpy(Add(chem, EquilibriumType::Complex, "HCO3-", -1, 10.33, {{kH, 1}, {kCO3, 1}}, 1), -14900);
    WithEnthalpy(Add(chem, EquilibriumType::Complex, "H2CO3", 0, 16.681, {{kH, 2}, {kCO3, 1}}), -24000);
    WithEnthalpy(Add(chem, EquilibriumType::Complex, "CaCO3", 0, 3.22, {{kCa, 1}, {kCO3, 1}}, 2), 14800);
    Add(chem, EquilibriumType::Complex, "CaOH+", 1, -12.78, {{kCa, 1}, {kH, -1}});  // enthalpy unknown
    WithEnthalpy(Add(chem, EquilibriumType::Complex, "FeCl+2", 2, 1.48, {{kFe3, 1}, {kCl, 1}}), 23000);
    WithEnthalpy(Add(chem, EquilibriumType::Complex, "FeOH+", 1, -9.5, {{kFe2, 1}, {kH, -1}}), 55000);
    Add(chem, EquilibriumType::Complex, "MnCl(CO3)OH-2", -2, 4.0, {{kMn2, 1}, {kCl, 1}, {kCO3, 1}, {kOH, 1}}).complexDiameter = 4e-10;
    Add(chem, EquilibriumType::Adsorption, "Hfo_wOH2+", 1, 7.29, {{kH, 1}, {kSite, 1}});
    Add(chem, EquilibriumType::Adsorption, "Hfo_wOCa+", 1, -5.85, {{kH, -1}, {kCa, 1}, {kSite, 1}});
    // Redox and gas equilibria hold their linked component in the link, not in
    // the stoichiometry: Fe(II) - e = Fe(III), Mn(II) - 4 H - 2 e = MnO2(s),
    // 2 H + CO3 = CO2(g).
    Linked(Add(chem, EquilibriumType::Redox, "Fe+3", 0, -13.02, {{kFe2, 1}, {kElectron, -1}}, 1), kFe3);
    Linked(Add(chem, EquilibriumType::Redox, "Mn(II)/MnO2(s)", 0, 41.38, {{kMn2, 1}, {kH, -4}, {kElectron, -2}}, 0), kMnO2);
    Linked(WithEnthalpy(Add(chem, EquilibriumType::Gas, "CO2(g)", 0, 18.147, {{kH, 2}, {kCO3, 1}}, 2), -24000), kCO2Gas);
    Add(chem, EquilibriumType::Solid, "Rhodochrosite", 0, 10.58, {{kMn2, 1}, {kCO3, 1}}, 2);
    Equilibrium& fa5 = Add(chem, EquilibriumType::Organic, "FA5-Ca", 2, -3.2, {{kCa, 1}, {kFA5, 1}}, 0);
    fa5.organicModel = Model5;
    Equilibrium& fa7 = Add(chem, EquilibriumType::Organic, "FA7-Ca", 2, -2.5, {{kCa, 1}, {kFA7, 1}}, 3);
    fa7.organicModel = Model7;
    fa7.organicReal2 = 1.7;

    for (int32_t model = Model5; model <= Model7; ++model) {
        OrganicModelParameters& p = chem.Organic(model);
        p.values.resize(static_cast<size_t>(OrganicParameterCount(model)));
        for (size_t k = 0; k < p.values.size(); ++k) p.values[k] = {0.5 + static_cast<double>(k), -1.25 * model};
    }
    RecordAsTheLoaderDoes(chem);
    return chem;
}

std::array<DatabaseFileHeader, 6> SyntheticHeaders(const std::string& version) {
    return {DatabaseFileHeader{"Synthetic components", version}, {"Synthetic equilibria", version},
            {"Synthetic literature", version},                   {"Synthetic Model 5", version},
            {"Synthetic Model 6", version},                      {"Synthetic Model 7", version}};
}

void WriteSyntheticWorkingCopies(const Database& chem, const std::string& dataFolder, const std::string& version) {
    std::filesystem::create_directories(dataFolder);
    if (!WriteDatabaseFiles(chem, dataFolder, "D64", SyntheticHeaders(version), {}))
        throw std::runtime_error("cannot write the synthetic database");
}

void WriteSyntheticRawData(const Database& chem, const std::string& programFolder, const std::string& version) {
    std::filesystem::create_directories(programFolder + "RawData");
    if (!WriteDatabaseFiles(chem, programFolder + "RawData/", "RW64", SyntheticHeaders(version), {}))
        throw std::runtime_error("cannot write the synthetic raw data");
}

}  // namespace tormel::test
