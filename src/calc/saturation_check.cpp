// The check the solver runs whenever it has converged at its current
// criterion: absent solids that are oversaturated enter, present solids
// that are no longer saturated are adjusted. One solid per component per
// check, most oversaturated first; the solids are unchanged only when
// nothing entered or was adjusted.
#include <utility>
#include <vector>

#include "calc/precipitation.h"
#include "calc/solver.h"

namespace tormel {

namespace {

struct Candidate {
    int32_t solid = 0;
    double ratio = 1;
};

// Largest ratio first: every later entry with a strictly larger ratio is
// swapped into place.
void OrderByRatio(std::vector<Candidate>& list) {
    for (size_t i = 0; i < list.size(); ++i)
        for (size_t j = i + 1; j < list.size(); ++j)
            if (list[j].ratio > list[i].ratio) std::swap(list[i], list[j]);
}

// One solid per component and check. H+ is shared freely when the pH is
// fixed. A conflict changes nothing; otherwise the solid takes its components.
bool TakeComponents(const CalcContext& ctx, int32_t s, std::vector<uint8_t>& taken) {
    const ChemicalSystem& chem = ctx.chem;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    const Species& solid = chem.species[s];
    auto counts = [&](const CompositionTerm& term) {
        return term.coefficient != 0 && (term.systemComponent != 0 || ctx.state.protonBalanceMode);
    };
    for (int32_t e = 0; e < solid.componentTerms; ++e) {
        const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
        if (counts(term) && taken[term.systemComponent]) return false;
    }
    for (int32_t e = 0; e < solid.componentTerms; ++e) {
        const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
        if (counts(term)) taken[term.systemComponent] = 1;
    }
    return true;
}

}  // namespace

bool SaturationCheck(CalcContext& ctx, bool showProgress) {
    if (!ctx.input.precipitation) return true;
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    const TypeRange range = chem.solidSpeciesRange;
    if (range.empty()) return true;

    std::vector<Candidate> enter, adjust;
    for (int32_t s = range.first; s <= range.last; ++s) {
        const SolidSaturation sat = SaturationOf(ctx, s);
        const double amount = chem.species[s].concentration;
        if (amount == 0 && sat.state == SolidOversaturated) enter.push_back({s, sat.ratio});
        if (amount > 0 && (sat.state == SolidOversaturated || sat.state == SolidUndersaturated))
            adjust.push_back({s, sat.ratio});
    }
    if (enter.empty() && adjust.empty()) {
        if (showProgress) PositionSolidBar(st, st.saturationTolerance);
        return true;
    }

    std::vector<uint8_t> taken(chem.systemComponents.size(), 0);
    double progress = 1;
    // Without a Newton step nothing else keeps a present solid saturated:
    // its amount moves by the square of its ratio.
    if (!adjust.empty() && !st.newtonUsed) {
        OrderByRatio(adjust);
        for (size_t i = 0; i < adjust.size(); ++i) {
            const Candidate& c = adjust[i];
            if (!TakeComponents(ctx, c.solid, taken)) break;
            chem.species[c.solid].concentration *= c.ratio * c.ratio;
            if (i == 0) progress = c.ratio > 1 ? c.ratio : 1 / c.ratio;
        }
        SaveUnknowns(ctx);  // the next Newton step starts from the adjusted amounts
    }
    OrderByRatio(enter);
    bool firstEntered = true;
    for (const Candidate& c : enter) {
        if (!TakeComponents(ctx, c.solid, taken)) continue;
        if (!ReplacePresentSolids(ctx, c.solid, c.ratio, showProgress) && !NewSolid(ctx, c.solid, c.ratio, showProgress))
            continue;
        if (firstEntered && c.ratio > progress) progress = c.ratio;
        firstEntered = false;
    }
    if (showProgress) PositionSolidBar(st, progress);
    return false;
}

}  // namespace tormel
