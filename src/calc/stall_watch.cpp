// Watches the specified iteration for a stall or a divergence and keeps its
// best state, from which the fallback continues. With organic matter the
// iteration has all but the last iterations of its bound.
#include <cmath>
#include <limits>

#include "calc/activity.h"
#include "calc/organic_model.h"
#include "calc/precipitation.h"
#include "calc/solver.h"
#include "calc/solver_options.h"

namespace tormel {

namespace {


bool FreeConcentrationsValid(const ChemicalSystem& chem) {
    for (const SystemComponent& sc : chem.systemComponents)
        if (!std::isfinite(sc.freeConcentration) || sc.freeConcentration < 0) return false;
    return true;
}

// The unknowns of a Newton system: everything but the Jacobian and the
// per-step buffers, which every step fills anew before it reads them (the
// Jacobian alone is hundreds of kilobytes with organic matter).
void CopyUnknowns(const NewtonSystem& from, NewtonSystem& to) {
    to.n = from.n;
    to.m = from.m;
    to.unknownComponent = from.unknownComponent;
    to.componentUnknown = from.componentUnknown;
    to.solidSpecies = from.solidSpecies;
    to.x = from.x;
    to.r = from.r;
    to.delta = from.delta;
    to.kind = from.kind;
}

void TakeBest(const CalcContext& ctx, BestIterate& best) {
    const ChemicalSystem& chem = ctx.chem;
    best.worstRatio = ctx.state.worstRatio;
    best.free.clear();
    for (const SystemComponent& sc : chem.systemComponents) best.free.push_back(sc.freeConcentration);
    best.amounts.clear();
    const TypeRange range = chem.solidSpeciesRange;
    if (!range.empty())
        for (int32_t s = range.first; s <= range.last; ++s) best.amounts.push_back(chem.species[s].concentration);
    CopyUnknowns(ctx.state.newton, best.newton);
    best.ionicStrength = ctx.state.ionicStrength;
}

// Marks progress of the worst ratio (starting afresh when a solid entered
// or left: a new problem) and tells for how many iterations there was none.
int32_t IterationsWithoutProgress(const SolverState& st, BestIterate& best) {
    if (best.solids != st.newton.m) {
        best.solids = st.newton.m;
        best.worstRatio = std::numeric_limits<double>::infinity();
        best.progressRatio = st.worstRatio;
        best.progressIteration = st.iterationCount;
    }
    if (std::log(st.worstRatio) < kSolverOptions.progressShare * std::log(best.progressRatio)) {
        best.progressRatio = st.worstRatio;
        best.progressIteration = st.iterationCount;
    }
    return st.iterationCount - best.progressIteration;
}

}  // namespace

bool IterationStalled(CalcContext& ctx) {
    SolverState& st = ctx.state;
    BestIterate& best = st.fallback.best;
    if (st.iterationCount == 1) ClearBestIterate(best);
    if (!FreeConcentrationsValid(ctx.chem)) return true;
    const int32_t withoutProgress = IterationsWithoutProgress(st, best);
    if (st.worstRatio < best.worstRatio) TakeBest(ctx, best);
    if (OrganicModelActive(ctx))
        return st.iterationCount > kSolverOptions.firstIterations &&
               st.iterationCount >= st.maxIterations - kSolverOptions.organicFallbackIterations;
    if (st.iterationCount >= kSolverOptions.lastHandover) return true;
    if (st.iterationCount > kSolverOptions.firstIterations && st.worstRatio > kSolverOptions.divergedRatio) return true;
    return withoutProgress > kSolverOptions.stallWindow;
}

void WatchFallback(CalcContext& ctx, bool& converged) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    NewtonSystem& ns = st.newton;
    if (IterationsWithoutProgress(st, st.fallback.best) <= kSolverOptions.fallbackStallWindow || ns.m == 0) return;
    // the present solids hold the fallback in a corner: all of them leave,
    // and the saturation checks let them enter again one by one
    const int32_t first = chem.solidSpeciesRange.first;
    for (int32_t k = ns.m - 1; k >= 0; --k) {
        const int32_t offset = ns.solidSpecies[k] - first;
        chem.species[ns.solidSpecies[k]].concentration = 0;
        if (offset >= 0 && offset < static_cast<int32_t>(st.solidPreviousAmount.size()))
            st.solidPreviousAmount[offset] = 0;
        RemoveSolidUnknown(ns, k);
    }
    SaveUnknowns(ctx);
    converged = false;
    SpeciesAndTotals(ctx, converged);
}

void StartFallback(CalcContext& ctx, bool& converged) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    st.fallback.active = true;
    st.fallback.startIteration = st.iterationCount;
    const BestIterate& best = st.fallback.best;
    if (!best.free.empty()) {
        for (size_t j = 0; j < chem.systemComponents.size(); ++j) chem.systemComponents[j].freeConcentration = best.free[j];
        const TypeRange range = chem.solidSpeciesRange;
        for (size_t k = 0; k < best.amounts.size(); ++k) {
            chem.species[range.first + k].concentration = best.amounts[k];
            if (k < st.solidPreviousAmount.size()) st.solidPreviousAmount[k] = best.amounts[k];
        }
        CopyUnknowns(best.newton, st.newton);
        const size_t size = static_cast<size_t>(st.newton.Size());
        st.newton.jacobian.resize(size * size);
        st.ionicStrength = best.ionicStrength;
        UpdateActivity(ctx);
        FreeFromActivity(ctx);
    }
    // free concentrations that went astray start again from a tenth of their totals
    for (int32_t u = 0; u < st.newton.n; ++u) {
        SystemComponent& sc = chem.systemComponents[st.newton.unknownComponent[u]];
        if (!(std::isfinite(sc.freeConcentration) && sc.freeConcentration > 0))
            sc.freeConcentration = std::fabs(sc.balanceTotal) > 0 ? std::fabs(sc.balanceTotal) / 10 : 1e-7;
    }
    FreeFromGivenMember(ctx);
    SaveUnknowns(ctx);
    converged = true;
    SpeciesAndTotals(ctx, converged);
    if (OrganicModelActive(ctx)) RestartChargeLimiter(ctx);
    st.fallback.best.solids = -1;  // the fallback's progress is counted from here
}

}  // namespace tormel
