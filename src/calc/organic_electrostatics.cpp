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

// 10^logK of each protonated site and metal species of a fraction, taken
// once per solve (the assembly's constants do not change within it).
void IntrinsicConstants(const ChemicalSystem& chem, OrganicFraction& fr) {
    for (OrganicSite& site : fr.sites) site.protonIntrinsic = std::pow(10.0, chem.species[site.protonatedSpecies].logK);
    fr.metalIntrinsic.resize(fr.metalSpeciesCount);
    fr.metalConstant.assign(fr.metalSpeciesCount, 0.0);
    for (int32_t i = 0; i < fr.metalSpeciesCount; ++i)
        fr.metalIntrinsic[i] = std::pow(10.0, chem.species[fr.firstMetalSpecies + i].logK);
    fr.intrinsicTaken = true;
}

// The working constants of a fraction's protonated sites and metal species,
// and 10^workingLogK of the metal species. A metal species' correction
// depends only on its charge and the size of its combination, which change
// a few times along a block: the power of ten is taken once for each such
// run of species, and 10^workingLogK is 10^logK times it.
void WorkingLogKOfFraction(ChemicalSystem& chem, const SolverState& st, OrganicFraction& fr, double charge,
                           bool model5) {
    const double w = fr.electrostatic;
    if (!fr.intrinsicTaken) IntrinsicConstants(chem, fr);
    const double protonElectrostatic = LogOfExp(2 * w * charge);
    const double protonFactor = std::pow(10.0, st.logGamma1 - protonElectrostatic);
    for (OrganicSite& site : fr.sites) {
        Species& sp = chem.species[site.protonatedSpecies];
        sp.workingLogK = sp.logK - protonElectrostatic + st.logGamma1;
        site.protonConstant = site.protonIntrinsic * protonFactor;
    }
    // the exponent of the last run and its power: under Models 6 and 7 every
    // run of a block, and every block of metals of one charge, has the same
    double lastExponent = 0, factor = 1;
    for (const OrganicMetalBlock& block : fr.metals) {
        const int32_t offset = block.firstSpecies - fr.firstMetalSpecies;
        Species* species = &chem.species[block.firstSpecies];
        const OrganicCombination* combinations = fr.combinations.data();
        const double* intrinsic = &fr.metalIntrinsic[offset];
        double* constant = &fr.metalConstant[offset];
        for (int32_t k = 0; k < block.speciesCount;) {
            // a run of species of one charge at combinations of one size
            const int32_t speciesCharge = species[k].charge;
            const int32_t size = combinations[k].size;
            int32_t end = k + 1;
            while (end < block.speciesCount && species[end].charge == speciesCharge && combinations[end].size == size)
                ++end;
            double electrostatic = 0, activity = 0;
            if (model5) {
                electrostatic = LogOfExp(-2 * w * speciesCharge * charge);
            } else {
                // the charge the metal brings to the particle
                const double z = speciesCharge + size;
                electrostatic = LogOfExp(-2 * w * z * charge);
                activity = z * z * st.logGamma1;
            }
            const double exponent = electrostatic + activity;
            if (exponent != lastExponent) {
                lastExponent = exponent;
                factor = std::pow(10.0, exponent);
            }
            for (; k < end; ++k) {
                species[k].workingLogK = species[k].logK + electrostatic + activity;
                constant[k] = intrinsic[k] * factor;
            }
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
