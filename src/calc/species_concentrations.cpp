// Concentrations of the species from the free concentrations of the unknowns:
// c_s = 10^(workingLogK + sum nu log c).
#include <cmath>
#include <numbers>
#include <vector>

#include "calc/solver.h"
#include "calc/species_tables.h"

namespace tormel {

namespace {

// Kinds whose concentration follows from the mass-action law here; solids
// keep their amount (an unknown of its own) and the remaining organic kinds
// are computed by the organic model.
bool ComputedHere(int32_t kind) {
    if (kind >= FreeComponent && kind <= AdsorbedSpecies) return true;
    return (kind >= 9 && kind <= 12) || (kind >= 17 && kind <= 20) || (kind >= 25 && kind <= 30) ||
           (kind >= 37 && kind <= 42) || (kind >= 49 && kind <= 54) || (kind >= 61 && kind <= 66);
}

}  // namespace

void BuildMassActionTable(const ChemicalSystem& chem, SpeciesTermList& massAction) {
    massAction.Clear();
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t s = 0; s < speciesCount; ++s)
        if (ComputedHere(chem.species[s].kind))
            massAction.Add(chem, s, [](const CompositionTerm& term) { return term.coefficient != 0; });
}

void SpeciesConcentrations(ChemicalSystem& chem, SpeciesTables& tables) {
    // log10 of each unknown once, not once per species term
    std::vector<double>& logFree = tables.logFree;
    for (size_t j = 0; j < logFree.size(); ++j) logFree[j] = std::log10(chem.systemComponents[j].freeConcentration);
    const SpeciesTermList& list = tables.massAction;
    const CompositionTerm* terms = list.terms.data();
    for (int32_t k = 0; k < list.Size(); ++k) {
        Species& sp = chem.species[list.species[k]];
        double exponent = sp.workingLogK;
        for (int32_t t = list.start[k]; t < list.start[k + 1]; ++t)
            exponent += terms[t].coefficient * logFree[terms[t].systemComponent];
        sp.concentration = std::exp(exponent * std::numbers::ln10);
    }
}

}  // namespace tormel
