// The free H+ concentration in proton-balance mode: a damped secant on the
// calculated proton total, or, when the net proton total equals the
// hydroxide reference, the square root of the acceptor/donor ratio. Each
// call moves H+ by at most a factor of 10; a converged call also tests
// electroneutrality.
#include <cmath>

#include "calc/compare.h"
#include "calc/organic_model.h"
#include "calc/run_calculation.h"
#include "calc/solver.h"
#include "calc/solver_options.h"

namespace tormel {

namespace {


bool AnyFreeGiven(const ChemicalSystem& chem) {
    for (const SystemComponent& sc : chem.systemComponents)
        if (sc.balanceKind == InputType::FreeConc || sc.balanceKind == InputType::FreeAct) return true;
    return false;
}

// The secant step on T(H); restarts from a proportional step when the two
// remembered points do not give a usable slope. T rises with H (every donor
// grows with H, every acceptor shrinks), so a slope that is not positive
// says that the other unknowns, which move between the two points too, moved
// T more than H did. That happens once the steps of H have shrunk to the size
// of those moves near convergence; such a slope sends H the wrong way, and
// far when it is close to zero, and the balances that H disturbs then take
// hundreds of iterations to settle again.
double SecantStep(ProtonUpdateState& p, double h, double t, double target) {
    if (p.stage == 0) {
        p.stage = 1;
        const double next = h * t / target;
        p.hPrevious = h;
        p.tPrevious = t;
        p.up = next > h;
        p.damping = 0;
        return next;
    }
    if (p.stage == 1) {
        p.stage = 2;
    } else {
        p.hPrevious = p.hCurrent;
        p.tPrevious = p.tCurrent;
    }
    p.hCurrent = h;
    p.tCurrent = t;
    const double slope = (p.tCurrent - p.tPrevious) / (p.hCurrent - p.hPrevious);
    if (!std::isfinite(slope) || slope <= 0) {
        p.stage = 0;
        return SecantStep(p, h, t, target);
    }
    const double next = (target - (p.tCurrent - p.hCurrent * slope)) / slope;
    if ((next > h) != p.up) {
        p.up = next > h;
        if (p.damping < 10) p.damping += 0.1f;
    }
    return next;
}

double Damped(const ProtonUpdateState& p, double h, double next) {
    const double w = p.damping;
    return (w * h + next) / (w + 1);
}

}  // namespace

void ProtonUpdate(CalcContext& ctx, bool& converged) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    SystemComponent& hydrogen = chem.systemComponents[0];
    ProtonUpdateState& p = st.proton;
    if (st.otherWorstRatio > kSolverOptions.otherBalancesFirst) {
        converged = false;
        return;
    }
    const double h = hydrogen.freeConcentration;
    const double target = hydrogen.balanceTotal;
    const double total = hydrogen.calculatedTotal;
    const double donors = st.protonSums.donors;
    const double acceptors = st.protonSums.acceptors;
    double next;
    if (target == st.hydroxideReference) {
        const double x = std::sqrt(acceptors / donors);
        next = h * x;
        if (!p.firstCallDone) {
            p.firstCallDone = true;
            p.up = x > 1;
            p.damping = 0;
        } else if ((x > 1) != p.up) {
            p.up = x > 1;
            if (p.damping < 5) p.damping += 0.1f;
        }
        next = Damped(p, h, next);
        const double margin = st.workingCriterion - 1;
        if (converged && (std::fabs(donors - acceptors) / donors > margin ||
                          std::fabs(donors - acceptors) / acceptors > margin))
            converged = false;
    } else {
        next = SecantStep(p, h, total, target);
        next = Damped(p, h, next);
    }
    if (!(next >= h / 10)) {  // also catches a step that is not a number
        hydrogen.freeConcentration = h / 10;
        converged = false;
    } else if (next > 10 * h) {
        hydrogen.freeConcentration = 10 * h;
        converged = false;
    } else {
        if (!RelativelyEqual(next, h, st.workingCriterion)) converged = false;
        hydrogen.freeConcentration = next;
    }
    if (converged) converged = ProtonBalanceHolds(ctx);
}

bool ProtonBalanceHolds(const CalcContext& ctx) {
    const ChemicalSystem& chem = ctx.chem;
    const SolverState& st = ctx.state;
    if (st.protonWorstRatio > st.inputCriterion) return false;
    if (AnyFreeGiven(chem)) return true;
    double positive, negative;
    SpeciesChargeSums(chem, st.tables.charged, positive, negative);
    if (OrganicModelActive(ctx)) AddOrganicCharges(ctx, positive, negative);
    if (st.inputChargeExcess == 0) return RelativelyEqual(positive, negative, st.inputCriterion);
    return RelativelyEqual(st.inputChargeExcess, positive - negative, st.inputCriterion);
}

}  // namespace tormel
