// The solver's report to the progress window: iteration, worst ratio and its
// component, ionic strength and the position of the bar.
#include <algorithm>
#include <cmath>

#include "calc/solver.h"

namespace tormel {

namespace {
constexpr int32_t kBarMaximum = 300;
constexpr int32_t kBarMinimum = 3;
}  // namespace

// The bar runs logarithmically from the first iteration's ratio (position 3)
// to the criterion (position 300); when the ratio grows past the start the
// scale is set anew.
int32_t ProgressBarPosition(SolverState& st, double criterion, double ratio, bool firstIteration) {
    const double logCriterion = std::log10(criterion - 1);
    auto rescale = [&] {
        st.barSlope = (kBarMaximum - kBarMinimum) / (logCriterion - std::log10(ratio));
        st.barOffset = kBarMaximum - st.barSlope * logCriterion;
    };
    if (firstIteration) {
        rescale();
        return kBarMinimum;
    }
    const double raw = st.barSlope * std::log10(ratio - 1) + st.barOffset;
    if (!(raw < kBarMaximum)) return kBarMaximum;  // at or past the criterion (or ratio exactly 1)
    if (raw < kBarMinimum) {
        rescale();
        return kBarMinimum;
    }
    return static_cast<int32_t>(std::trunc(raw));
}

bool ReportProgress(CalcContext& ctx) {
    if (!ctx.ui || !ctx.ui->progress) return false;
    SolverState& st = ctx.state;
    SolverProgress p;
    p.iteration = st.iterationCount;
    p.worstRatio = st.worstRatio;
    p.worstComponent = st.worstComponentName;
    p.ionicStrength = st.ionicStrength;
    const int32_t position = ProgressBarPosition(st, st.inputCriterion, st.worstRatio, st.iterationCount == 1);
    // the window's bar runs 1..300; the services take a percentage
    p.barPosition = std::clamp(position / 3, 0, 100);
    return ctx.ui->progress(p);
}

}  // namespace tormel
