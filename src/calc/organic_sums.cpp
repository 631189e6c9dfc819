// The organic contributions to the balance sums of the unknowns: what the
// sites and the metal species hold (each iteration), what the diffuse layers
// hold, and the six class sums of the post-processing.
#include <cmath>

#include "calc/organic_model.h"

namespace tormel {

namespace {

// Class (0..5) of an organic species kind for the H+ component's class sums.
int32_t ProtonClass(SpeciesKind kind) {
    switch (CodeOf(kind)) {
        case 11: case 28: case 52: return 0;
        case 19: case 40: case 64: return 1;
        case 12: case 29: case 53: return 2;
        case 20: case 41: case 65: return 3;
        case 30: case 54: return 4;
        case 42: case 66: return 5;
        default: return -1;
    }
}

// Class (0..5) of an organic species kind for a metal's class sums.
int32_t MetalClass(SpeciesKind kind) {
    switch (CodeOf(kind)) {
        case 13: case 14: case 31: case 32: case 55: case 56: return 0;
        case 21: case 22: case 43: case 44: case 67: case 68: return 1;
        case 15: case 16: case 33: case 34: case 57: case 58: return 2;
        case 23: case 24: case 45: case 46: case 69: case 70: return 3;
        case 35: case 36: case 59: case 60: return 4;
        case 47: case 48: case 71: case 72: return 5;
        default: return -1;
    }
}

}  // namespace

// The diffuse-layer amount of a species is weighed by its coefficient, like
// every other sum: a species that holds a component twice holds it twice in
// the layer too, and only so does the bulk share of the species (scaled by
// bulkFraction) plus its layer shares add up to the whole when the layer
// neither enriches nor excludes it (a neutral species).
void OrganicSums(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    const OrganicState& org = ctx.state.organic;
    auto& scs = chem.systemComponents;
    // a site's free and protonated species hold the site once each, and the
    // protonated one H+ once: the site's total and the fraction's donors
    SystemComponent& hydrogen = scs[0];
    for (const OrganicFraction& fr : org.fractions) {
        if (!fr.present) continue;
        for (const OrganicSite& site : fr.sites) scs[site.component].boundOrganic += site.total;
        if (hydrogen.balanceKind == InputType::TotalConc) hydrogen.boundOrganic += fr.donors;
    }
    // a metal species holds its block's terms and each member of its
    // combination once: the sums by block and by combination carry them
    for (int32_t f = 0; f < kOrganicFractions; ++f) {
        const OrganicFraction& fr = org.fractions[f];
        if (!fr.present) continue;
        double SystemComponent::*bound = f == kFulvic ? &SystemComponent::boundFA : &SystemComponent::boundHA;
        for (const OrganicMetalBlock& block : fr.metals)
            for (const CompositionTerm& term : block.terms) scs[term.systemComponent].*bound += term.coefficient * block.sum;
        for (const OrganicCombination& comb : fr.combinations)
            for (int32_t k = 0; k < comb.size; ++k) {
                SystemComponent& sc = scs[fr.sites[comb.firstSite + k].component];
                if (sc.balanceKind == InputType::TotalConc) sc.*bound += comb.metalSum;
            }
    }
    const double volume[kOrganicFractions] = {org.fractions[kFulvic].volume, org.fractions[kHumic].volume};
    const SpeciesTermList& layer = org.layerTerms;
    for (int32_t k = 0; k < layer.Size(); ++k) {
        const Species& sp = chem.species[layer.species[k]];
        const double inLayers = volume[kFulvic] * sp.organicTerms[kFulvic] + volume[kHumic] * sp.organicTerms[kHumic];
        if (inLayers == 0) continue;
        for (int32_t t = layer.start[k]; t < layer.start[k + 1]; ++t) {
            const CompositionTerm& term = layer.terms[t];
            SystemComponent& sc = scs[term.systemComponent];
            sc.ddlSum[kFulvic] += term.coefficient * volume[kFulvic] * sp.organicTerms[kFulvic];
            sc.ddlSum[kHumic] += term.coefficient * volume[kHumic] * sp.organicTerms[kHumic];
        }
    }
}

void BuildOrganicSumTables(const ChemicalSystem& chem, OrganicState& org) {
    const auto onBalance = [&](const CompositionTerm& term) {
        return chem.systemComponents[term.systemComponent].balanceKind == InputType::TotalConc;
    };
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (OrganicFraction& fr : org.fractions) {
        if (!fr.present) continue;
        // a block's terms: those of its first species (at the first single
        // site) other than that site
        for (OrganicMetalBlock& block : fr.metals) {
            block.terms.clear();
            if (block.speciesCount == 0) continue;
            const int32_t s = block.firstSpecies;
            const int32_t site = fr.sites[fr.combinations[0].firstSite].component;
            for (int32_t e = 0; e < chem.species[s].componentTerms; ++e) {
                const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
                if (term.systemComponent != site && term.coefficient != 0 && onBalance(term))
                    block.terms.push_back(term);
            }
        }
    }
    org.layerTerms.Clear();
    for (int32_t s : org.layerSpecies) org.layerTerms.Add(chem, s, onBalance);
}

void AddOrganicCharges(const CalcContext& ctx, double& positive, double& negative) {
    const OrganicState& org = ctx.state.organic;
    positive *= ctx.state.bulkFraction;
    negative *= ctx.state.bulkFraction;
    for (int32_t s : org.layerSpecies) {
        const Species& sp = ctx.chem.species[s];
        if (sp.charge <= 0) continue;  // co-ions are kept out of the layers
        for (int32_t f = 0; f < kOrganicFractions; ++f)
            positive += sp.charge * org.fractions[f].volume * sp.organicTerms[f];
    }
    for (const OrganicFraction& fr : org.fractions) {
        if (!fr.present) continue;
        const double charge = fr.charge * fr.concentration;
        (charge < 0 ? negative : positive) += std::fabs(charge);
    }
}

void OrganicClassSums(ChemicalSystem& chem) {
    for (SystemComponent& sc : chem.systemComponents)
        if (sc.type != ComponentType::Organic) sc.organicClassSums = {};
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t s = 0; s < speciesCount; ++s) {
        const Species& sp = chem.species[s];
        const int32_t protonClass = ProtonClass(sp.kind);
        const int32_t metalClass = MetalClass(sp.kind);
        if (protonClass < 0 && metalClass < 0) continue;
        for (int32_t e = 0; e < sp.componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            if (term.systemComponent == 0 && protonClass >= 0)
                chem.systemComponents[0].organicClassSums[protonClass] += term.coefficient * sp.concentration;
        }
        if (metalClass < 0) continue;
        // a metal species adds to each non-organic component it holds (a
        // component appears once in a species' composition)
        for (int32_t e = 0; e < sp.componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            SystemComponent& sc = chem.systemComponents[term.systemComponent];
            if (term.systemComponent == 0 || sc.type == ComponentType::Organic) continue;
            sc.organicClassSums[metalClass] += term.coefficient * sp.concentration;
        }
    }
}

}  // namespace tormel
