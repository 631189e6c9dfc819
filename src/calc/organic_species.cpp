// The organic model's part of the species step: the shares of the sites, the
// concentrations of the metal species, the charge of each fraction and the
// proton donors and acceptors held by the organic matter. The free and
// protonated site species have been formed by the solver's own species step.
#include <cmath>
#include <numbers>

#include "calc/activity.h"
#include "calc/organic_model.h"
#include "calc/solver.h"

namespace tormel {

namespace {

// Shares of every site component and the mean totals of the combinations.
void SiteShares(const ChemicalSystem& chem, OrganicFraction& fr, bool protonatedShare) {
    for (OrganicSite& site : fr.sites) {
        const double free = chem.species[site.freeSpecies].concentration;
        const double protonated = chem.species[site.protonatedSpecies].concentration;
        site.total = free + protonated;
        // a site with nothing free or protonated carries nothing (log 0 = -inf)
        site.logShare = site.total > 0 ? std::log10((protonatedShare ? protonated : free) / site.total) : -HUGE_VAL;
    }
    for (OrganicCombination& comb : fr.combinations) {
        double sum = 0;
        for (int32_t k = 0; k < comb.size; ++k) sum += fr.sites[comb.firstSite + k].total;
        comb.logTotal = std::log10(sum / comb.size);
    }
}

// log10 of the activity that a block's species are formed from.
double MetalLogActivity(const ChemicalSystem& chem, const SolverState& st, const OrganicMetalBlock& block) {
    if (block.hydrolysed) return std::log10(Activity(st, chem.species[block.hydroxoSpecies]));
    if (block.standingSpecies >= 0) return std::log10(Activity(st, chem.species[block.standingSpecies]));
    const double z = block.metalCharge;
    return z * z * st.logGamma1 + std::log10(chem.systemComponents[block.metalComponent].freeConcentration);
}

void MetalSpeciesOfFraction(ChemicalSystem& chem, const SolverState& st, OrganicFraction& fr, bool exchange,
                            double logHydrogenActivity) {
    for (const OrganicMetalBlock& block : fr.metals) {
        const double logMetal = MetalLogActivity(chem, st, block);
        for (int32_t k = 0; k < block.speciesCount; ++k) {
            const OrganicCombination& comb = fr.combinations[k];
            double exponent = comb.logTotal + logMetal;
            for (int32_t m = 0; m < comb.size; ++m) exponent += fr.sites[comb.firstSite + m].logShare;
            // Model 5 binds by exchange: one H+ released per site
            if (exchange) exponent -= comb.size * logHydrogenActivity;
            Species& sp = chem.species[block.firstSpecies + k];
            sp.concentration = std::exp((sp.workingLogK + exponent) * std::numbers::ln10);
        }
    }
}

// Net charge per gram of carbon and the donor and acceptor sums.
void ChargeAndProtons(const ChemicalSystem& chem, OrganicFraction& fr) {
    double charge = 0;
    double donors = 0;
    double acceptors = 0;
    for (const OrganicSite& site : fr.sites) {
        charge -= chem.species[site.freeSpecies].concentration;
        donors += chem.species[site.protonatedSpecies].concentration;
    }
    for (const OrganicMetalBlock& block : fr.metals)
        for (int32_t k = 0; k < block.speciesCount; ++k) {
            const Species& sp = chem.species[block.firstSpecies + k];
            charge += sp.charge * sp.concentration;
            if (block.hydrolysed) acceptors += sp.concentration;
        }
    fr.charge = charge / fr.concentration;
    fr.donors = donors;
    fr.acceptors = acceptors;
}

}  // namespace

void OrganicMetalSpecies(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    OrganicState& org = ctx.state.organic;
    const Species& hydrogen = chem.species[0];
    const double hydrogenActivity =
        hydrogen.concentration > 0 ? Activity(ctx.state, hydrogen) : chem.systemComponents[0].freeConcentration;
    const double logHydrogenActivity = std::log10(hydrogenActivity);
    const bool model5 = org.model == Model5;
    for (OrganicFraction& fr : org.fractions) {
        if (!fr.present) continue;
        SiteShares(chem, fr, model5);
        MetalSpeciesOfFraction(chem, ctx.state, fr, model5, logHydrogenActivity);
        ChargeAndProtons(chem, fr);
    }
}

void OrganicSpeciesStep(CalcContext& ctx, bool solveEnrichment) {
    OrganicMetalSpecies(ctx);
    OrganicDiffuseLayer(ctx, solveEnrichment);
    OrganicState& org = ctx.state.organic;
    ProtonSums& ps = ctx.state.protonSums;
    ps.donorOrganic = org.ddlDonors;
    ps.acceptorOrganic = org.ddlAcceptors;
    for (const OrganicFraction& fr : org.fractions) {
        if (!fr.present) continue;
        ps.donorOrganic += fr.donors;
        ps.acceptorOrganic += fr.acceptors;
    }
}

bool OrganicModelActive(const CalcContext& ctx) {
    return ctx.input.organicComplexation && ctx.state.organic.active;
}

}  // namespace tormel
