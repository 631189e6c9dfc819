#include "calc/solver.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "calc/activity.h"
#include "calc/compare.h"
#include "calc/organic_model.h"
#include "calc/precipitation.h"
#include "calc/solver_options.h"
#include "core/c_number.h"

namespace tormel {

namespace {


double SaturationToleranceFor(double criterion) { return std::max(criterion, std::pow(10.0, 0.000499)); }

bool IsMassBalance(const SystemComponent& sc) { return sc.balanceKind == InputType::TotalConc; }

// Starting free concentrations of the unknowns by the way they are given.
void StartingValues(CalcContext& ctx) {
    for (SystemComponent& sc : ctx.chem.systemComponents) {
        switch (sc.balanceKind) {
            case InputType::FreeConc:
                sc.freeConcentration = sc.givenValue;
                break;
            case InputType::FreeAct: {
                const double z = sc.charge;
                sc.freeConcentration = sc.givenValue / std::pow(10.0, z * z * ctx.state.logGamma1);
                break;
            }
            case InputType::GasPres:
                sc.freeConcentration = sc.givenValue;
                break;
            case InputType::TotalConc:
                if (&sc != &ctx.chem.systemComponents[0]) sc.balanceTotal = sc.givenValue;
                if ((sc.type == ComponentType::Cation || sc.type == ComponentType::Ligand ||
                     sc.type == ComponentType::Ads) &&
                    sc.freeConcentration == 0)
                    sc.freeConcentration = sc.balanceTotal / 10;
                break;
            default:
                break;
        }
    }
}

// Largest coefficient of each unknown in any complex, clamped to 1..13: the
// root the ratio update takes.
void MaxCoefficients(ChemicalSystem& chem) {
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    const TypeRange range = chem.complexSpeciesRange;
    for (int32_t s = range.first; s <= range.last && s < speciesCount; ++s) {
        for (int32_t e = 0; e < chem.species[s].componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            int32_t& m = chem.systemComponents[term.systemComponent].maxCoefficient;
            m = std::max(m, std::abs(term.coefficient));
        }
    }
    for (SystemComponent& sc : chem.systemComponents) sc.maxCoefficient = std::clamp(sc.maxCoefficient, 1, 13);
}

void FirstSpeciesOfComponents(const ChemicalSystem& chem, SolverState& st) {
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    st.firstSpeciesOf.assign(chem.systemComponents.size(), -1);
    for (int32_t s = 0; s < speciesCount; ++s)
        for (int32_t e = 0; e < chem.species[s].componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            if (term.coefficient != 0 && st.firstSpeciesOf[term.systemComponent] < 0)
                st.firstSpeciesOf[term.systemComponent] = s;
        }
}

void BuildNewtonSystem(const ChemicalSystem& chem, NewtonSystem& ns) {
    ClearNewtonSystem(ns);
    ns.componentUnknown.assign(chem.systemComponents.size(), -999);
    for (size_t j = 0; j < chem.systemComponents.size(); ++j) {
        if (!IsMassBalance(chem.systemComponents[j])) continue;
        ns.componentUnknown[j] = static_cast<int32_t>(ns.unknownComponent.size());
        ns.unknownComponent.push_back(static_cast<int32_t>(j));
    }
    ns.n = static_cast<int32_t>(ns.unknownComponent.size());
    ns.m = 0;
    const size_t size = ns.n;
    ns.x.assign(size, 0);
    ns.r.assign(size, 0);
    ns.delta.assign(size, 0);
    ns.kind.assign(size, UnknownComponent);
    ns.jacobian.assign(size * size, 0);
}

// Whether this iteration may take a Newton step.
bool NewtonAllowed(CalcContext& ctx) {
    SolverState& st = ctx.state;
    const ChemicalSystem& chem = ctx.chem;
    if (st.iterationCount == 1) st.newtonStall = 0;
    // At the extremes of pH the step is left to the ratio and proton
    // updates, except while a present solid holds H+: the step then moves H+
    // within the limits of a component touched by a solid, and it alone keeps
    // such a solid saturated in a weakly buffered water.
    if (st.protonBalanceMode && !PresentSolidHolds(ctx, 0)) {
        const double h = chem.systemComponents[0].freeConcentration;
        if (h > 0.0001 || h < 1e-10) return false;
    }
    if (st.newton.n <= 0 || st.redoxProtonFlag || st.worstRatio > 1e100 || st.ionicStrength > 1.0) return false;
    if (st.iterationCount <= 24) {
        if (st.newtonCountdown > 0) --st.newtonCountdown;
        return true;
    }
    if (st.newtonCountdown > 0) {
        --st.newtonCountdown;
        return true;
    }
    const bool allowed = st.newtonStall <= 50;
    if (st.worstRatio < st.workingCriterion && RelativelyEqual(st.worstRatio, st.previousWorstRatio, st.inputCriterion))
        st.newtonStall += 0.1f;
    return allowed;
}

// Why the iteration bound was reached: the balance that is furthest off, or,
// when every balance holds, what else did not settle.
std::string NotConvergedMessage(const CalcContext& ctx) {
    const SolverState& st = ctx.state;
    std::string text = "not converged after " + std::to_string(st.iterationCount) + " iterations";
    if (st.fallback.active) text += " (fallback from iteration " + std::to_string(st.fallback.startIteration) + ")";
    const std::string ratio = FormatC("%.6g", st.worstRatio);
    if (st.worstRatio > st.workingCriterion)
        text += "; worst component " + (st.worstComponentName.empty() ? std::string("(none)") : st.worstComponentName) +
                ", ratio " + ratio;
    else
        text += "; every balance holds (worst ratio " + ratio +
                "), but the ionic strength, the charge balance or the solids did not settle";
    if (OrganicModelActive(ctx) && st.organic.counterIonCapped) text += "; " + st.organic.counterIonMessage;
    return text;
}

}  // namespace

void SaveUnknowns(CalcContext& ctx) {
    NewtonSystem& ns = ctx.state.newton;
    for (int32_t u = 0; u < ns.n; ++u) ns.x[u] = ctx.chem.systemComponents[ns.unknownComponent[u]].freeConcentration;
    for (int32_t k = 0; k < ns.m; ++k) ns.x[ns.n + k] = ctx.chem.species[ns.solidSpecies[k]].concentration;
}

void InitialiseSolve(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    BuildSpeciesTables(chem, st.tables);
    StartingValues(ctx);
    SystemComponent& hydrogen = chem.systemComponents[0];
    st.protonBalanceMode = hydrogen.balanceKind == InputType::TotalConc;
    if (st.protonBalanceMode) {
        const double logKw = chem.db().equilibria[chem.db().waterEquilibriumIndex].logK;
        hydrogen.freeConcentration = std::sqrt(std::pow(10.0, -std::fabs(logKw)));
        st.hydroxideReference += ctx.input.components[chem.db().hydroxideIndex].inputValue;
        st.proton = ProtonUpdateState{};
    }
    MaxCoefficients(chem);
    st.inputCriterion = ctx.input.convergenceCriterion < 1 && ctx.input.convergenceCriterion > 0
                            ? 1 / ctx.input.convergenceCriterion
                            : ctx.input.convergenceCriterion;
    st.iterationCount = 0;
    st.workingCriterion = kSolverOptions.firstStageCriterion;
    st.saturationTolerance = SaturationToleranceFor(st.workingCriterion);
    st.proton.firstCallDone = false;
    st.bulkFraction = 1.0;
    st.worstRatio = st.previousWorstRatio = st.protonWorstRatio = st.otherWorstRatio = 1;
    st.worstComponentName.clear();
    st.activityCalls = 0;
    st.gammaIterationCapped = false;
    BuildNewtonSystem(chem, st.newton);
    StartSolids(ctx);
    FirstSpeciesOfComponents(chem, st);
    StartIonicStrength(ctx);
    UpdateActivity(ctx);
    FreeFromActivity(ctx);
    FreeFromGivenMember(ctx);
    st.newtonCountdown = 0;
    ClearFallback(st.fallback);
    st.abortRequested = false;
    // the organic donors and acceptors belong to this solve's organic matter only
    st.protonSums.donorOrganic = st.protonSums.acceptorOrganic = 0;
    if (OrganicModelActive(ctx)) InitialiseOrganic(ctx);
    SaveUnknowns(ctx);
}

bool TightenCriterion(SolverState& st) {
    if (st.workingCriterion <= st.inputCriterion) return true;
    // Each stage moves ten times closer to 1; bounded by the 16 digits of a double.
    for (int stage = 0; stage < 20; ++stage) {
        const double next = (st.workingCriterion - 1) / 10 + 1;
        st.workingCriterion = next;
        if (!(next > st.worstRatio && next > st.inputCriterion)) break;
    }
    if (st.workingCriterion < st.inputCriterion) st.workingCriterion = st.inputCriterion;
    st.saturationTolerance = SaturationToleranceFor(st.workingCriterion);
    return false;
}

void SpeciesAndTotals(CalcContext& ctx, bool& converged, bool solveEnrichment) {
    SpeciesConcentrations(ctx.chem, TablesFor(ctx.chem, ctx.state.tables));
    if (OrganicModelActive(ctx)) OrganicSpeciesStep(ctx, solveEnrichment);
    TotalsAndRatios(ctx, converged);
}

void InorganicUpdate(CalcContext& ctx, bool& converged) {
    SolverState& st = ctx.state;
    if (NewtonAllowed(ctx)) {
        if (NewtonStep(ctx, converged)) {
            st.newtonUsed = true;
            FreeFromGivenMember(ctx);
            return;
        }
    }
    st.newtonUsed = false;
    const int32_t count = static_cast<int32_t>(ctx.chem.systemComponents.size());
    for (int32_t j = 1; j < count; ++j)
        if (IsMassBalance(ctx.chem.systemComponents[j])) RatioUpdate(ctx, j);
    if (st.protonBalanceMode) ProtonUpdate(ctx, converged);
    FreeFromGivenMember(ctx);
    SaveUnknowns(ctx);
}

SolveResult SolveEquilibrium(CalcContext& ctx, bool showProgress) {
    SolverState& st = ctx.state;
    SolveResult result;
    InitialiseSolve(ctx);
    const bool organic = OrganicModelActive(ctx);
    for (;;) {
        ++st.iterationCount;
        bool converged = true;
        SpeciesAndTotals(ctx, converged);
        if (st.fallbackAllowed && !st.fallback.active && IterationStalled(ctx)) StartFallback(ctx, converged);
        if (st.fallback.active) {
            WatchFallback(ctx, converged);
            FallbackUpdate(ctx, converged);
        } else if (organic)
            OrganicUpdate(ctx, converged);
        else
            InorganicUpdate(ctx, converged);
        if (st.newton.m > 0) ReleaseDissolvedSolids(ctx, converged);
        UpdateIonicStrength(ctx, converged);
        if (organic) OrganicElectrostaticUpdate(ctx, converged);
        if (st.abortRequested) break;
        if (showProgress && ReportProgress(ctx)) {
            st.abortRequested = true;
            break;
        }
        if (converged && SaturationCheck(ctx, showProgress) && TightenCriterion(st)) {
            result.converged = true;
            break;
        }
        if (st.iterationCount >= st.maxIterations) {
            result.message = NotConvergedMessage(ctx);
            break;
        }
    }
    if (organic) StoreOrganicWorkingLogK(ctx);
    result.fallbackUsed = st.fallback.active;
    result.cancelled = st.abortRequested;
    result.iterations = st.iterationCount;
    result.worstComponent = st.worstComponentName;
    result.worstRatio = st.worstRatio;
    return result;
}

}  // namespace tormel
