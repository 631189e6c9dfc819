#pragma once
// Index tables over the assembled species, built once per solve: for each
// step of the iteration the species it visits, in the order of the species
// list, with their terms in one contiguous array. An iteration then neither
// scans the species a step skips nor looks its terms up in the composition
// table, which holds them one species-count apart.
#include <cstdint>
#include <vector>

#include "core/chemical_system.h"

namespace tormel {

// Species with some of their composition terms: the terms of entry k are
// terms[start[k]] .. terms[start[k + 1] - 1].
struct SpeciesTermList {
    std::vector<int32_t> species;
    std::vector<int32_t> start{0};
    std::vector<CompositionTerm> terms;

    int32_t Size() const { return static_cast<int32_t>(species.size()); }
    void Clear();
    // Appends species s with the terms for which keep(term) holds.
    template <class Keep>
    void Add(const ChemicalSystem& chem, int32_t s, Keep keep);
};

// The class of species whose amounts the balance sums collect.
enum BalanceClass : int8_t { BalanceDissolved = 0, BalanceAdsorbed = 1, BalanceSolid = 2 };

struct SpeciesTables {
    // species count of the system the tables were built for; -1 before the first build
    int32_t speciesCount = -1;
    // species formed by the mass-action law from the unknowns (non-zero
    // terms), and the system components their terms hold
    SpeciesTermList massAction;
    std::vector<int32_t> massActionComponents;
    // non-organic species of a balance class, with their non-zero terms on
    // mass-balance unknowns; balanceClass per entry
    SpeciesTermList balances;
    std::vector<int8_t> balanceClass;
    // non-organic species of a balance class holding H+ (their non-zero
    // terms on H+); protonClass per entry
    SpeciesTermList protons;
    std::vector<int8_t> protonClass;
    // dissolved species (free ions, hydroxide, gas ligands, redox partners,
    // complexes): the ionic strength and the diffuse layers
    std::vector<int32_t> dissolved;
    // species whose conditional constant the activity step sets
    std::vector<int32_t> activitySpecies;
    // dissolved and adsorbed species with a charge: the charge balance
    std::vector<int32_t> charged;
    // per system component: scratch for log10 of its free concentration
    std::vector<double> logFree;
};

// Builds the tables for the assembled system.
void BuildSpeciesTables(const ChemicalSystem& chem, SpeciesTables& tables);
// The tables, built anew when they were built for another system size.
SpeciesTables& TablesFor(const ChemicalSystem& chem, SpeciesTables& tables);

// The parts of the build, each next to the step that reads it.
void BuildMassActionTable(const ChemicalSystem& chem, SpeciesTables& tables);
void BuildBalanceTables(const ChemicalSystem& chem, SpeciesTables& tables);
void BuildActivityTables(const ChemicalSystem& chem, SpeciesTables& tables);
void BuildChargeTable(const ChemicalSystem& chem, SpeciesTables& tables);

template <class Keep>
void SpeciesTermList::Add(const ChemicalSystem& chem, int32_t s, Keep keep) {
    const int32_t count = static_cast<int32_t>(chem.species.size());
    species.push_back(s);
    for (int32_t e = 0; e < chem.species[s].componentTerms; ++e) {
        const CompositionTerm& term = chem.composition[Position(s, e, count)];
        if (keep(term)) terms.push_back(term);
    }
    start.push_back(static_cast<int32_t>(terms.size()));
}

}  // namespace tormel
