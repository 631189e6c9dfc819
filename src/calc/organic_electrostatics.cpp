// The electrostatic part of the organic model: each fraction's charge Z
// follows the charge of its species, damped and with a limited step, and the constants
// of the fraction's species are corrected by the electrostatic factor
// w = P log10 I and the charge.
#include <cmath>
#include <numbers>

#include "calc/organic_model.h"
#include "calc/solver.h"
#include "calc/solver_options.h"

namespace tormel {

namespace {


// log10(e^x)
double LogOfExp(double x) { return x * std::numbers::log10e; }

void WorkingLogKOfFraction(ChemicalSystem& chem, const SolverState& st, OrganicFraction& fr, double charge,
                           bool model5) {
    const double w = fr.electrostatic;
    for (const OrganicSite& site : fr.sites) {
        Species& sp = chem.species[site.protonatedSpecies];
        sp.workingLogK = sp.logK - LogOfExp(2 * w * charge) + st.logGamma1;
    }
    for (const OrganicMetalBlock& block : fr.metals)
        for (int32_t k = 0; k < block.speciesCount; ++k) {
            Species& sp = chem.species[block.firstSpecies + k];
            if (model5) {
                sp.workingLogK = sp.logK + LogOfExp(-2 * w * sp.charge * charge);
            } else {
                // the charge the metal brings to the particle
                const double z = sp.charge + fr.combinations[k].size;
                sp.workingLogK = sp.logK + LogOfExp(-2 * w * z * charge) + z * z * st.logGamma1;
            }
        }
}

}  // namespace

void OrganicWorkingLogK(CalcContext& ctx) {
    SolverState& st = ctx.state;
    OrganicState& org = st.organic;
    const double logI = st.ionicStrength > 0 ? std::log10(st.ionicStrength) : 0.0;
    for (int32_t f = 0; f < kOrganicFractions; ++f) {
        OrganicFraction& fr = org.fractions[f];
        if (!fr.present) continue;
        fr.electrostatic = fr.parameters.electrostaticP * logI;
        WorkingLogKOfFraction(ctx.chem, st, fr, org.carry[f].charge, org.model == Model5);
    }
}

void RestartChargeLimiter(CalcContext& ctx) {
    OrganicState& org = ctx.state.organic;
    org.stepLimit = kSolverOptions.firstStepLimit;
    org.chargeDamping = {};
    for (int32_t f = 0; f < kOrganicFractions; ++f)
        org.risingCharge[f] = org.fractions[f].charge > org.carry[f].charge;
}

void OrganicElectrostaticUpdate(CalcContext& ctx, bool& converged) {
    SolverState& st = ctx.state;
    OrganicState& org = st.organic;
    const bool first = st.iterationCount == 1;
    if (first) org.stepLimit = kSolverOptions.firstStepLimit;
    for (int32_t f = 0; f < kOrganicFractions; ++f) {
        const OrganicFraction& fr = org.fractions[f];
        if (!fr.present) continue;
        double& z = org.carry[f].charge;
        float& damping = org.chargeDamping[f];
        const double previous = z;
        const bool rising = fr.charge > previous;
        if (first) {
            damping = 0;
            org.risingCharge[f] = rising;
        } else if (rising != org.risingCharge[f]) {
            if (org.stepLimit > kSolverOptions.smallestShrinkingStep) org.stepLimit *= kSolverOptions.stepLimitShrink;
            if (damping < kSolverOptions.maxChargeDamping) damping += kSolverOptions.chargeDampingStep;
            org.risingCharge[f] = rising;
        }
        double next = (fr.charge + damping * previous) / (damping + 1);
        const double limit = org.stepLimit;
        if (std::fabs(next - previous) > limit) {
            converged = false;
            next = rising ? previous + limit : previous - limit;
        }
        z = next;
    }
    if (org.counterIonCapped) converged = false;
    OrganicWorkingLogK(ctx);
}

}  // namespace tormel
