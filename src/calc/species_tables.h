#pragma once
// Index tables over the assembled species, built once per solve: for each
// step of the iteration the species it visits, in the order of the species
// list, with their terms in one contiguous array. An iteration then neither
// scans the species a step skips nor looks its terms up in the composition
// table, which holds them one species-count apart.
#include <cmath>
#include <cstdint>
#include <numbers>
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
    // Room for `count` species of up to `width` terms each.
    void Reserve(size_t count, size_t width);
    // Appends species s with the terms for which keep(term) holds.
    template <class Keep>
    void Add(const ChemicalSystem& chem, int32_t s, Keep keep);
};

// One entry of the component block of the Newton step's Jacobian: species
// `species` adds nuU nuV c_s / c_v to row u, column v, v being the unknown of
// system component `component`.
struct JacobianEntry {
    int32_t species = 0;
    int32_t u = 0, v = 0;
    int32_t component = 0;
    int32_t nuU = 0, nuV = 0;
    double product = 0;  // nuU nuV
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
    // per system component: log10 of its free concentration, and the free
    // concentration it was taken of (NaN before the first)
    std::vector<double> logFree, logFreeOf;
    // per species: the last exponent (log10 c) formed by the mass-action law
    // and 10 to that power (NaN before the first); a step that forms the same
    // exponent again takes the power from here
    std::vector<double> lastExponent, lastPower;
    // the Newton step's component block, built by the first step of a solve:
    // the species that enter it (their non-zero terms), whether each holds its
    // components in distinct terms, the components the terms hold, and the
    // entries in the order they are summed
    bool newtonBuilt = false;
    SpeciesTermList newtonSpecies;
    std::vector<char> newtonDistinct;
    std::vector<int32_t> newtonComponents;
    std::vector<JacobianEntry> jacobianEntries;
    // scratch of the builds: per system component, whether a table's terms hold it
    std::vector<char> componentHeld;
};

// log10 of the free concentration of system component j, taken again only
// when that concentration has changed since it was last taken.
inline double LogFree(SpeciesTables& tables, int32_t j, double free) {
    if (tables.logFreeOf[j] != free) {
        tables.logFree[j] = std::log10(free);
        tables.logFreeOf[j] = free;
    }
    return tables.logFree[j];
}

// 10^exponent for species s, formed again only when the exponent has changed.
inline double PowerOfTen(SpeciesTables& tables, int32_t s, double exponent) {
    if (tables.lastExponent[s] != exponent) {
        tables.lastPower[s] = std::exp(exponent * std::numbers::ln10);
        tables.lastExponent[s] = exponent;
    }
    return tables.lastPower[s];
}

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
    // read once: the appends below could otherwise alias the species record
    const int32_t termCount = chem.species[s].componentTerms;
    const CompositionTerm* composition = chem.composition.data();
    for (int32_t e = 0; e < termCount; ++e) {
        const CompositionTerm& term = composition[Position(s, e, count)];
        if (keep(term)) terms.push_back(term);
    }
    start.push_back(static_cast<int32_t>(terms.size()));
}

}  // namespace tormel
