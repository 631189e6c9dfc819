// The fallback of the speciation solver: a damped Newton-Raphson method on
// the logarithms of the free concentrations of the mass-balance components
// and on the amounts of the present solids, with a line search on the
// residuals of the mass balances (the proton balance as donors against
// acceptors in proton-balance mode) and the saturation indices of the
// present solids. The Jacobian is formed by differences through the solver's
// own species and totals, so that every kind of species counts as the
// iteration counts it. The activity coefficients and, with organic matter,
// the charges of the fractions and the counter-ion enrichment of their
// diffuse layers stay fixed within a step and follow between steps, by the
// same updates as in the iteration. The unknowns are laid out in
// fallback_unknowns.h.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "calc/dense_solve.h"
#include "calc/fallback_unknowns.h"
#include "calc/solver.h"
#include "calc/solver_options.h"

namespace tormel {

namespace {


// How the residual of one balance is formed at the start of a step (and kept
// through its line search). A balance whose sums are positive is compared in
// logarithms, ln(positive part / negative part) with the total on the side
// its sign puts it: nearly linear in the logarithms of the free
// concentrations however far off the balance is. Otherwise the difference
// scaled by the larger of the two totals.
struct BalanceRow {
    bool logarithmic = false;
    double totalOnPositive = 0, totalOnNegative = 0;  // logarithmic rows
    double scale = 1;                                 // linear rows
    double positive = 1, negative = 1;  // d(residual)/d(amount) per unit of a solid's coefficient, by its sign
};

std::vector<BalanceRow> BalanceRows(const CalcContext& ctx, const FallbackLayout& layout) {
    const SolverState& st = ctx.state;
    std::vector<BalanceRow> rows(layout.FreeCount());
    for (int32_t u = 0; u < layout.FreeCount(); ++u) {
        const int32_t j = layout.free[u].component;
        const SystemComponent& sc = ctx.chem.systemComponents[j];
        BalanceRow& row = rows[u];
        const double total = sc.balanceTotal;
        row.totalOnPositive = total < 0 ? -total : 0;
        row.totalOnNegative = total > 0 ? total : 0;
        if (j == 0 && st.protonBalanceMode) {
            const double d = st.protonSums.donors + row.totalOnPositive, a = st.protonSums.acceptors + row.totalOnNegative;
            row.logarithmic = d > 0 && a > 0 && std::isfinite(d) && std::isfinite(a);
            row.positive = 1 / d;
            row.negative = 1 / a;
        } else {
            row.logarithmic = total > 0 && sc.calculatedTotal > 0 && std::isfinite(sc.calculatedTotal);
            row.positive = row.negative = row.logarithmic ? 1 / sc.calculatedTotal : 0;
        }
        if (!row.logarithmic) {
            double scale = std::max(std::fabs(total), std::fabs(sc.calculatedTotal));
            if (!(scale > 0) || !std::isfinite(scale)) scale = std::max(std::fabs(total), 1e-300);
            row.scale = scale;
            row.positive = row.negative = 1 / scale;
        }
    }
    return rows;
}

double BalanceResidual(const CalcContext& ctx, int32_t j, const BalanceRow& row) {
    const SystemComponent& sc = ctx.chem.systemComponents[j];
    if (!row.logarithmic) return (sc.calculatedTotal - sc.balanceTotal) / row.scale;
    const SolverState& st = ctx.state;
    const bool proton = j == 0 && st.protonBalanceMode;
    const double positive = (proton ? st.protonSums.donors : sc.calculatedTotal) + row.totalOnPositive;
    const double negative = (proton ? st.protonSums.acceptors : 0) + row.totalOnNegative;
    return std::log(positive / negative);
}

// What one step works on: the layout of the unknowns and the form of each
// balance's residual.
struct StepFrame {
    FallbackLayout layout;
    std::vector<BalanceRow> rows;

    int32_t FreeCount() const { return layout.FreeCount(); }
    int32_t Size(const NewtonSystem& ns) const { return layout.FreeCount() + ns.m; }
};

// Residuals at the unknowns x; false when one is not finite. The organic
// diffuse layers keep their counter-ion enrichment.
bool Residuals(CalcContext& ctx, const FallbackValues& x, const StepFrame& frame, std::vector<double>& f) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    const NewtonSystem& ns = st.newton;
    WriteFallbackValues(ctx, frame.layout, x);
    bool ignored = true;
    SpeciesAndTotals(ctx, ignored, false);
    const int32_t n = frame.FreeCount();
    f.assign(frame.Size(ns), 0);
    for (int32_t u = 0; u < n; ++u) f[u] = BalanceResidual(ctx, frame.layout.free[u].component, frame.rows[u]);
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t k = 0; k < ns.m; ++k) {
        const int32_t s = ns.solidSpecies[k];
        double si = std::log(10.0) * chem.species[s].workingLogK;
        for (int32_t e = 0; e < chem.species[s].componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            si += term.coefficient * std::log(chem.systemComponents[term.systemComponent].freeConcentration);
        }
        f[n + k] = si;
    }
    for (double v : f)
        if (!std::isfinite(v)) return false;
    return true;
}

double SquaredNorm(const std::vector<double>& f) {
    double sum = 0;
    for (double v : f) sum += v * v;
    return sum;
}

// Jacobian of the residuals, row-major: the component columns by forward
// differences, the solid columns exactly (a solid adds nu * amount to the
// sums of its components).
bool Jacobian(CalcContext& ctx, const FallbackValues& x, const std::vector<double>& f0, const StepFrame& frame,
              std::vector<double>& jac) {
    const NewtonSystem& ns = ctx.state.newton;
    const int32_t n = frame.FreeCount();
    const int32_t size = frame.Size(ns);
    jac.assign(static_cast<size_t>(size) * size, 0);
    std::vector<double> f;
    for (int32_t v = 0; v < n; ++v) {
        FallbackValues moved = x;
        moved.logFree[v] += kSolverOptions.logDifference;
        if (!Residuals(ctx, moved, frame, f)) return false;
        for (int32_t r = 0; r < size; ++r) jac[static_cast<size_t>(r) * size + v] = (f[r] - f0[r]) / kSolverOptions.logDifference;
    }
    const ChemicalSystem& chem = ctx.chem;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t k = 0; k < ns.m; ++k) {
        const int32_t s = ns.solidSpecies[k];
        for (int32_t e = 0; e < chem.species[s].componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            const int32_t u = frame.layout.rowOf[term.systemComponent];
            if (u < 0) continue;
            const double perUnit = term.coefficient > 0 ? frame.rows[u].positive : frame.rows[u].negative;
            jac[static_cast<size_t>(u) * size + n + k] += term.coefficient * ctx.state.bulkFraction * perUnit;
        }
    }
    return true;
}

// x + t * step, with a present solid's amount kept positive.
FallbackValues Along(const FallbackValues& x, const std::vector<double>& step, double t, int32_t n) {
    FallbackValues y = x;
    for (int32_t u = 0; u < n; ++u) y.logFree[u] += t * step[u];
    for (size_t k = 0; k < y.amount.size(); ++k)
        y.amount[k] = std::max(x.amount[k] + t * step[n + k], kSolverOptions.leastAmountShare * x.amount[k]);
    return y;
}

struct LineSearchResult {
    double t = 0;         // share of the step taken; 0 when no trial decreased the residuals
    double norm = HUGE_VAL;
    bool sufficient = false;
};

// Backtracking along the step from x (its largest change of a logarithm cut
// to kSolverOptions.largestLogStep first): the first share that decreases the squared
// residuals sufficiently, else the share that decreased them most.
LineSearchResult SearchAlong(CalcContext& ctx, const FallbackValues& x, const std::vector<double>& step,
                             const StepFrame& frame, const std::vector<double>& f0) {
    const int32_t n = frame.FreeCount();
    double largest = 0;
    for (int32_t u = 0; u < n; ++u) largest = std::max(largest, std::fabs(step[u]));
    const double norm0 = SquaredNorm(f0);
    LineSearchResult best;
    std::vector<double> f;
    double t = largest > kSolverOptions.largestLogStep ? kSolverOptions.largestLogStep / largest : 1.0;
    for (int32_t i = 0; i < kSolverOptions.halvings; ++i, t /= 2) {
        if (!Residuals(ctx, Along(x, step, t, n), frame, f)) continue;
        const double norm = SquaredNorm(f);
        if (norm < best.norm) {
            best.norm = norm;
            best.t = t;
        }
        if (norm <= (1 - std::max(kSolverOptions.sufficientDecrease * t, kSolverOptions.leastUsefulDecrease)) * norm0) {
            best.sufficient = true;
            break;
        }
    }
    return best;
}

// The step of the last Jacobian formed, when it still fits the unknowns and
// cuts the residuals as kSolverOptions.reusedJacobianDecrease asks.
bool StepOfLastJacobian(CalcContext& ctx, const FallbackValues& x, const StepFrame& frame,
                        const std::vector<double>& f0, FallbackValues& next) {
    const FallbackState& fb = ctx.state.fallback;
    const int32_t size = frame.Size(ctx.state.newton);
    if (fb.jacobian.size() != static_cast<size_t>(size) * size || fb.jacobianSolids != ctx.state.newton.solidSpecies)
        return false;
    std::vector<double> minusF(size), step, f;
    for (int32_t r = 0; r < size; ++r) minusF[r] = -f0[r];
    if (!SolvePivoted(fb.jacobian, minusF, size, step)) return false;
    const int32_t n = frame.FreeCount();
    double largest = 0;
    for (int32_t u = 0; u < n; ++u) largest = std::max(largest, std::fabs(step[u]));
    if (largest > kSolverOptions.largestLogStep) return false;
    const FallbackValues trial = Along(x, step, 1.0, n);
    if (!Residuals(ctx, trial, frame, f) || !(SquaredNorm(f) <= kSolverOptions.reusedJacobianDecrease * SquaredNorm(f0))) return false;
    next = trial;
    return true;
}

}  // namespace

void FallbackUpdate(CalcContext& ctx, bool& converged) {
    SolverState& st = ctx.state;
    const NewtonSystem& ns = st.newton;
    // the tests of the specified iteration, on the state the totals were taken from
    if (converged && st.protonBalanceMode) converged = ProtonBalanceHolds(ctx);
    st.newtonUsed = true;  // present solids are kept saturated by this step
    if (ns.Size() == 0) return;
    StepFrame frame;
    frame.layout = FallbackLayoutOf(ctx);
    frame.rows = BalanceRows(ctx, frame.layout);
    const FallbackValues x = ReadFallbackValues(ctx, frame.layout);
    std::vector<double> f0, jac;
    const int32_t size = frame.Size(ns);
    FallbackValues next = x;
    bool usable = Residuals(ctx, x, frame, f0);
    const bool organic = OrganicModelActive(ctx);
    const bool reused = usable && organic && StepOfLastJacobian(ctx, x, frame, f0, next);
    usable = usable && (reused || Jacobian(ctx, x, f0, frame, jac));
    if (usable && !reused && organic) {
        st.fallback.jacobian = jac;
        st.fallback.jacobianSolids = ns.solidSpecies;
    }
    if (usable && !reused) {
        std::vector<double> minusF(size);
        for (int32_t r = 0; r < size; ++r) minusF[r] = -f0[r];
        // the Newton step first; where its line search finds no decrease
        // (a nearly singular Jacobian), ever more damped steps that turn
        // towards the steepest descent of the residuals
        double bestNorm = SquaredNorm(f0);
        for (double damping : kSolverOptions.stepDampings) {
            std::vector<double> step;
            const bool solved = damping == 0 ? SolvePivoted(jac, minusF, size, step)
                                             : SolveDampedLeastSquares(jac, minusF, size, damping, step);
            if (!solved) continue;
            const LineSearchResult found = SearchAlong(ctx, x, step, frame, f0);
            if (found.norm < bestNorm) {
                bestNorm = found.norm;
                next = Along(x, step, found.t, frame.FreeCount());
            }
            if (found.sufficient) break;
        }
    }
    // the species, sums and ratios of the new state, for the ionic strength,
    // the solids and the report; `converged` stays as the state before said
    std::vector<double> ignored;
    Residuals(ctx, next, frame, ignored);
    SaveUnknowns(ctx);
    if (!usable) converged = false;
}

}  // namespace tormel
