// The damped ratio update of one mass-balance unknown: the free
// concentration is scaled by the ratio of the given to the calculated total
// (its root for components bound several times in a complex), damped more
// each time the direction of change reverses.
#include <cmath>

#include "calc/solver.h"
#include "calc/solver_options.h"

namespace tormel {

namespace {
enum Direction : int32_t { Raised = 1, Lowered = 2, Unchanged = 3 };
}  // namespace

void RatioUpdate(CalcContext& ctx, int32_t j) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    SystemComponent& sc = chem.systemComponents[j];
    if (sc.balanceTotal == sc.calculatedTotal) {
        sc.direction = Unchanged;
        return;
    }
    double x = sc.balanceTotal / sc.calculatedTotal;
    if (sc.maxCoefficient > 1) x = std::pow(x, 1.0 / sc.maxCoefficient);
    if (((sc.direction == Raised && x < 1) || (sc.direction == Lowered && x > 1)) && sc.damping < kSolverOptions.maxRatioDamping)
        sc.damping += kSolverOptions.ratioDampingStep;
    const double c = sc.freeConcentration;
    const double w = sc.damping;  // the weight is stored in single precision; the update is not
    sc.freeConcentration = (x * c + w * c) / (w + 1);
    // Present solids that consume the component follow it. A solid that
    // releases it (negative coefficient) would move the wrong way: it is left
    // to the Newton step and the saturation check.
    const NewtonSystem& ns = st.newton;
    if (ns.m > 0) {
        const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
        const double input = ctx.input.components[sc.componentIndex].inputValue;
        for (int32_t k = 0; k < ns.m; ++k) {
            const int32_t s = ns.solidSpecies[k];
            Species& solid = chem.species[s];
            for (int32_t e = 0; e < solid.componentTerms; ++e) {
                const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
                if (term.systemComponent != j || term.coefficient == 0) continue;
                if (term.coefficient < 0) break;
                solid.concentration *= sc.sumSolid > input ? x : std::sqrt(x);
                break;
            }
        }
    }
    sc.direction = x > 1 ? Raised : (x < 1 ? Lowered : Unchanged);
}

}  // namespace tormel
