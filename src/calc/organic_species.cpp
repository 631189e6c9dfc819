// The organic model's part of the species step: the shares of the sites, the
// concentrations of the metal species, the charge of each fraction and the
// proton donors and acceptors held by the organic matter, with the free and
// protonated site species.
#include <cmath>
#include <numbers>

#include "calc/activity.h"
#include "calc/organic_model.h"
#include "calc/solver.h"

namespace tormel {

namespace {

// The free and protonated species of every site, the shares of the sites
// and what each combination binds with; the sites' part of the fraction's
// charge and the protonated sites (donors). The free species is the site's
// unknown itself (constant 1), the protonated one 10^workingLogK [H+] times
// it. Under Model 5 a metal binds by exchange, one H+ released per site.
void SiteShares(ChemicalSystem& chem, OrganicFraction& fr, bool model5, double hydrogenActivity, double& charge,
                double& donors) {
    const double hydrogen = chem.systemComponents[0].freeConcentration;
    for (OrganicSite& site : fr.sites) {
        const double free = chem.systemComponents[site.component].freeConcentration;
        const double protonated = site.protonConstant * hydrogen * free;
        chem.species[site.freeSpecies].concentration = free;
        chem.species[site.protonatedSpecies].concentration = protonated;
        charge -= free;
        donors += protonated;
        site.total = free + protonated;
        // a site with nothing free or protonated carries nothing
        site.share = site.total > 0 ? (model5 ? protonated : free) / site.total : 0.0;
    }
    const double exchange = model5 ? 1 / hydrogenActivity : 1.0;
    for (OrganicCombination& comb : fr.combinations) {
        const OrganicSite* members = &fr.sites[comb.firstSite];
        double sum = 0;
        for (int32_t k = 0; k < comb.size; ++k) sum += members[k].total;
        double binding = sum / comb.size;
        for (int32_t k = 0; k < comb.size; ++k) binding *= members[k].share;
        if (model5)
            for (int32_t k = 0; k < comb.size; ++k) binding *= exchange;
        comb.binding = binding;
    }
}

// The activity that a block's species are formed from.
double MetalActivity(const ChemicalSystem& chem, const SolverState& st, const OrganicMetalBlock& block) {
    if (block.hydrolysed) return Activity(st, chem.species[block.hydroxoSpecies]);
    if (block.standingSpecies >= 0) return Activity(st, chem.species[block.standingSpecies]);
    const double z = block.metalCharge;
    return std::pow(10.0, z * z * st.logGamma1) * chem.systemComponents[block.metalComponent].freeConcentration;
}

// c = 10^workingLogK a_M binding of the combination, for every metal species;
// their part of the charge and the hydrolysed species (acceptors).
// Also the sums of the species by block and by combination, from which the
// balance sums take them.
void MetalSpeciesOfFraction(ChemicalSystem& chem, const SolverState& st, OrganicFraction& fr, double& charge,
                            double& acceptors) {
    for (OrganicCombination& comb : fr.combinations) comb.metalSum = 0;
    for (OrganicMetalBlock& block : fr.metals) {
        const double activity = MetalActivity(chem, st, block);
        const double* constant = &fr.metalConstant[block.firstSpecies - fr.firstMetalSpecies];
        Species* species = &chem.species[block.firstSpecies];
        double sum = 0;
        for (int32_t k = 0; k < block.speciesCount; ++k) {
            OrganicCombination& comb = fr.combinations[k];
            const double c = constant[k] * activity * comb.binding;
            species[k].concentration = c;
            charge += species[k].charge * c;
            sum += c;
            comb.metalSum += c;
        }
        block.sum = sum;
        if (block.hydrolysed) acceptors += sum;
    }
}

}  // namespace

void OrganicMetalSpecies(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    OrganicState& org = ctx.state.organic;
    const Species& hydrogen = chem.species[0];
    const double hydrogenActivity =
        hydrogen.concentration > 0 ? Activity(ctx.state, hydrogen) : chem.systemComponents[0].freeConcentration;
    const bool model5 = org.model == Model5;
    for (OrganicFraction& fr : org.fractions) {
        if (!fr.present) continue;
        double charge = 0, donors = 0, acceptors = 0;
        SiteShares(chem, fr, model5, hydrogenActivity, charge, donors);
        MetalSpeciesOfFraction(chem, ctx.state, fr, charge, acceptors);
        fr.charge = charge / fr.concentration;
        fr.donors = donors;
        fr.acceptors = acceptors;
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
