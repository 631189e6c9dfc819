#include "calc/activity.h"
#include "calc/assemble_system.h"
#include "calc/organic_model.h"
#include "calc/run_calculation.h"
#include "calc/solver.h"

namespace tormel {

namespace {

void ResetBalanceSums(SystemComponent& sc) { sc.sumDissolved = sc.sumOther = sc.sumAdsorbed = sc.sumSolid = 0; }

// The balance sums of the unknowns the solver did not balance (fixed
// concentrations and activities, gases, redox groups fixed by a member):
// what the solution holds of them, by species class.
void FillUnbalancedSums(ChemicalSystem& chem, double bulkFraction) {
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    const int32_t systemCount = static_cast<int32_t>(chem.systemComponents.size());
    for (int32_t j = 0; j < systemCount; ++j) {
        SystemComponent& sc = chem.systemComponents[j];
        if (sc.type != ComponentType::Gas && sc.balanceKind == InputType::TotalConc) continue;
        ResetBalanceSums(sc);
        for (int32_t s = 0; s < speciesCount; ++s) {
            const Species& sp = chem.species[s];
            for (int32_t e = 0; e < sp.componentTerms; ++e) {
                const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
                if (term.systemComponent != j || term.coefficient == 0) continue;
                AddToSums(sc, sp.kind, term.coefficient * sp.concentration);
            }
        }
        CombineSums(sc, bulkFraction);
    }
}

}  // namespace

void PostProcess(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    const bool hydrogenIsTotal = chem.systemComponents[0].balanceKind == InputType::TotalConc;
    // With a fixed pH the proton sums still tell how much H+ the species hold;
    // the sums of every unbalanced unknown (H+ among them) are then formed anew.
    if (!hydrogenIsTotal) ComputeProtonSums(ctx);
    if (ctx.input.ionicStrengthFixed) st.ionicStrengthFromComposition = IonicStrengthSum(chem);
    SpeciesChargeSums(chem, TablesFor(chem, st.tables).charged, st.cationCharge, st.anionCharge);
    FillUnbalancedSums(chem, st.bulkFraction);
    if (ctx.input.ionicStrengthModel == kMsaModel) BuildSaltTable(ctx);
    if (ctx.input.organicComplexation) OrganicClassSums(chem);
}

CalculationOutcome RunCalculation(CalcContext& ctx, bool showProgress) {
    CalculationOutcome outcome;
    AssemblyResult assembly = AssembleSystem(ctx);
    outcome.assembled = assembly.assembled;
    outcome.refusal = std::move(assembly.refusal);
    if (!outcome.assembled) return outcome;
    ctx.state.inputChargeExcess = 0;
    if (ctx.chem.systemComponents[0].balanceKind == InputType::TotalConc)
        ctx.state.inputChargeExcess = InputChargeExcess(ctx.chem, ctx.input);
    outcome.solve = SolveEquilibrium(ctx, showProgress);
    if (ctx.state.abortRequested) return outcome;
    // A solve stopped by the iteration bound has no valid composition: no
    // results, the outcome says why.
    if (!outcome.solve.converged) return outcome;
    PostProcess(ctx);
    ctx.state.resultExists = true;
    if (ctx.buildResults) ctx.buildResults(ctx);
    return outcome;
}

}  // namespace tormel
