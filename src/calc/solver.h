#pragma once
// The speciation solver: iterates the free concentrations of the unknowns
// until every mass balance, the ionic strength and (in proton-balance mode)
// the proton balance and the charge balance agree.
#include "calc/calc_context.h"

namespace tormel {

// Solves the assembled system in place. With showProgress the progress
// callback of the UI services is called after every iteration and can cancel.
SolveResult SolveEquilibrium(CalcContext& ctx, bool showProgress);

// --- steps of one iteration, also used by the organic model and precipitation ---

// Starting values, proton-balance set-up, Newton system and activity start.
void InitialiseSolve(CalcContext& ctx);
// c_s = 10^(workingLogK + sum nu log c) for the species the solver computes.
void SpeciesConcentrations(ChemicalSystem& chem, SpeciesTables& tables);
// Balance sums of the mass-balance components, their ratios and the worst
// of them; clears `converged` when the worst ratio exceeds the working criterion.
void TotalsAndRatios(CalcContext& ctx, bool& converged);
// The species (with organic matter, their organic part too), then the totals
// and ratios: what each iteration starts from.
void SpeciesAndTotals(CalcContext& ctx, bool& converged, bool solveEnrichment = true);
// Donor and acceptor sums of the proton balance (sets H+'s sums and total).
void ComputeProtonSums(CalcContext& ctx);
// sumAll, the bulk sums and the calculated total of one system component.
// Adds an amount of the unknown held by a species of `kind` to the sum of
// its class (dissolved, adsorbed, solid; organic kinds have their own sums).
void AddToSums(SystemComponent& sc, SpeciesKind kind, double amount);
void CombineSums(SystemComponent& sc, double bulkFraction);
// The ratio update of one mass-balance component.
void RatioUpdate(CalcContext& ctx, int32_t component);
// The secant update of the free H+ concentration in proton-balance mode.
void ProtonUpdate(CalcContext& ctx, bool& converged);
// The proton balance within the input criterion and, unless a component is
// given as a free concentration or activity, the electroneutrality test.
bool ProtonBalanceHolds(const CalcContext& ctx);
// One Newton-Raphson step on the mass balances (and present solids); false
// when the Jacobian cannot be formed or inverted.
bool NewtonStep(CalcContext& ctx, bool& converged);
// The update of the free concentrations without organic matter.
void InorganicUpdate(CalcContext& ctx, bool& converged);
// Free concentration of a redox group's head when one member is given as a
// free concentration or activity.
void FreeFromGivenMember(CalcContext& ctx);
// Moves the working criterion one stage closer to the input criterion;
// true when the input criterion has been reached.
bool TightenCriterion(SolverState& state);
// Copies the unknowns (free concentrations, solid amounts) into x.
void SaveUnknowns(CalcContext& ctx);

// --- the fallback for waters on which the iteration above stalls ---

// Watches the specified iteration after its totals and ratios: keeps its
// best state and tells when it stalls or diverges (worst ratio not improving
// over a window, far off after the first iterations, or not finite). With
// organic matter only free concentrations that are not finite, or the
// iteration bound drawing near, hand over.
bool IterationStalled(CalcContext& ctx);
// Continues from the best state so far: restores it and recomputes the
// species and the totals (clearing `converged` as they say).
void StartFallback(CalcContext& ctx, bool& converged);
// Watches the fallback: when it makes no progress with solids present, they
// all leave (clearing `converged`); the saturation checks bring back those
// that are oversaturated.
void WatchFallback(CalcContext& ctx, bool& converged);
// One damped Newton-Raphson step on the logarithms of the free
// concentrations (and the amounts of the present solids), with a line search
// on the scaled residuals of the mass balances, the proton balance and the
// saturation of the present solids. Replaces the update of the free
// concentrations once the fallback has started.
void FallbackUpdate(CalcContext& ctx, bool& converged);

// --- places of precipitation and the organic model in the iteration ---

// true when the set of solids and their amounts stayed unchanged.
bool SaturationCheck(CalcContext& ctx, bool showProgress);
// true when an organic model runs this solve (its updates replace the
// inorganic update).
bool OrganicModelActive(const CalcContext& ctx);
// The organic part of the species step (after SpeciesConcentrations); with
// solveEnrichment false the counter-ion enrichment of the diffuse layers is
// held, as the fallback holds it within its Newton steps.
void OrganicSpeciesStep(CalcContext& ctx, bool solveEnrichment = true);
void OrganicUpdate(CalcContext& ctx, bool& converged);
void OrganicElectrostaticUpdate(CalcContext& ctx, bool& converged);

// --- progress ---

// Position of the progress bar (1..300) for the worst ratio; re-scales the
// bar at the first iteration and whenever the position would fall below 3.
int32_t ProgressBarPosition(SolverState& state, double criterion, double ratio, bool firstIteration);
// Reports the iteration to the UI; true when the user cancels.
bool ReportProgress(CalcContext& ctx);

}  // namespace tormel
