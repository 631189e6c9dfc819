#pragma once
// The solver's numerical constants: iteration bounds, damping, acceptance
// criteria and the thresholds of the fallback. One record, so that what the
// solver may do is visible in one place; every value is the one the solver
// has always used.
#include <array>
#include <cstdint>

namespace tormel {

struct SolverOptions {
    // --- bounds of the iterations ---
    // Solver iterations before a solve gives up with a "not converged"
    // result. Far above what any real water needs (the reference waters
    // converge in well under a hundred).
    int32_t maxIterations = 20000;
    // Passes of the MSA screening-parameter iteration.
    int32_t maxGammaPasses = 500;
    // Passes of the counter-ion iteration of one diffuse layer in one
    // iteration. Each pass shrinks the error of log R by a factor of about 1/2
    // (divalent counter-ions) to 3/4 (monovalent), and R carries over between
    // iterations, so a converging solve needs a handful of passes.
    int32_t maxCounterIonPasses = 2000;
    // Adjustment passes of a neutral-solution calculation: each pass is a full
    // solve, and the damped passes close in on neutrality well within this.
    int32_t maxNeutralisePasses = 200;

    // --- the specified iteration ---
    // The first stage runs to this criterion before the user's criterion applies.
    double firstStageCriterion = 1.0001;
    // The proton balance waits until the other balances are within this ratio.
    double otherBalancesFirst = 1.0001;
    // Damping of a component's ratio update: grows by the step at each
    // reversal of direction, up to the maximum.
    float maxRatioDamping = 10.0f;
    float ratioDampingStep = 0.1f;

    // --- stall watch and hand-over to the fallback ---
    // Iterations without marked progress after which the iteration counts as
    // stalled. Real waters that converge do so in well under this.
    int32_t stallWindow = 300;
    // Progress is marked when log(worst ratio) falls below this share of its
    // value at the last mark.
    double progressShare = 0.9;
    // A worst ratio this far off (or not finite) after the first iterations
    // means divergence; free concentrations that are not finite end the
    // specified iteration at once.
    double divergedRatio = 1e6;
    int32_t firstIterations = 100;
    // However it goes, the specified iteration hands over after this many.
    int32_t lastHandover = 3000;
    // With organic matter the charges of the fractions settle by their damped
    // update, and waters that converge may take many thousands of iterations
    // with hardly any progress of the worst ratio. The specified iteration then
    // runs until only this many of the iteration bound are left, which are the
    // fallback's.
    int32_t organicFallbackIterations = 2000;
    // Iterations of the fallback without progress after which the present
    // solids are let go.
    int32_t fallbackStallWindow = 100;

    // --- the fallback: Newton steps in the logarithms ---
    // Difference of the logarithm used for the Jacobian's columns.
    double logDifference = 1e-7;
    // Largest change of a free concentration's natural logarithm in one step
    // (a factor of about 150).
    double largestLogStep = 5.0;
    // A present solid's amount falls at most to this share in one step.
    double leastAmountShare = 0.1;
    // Line search: sufficient decrease, step halvings before giving up.
    double sufficientDecrease = 1e-4;
    int32_t halvings = 20;
    // A step that decreases the squared residuals by less than this share is
    // no use on its own (a nearly singular Jacobian gives huge steps of which
    // only a vanishing share can be taken): the damped steps are tried too.
    double leastUsefulDecrease = 0.01;
    // Dampings of the steps tried in turn: the Newton step, then Levenberg-
    // Marquardt steps turning towards the steepest descent.
    std::array<double, 6> stepDampings = {0, 1e-6, 1e-3, 1, 1e3, 1e6};
    // With organic matter a Jacobian takes a species step for each of a few
    // hundred unknowns, while between steps the charges and the ionic strength
    // move the solution only a little: the last Jacobian is used again as long
    // as its step, taken whole, cuts the squared residuals to this share.
    double reusedJacobianDecrease = 0.1;
    // Pivots below this share of their column's largest entry count as zero.
    double negligiblePivot = 1e-13;

    // --- precipitation ---
    // Largest change per Newton step of a component touched by a solid and of
    // a solid amount.
    double touchedFactor = 2.0;
    double solidFactor = 1.2;
    // Bisection window: a new solid's amount is accepted once the solution it
    // leaves is within this many log units of saturation.
    double saturationBand = 0.0005;
    // Halvings of the starting amount before giving up: past ~1075 a double is 0.
    int32_t maxHalvings = 1100;
    // Newton steps allowed after a solid entered, past the first 24 iterations.
    int32_t newtonCountdownProton = 10;
    int32_t newtonCountdown = 4;
    // Share of a component's dissolved amount below which a shrinking solid
    // counts as dissolved. Far below any convergence criterion (1e-6 at
    // 1.000001) and so far below the saturation tolerance (about 1e-3 in the
    // ion product).
    double negligibleShare = 1e-9;
    // Relative size below which a pivot of a solid's composition counts as
    // zero (compositions are small integers).
    double dependenceTolerance = 1e-9;

    // --- organic charges ---
    // The step limiter: the first step of a solve, its shrink at each reversal
    // of direction, and the size below which it no longer shrinks.
    float firstStepLimit = 0.01f;
    float stepLimitShrink = 0.9f;
    float smallestShrinkingStep = 1e-6f;
    // Damping of the charge: Z follows the charge of its species with the weight
    // w, new = (charge + w Z) / (w + 1), and w grows at each reversal of its
    // fraction's direction. The charge reacts to Z through the constants, and
    // for the humic fraction at low ionic strength it overshoots (a feedback
    // gain below -1): with the step limiter alone Z then swings about its value
    // by the smallest step for ever, which moves the constants of strongly bound
    // pairs by several 1e-4 log units each iteration and keeps their balances
    // from converging.
    float chargeDampingStep = 0.2f;
    float maxChargeDamping = 25.0f;
};

// The values the solver runs with.
inline constexpr SolverOptions kSolverOptions{};

}  // namespace tormel
