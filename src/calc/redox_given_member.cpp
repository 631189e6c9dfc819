// A redox group with one member given as a free concentration or activity
// has no mass balance: the free concentration of the group's head follows
// from the given member through the member's mass-action law, with the
// electron and H+ as they currently are.
#include <cmath>

#include "calc/solver.h"

namespace tormel {

void FreeFromGivenMember(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    const int32_t systemCount = static_cast<int32_t>(chem.systemComponents.size());
    for (int32_t j = 0; j < systemCount; ++j) {
        SystemComponent& sc = chem.systemComponents[j];
        if (sc.balanceKind != InputType::RedoxMemberGiven) continue;
        const Component& member = chem.db().components[sc.givenMember];
        const int32_t memberIndex = chem.placement[sc.givenMember].systemIndex;
        double target = sc.givenValue;
        if (ctx.input.components[sc.givenMember].inputType == InputType::FreeAct) {
            const double z = member.charge;
            target /= std::pow(10.0, z * z * ctx.state.logGamma1);
        }
        if (sc.givenMember == sc.componentIndex || memberIndex >= 0) {
            sc.freeConcentration = target;
            continue;
        }
        const int32_t s = -memberIndex;
        const Species& sp = chem.species[s];
        double logRest = sp.workingLogK;
        int32_t own = 0;
        for (int32_t e = 0; e < sp.componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            if (term.coefficient == 0) continue;
            if (term.systemComponent == j) {
                own = term.coefficient;
                continue;
            }
            logRest += term.coefficient * std::log10(chem.systemComponents[term.systemComponent].freeConcentration);
        }
        if (own == 0) continue;  // the member is not formed from the head
        sc.freeConcentration = std::pow(10.0, (std::log10(target) - logRest) / own);
    }
}

}  // namespace tormel
