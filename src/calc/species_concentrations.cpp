// Concentrations of the species from the free concentrations of the unknowns:
// c_s = 10^(workingLogK + sum nu log c).
#include <vector>

#include "calc/solver.h"
#include "calc/species_tables.h"

namespace tormel {

namespace {

// Kinds whose concentration follows from the mass-action law here; solids
// keep their amount (an unknown of its own) and the organic kinds (sites
// and metal species) are computed by the organic model.
bool ComputedHere(SpeciesKind kind) { return kind >= SpeciesKind::FreeComponent && kind <= SpeciesKind::AdsorbedSpecies; }

}  // namespace

void BuildMassActionTable(const ChemicalSystem& chem, SpeciesTables& tables) {
    SpeciesTermList& massAction = tables.massAction;
    massAction.Clear();
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    massAction.Reserve(chem.species.size(), static_cast<size_t>(chem.maxSpeciesComponents));
    for (int32_t s = 0; s < speciesCount; ++s)
        if (ComputedHere(chem.species[s].kind))
            massAction.Add(chem, s, [](const CompositionTerm& term) { return term.coefficient != 0; });
    std::vector<char>& used = tables.componentHeld;
    used.assign(chem.systemComponents.size(), 0);
    for (const CompositionTerm& term : massAction.terms) used[term.systemComponent] = 1;
    tables.massActionComponents.clear();
    for (size_t j = 0; j < used.size(); ++j)
        if (used[j]) tables.massActionComponents.push_back(static_cast<int32_t>(j));
}

void SpeciesConcentrations(ChemicalSystem& chem, SpeciesTables& tables) {
    // log10 of each unknown the terms hold once, not once per species term
    std::vector<double>& logFree = tables.logFree;
    for (int32_t j : tables.massActionComponents) LogFree(tables, j, chem.systemComponents[j].freeConcentration);
    const SpeciesTermList& list = tables.massAction;
    const CompositionTerm* terms = list.terms.data();
    for (int32_t k = 0; k < list.Size(); ++k) {
        const int32_t s = list.species[k];
        Species& sp = chem.species[s];
        double exponent = sp.workingLogK;
        for (int32_t t = list.start[k]; t < list.start[k + 1]; ++t)
            exponent += terms[t].coefficient * logFree[terms[t].systemComponent];
        sp.concentration = PowerOfTen(tables, s, exponent);
    }
}

}  // namespace tormel
