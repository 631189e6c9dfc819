#include "calc/synthetic_database.h"

#include <initializer_list>
#include <utility>

namespace tormel::test {

namespace {

Component MakeComponent(int32_t type, const char* name, int32_t charge, double diameter = 0) {
    Component c;
    c.type = type;
    c.name = name;
    c.charge = charge;
    c.ionDiameter = diameter;
    return c;
}

void AddEquilibrium(ChemicalSystem& chem, int32_t type, const char* name, int32_t charge, double logK,
                    std::initializer_list<std::pair<int32_t, int32_t>> terms, double enthalpy = 0,
                    bool hasEnthalpy = false) {
    Equilibrium e;
    e.type = type;
    e.name = name;
    e.charge = charge;
    e.logK = logK;
    e.hasEnthalpy = hasEnthalpy;
    e.enthalpy = enthalpy;
    int32_t dz2 = 0;
    for (auto [c, nu] : terms) {
        const int32_t z = chem.components[c].charge;
        dz2 += nu * z * z;
    }
    // surface species carry no activity coefficient: their own charge stays out
    e.deltaZ2 = type == EqAdsorption ? dz2 : dz2 - charge * charge;
    e.componentCount = static_cast<int32_t>(terms.size());
    chem.equilibria.push_back(e);
}

}  // namespace

ChemicalSystem BuildSyntheticDatabase() {
    ChemicalSystem chem;
    chem.components = {
        MakeComponent(Cation, "H", 1, 9e-10),     MakeComponent(Cation, "Na", 1, 4.0e-10),
        MakeComponent(Cation, "Ca", 2, 6e-10),    MakeComponent(Cation, "Fe(II)", 2),
        MakeComponent(Cation, "Fe(III)", 3),      MakeComponent(Electron, "e", -1),
        MakeComponent(Ligand, "OH", -1),          MakeComponent(Ligand, "Cl", -1, 3.6e-10),
        MakeComponent(Ligand, "CO3", -2, 4.5e-10), MakeComponent(Ads, "Hfo_wOH", 0),
        MakeComponent(Gas, "CO2(g)", 0),
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

    AddEquilibrium(chem, EqWater, "H2O", 0, 14.0, {{kH, 1}, {kOH, 1}}, -55840, true);
    AddEquilibrium(chem, EqComplex, "NaCl", 0, 0.3, {{kNa, 1}, {kCl, 1}}, 2000, true);
    AddEquilibrium(chem, EqComplex, "CaCl+", 1, 0.4, {{kCa, 1}, {kCl, 1}}, 8000, true);
    AddEquilibrium(chem, EqComplex, "HCO3-", -1, 10.33, {{kH, 1}, {kCO3, 1}}, -14900, true);
    AddEquilibrium(chem, EqComplex, "H2CO3", 0, 16.681, {{kH, 2}, {kCO3, 1}}, -24000, true);
    AddEquilibrium(chem, EqComplex, "CaCO3", 0, 3.22, {{kCa, 1}, {kCO3, 1}}, 14800, true);
    AddEquilibrium(chem, EqComplex, "CaOH+", 1, -12.78, {{kCa, 1}, {kH, -1}});  // enthalpy unknown
    AddEquilibrium(chem, EqComplex, "FeCl+2", 2, 1.48, {{kFe3, 1}, {kCl, 1}}, 23000, true);
    AddEquilibrium(chem, EqComplex, "FeOH+", 1, -9.5, {{kFe2, 1}, {kH, -1}}, 55000, true);
    AddEquilibrium(chem, EqRedox, "Fe+3", 0, -13.02, {{kFe2, 1}, {kElectron, -1}});
    AddEquilibrium(chem, EqGas, "CO2(g)", 0, 18.147, {{kH, 2}, {kCO3, 1}}, -24000, true);
    AddEquilibrium(chem, EqAdsorption, "Hfo_wOH2+", 1, 7.29, {{kH, 1}, {kSite, 1}});
    AddEquilibrium(chem, EqAdsorption, "Hfo_wOCa+", 1, -5.85, {{kH, -1}, {kCa, 1}, {kSite, 1}});
    chem.equilibria[kFeRedox].linkedComponent = kFe3;
    chem.equilibria[kFeRedox].linkedCoefficient = 1;
    chem.equilibria[kCO2Equilibrium].linkedComponent = kCO2Gas;
    chem.equilibria[kCO2Equilibrium].linkedCoefficient = 1;

    const int32_t eqCount = chem.EquilibriumCount();
    chem.stoichiometry.assign(static_cast<size_t>(chem.ComponentCount()) * eqCount, 0);
    auto set = [&](int32_t e, std::initializer_list<std::pair<int32_t, int32_t>> terms) {
        for (auto [c, nu] : terms) chem.Coefficient(c, e) = nu;
    };
    set(kWater, {{kH, 1}, {kOH, 1}});
    set(kNaCl, {{kNa, 1}, {kCl, 1}});
    set(kCaCl, {{kCa, 1}, {kCl, 1}});
    set(kHCO3, {{kH, 1}, {kCO3, 1}});
    set(kH2CO3, {{kH, 2}, {kCO3, 1}});
    set(kCaCO3, {{kCa, 1}, {kCO3, 1}});
    set(kCaOH, {{kCa, 1}, {kH, -1}});
    set(kFeCl, {{kFe3, 1}, {kCl, 1}});
    set(kFeOH, {{kFe2, 1}, {kH, -1}});
    set(kFeRedox, {{kFe2, 1}, {kElectron, -1}});
    set(kCO2Equilibrium, {{kH, 2}, {kCO3, 1}});
    set(kSiteH, {{kH, 1}, {kSite, 1}});
    set(kSiteCa, {{kH, -1}, {kCa, 1}, {kSite, 1}});
    chem.maxComponentsPerEquilibrium = 3;

    chem.componentRange[Cation] = {1, 4};
    chem.componentRange[Electron] = {5, 5};
    chem.componentRange[Ligand] = {6, 8};
    chem.componentRange[Ads] = {9, 9};
    chem.componentRange[Gas] = {10, 10};
    chem.equilibriumRange[EqComplex] = {kNaCl, kFeOH};
    chem.equilibriumRange[EqRedox] = {kFeRedox, kFeRedox};
    chem.equilibriumRange[EqGas] = {kCO2Equilibrium, kCO2Equilibrium};
    chem.equilibriumRange[EqAdsorption] = {kSiteH, kSiteCa};
    return chem;
}

void ClearInputs(ChemicalSystem& chem) {
    for (Component& c : chem.components) {
        c.inputValue = 0;
        c.inputType = c.type == Gas ? InpTypeGasPres : InpTypeTotalConc;
    }
    chem.components[chem.hydroxideIndex].inputType = InpTypeNotSpecified;
    chem.components[chem.electronIndex].inputType = InpTypeFreeAct;
    chem.components[chem.electronIndex].inputValue = 1.0;
}

int32_t CalcFixture::SpeciesIndex(const std::string& name) const {
    for (size_t s = 0; s < chem.species.size(); ++s)
        if (chem.species[s].name == name) return static_cast<int32_t>(s);
    return -1;
}

}  // namespace tormel::test
