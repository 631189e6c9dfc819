// The update of the free concentrations with organic matter: the ratio
// update for every inorganic unknown and the eight single sites of each
// fraction; every pair and triple is rescaled as a whole and split over its
// members by their protonation. Also the organic start of a solve.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "calc/organic_model.h"
#include "calc/solver.h"

namespace tormel {

namespace {

constexpr int32_t kSingleSites = 8;

// The pairs and triples of one fraction. Each combination's members share
// one total: the mean of their free + protonated concentrations is scaled by
// the combination's given over its calculated total, and each member's free
// concentration follows from that total and its protonation. The constant is
// the conditional one of the member's protonated species (electrostatics and
// the activity of H+ included), so that free + protonated of each member
// equals the new total in the next species step. The constant (10^workingLogK,
// set with the working constants) is in double precision for every model: in
// single precision the exponent alone (a constant near 10) carries an error
// of 1e-6, which leaves a strongly protonated member off its balance by 2e-6,
// more than a criterion of 1.000001 allows.
void UpdateCombinations(CalcContext& ctx, OrganicFraction& fr) {
    ChemicalSystem& chem = ctx.chem;
    const double hydrogen = chem.systemComponents[0].freeConcentration;
    for (size_t c = kSingleSites; c < fr.combinations.size(); ++c) {
        const OrganicCombination& comb = fr.combinations[c];
        double calculated = 0;
        double current = 0;
        for (int32_t k = 0; k < comb.size; ++k) {
            const OrganicSite& site = fr.sites[comb.firstSite + k];
            calculated += chem.systemComponents[site.component].calculatedTotal;
            current += site.total;
        }
        calculated /= comb.size;
        current /= comb.size;
        const double given = chem.systemComponents[fr.sites[comb.firstSite].component].balanceTotal;
        // a combination emptied to nothing restarts from its given total
        const double total = current > 0 && calculated > 0 ? current * given / calculated : given;
        for (int32_t k = 0; k < comb.size; ++k) {
            const OrganicSite& site = fr.sites[comb.firstSite + k];
            chem.systemComponents[site.component].freeConcentration = total / (1 + hydrogen * site.protonConstant);
        }
    }
}

void UpdateFraction(CalcContext& ctx, OrganicFraction& fr) {
    for (int32_t i = 0; i < kSingleSites; ++i) RatioUpdate(ctx, fr.sites[i].component);
    UpdateCombinations(ctx, fr);
}

}  // namespace

void OrganicUpdate(CalcContext& ctx, bool& converged) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    OrganicState& org = st.organic;
    st.newtonUsed = false;
    // a fraction's sites are updated together, at its first site component
    std::array<int32_t, kOrganicFractions> firstSite;
    for (int32_t f = 0; f < kOrganicFractions; ++f)
        firstSite[f] = org.fractions[f].present ? org.fractions[f].sites.front().component : -1;
    const int32_t count = static_cast<int32_t>(chem.systemComponents.size());
    for (int32_t j = 1; j < count; ++j) {
        const SystemComponent& sc = chem.systemComponents[j];
        if (sc.balanceKind != InputType::TotalConc) continue;
        if (sc.type != ComponentType::Organic) {
            RatioUpdate(ctx, j);
            continue;
        }
        for (int32_t f = 0; f < kOrganicFractions; ++f)
            if (firstSite[f] == j) UpdateFraction(ctx, org.fractions[f]);
    }
    if (st.protonBalanceMode) ProtonUpdate(ctx, converged);
    FreeFromGivenMember(ctx);
    SaveUnknowns(ctx);
}

void InitialiseOrganic(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    OrganicState& org = st.organic;
    const double hydrogen = std::max(chem.systemComponents[0].freeConcentration, 0.0);
    for (OrganicFraction& fr : org.fractions) {
        if (!fr.present) continue;
        fr.intrinsicTaken = false;  // taken anew by the working constants below
        for (const OrganicSite& site : fr.sites) {
            SystemComponent& sc = chem.systemComponents[site.component];
            sc.freeConcentration = sc.balanceTotal / (1 + hydrogen * std::pow(10.0, site.protonationLogK));
        }
    }
    org.layerSpecies.clear();
    for (size_t s = 0; s < chem.species.size(); ++s) {
        if (IsDissolvedKind(chem.species[s].kind)) org.layerSpecies.push_back(static_cast<int32_t>(s));
    }
    BuildOrganicSumTables(chem, org);
    org.stepLimit = 0.01f;
    org.chargeDamping = {};
    org.risingCharge = {};
    org.counterIonCapped = false;
    org.counterIonMessage.clear();
    OrganicWorkingLogK(ctx);
}

}  // namespace tormel
