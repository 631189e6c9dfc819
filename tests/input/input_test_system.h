#pragma once
// A small chemical system built in code for the input tests: H+ at 0 with
// its water partner OH, the electron, cations and ligands, two redox groups
// (Fe(II) / Fe(III) and SO4 / HS / S with a redox solid), a gas that fixes
// CO3, and an adsorbent. Header-only so that the fuzz target can use it too.
#include <initializer_list>
#include <iterator>
#include <string>
#include <utility>

#include "core/database.h"
#include "core/database_reader_support.h"

namespace tormel::test {

struct InputTestIndex {
    static constexpr int32_t H = 0, e = 1, OH = 2, Ca = 3, Na = 4, FeII = 5, FeIII = 6, CO3 = 7, Cl = 8, SO4 = 9,
                             HS = 10, SurfOH = 11, CO2g = 12, S = 13;
};

inline Database InputTestSystem() {
    using I = InputTestIndex;
    Database chem;
    auto add = [&](ComponentType type, const char* name, int32_t charge, double molarMass) {
        Component c;
        c.type = type;
        c.name = name;
        c.charge = charge;
        c.molarMass = molarMass;
        chem.components.push_back(c);
    };
    add(ComponentType::Cation, "H", 1, 1.008);
    add(ComponentType::Electron, "e", -1, 0);
    add(ComponentType::Ligand, "OH", -1, 17.007);
    add(ComponentType::Cation, "Ca", 2, 40.078);
    add(ComponentType::Cation, "Na", 1, 22.99);
    add(ComponentType::Cation, "Fe(II)", 2, 55.845);
    add(ComponentType::Cation, "Fe(III)", 3, 55.845);
    add(ComponentType::Ligand, "CO3", -2, 60.009);
    add(ComponentType::Ligand, "Cl", -1, 35.453);
    add(ComponentType::Ligand, "SO4", -2, 96.06);
    add(ComponentType::Ligand, "HS", -1, 33.07);
    add(ComponentType::Ads, "SurfOH", 0, 0);
    add(ComponentType::Gas, "CO2(g)", 0, 0);
    add(ComponentType::RedSol, "S", 0, 32.06);

    using Terms = std::initializer_list<std::pair<int32_t, int32_t>>;  // component, coefficient
    struct Eq {
        EquilibriumType type;
        const char* name;
        int32_t linked;
        Terms terms;
    };
    const Eq equilibria[] = {
        {EquilibriumType::Water, "H2O", 0, {{I::H, 1}, {I::OH, 1}}},
        {EquilibriumType::Complex, "CaCO3", 0, {{I::Ca, 1}, {I::CO3, 1}}},
        {EquilibriumType::Gas, "CO2(g)", I::CO2g, {{I::CO3, 1}, {I::H, 2}}},
        {EquilibriumType::Redox, "Fe(III)", I::FeIII, {{I::FeII, 1}, {I::e, -1}}},
        {EquilibriumType::Redox, "HS", I::HS, {{I::SO4, 1}, {I::H, 9}, {I::e, 8}}},
        {EquilibriumType::Redox, "S", I::S, {{I::SO4, 1}, {I::H, 8}, {I::e, 6}}},
        {EquilibriumType::Solid, "Calcite", 0, {{I::Ca, 1}, {I::CO3, 1}}},
    };
    const int32_t eqCount = static_cast<int32_t>(std::size(equilibria));
    chem.stoichiometry.assign(chem.components.size() * static_cast<size_t>(eqCount), 0);
    for (const Eq& eq : equilibria) {
        Equilibrium q;
        q.type = eq.type;
        q.name = eq.name;
        q.linkedComponent = eq.linked;
        q.componentCount = static_cast<int32_t>(eq.terms.size());
        chem.equilibria.push_back(q);
    }
    for (int32_t e = 0; e < eqCount; ++e) {
        for (auto [component, coefficient] : equilibria[e].terms) chem.Coefficient(component, e) = coefficient;
        if (e > 0) ExtendTypeRange(chem.equilibriumRange[equilibria[e].type], e);  // as the reader files them
    }

    chem.hydrogenIndex = I::H;
    chem.hydroxideIndex = I::OH;
    chem.electronIndex = I::e;
    chem.waterEquilibriumIndex = 0;
    chem.components[I::H].waterPartnerOfH = I::OH;
    chem.components[I::OH].waterPartnerOfOH = I::H;  // 0: H+ sits at index 0
    chem.components[I::CO3].gasPartner = I::CO2g;
    chem.components[I::CO2g].linkedLigand = I::CO3;
    auto chain = [&](std::initializer_list<int32_t> members) {
        int32_t previous = 0;
        for (int32_t m : members) {
            chem.components[static_cast<size_t>(m)].redoxPrev = previous;
            if (previous != 0) chem.components[static_cast<size_t>(previous)].redoxNext = m;
            previous = m;
        }
    };
    chain({I::FeII, I::FeIII});
    chain({I::SO4, I::HS, I::S});
    return chem;
}

}  // namespace tormel::test
