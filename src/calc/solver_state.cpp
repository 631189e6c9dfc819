#include "calc/solver_state.h"

#include <utility>

#include "core/renew.h"

namespace tormel {

// Records made of lists hand their storage over as a whole, renewed.
void TakeStorage(SpeciesTermList& to, SpeciesTermList& from) {
    to = std::move(from);
    to.Clear();
}

void TakeStorage(SpeciesTables& to, SpeciesTables& from) {
    using T = SpeciesTables;
    RenewKeeping(from, &T::massAction, &T::massActionComponents, &T::balances, &T::balanceClass, &T::protons,
                 &T::protonClass, &T::dissolved, &T::activitySpecies, &T::charged, &T::logFree, &T::logFreeOf,
                 &T::lastExponent, &T::lastPower, &T::newtonSpecies, &T::newtonDistinct, &T::newtonComponents,
                 &T::jacobianEntries, &T::componentHeld);
    to = std::move(from);
}

void TakeStorage(NewtonSystem& to, NewtonSystem& from) {
    ClearNewtonSystem(from);
    to = std::move(from);
}

void TakeStorage(BestIterate& to, BestIterate& from) {
    ClearBestIterate(from);
    to = std::move(from);
}

void TakeStorage(FallbackState& to, FallbackState& from) {
    ClearFallback(from);
    to = std::move(from);
}

void ClearNewtonSystem(NewtonSystem& ns) {
    using T = NewtonSystem;
    RenewKeeping(ns, &T::unknownComponent, &T::componentUnknown, &T::solidSpecies, &T::x, &T::r, &T::delta, &T::kind,
                 &T::jacobian, &T::speciesTerm);
}

void ClearBestIterate(BestIterate& best) {
    RenewKeeping(best, &BestIterate::free, &BestIterate::amounts, &BestIterate::newton);
}

void ClearFallback(FallbackState& fallback) {
    RenewKeeping(fallback, &FallbackState::best, &FallbackState::jacobian, &FallbackState::jacobianSolids);
}

void ResetSolverState(SolverState& st) {
    using T = SolverState;
    RenewKeeping(st, &T::solidTotalCounts, &T::saltRecords, &T::worstComponentName, &T::newton, &T::fallback,
                 &T::firstSpeciesOf, &T::tables, &T::solidPreviousAmount, &T::solidProgressLines);
}

}  // namespace tormel
