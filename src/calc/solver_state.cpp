#include "calc/solver_state.h"

#include <utility>

namespace tormel {

namespace {

// Hands the storage of `from` to `to`, emptied: `to` ends as a fresh list.
template <class List>
void Recycle(List& from, List& to) {
    to.swap(from);
    to.clear();
}

void Recycle(SpeciesTermList& from, SpeciesTermList& to) {
    Recycle(from.species, to.species);
    Recycle(from.start, to.start);
    Recycle(from.terms, to.terms);
    to.Clear();
}

void Recycle(NewtonSystem& from, NewtonSystem& to) {
    Recycle(from.unknownComponent, to.unknownComponent);
    Recycle(from.componentUnknown, to.componentUnknown);
    Recycle(from.solidSpecies, to.solidSpecies);
    Recycle(from.x, to.x);
    Recycle(from.r, to.r);
    Recycle(from.delta, to.delta);
    Recycle(from.kind, to.kind);
    Recycle(from.jacobian, to.jacobian);
    Recycle(from.speciesTerm, to.speciesTerm);
}

void Recycle(SpeciesTables& from, SpeciesTables& to) {
    Recycle(from.massAction, to.massAction);
    Recycle(from.massActionComponents, to.massActionComponents);
    Recycle(from.balances, to.balances);
    Recycle(from.balanceClass, to.balanceClass);
    Recycle(from.protons, to.protons);
    Recycle(from.protonClass, to.protonClass);
    Recycle(from.dissolved, to.dissolved);
    Recycle(from.activitySpecies, to.activitySpecies);
    Recycle(from.charged, to.charged);
    Recycle(from.logFree, to.logFree);
    Recycle(from.logFreeOf, to.logFreeOf);
    Recycle(from.lastExponent, to.lastExponent);
    Recycle(from.lastPower, to.lastPower);
    Recycle(from.newtonSpecies, to.newtonSpecies);
    Recycle(from.newtonDistinct, to.newtonDistinct);
    Recycle(from.newtonComponents, to.newtonComponents);
    Recycle(from.jacobianEntries, to.jacobianEntries);
    Recycle(from.componentHeld, to.componentHeld);
}

}  // namespace

void ClearNewtonSystem(NewtonSystem& ns) {
    NewtonSystem fresh;
    Recycle(ns, fresh);
    ns = std::move(fresh);
}

void ClearBestIterate(BestIterate& best) {
    BestIterate fresh;
    Recycle(best.free, fresh.free);
    Recycle(best.amounts, fresh.amounts);
    Recycle(best.newton, fresh.newton);
    best = std::move(fresh);
}

void ClearFallback(FallbackState& fallback) {
    FallbackState fresh;
    ClearBestIterate(fallback.best);
    fresh.best = std::move(fallback.best);
    Recycle(fallback.jacobian, fresh.jacobian);
    Recycle(fallback.jacobianSolids, fresh.jacobianSolids);
    fallback = std::move(fresh);
}

void ResetSolverState(SolverState& st) {
    SolverState fresh;
    Recycle(st.solidTotalCounts, fresh.solidTotalCounts);
    Recycle(st.saltRecords, fresh.saltRecords);
    Recycle(st.worstComponentName, fresh.worstComponentName);
    Recycle(st.newton, fresh.newton);
    ClearFallback(st.fallback);
    fresh.fallback = std::move(st.fallback);
    Recycle(st.firstSpeciesOf, fresh.firstSpeciesOf);
    Recycle(st.tables, fresh.tables);
    Recycle(st.solidPreviousAmount, fresh.solidPreviousAmount);
    Recycle(st.solidProgressLines, fresh.solidProgressLines);
    st = std::move(fresh);
}

}  // namespace tormel
