// Mass-balance sums of the unknowns, their ratios to the given totals, and
// the donor/acceptor sums of the proton balance.
#include <algorithm>
#include <cmath>

#include "calc/organic_model.h"
#include "calc/solver.h"

namespace tormel {

namespace {


void ResetSums(SystemComponent& sc) {
    sc.sumDissolved = sc.sumOther = sc.sumAdsorbed = sc.sumSolid = 0;
    sc.ddlSum = {0, 0};
    sc.boundFA = sc.boundHA = sc.boundOrganic = 0;
}

}  // namespace

void AddToSums(SystemComponent& sc, SpeciesKind kind, double amount) {
    if (IsDissolvedKind(kind))
        sc.sumDissolved += amount;
    else if (kind == SpeciesKind::AdsorbedSpecies)
        sc.sumAdsorbed += amount;
    else if (IsSolidKind(kind))
        sc.sumSolid += amount;
}

void CombineSums(SystemComponent& sc, double bulkFraction) {
    sc.sumAll = sc.sumDissolved + sc.sumAdsorbed + sc.sumSolid + sc.sumOther;
    sc.bulkDissolved = sc.sumDissolved * bulkFraction;
    sc.bulkAdsorbed = sc.sumAdsorbed * bulkFraction;
    sc.bulkSolid = sc.sumSolid * bulkFraction;
    sc.calculatedTotal = sc.bulkDissolved + sc.bulkAdsorbed + sc.bulkSolid + sc.boundOrganic;
}

void ComputeProtonSums(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    ProtonSums ps;
    ps.donorOrganic = st.protonSums.donorOrganic;
    ps.acceptorOrganic = st.protonSums.acceptorOrganic;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t s = 0; s < speciesCount; ++s) {
        const Species& sp = chem.species[s];
        if (IsOrganicKind(sp.kind)) continue;
        for (int32_t e = 0; e < sp.componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            if (term.systemComponent != 0 || term.coefficient == 0) continue;
            const double amount = std::abs(term.coefficient) * sp.concentration;
            const bool donor = term.coefficient > 0;
            if (IsDissolvedKind(sp.kind))
                (donor ? ps.donorDissolved : ps.acceptorDissolved) += amount;
            else if (sp.kind == SpeciesKind::AdsorbedSpecies)
                (donor ? ps.donorAdsorbed : ps.acceptorAdsorbed) += amount;
            else if (IsSolidKind(sp.kind))
                (donor ? ps.donorSolid : ps.acceptorSolid) += amount;
        }
    }
    ps.donorBulk = (ps.donorDissolved + ps.donorAdsorbed + ps.donorSolid) * st.bulkFraction;
    ps.acceptorBulk = (ps.acceptorDissolved + ps.acceptorAdsorbed + ps.acceptorSolid) * st.bulkFraction;
    ps.donors = ps.donorBulk + ps.donorOrganic;
    ps.acceptors = ps.acceptorBulk + ps.acceptorOrganic;
    st.protonSums = ps;
    SystemComponent& h = chem.systemComponents[0];
    h.sumDissolved = ps.donorDissolved - ps.acceptorDissolved;
    h.sumAdsorbed = ps.donorAdsorbed - ps.acceptorAdsorbed;
    h.sumSolid = ps.donorSolid - ps.acceptorSolid;
    h.calculatedTotal = ps.donors - ps.acceptors;
}

void TotalsAndRatios(CalcContext& ctx, bool& converged) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    if (st.protonBalanceMode) ComputeProtonSums(ctx);
    auto& scs = chem.systemComponents;
    for (SystemComponent& sc : scs)
        if (sc.balanceKind == InputType::TotalConc) ResetSums(sc);
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t s = 0; s < speciesCount; ++s) {
        const Species& sp = chem.species[s];
        if (IsOrganicKind(sp.kind)) continue;  // summed by the organic model
        for (int32_t e = 0; e < sp.componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            SystemComponent& sc = scs[term.systemComponent];
            if (sc.balanceKind != InputType::TotalConc || term.coefficient == 0) continue;
            AddToSums(sc, sp.kind, term.coefficient * sp.concentration);
        }
    }
    if (OrganicModelActive(ctx)) OrganicSums(ctx);
    st.previousWorstRatio = st.worstRatio;
    st.worstRatio = st.protonWorstRatio = st.otherWorstRatio = 1;
    st.worstComponentName.clear();
    for (size_t j = 0; j < scs.size(); ++j) {
        SystemComponent& sc = scs[j];
        if (sc.balanceKind != InputType::TotalConc) continue;
        sc.boundOrganic += sc.boundFA + sc.ddlSum[0] + sc.boundHA + sc.ddlSum[1];
        CombineSums(sc, st.bulkFraction);
        double ratio;
        if (j == 0)
            ratio = sc.balanceTotal != st.hydroxideReference ? sc.calculatedTotal / sc.balanceTotal
                                                             : st.protonSums.donors / st.protonSums.acceptors;
        else
            ratio = sc.balanceTotal / sc.calculatedTotal;
        const double a = std::fabs(ratio);
        const double d = a > 1 ? a : 1 / a;
        double& worst = j == 0 ? st.protonWorstRatio : st.otherWorstRatio;
        if (d > worst || std::isnan(d)) {
            worst = std::isnan(d) ? HUGE_VAL : d;
            st.worstComponentName = sc.name;
        }
    }
    if (st.protonWorstRatio > st.otherWorstRatio) st.worstComponentName = scs[0].name;
    st.worstRatio = std::max(st.protonWorstRatio, st.otherWorstRatio);
    if (st.workingCriterion < st.worstRatio) converged = false;
}

}  // namespace tormel
