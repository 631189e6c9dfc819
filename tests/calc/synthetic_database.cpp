#include "calc/synthetic_database.h"

#include <initializer_list>

#include "support/database_builder.h"

namespace tormel::test {

namespace {

void AddEquilibrium(Database& chem, EquilibriumType type, const char* name, int32_t charge, double logK,
                    std::initializer_list<ReactionTerm> terms, double enthalpy = 0, bool hasEnthalpy = false) {
    Equilibrium e = MakeEquilibrium(type, name, charge, logK);
    e.hasEnthalpy = hasEnthalpy;
    e.enthalpy = enthalpy;
    const int32_t dz2 = ChargeSquareSum(chem, terms);
    // surface species carry no activity coefficient: their own charge stays out
    e.deltaZ2 = type == EquilibriumType::Adsorption ? dz2 : dz2 - charge * charge;
    AppendEquilibrium(chem, e, terms);
}

}  // namespace

Database BuildSyntheticDatabase() {
    Database chem;
    chem.components = {
        MakeComponent(ComponentType::Cation, "H", 1, 0, 9e-10),      MakeComponent(ComponentType::Cation, "Na", 1, 0, 4.0e-10),
        MakeComponent(ComponentType::Cation, "Ca", 2, 0, 6e-10),     MakeComponent(ComponentType::Cation, "Fe(II)", 2),
        MakeComponent(ComponentType::Cation, "Fe(III)", 3),         MakeComponent(ComponentType::Electron, "e", -1),
        MakeComponent(ComponentType::Ligand, "OH", -1),             MakeComponent(ComponentType::Ligand, "Cl", -1, 0, 3.6e-10),
        MakeComponent(ComponentType::Ligand, "CO3", -2, 0, 4.5e-10), MakeComponent(ComponentType::Ads, "Hfo_wOH", 0),
        MakeComponent(ComponentType::Gas, "CO2(g)", 0),
    };
    chem.components[kH].waterPartnerOfH = kOH;
    chem.components[kFe2].redoxNext = kFe3;
    chem.components[kFe3].redoxPrev = kFe2;
    chem.components[kCO3].gasPartner = kCO2Gas;
    chem.components[kCO2Gas].linkedLigand = kCO3;
    chem.hydrogenIndex = kH;
    chem.hydroxideIndex = kOH;
    chem.electronIndex = kElectron;
    chem.waterEquilibriumIndex = kWater;

    AddEquilibrium(chem, EquilibriumType::Water, "H2O", 0, 14.0, {{kH, 1}, {kOH, 1}}, -55840, true);
    AddEquilibrium(chem, EquilibriumType::Complex, "NaCl", 0, 0.3, {{kNa, 1}, {kCl, 1}}, 2000, true);
    AddEquilibrium(chem, EquilibriumType::Complex, "CaCl+", 1, 0.4, {{kCa, 1}, {kCl, 1}}, 8000, true);
    AddEquilibrium(chem, EquilibriumType::Complex, "HCO3-", -1, 10.33, {{kH, 1}, {kCO3, 1}}, -14900, true);
    AddEquilibrium(chem, EquilibriumType::Complex, "H2CO3", 0, 16.681, {{kH, 2}, {kCO3, 1}}, -24000, true);
    AddEquilibrium(chem, EquilibriumType::Complex, "CaCO3", 0, 3.22, {{kCa, 1}, {kCO3, 1}}, 14800, true);
    AddEquilibrium(chem, EquilibriumType::Complex, "CaOH+", 1, -12.78, {{kCa, 1}, {kH, -1}});  // enthalpy unknown
    AddEquilibrium(chem, EquilibriumType::Complex, "FeCl+2", 2, 1.48, {{kFe3, 1}, {kCl, 1}}, 23000, true);
    AddEquilibrium(chem, EquilibriumType::Complex, "FeOH+", 1, -9.5, {{kFe2, 1}, {kH, -1}}, 55000, true);
    AddEquilibrium(chem, EquilibriumType::Redox, "Fe+3", 0, -13.02, {{kFe2, 1}, {kElectron, -1}});
    AddEquilibrium(chem, EquilibriumType::Gas, "CO2(g)", 0, 18.147, {{kH, 2}, {kCO3, 1}}, -24000, true);
    AddEquilibrium(chem, EquilibriumType::Adsorption, "Hfo_wOH2+", 1, 7.29, {{kH, 1}, {kSite, 1}});
    AddEquilibrium(chem, EquilibriumType::Adsorption, "Hfo_wOCa+", 1, -5.85, {{kH, -1}, {kCa, 1}, {kSite, 1}});
    chem.equilibria[kFeRedox].linkedComponent = kFe3;
    chem.equilibria[kFeRedox].linkedCoefficient = 1;
    chem.equilibria[kCO2Equilibrium].linkedComponent = kCO2Gas;
    chem.equilibria[kCO2Equilibrium].linkedCoefficient = 1;
    chem.maxComponentsPerEquilibrium = 3;

    chem.componentRange[ComponentType::Cation] = {1, 4};
    chem.componentRange[ComponentType::Electron] = {5, 5};
    chem.componentRange[ComponentType::Ligand] = {6, 8};
    chem.componentRange[ComponentType::Ads] = {9, 9};
    chem.componentRange[ComponentType::Gas] = {10, 10};
    chem.equilibriumRange[EquilibriumType::Complex] = {kNaCl, kFeOH};
    chem.equilibriumRange[EquilibriumType::Redox] = {kFeRedox, kFeRedox};
    chem.equilibriumRange[EquilibriumType::Gas] = {kCO2Equilibrium, kCO2Equilibrium};
    chem.equilibriumRange[EquilibriumType::Adsorption] = {kSiteH, kSiteCa};
    return chem;
}

}  // namespace tormel::test
