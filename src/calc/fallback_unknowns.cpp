// The fallback's unknowns: plain components, organic pairs and triples
// sharing one site total, and the present solids.
#include "calc/fallback_unknowns.h"

#include <cmath>
#include <numbers>

#include "calc/organic_model.h"
#include "calc/solver.h"

namespace tormel {

namespace {

// 1 + [H+] K of a member's protonated species: its site total over its free
// concentration.
double ProtonationFactor(const ChemicalSystem& chem, int32_t protonatedSpecies) {
    const double hydrogen = chem.systemComponents[0].freeConcentration;
    return 1 + hydrogen * std::exp(chem.species[protonatedSpecies].workingLogK * std::numbers::ln10);
}

// The pairs and triples of the organic matter, by their first member's
// component; the other members' components are marked as taken.
void OrganicCombinations(const CalcContext& ctx, std::vector<FallbackUnknown>& byFirst, std::vector<bool>& taken) {
    if (!OrganicModelActive(ctx)) return;
    for (const OrganicFraction& fr : ctx.state.organic.fractions) {
        if (!fr.present) continue;
        for (const OrganicCombination& comb : fr.combinations) {
            if (comb.size < 2) continue;
            const int32_t first = fr.sites[comb.firstSite].component;
            FallbackUnknown& unknown = byFirst[first];
            unknown.component = first;
            for (int32_t k = 0; k < comb.size; ++k) {
                const OrganicSite& site = fr.sites[comb.firstSite + k];
                unknown.members.push_back(site.component);
                unknown.protonatedSpecies.push_back(site.protonatedSpecies);
                if (k > 0) taken[site.component] = true;
            }
        }
    }
}

}  // namespace

FallbackLayout FallbackLayoutOf(const CalcContext& ctx) {
    const NewtonSystem& ns = ctx.state.newton;
    const size_t count = ctx.chem.systemComponents.size();
    std::vector<FallbackUnknown> byFirst(count);
    std::vector<bool> taken(count, false);
    OrganicCombinations(ctx, byFirst, taken);
    FallbackLayout layout;
    layout.rowOf.assign(count, -1);
    for (int32_t u = 0; u < ns.n; ++u) {
        const int32_t j = ns.unknownComponent[u];
        if (taken[j]) continue;
        FallbackUnknown unknown = std::move(byFirst[j]);
        unknown.component = j;
        layout.rowOf[j] = layout.FreeCount();
        layout.free.push_back(std::move(unknown));
    }
    return layout;
}

FallbackValues ReadFallbackValues(const CalcContext& ctx, const FallbackLayout& layout) {
    const ChemicalSystem& chem = ctx.chem;
    FallbackValues x;
    for (const FallbackUnknown& unknown : layout.free) {
        if (unknown.members.empty()) {
            x.logFree.push_back(std::log(chem.systemComponents[unknown.component].freeConcentration));
            continue;
        }
        double total = 0;
        for (size_t k = 0; k < unknown.members.size(); ++k)
            total += chem.systemComponents[unknown.members[k]].freeConcentration *
                     ProtonationFactor(chem, unknown.protonatedSpecies[k]);
        x.logFree.push_back(std::log(total / static_cast<double>(unknown.members.size())));
    }
    const NewtonSystem& ns = ctx.state.newton;
    for (int32_t k = 0; k < ns.m; ++k) x.amount.push_back(chem.species[ns.solidSpecies[k]].concentration);
    return x;
}

void WriteFallbackValues(CalcContext& ctx, const FallbackLayout& layout, const FallbackValues& x) {
    ChemicalSystem& chem = ctx.chem;
    // the plain components first: the members' free concentrations follow
    // from their common total by the new [H+]
    for (int32_t v = 0; v < layout.FreeCount(); ++v)
        if (layout.free[v].members.empty())
            chem.systemComponents[layout.free[v].component].freeConcentration = std::exp(x.logFree[v]);
    for (int32_t v = 0; v < layout.FreeCount(); ++v) {
        const FallbackUnknown& unknown = layout.free[v];
        const double total = std::exp(x.logFree[v]);
        for (size_t k = 0; k < unknown.members.size(); ++k)
            chem.systemComponents[unknown.members[k]].freeConcentration =
                total / ProtonationFactor(chem, unknown.protonatedSpecies[k]);
    }
    const NewtonSystem& ns = ctx.state.newton;
    for (int32_t k = 0; k < ns.m; ++k) chem.species[ns.solidSpecies[k]].concentration = x.amount[k];
    FreeFromGivenMember(ctx);
}

}  // namespace tormel
