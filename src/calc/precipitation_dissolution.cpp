// Complete dissolution of a present solid.
//
// Nothing in the updates ever brings a present solid's amount to zero: the
// Newton step shrinks it by at most a factor 1.2, the ratio update and the
// saturation check by a ratio. A solid that must dissolve completely would
// shrink for ever and the solve would never settle. So once a solid that is
// still shrinking holds no more than a negligible share of the dissolved
// amount of every mass-balance component it contains, it leaves the
// equilibrium: its amount becomes 0 (it is reported absent), it leaves the
// Newton system, and what it held is back in solution. Giving back so little
// moves no balance and no saturation index measurably; should the solid
// still be oversaturated, the next saturation check lets it enter again.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "calc/precipitation.h"
#include "calc/solver.h"
#include "calc/solver_options.h"

namespace tormel {

namespace {


bool Negligible(const CalcContext& ctx, int32_t s, double amount) {
    const ChemicalSystem& chem = ctx.chem;
    const SolverState& st = ctx.state;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    const Species& solid = chem.species[s];
    for (int32_t e = 0; e < solid.componentTerms; ++e) {
        const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
        const SystemComponent& sc = chem.systemComponents[term.systemComponent];
        if (term.coefficient == 0 || sc.balanceKind != InputType::TotalConc) continue;
        // (a component's given total bounds the share too, should its
        // dissolved sum be far off while the iteration is still on its way)
        const double dissolved = term.systemComponent == 0
                                     ? std::max(st.protonSums.donorDissolved, st.protonSums.acceptorDissolved)
                                     : std::min(std::fabs(sc.sumDissolved), std::fabs(sc.balanceTotal));
        if (std::abs(term.coefficient) * amount > kSolverOptions.negligibleShare * dissolved) return false;
    }
    return true;
}

}  // namespace

void ReleaseDissolvedSolids(CalcContext& ctx, bool& converged) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    NewtonSystem& ns = st.newton;
    const int32_t first = chem.solidSpeciesRange.first;
    for (int32_t k = ns.m - 1; k >= 0; --k) {
        const int32_t s = ns.solidSpecies[k];
        Species& solid = chem.species[s];
        const int32_t offset = s - first;
        double& previous = st.solidPreviousAmount[offset];
        const bool shrinking = solid.concentration < previous;
        previous = solid.concentration;
        if (!shrinking || !Negligible(ctx, s, solid.concentration)) continue;
        solid.concentration = 0;
        previous = 0;
        RemoveSolidUnknown(ns, k);
        converged = false;
    }
}

}  // namespace tormel
