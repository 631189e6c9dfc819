// A solid enters the equilibrium: its amount is found by bisection so that
// the solution left behind is just saturated, its components' free
// concentrations are moved to what removing that amount leaves, and the
// Newton system gains the solid's amount as an unknown.
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "calc/precipitation.h"
#include "calc/solver.h"
#include "calc/solver_options.h"

namespace tormel {

namespace {

bool FixedByInput(InputType balanceKind) {
    // free concentration, free activity, gas pressure, redox group fixed by a member
    return balanceKind == InputType::FreeConc || balanceKind == InputType::FreeAct ||
           balanceKind == InputType::GasPres || balanceKind == InputType::RedoxMemberGiven;
}

// What the dissolved part of each component of s is, and which fraction of
// it is free: removing an amount of solid takes the free concentration down
// in proportion to the dissolved amount.
//
// H+ in proton-balance mode is counted in whichever of its dissolved pools is
// the larger: the donors (free H+ and the protonated species) in an acid
// water, the acceptors (free OH and the deprotonated species) in an alkaline
// one. A solid that takes H+ (or releases it, negative coefficient) then
// shrinks (grows) the donors, or grows (shrinks) the acceptors, which fixes
// H+ through the free OH. Taking the smaller pool instead would move H+ by
// orders of magnitude for a small solid, e.g. hematite releasing H+ into an
// acid water whose few acceptors it would seem to use up.
struct RemovalBasis {
    std::vector<double> fraction;
    std::vector<double> dissolved;
    bool hydrogenByDonors = true;
};

RemovalBasis BasisFor(const CalcContext& ctx, int32_t s) {
    const ChemicalSystem& chem = ctx.chem;
    const SolverState& st = ctx.state;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    RemovalBasis basis;
    basis.fraction.assign(chem.systemComponents.size(), 0.0);
    basis.dissolved.assign(chem.systemComponents.size(), 0.0);
    const Species& solid = chem.species[s];
    for (int32_t e = 0; e < solid.componentTerms; ++e) {
        const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
        const int32_t j = term.systemComponent;
        const SystemComponent& sc = chem.systemComponents[j];
        if (st.protonBalanceMode && j == 0) {
            const double donors = st.protonSums.donorDissolved;
            const double acceptors = st.protonSums.acceptorDissolved;
            basis.hydrogenByDonors = donors >= acceptors;
            const double pool = basis.hydrogenByDonors ? donors : acceptors;
            const double free = basis.hydrogenByDonors ? chem.species[0].concentration
                                                       : chem.species[chem.freeHydroxideSpecies].concentration;
            basis.dissolved[j] = pool;
            basis.fraction[j] = pool > 0 ? free / pool : 0.0;
        } else if (sc.sumDissolved == 0) {
            basis.fraction[j] = st.protonBalanceMode ? 0.0 : 1.0;
        } else {
            basis.dissolved[j] = sc.sumDissolved;
            basis.fraction[j] = sc.freeConcentration / sc.sumDissolved;
        }
    }
    return basis;
}

bool IsProtonBalance(const CalcContext& ctx, int32_t j) { return j == 0 && ctx.state.protonBalanceMode; }

// Free concentration of mass-balance component j after removing the amount
// p of a solid holding it nu times; <= 0 when the solution cannot give that much.
double FreeAfterRemoval(const CalcContext& ctx, const RemovalBasis& basis, int32_t j, int32_t nu, double p) {
    if (IsProtonBalance(ctx, j) && !basis.hydrogenByDonors) {
        // taking H+ adds to the acceptors, releasing it takes from them
        const double oh = basis.fraction[0] * (basis.dissolved[0] + nu * p);
        if (oh <= 0) return 0;
        return std::pow(10.0, ctx.chem.species[ctx.chem.freeHydroxideSpecies].workingLogK) / oh;
    }
    // A negative coefficient releases the component: its free concentration
    // grows with p.
    return basis.fraction[j] * (basis.dissolved[j] - nu * p);
}

// log IAP of s after removing the amount p from the solution; false when p
// would take more than the solution holds.
bool LogIapAfterRemoval(const CalcContext& ctx, int32_t s, const RemovalBasis& basis, double p, double& logIap) {
    const ChemicalSystem& chem = ctx.chem;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    const Species& solid = chem.species[s];
    logIap = 0;
    for (int32_t e = 0; e < solid.componentTerms; ++e) {
        const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
        const int32_t j = term.systemComponent;
        if (term.coefficient == 0) continue;
        const SystemComponent& sc = chem.systemComponents[j];
        if (FixedByInput(sc.balanceKind)) {
            logIap += term.coefficient * std::log10(sc.freeConcentration);
        } else if (sc.balanceKind == InputType::TotalConc) {
            const double c = FreeAfterRemoval(ctx, basis, j, term.coefficient, p);
            if (!(c > 0)) return false;
            logIap += term.coefficient * std::log10(c);
        }
    }
    return true;
}

// The largest amount the solution could give: the smallest dissolved pool a
// solid uses up, per unit (for H+ in proton-balance mode the pool it is
// counted in; its total is a net figure that may be zero or negative), else
// the given total. Components the solid releases limit nothing, unless it
// uses up none, when their totals bound the search.
double LargestAmount(const CalcContext& ctx, int32_t s, const RemovalBasis& basis) {
    const ChemicalSystem& chem = ctx.chem;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    const Species& solid = chem.species[s];
    double smallest = HUGE_VAL;
    double released = 0;
    for (int32_t e = 0; e < solid.componentTerms; ++e) {
        const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
        const int32_t j = term.systemComponent;
        const SystemComponent& sc = chem.systemComponents[j];
        if (term.coefficient == 0 || sc.balanceKind != InputType::TotalConc) continue;
        const double nu = std::abs(term.coefficient);
        if (IsProtonBalance(ctx, j)) {
            const bool usesUp = basis.hydrogenByDonors == (term.coefficient > 0);
            if (usesUp) smallest = std::min(smallest, basis.dissolved[0] / nu);
        } else if (term.coefficient > 0) {
            smallest = std::min(smallest, std::fabs(sc.balanceTotal) / nu);
        } else {
            released = std::max(released, std::fabs(sc.balanceTotal) / nu);
        }
    }
    return std::isfinite(smallest) ? smallest : released;
}

// The free concentrations the removal leaves; a component that would be
// left with nothing is divided by 10 instead.
void ApplyAmount(CalcContext& ctx, int32_t s, const RemovalBasis& basis, double p) {
    ChemicalSystem& chem = ctx.chem;
    NewtonSystem& ns = ctx.state.newton;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    const Species& solid = chem.species[s];
    for (int32_t e = 0; e < solid.componentTerms; ++e) {
        const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
        const int32_t j = term.systemComponent;
        SystemComponent& sc = chem.systemComponents[j];
        if (term.coefficient == 0 || sc.balanceKind != InputType::TotalConc) continue;
        if (basis.dissolved[j] == 0) continue;
        const double c = FreeAfterRemoval(ctx, basis, j, term.coefficient, p);
        sc.freeConcentration = c > 0 ? c : sc.freeConcentration / 10;
        const int32_t u = ns.componentUnknown[j];
        if (u < 0) continue;
        ns.x[u] = sc.freeConcentration;
        ns.kind[u] = UnknownTouchedBySolid;
    }
}

// Halves the largest possible amount until the solution it leaves is
// still oversaturated, then closes in on saturation from below.
double AmountByBisection(const CalcContext& ctx, int32_t s, const RemovalBasis& basis) {
    const double logKsp = -ctx.chem.species[s].workingLogK;
    auto oversaturation = [&](double p, double& d) {
        double logIap = 0;
        if (!LogIapAfterRemoval(ctx, s, basis, p, logIap)) return false;
        d = logIap - logKsp;
        return true;
    };
    double p = LargestAmount(ctx, s, basis) / 2;
    double d = 0;
    int32_t halvings = 0;
    while (!oversaturation(p, d) || d <= 0) {
        p /= 2;
        if (++halvings > kSolverOptions.maxHalvings || p <= 0) return -1;
    }
    // ends once the step is below the resolution of p (at most ~1100 halvings)
    for (double step = p / 2; p + step != p; step /= 2) {
        if (!oversaturation(p + step, d)) continue;
        if (d >= kSolverOptions.saturationBand)
            p += step;
        else if (d > -kSolverOptions.saturationBand)
            return p;
    }
    return p;
}

}  // namespace

void AdmitSolid(CalcContext& ctx, int32_t s, double ratio, bool showProgress) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    Species& solid = chem.species[s];
    if (st.solidProgressLines.empty() && showProgress) RescaleSolidBar(st, ratio);
    st.solidProgressLines.push_back(ctx.Text("ProgressCalc", "NewSolid") + " " + std::to_string(st.iterationCount) +
                                    ": " + solid.name);
    st.newtonCountdown = st.protonBalanceMode ? kSolverOptions.newtonCountdownProton : kSolverOptions.newtonCountdown;
    AddSolidUnknown(st.newton, s, solid.concentration);
    const int32_t offset = s - chem.solidSpeciesRange.first;
    if (offset >= 0 && offset < static_cast<int32_t>(st.solidPreviousAmount.size()))
        st.solidPreviousAmount[offset] = solid.concentration;
}

bool NewSolid(CalcContext& ctx, int32_t s, double ratio, bool showProgress) {
    const RemovalBasis basis = BasisFor(ctx, s);
    const double p = AmountByBisection(ctx, s, basis);
    if (!(p > 0)) return false;
    ApplyAmount(ctx, s, basis, p);
    ctx.chem.species[s].concentration += p;
    AdmitSolid(ctx, s, ratio, showProgress);
    return true;
}

}  // namespace tormel
