// Mass-balance sums of the unknowns, their ratios to the given totals, and
// the donor/acceptor sums of the proton balance.
#include <algorithm>
#include <cmath>

#include "calc/organic_model.h"
#include "calc/solver.h"
#include "calc/species_tables.h"

namespace tormel {

namespace {


// The balance class of a non-organic species kind; -1 for a kind no balance
// sum collects.
int32_t BalanceClassOf(SpeciesKind kind) {
    if (IsDissolvedKind(kind)) return BalanceDissolved;
    if (kind == SpeciesKind::AdsorbedSpecies) return BalanceAdsorbed;
    if (IsSolidKind(kind)) return BalanceSolid;
    return -1;
}

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

void BuildBalanceTables(const ChemicalSystem& chem, SpeciesTables& tables) {
    tables.balances.Clear();
    tables.balanceClass.clear();
    tables.protons.Clear();
    tables.protonClass.clear();
    const size_t count = chem.species.size();
    const size_t width = static_cast<size_t>(chem.maxSpeciesComponents);
    tables.balances.Reserve(count, width);
    tables.balanceClass.reserve(count);
    tables.protons.Reserve(count, width);
    tables.protonClass.reserve(count);
    const auto onBalance = [&](const CompositionTerm& term) {
        return term.coefficient != 0 && chem.systemComponents[term.systemComponent].balanceKind == InputType::TotalConc;
    };
    const auto onHydrogen = [](const CompositionTerm& term) {
        return term.systemComponent == 0 && term.coefficient != 0;
    };
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t s = 0; s < speciesCount; ++s) {
        const Species& sp = chem.species[s];
        if (IsOrganicKind(sp.kind)) continue;  // summed by the organic model
        const int32_t balanceClass = BalanceClassOf(sp.kind);
        if (balanceClass < 0) continue;
        tables.balances.Add(chem, s, onBalance);
        tables.balanceClass.push_back(static_cast<int8_t>(balanceClass));
        tables.protons.Add(chem, s, onHydrogen);
        tables.protonClass.push_back(static_cast<int8_t>(balanceClass));
        if (tables.protons.start.back() == tables.protons.start[tables.protons.Size() - 1]) {
            // holds no H+
            tables.protons.species.pop_back();
            tables.protons.start.pop_back();
            tables.protonClass.pop_back();
        }
    }
}

void ComputeProtonSums(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    ProtonSums ps;
    ps.donorOrganic = st.protonSums.donorOrganic;
    ps.acceptorOrganic = st.protonSums.acceptorOrganic;
    const SpeciesTables& tables = TablesFor(chem, st.tables);
    const SpeciesTermList& list = tables.protons;
    for (int32_t k = 0; k < list.Size(); ++k) {
        const double concentration = chem.species[list.species[k]].concentration;
        const int8_t balanceClass = tables.protonClass[k];
        for (int32_t t = list.start[k]; t < list.start[k + 1]; ++t) {
            const int32_t coefficient = list.terms[t].coefficient;
            const double amount = std::abs(coefficient) * concentration;
            const bool donor = coefficient > 0;
            if (balanceClass == BalanceDissolved)
                (donor ? ps.donorDissolved : ps.acceptorDissolved) += amount;
            else if (balanceClass == BalanceAdsorbed)
                (donor ? ps.donorAdsorbed : ps.acceptorAdsorbed) += amount;
            else
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
    // the organic species are summed by the organic model
    const SpeciesTables& tables = TablesFor(chem, st.tables);
    const SpeciesTermList& list = tables.balances;
    for (int32_t k = 0; k < list.Size(); ++k) {
        const double concentration = chem.species[list.species[k]].concentration;
        const int8_t balanceClass = tables.balanceClass[k];
        for (int32_t t = list.start[k]; t < list.start[k + 1]; ++t) {
            SystemComponent& sc = scs[list.terms[t].systemComponent];
            const double amount = list.terms[t].coefficient * concentration;
            if (balanceClass == BalanceDissolved)
                sc.sumDissolved += amount;
            else if (balanceClass == BalanceAdsorbed)
                sc.sumAdsorbed += amount;
            else
                sc.sumSolid += amount;
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
