// The solver's report to the progress window: iteration, worst ratio and its
// component, ionic strength and the position of the bar; with precipitation
// also the solids bar, the number of solids present and the list of solids
// that entered.
#include <algorithm>
#include <cmath>

#include "calc/precipitation.h"
#include "calc/solver.h"

namespace tormel {

namespace {
constexpr int32_t kBarMaximum = 300;
constexpr int32_t kBarMinimum = 3;

void Rescale(double& slope, double& offset, double criterion, double ratio) {
    const double logCriterion = std::log10(criterion - 1);
    slope = (kBarMaximum - kBarMinimum) / (logCriterion - std::log10(ratio));
    offset = kBarMaximum - slope * logCriterion;
}

int32_t Position(double& slope, double& offset, double criterion, double ratio) {
    const double raw = slope * std::log10(ratio - 1) + offset;
    if (!(raw < kBarMaximum)) return kBarMaximum;  // at or past the criterion (or ratio exactly 1)
    if (raw < kBarMinimum) {
        Rescale(slope, offset, criterion, ratio);
        return kBarMinimum;
    }
    return static_cast<int32_t>(std::trunc(raw));
}

}  // namespace

// The bar runs logarithmically from the first iteration's ratio (position 3)
// to the criterion (position 300); when the ratio grows past the start the
// scale is set anew.
int32_t ProgressBarPosition(SolverState& st, double criterion, double ratio, bool firstIteration) {
    if (firstIteration) {
        Rescale(st.barSlope, st.barOffset, criterion, ratio);
        return kBarMinimum;
    }
    return Position(st.barSlope, st.barOffset, criterion, ratio);
}

// The solids bar runs the same way towards the saturation tolerance, from
// the ratio of the first solid that entered.
void RescaleSolidBar(SolverState& st, double ratio) {
    Rescale(st.solidBarSlope, st.solidBarOffset, st.saturationTolerance, ratio);
    st.solidBarPosition = kBarMinimum;
}

void PositionSolidBar(SolverState& st, double ratio) {
    st.solidBarPosition = Position(st.solidBarSlope, st.solidBarOffset, st.saturationTolerance, ratio);
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
    if (ctx.input.precipitation) {
        p.solidBarPosition = std::clamp(st.solidBarPosition / 3, 0, 100);
        p.solidCount = st.newton.m;
        p.solidLines = st.solidProgressLines;
    }
    return ctx.ui->progress(p);
}

}  // namespace tormel
