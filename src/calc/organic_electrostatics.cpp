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

// The runs of metal species that share a correction: a block's species
// change charge and combination size only a few times along it.
void BuildConstantRuns(const ChemicalSystem& chem, OrganicFraction& fr) {
    fr.constantRuns.clear();
    for (const OrganicMetalBlock& block : fr.metals) {
        const int32_t offset = block.firstSpecies - fr.firstMetalSpecies;
        const Species* species = &chem.species[block.firstSpecies];
        for (int32_t k = 0; k < block.speciesCount;) {
            OrganicConstantRun run;
            run.speciesCharge = species[k].charge;
            run.size = fr.combinations[k].size;
            int32_t end = k + 1;
            while (end < block.speciesCount && species[end].charge == run.speciesCharge &&
                   fr.combinations[end].size == run.size)
                ++end;
            run.first = offset + k;
            run.end = offset + end;
            fr.constantRuns.push_back(run);
            k = end;
        }
    }
}

// 10^logK of each protonated site and metal species of a fraction, taken
// once per solve (the assembly's constants do not change within it), with
// the runs of metal species.
void IntrinsicConstants(const ChemicalSystem& chem, OrganicFraction& fr) {
    for (OrganicSite& site : fr.sites) site.protonIntrinsic = std::pow(10.0, chem.species[site.protonatedSpecies].logK);
    fr.metalIntrinsic.resize(fr.metalSpeciesCount);
    fr.metalConstant.assign(fr.metalSpeciesCount, 0.0);
    for (int32_t i = 0; i < fr.metalSpeciesCount; ++i)
        fr.metalIntrinsic[i] = std::pow(10.0, chem.species[fr.firstMetalSpecies + i].logK);
    BuildConstantRuns(chem, fr);
    fr.intrinsicTaken = true;
}

// The working constants of a fraction's protonated sites, and 10^workingLogK
// of its metal species: 10^logK times the power of ten of their run's
// correction, taken again only when the correction changes (under Models 6
// and 7 every run of a block, and every block of metals of one charge, has
// the same). The metal species' workingLogK itself is only written at the end
// of a solve (StoreOrganicWorkingLogK).
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
    const double* intrinsic = fr.metalIntrinsic.data();
    double* constant = fr.metalConstant.data();
    double lastExponent = 0, factor = 1;
    for (OrganicConstantRun& run : fr.constantRuns) {
        double electrostatic = 0, activity = 0;
        if (model5) {
            electrostatic = LogOfExp(-2 * w * run.speciesCharge * charge);
        } else {
            // the charge the metal brings to the particle
            const double z = run.speciesCharge + run.size;
            electrostatic = LogOfExp(-2 * w * z * charge);
            activity = z * z * st.logGamma1;
        }
        run.electrostatic = electrostatic;
        run.activity = activity;
        const double exponent = electrostatic + activity;
        if (exponent != lastExponent) {
            lastExponent = exponent;
            factor = std::pow(10.0, exponent);
        }
        for (int32_t k = run.first; k < run.end; ++k) constant[k] = intrinsic[k] * factor;
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

void StoreOrganicWorkingLogK(CalcContext& ctx) {
    for (const OrganicFraction& fr : ctx.state.organic.fractions) {
        if (!fr.present) continue;
        Species* species = ctx.chem.species.data() + fr.firstMetalSpecies;
        for (const OrganicConstantRun& run : fr.constantRuns)
            for (int32_t k = run.first; k < run.end; ++k)
                species[k].workingLogK = species[k].logK + run.electrostatic + run.activity;
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
