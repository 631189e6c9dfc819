// The electrostatic part of the organic model: each fraction's charge Z
// follows the charge of its species, damped and with a limited step, and the constants
// of the fraction's species are corrected by the electrostatic factor
// w = P log10 I and the charge.
#include <cmath>
#include <numbers>

#include "calc/organic_model.h"
#include "calc/solver.h"

namespace tormel {

namespace {

// The step limiter: the first step of a solve, its shrink at each reversal
// of direction, and the size below which it no longer shrinks.
constexpr float kFirstStepLimit = 0.01f;
constexpr float kStepLimitShrink = 0.9f;
constexpr float kSmallestShrinkingStep = 1e-6f;
// Damping of the charge: Z follows the charge of its species with the weight
// w, new = (charge + w Z) / (w + 1), and w grows at each reversal of its
// fraction's direction. The charge reacts to Z through the constants, and
// for the humic fraction at low ionic strength it overshoots (a feedback
// gain below -1): with the step limiter alone Z then swings about its value
// by the smallest step for ever, which moves the constants of strongly bound
// pairs by several 1e-4 log units each iteration and keeps their balances
// from converging.
constexpr float kChargeDampingStep = 0.2f;
constexpr float kMaxChargeDamping = 25.0f;

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
    org.stepLimit = kFirstStepLimit;
    org.chargeDamping = {};
    for (int32_t f = 0; f < kOrganicFractions; ++f)
        org.risingCharge[f] = org.fractions[f].charge > org.carry[f].charge;
}

void OrganicElectrostaticUpdate(CalcContext& ctx, bool& converged) {
    SolverState& st = ctx.state;
    OrganicState& org = st.organic;
    const bool first = st.iterationCount == 1;
    if (first) org.stepLimit = kFirstStepLimit;
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
            if (org.stepLimit > kSmallestShrinkingStep) org.stepLimit *= kStepLimitShrink;
            if (damping < kMaxChargeDamping) damping += kChargeDampingStep;
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
