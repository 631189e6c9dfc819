// The ionic strength: its start value, its damped update once per iteration
// and the rules that freeze it while the mass balances are far off.
#include <algorithm>
#include <cmath>

#include "calc/activity.h"
#include "calc/compare.h"
#include "calc/solver.h"
#include "calc/species_tables.h"

namespace tormel {

double IonicStrengthSum(const ChemicalSystem& chem) {
    double sum = 0;
    for (const Species& sp : chem.species)
        if (IsDissolvedKind(sp.kind)) sum += sp.concentration * sp.charge * sp.charge;
    return sum / 2;
}

// The same sum over the dissolved species of the tables.
double IonicStrengthSum(const ChemicalSystem& chem, const std::vector<int32_t>& dissolved) {
    double sum = 0;
    for (int32_t s : dissolved) {
        const Species& sp = chem.species[s];
        sum += sp.concentration * sp.charge * sp.charge;
    }
    return sum / 2;
}

void StartIonicStrength(CalcContext& ctx) {
    SolverState& st = ctx.state;
    if (ctx.input.ionicStrengthFixed) {
        st.ionicStrength = ctx.input.fixedIonicStrength;
    } else if (st.ionicStrength == 0) {
        // first calculation of the run: an estimate from the starting free
        // concentrations (a tenth of the totals), summed in single precision
        float sum = 0;
        for (const SystemComponent& sc : ctx.chem.systemComponents) {
            if (sc.type != ComponentType::Cation && sc.type != ComponentType::Ligand) continue;
            sum += static_cast<float>(sc.freeConcentration) * static_cast<float>(sc.charge * sc.charge);
        }
        st.ionicStrength = std::min(5.0 * sum, 0.5);
    } else {
        st.ionicStrength = std::min(st.ionicStrength, 0.5);
    }
    if (st.ionicStrength == 0) st.ionicStrength = 1e-7;
    if (ctx.input.ionicStrengthModel == 2) {
        st.msaDelta = 0.99;
        st.msaGamma = 0;
    }
}

void UpdateIonicStrength(CalcContext& ctx, bool& converged) {
    SolverState& st = ctx.state;
    if (st.iterationCount == 1) {
        st.ionicStrengthDamping = 0;
        st.ionicStrengthDirection = 0;
    }
    // far from the mass balances the activity coefficients are left alone
    if (st.worstRatio > 1.1 || (st.worstRatio > st.inputCriterion && st.ionicStrength > 1)) {
        converged = false;
        return;
    }
    if (ctx.input.ionicStrengthFixed) return;
    const double previous = st.ionicStrength;
    const double next = IonicStrengthSum(ctx.chem, TablesFor(ctx.chem, st.tables).dissolved);
    if (converged) converged = RelativelyEqual(previous, next, st.inputCriterion);
    if ((next < previous && st.ionicStrengthDirection == 1) || (next > previous && st.ionicStrengthDirection == 2))
        st.ionicStrengthDamping += 0.2f;
    st.ionicStrengthDamping = std::min(st.ionicStrengthDamping, 25.0f);
    if (next > 1) st.ionicStrengthDamping = std::max(st.ionicStrengthDamping, 1.0f);
    const double w = st.ionicStrengthDamping;
    st.ionicStrength = (next + w * previous) / (w + 1);
    UpdateActivity(ctx);
    FreeFromActivity(ctx);
    FreeFromGivenMember(ctx);
    if (st.ionicStrength > previous)
        st.ionicStrengthDirection = 1;
    else if (st.ionicStrength < previous)
        st.ionicStrengthDirection = 2;
    else
        st.ionicStrengthDirection = 3;
}

}  // namespace tormel
