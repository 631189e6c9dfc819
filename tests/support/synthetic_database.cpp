#include "support/synthetic_database.h"

#include <filesystem>
#include <stdexcept>

#include "support/database_builder.h"

namespace tormel::test {

namespace {

int32_t AddComponent(Database& chem, ComponentType type, const std::string& name, int32_t charge, double mass = 0,
                     double diameter = 0, int32_t model = 0) {
    Component c = MakeComponent(type, name, (type == ComponentType::RedSol || type == ComponentType::Gas) ? 0 : charge, mass, diameter);
    c.organicModel = model;
    chem.components.push_back(c);
    return static_cast<int32_t>(chem.components.size() - 1);
}

Equilibrium Eq(EquilibriumType type, const std::string& name, int32_t charge, double logK, int32_t deltaZ2, int32_t literature) {
    Equilibrium q = MakeEquilibrium(type, name, charge, logK);
    q.deltaZ2 = deltaZ2;
    q.literatureRef = literature;
    return q;
}

}  // namespace

Database SyntheticDatabase() {
    Database chem;
    const int32_t h = AddComponent(chem, ComponentType::Cation, "H", 1, 1.008, 9e-10);
    const int32_t oh = AddComponent(chem, ComponentType::Ligand, "OH", -1, 17.007, 3.5e-10);
    const int32_t e = AddComponent(chem, ComponentType::Electron, "e", -1);
    const int32_t co3 = AddComponent(chem, ComponentType::Ligand, "CO3", -2, 60.009, 4.5e-10);
    const int32_t cl = AddComponent(chem, ComponentType::Ligand, "Cl", -1, 35.453, 3e-10);
    const int32_t ca = AddComponent(chem, ComponentType::Cation, "Ca", 2, 40.078, 6e-10);  // first cation after H+: index 5
    const int32_t fe2 = AddComponent(chem, ComponentType::Cation, "Fe(II)", 2, 55.845, 6e-10);
    const int32_t fe3 = AddComponent(chem, ComponentType::Cation, "Fe(III)", 3, 55.845, 9e-10);
    const int32_t hfo = AddComponent(chem, ComponentType::Ads, "Hfo_wOH", 0);
    const int32_t mno2 = AddComponent(chem, ComponentType::RedSol, "MnO2(s)", 99, 86.94);
    const int32_t mn = AddComponent(chem, ComponentType::Cation, "Mn(II)", 2, 54.938, 6e-10);
    const int32_t co2g = AddComponent(chem, ComponentType::Gas, "CO2(g)", 99);
    const int32_t fa5 = AddComponent(chem, ComponentType::Organic, "FA5", 0, 0, 0, Model5);
    const int32_t ha5 = AddComponent(chem, ComponentType::Organic, "HA5", 0, 0, 0, Model5);
    const int32_t fa7 = AddComponent(chem, ComponentType::Organic, "FA7", 0, 0, 0, Model7);
    const int32_t ha7 = AddComponent(chem, ComponentType::Organic, "HA7", 0, 0, 0, Model7);
    (void)fa5, (void)ha5, (void)ha7;

    chem.literature = {"Reference one", "Nordstrom et al. (1990)", "Smith and Martell (2004) NIST 46",
                       "Tipping (1998) Humic ion-binding model VI"};

    // water: H2O = H+ + OH-, written as the formation of water
    AppendEquilibrium(chem, Eq(EquilibriumType::Water, "H2O", 0, 14.0, -2, 1), {{h, 1}, {oh, 1}});
    AppendEquilibrium(chem, Eq(EquilibriumType::Complex, "HCO3", -1, 10.329, -4, 2), {{h, 1}, {co3, 1}});
    chem.equilibria.back().hasEnthalpy = true;
    chem.equilibria.back().enthalpy = -14900;
    chem.equilibria.back().complexDiameter = 4e-10;
    AppendEquilibrium(chem, Eq(EquilibriumType::Complex, "CaCO3", 0, 3.22, -8, 2), {{ca, 1}, {co3, 1}});
    AppendEquilibrium(chem, Eq(EquilibriumType::Complex, "CaHCO3", 1, 11.43, -6, 2), {{ca, 1}, {h, 1}, {co3, 1}});
    AppendEquilibrium(chem, Eq(EquilibriumType::Adsorption, "Hfo_wOCa", 1, 5.0, 3, -1), {{hfo, 1}, {ca, 1}, {h, -1}});
    // Redox and gas equilibria hold their linked component in the link, not in
    // the stoichiometry: Fe(II) - e = Fe(III), Mn(II) - 4 H - 2 e = MnO2(s),
    // CO3 + 2 H = CO2(g).
    Equilibrium fe = Eq(EquilibriumType::Redox, "Fe(III)/Fe(II)", 0, -13.02, 0, 1);
    fe.linkedComponent = fe3;
    fe.linkedCoefficient = 1;
    AppendEquilibrium(chem, fe, {{fe2, 1}, {e, -1}});
    Equilibrium mnq = Eq(EquilibriumType::Redox, "Mn(II)/MnO2(s)", 0, 41.38, 0, 0);
    mnq.linkedComponent = mno2;
    mnq.linkedCoefficient = 1;
    AppendEquilibrium(chem, mnq, {{mn, 1}, {h, -4}, {e, -2}});
    Equilibrium gas = Eq(EquilibriumType::Gas, "CO2(g)", 0, -18.147, 0, 3);
    gas.linkedComponent = co2g;
    gas.linkedCoefficient = 1;
    AppendEquilibrium(chem, gas, {{co3, 1}, {h, 2}});
    AppendEquilibrium(chem, Eq(EquilibriumType::Solid, "Calcite", 0, 8.48, -8, 2), {{ca, 1}, {co3, 1}});
    AppendEquilibrium(chem, Eq(EquilibriumType::Complex, "FeCl(CO3)OH", -2, 4.0, 0, 0), {{fe3, 1}, {cl, 1}, {co3, 1}, {oh, 1}});
    Equilibrium org5 = Eq(EquilibriumType::Organic, "FA5-Ca", 2, -3.2, 0, 0);
    org5.organicModel = Model5;
    AppendEquilibrium(chem, org5, {{ca, 1}, {fa5, 1}});
    Equilibrium org7 = Eq(EquilibriumType::Organic, "FA7-Ca", 2, -2.5, 0, 3);
    org7.organicModel = Model7;
    org7.organicReal2 = 1.7;
    AppendEquilibrium(chem, org7, {{ca, 1}, {fa7, 1}});

    for (int32_t model = Model5; model <= Model7; ++model) {
        OrganicModelParameters& p = chem.Organic(model);
        p.values.resize(static_cast<size_t>(OrganicParameterCount(model)));
        for (size_t k = 0; k < p.values.size(); ++k) p.values[k] = {0.5 + static_cast<double>(k), -1.25 * model};
    }
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
