#include "precipitation_invariants.h"

#include <algorithm>

#include "calc/solution_checks.h"
#include "calc/temperature.h"

namespace tormel::test {

int32_t RepresentingSpecies(const ChemicalSystem& chem, int32_t k) {
    if (k == chem.db().hydrogenIndex) return 0;
    const ComponentPlacement& comp = chem.placement[k];
    if (!comp.inInput) return -1;
    if (comp.systemIndex <= 0) return -comp.systemIndex;
    for (size_t s = 0; s < chem.species.size(); ++s) {
        const Species& sp = chem.species[s];
        if ((sp.kind == SpeciesKind::FreeComponent || sp.kind == SpeciesKind::AdsorbedSpecies) && sp.source == -k)
            return static_cast<int32_t>(s);
    }
    return -1;
}

bool DatabaseSaturationIndex(const ChemicalSystem& chem, const SolverState& state, const InputProblem& input,
                             int32_t e, double& si) {
    const Equilibrium& eq = chem.db().equilibria[e];
    si = eq.logK;
    if (chem.temperatureCorrectionApplied && eq.hasEnthalpy) si += TemperatureTerm(input.temperature, eq.enthalpy);
    for (int32_t k = 0; k < chem.db().ComponentCount(); ++k) {
        const int32_t nu = chem.db().Coefficient(k, e);
        if (nu == 0) continue;
        double logActivity;
        if (k == chem.db().electronIndex) {
            logActivity = std::log10(input.components[k].inputValue);  // the electron has no activity coefficient
        } else {
            const int32_t s = RepresentingSpecies(chem, k);
            if (s < 0) return false;
            const Species& sp = chem.species[s];
            logActivity = std::log10(sp.concentration) + DaviesLog(state.ionicStrength, sp.charge);
        }
        si += nu * logActivity;
    }
    return std::isfinite(si);
}

PrecipitationInvariants CheckPrecipitation(const ChemicalSystem& chem, const SolverState& state,
                                           const InputProblem& input) {
    PrecipitationInvariants out;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    const int32_t systemCount = static_cast<int32_t>(chem.systemComponents.size());
    // mass balances over every species, solids included
    for (int32_t j = 0; j < systemCount; ++j) {
        const SystemComponent& sc = chem.systemComponents[j];
        if (sc.balanceKind != InputType::TotalConc) continue;
        double net = 0, donors = 0, acceptors = 0;
        for (int32_t s = 0; s < speciesCount; ++s) {
            const Species& sp = chem.species[s];
            if (sp.kind > SpeciesKind::SolidSpecies) continue;  // no organic species in these systems
            for (int32_t t = 0; t < sp.componentTerms; ++t) {
                const CompositionTerm& term = chem.composition[Position(s, t, speciesCount)];
                if (term.systemComponent != j) continue;
                const double amount = term.coefficient * sp.concentration;
                net += amount;
                (amount > 0 ? donors : acceptors) += std::fabs(amount);
            }
        }
        const double deviation = j == 0 ? std::fabs(net - sc.balanceTotal) / std::max(donors, acceptors)
                                        : std::fabs(net / sc.balanceTotal - 1);
        if (deviation > out.worstBalance || std::isnan(deviation)) {
            out.worstBalance = std::isnan(deviation) ? HUGE_VAL : deviation;
            out.worstBalanceName = sc.name;
        }
    }
    // saturation of every solid of the system
    const TypeRange range = chem.solidSpeciesRange;
    if (range.empty()) return out;
    for (int32_t s = range.first; s <= range.last; ++s) {
        const Species& solid = chem.species[s];
        double si = 0;
        if (!DatabaseSaturationIndex(chem, state, input, solid.source, si)) {
            out.complete = false;
            continue;
        }
        if (solid.concentration > 0) {
            out.present.push_back({solid.name, solid.concentration, si});
            if (std::fabs(si) > out.worstPresentSi) {
                out.worstPresentSi = std::fabs(si);
                out.worstPresentName = solid.name;
            }
        } else if (si > out.worstAbsentSi) {
            out.worstAbsentSi = si;
            out.worstAbsentName = solid.name;
        }
    }
    return out;
}

}  // namespace tormel::test
