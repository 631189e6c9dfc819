// Concentrations of the species from the free concentrations of the unknowns:
// c_s = 10^(workingLogK + sum nu log c).
#include <cmath>
#include <numbers>
#include <vector>

#include "calc/solver.h"

namespace tormel {

namespace {

// Kinds whose concentration follows from the mass-action law here; solids
// keep their amount (an unknown of its own) and the remaining organic kinds
// are computed by the organic model.
bool ComputedHere(SpeciesKind species) {
    if (species >= SpeciesKind::FreeComponent && species <= SpeciesKind::AdsorbedSpecies) return true;
    // the free and protonated site kinds of each organic block
    const int32_t kind = CodeOf(species);
    return (kind >= 9 && kind <= 12) || (kind >= 17 && kind <= 20) || (kind >= 25 && kind <= 30) ||
           (kind >= 37 && kind <= 42) || (kind >= 49 && kind <= 54) || (kind >= 61 && kind <= 66);
}

}  // namespace

void SpeciesConcentrations(ChemicalSystem& chem) {
    // log10 of each unknown once, not once per species term; the buffer
    // stays with the thread, so iterations allocate nothing
    thread_local std::vector<double> logFree;
    logFree.resize(chem.systemComponents.size());
    for (size_t j = 0; j < logFree.size(); ++j) logFree[j] = std::log10(chem.systemComponents[j].freeConcentration);
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t s = 0; s < speciesCount; ++s) {
        Species& sp = chem.species[s];
        if (!ComputedHere(sp.kind)) continue;
        double exponent = sp.workingLogK;
        for (int32_t e = 0; e < sp.componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            if (term.coefficient == 0) continue;
            exponent += term.coefficient * logFree[term.systemComponent];
        }
        sp.concentration = std::exp(exponent * std::numbers::ln10);
    }
}

}  // namespace tormel
