// How far a solid is from saturation at the current free concentrations.
// The ion activity product is written with free concentrations; the
// solid's working constant carries the activity corrections.
#include <cmath>

#include "calc/compare.h"
#include "calc/precipitation.h"

namespace tormel {

namespace {

double LogIap(const ChemicalSystem& chem, int32_t s) {
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    const Species& solid = chem.species[s];
    double sum = 0;
    for (int32_t e = 0; e < solid.componentTerms; ++e) {
        const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
        if (term.coefficient == 0) continue;
        sum += term.coefficient * std::log10(chem.systemComponents[term.systemComponent].freeConcentration);
    }
    return sum;
}

// Number of mass-balance units of solid s, as the assembly counted them.
int32_t SolidIonCount(const CalcContext& ctx, int32_t s) {
    const auto& counts = ctx.state.solidTotalCounts;
    const int32_t offset = s - ctx.chem.solidSpeciesRange.first;
    return offset >= 0 && offset < static_cast<int32_t>(counts.size()) ? counts[offset] : 0;
}

}  // namespace

double SaturationIndexOf(const ChemicalSystem& chem, int32_t s) { return LogIap(chem, s) + chem.species[s].workingLogK; }

SolidSaturation SaturationOf(const CalcContext& ctx, int32_t s) {
    const ChemicalSystem& chem = ctx.chem;
    const Species& solid = chem.species[s];
    SolidSaturation sat;
    sat.logIap = LogIap(chem, s);
    sat.logKsp = -solid.workingLogK;
    const int32_t units = SolidIonCount(ctx, s);
    sat.ratio = units > 0 ? std::pow(10.0, (sat.logIap - sat.logKsp) / units) : 1.0;
    if (LogEqual(sat.logIap, sat.logKsp, ctx.state.saturationTolerance))
        sat.state = SolidInEquilibrium;
    else if (sat.logIap > sat.logKsp)
        sat.state = SolidOversaturated;
    else
        sat.state = solid.concentration == 0 ? SolidAbsent : SolidUndersaturated;
    return sat;
}

}  // namespace tormel
