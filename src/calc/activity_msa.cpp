// The mean spherical approximation for ions of different sizes: a
// hard-sphere (packing) term and an electrostatic term with the screening
// parameter Gamma found by fixed-point iteration.
#include <cmath>

#include "calc/activity.h"
#include "calc/compare.h"
#include "calc/solver_options.h"

namespace tormel {

namespace {

double NumberDensity(const Species& sp) { return sp.concentration * kAvogadro * kLitresPerCubicMetre; }

void HardSphere(ChemicalSystem& chem, SolverState& st) {
    const double pi = 4 * std::atan(1.0);
    double zeta[4] = {0, 0, 0, 0};
    for (const Species& sp : chem.species) {
        if (sp.ionSize <= 0) continue;
        const double rho = NumberDensity(sp);
        double power = 1;
        for (int k = 0; k < 4; ++k) {
            zeta[k] += rho * power;
            power *= sp.ionSize;
        }
    }
    for (int k = 0; k < 4; ++k) st.zeta[k] = pi / 6 * zeta[k];
    const double z0 = st.zeta[0], z1 = st.zeta[1], z2 = st.zeta[2], z3 = st.zeta[3];
    const double delta = 1 - z3;
    st.msaDelta = delta;
    if (z3 <= 0) {
        // no sized ion in solution: no packing
        st.hardSphereA1 = st.hardSphereA2 = st.hardSphereA3 = 0;
        for (Species& sp : chem.species)
            if (sp.ionSize > 0) sp.lnGammaHS = 0;
        return;
    }
    const double lnDelta = std::log(delta);
    const double z2cube = z2 * z2 * z2;
    st.hardSphereA1 = 3 * z2 / delta;
    st.hardSphereA2 = 3 * z1 / delta + 3 * z2 * z2 / (z3 * delta * delta) + 3 * lnDelta * z2 * z2 / (z3 * z3);
    st.hardSphereA3 = (z0 - z2cube / (z3 * z3)) / delta + (3 * z1 * z2 - z2cube / (z3 * z3)) / (delta * delta) +
                      2 * z2cube / (z3 * delta * delta * delta) - 2 * lnDelta * z2cube / (z3 * z3 * z3);
    for (Species& sp : chem.species) {
        if (sp.ionSize <= 0) continue;
        const double s = sp.ionSize;
        sp.lnGammaHS = -lnDelta + st.hardSphereA1 * s + st.hardSphereA2 * s * s + st.hardSphereA3 * s * s * s;
    }
}

double GammaStep(const ChemicalSystem& chem, double gamma, double pPrime) {
    double sum = 0;
    for (const Species& sp : chem.species) {
        if (sp.ionSize <= 0) continue;
        const double s = sp.ionSize;
        const double term = (sp.charge - pPrime * s * s) / (1 + gamma * s);
        sum += NumberDensity(sp) * term * term;
    }
    return std::sqrt(kFourPiBjerrumLength / 4 * sum);
}

}  // namespace

void UpdateMsa(ChemicalSystem& chem, SolverState& st) {
    const double pi = 4 * std::atan(1.0);
    HardSphere(chem, st);
    const double delta = st.msaDelta;
    double gamma = st.msaGamma;
    // Omega and P' from the Gamma of the previous call, held fixed while
    // Gamma is iterated.
    double omegaSum = 0, pSum = 0;
    for (const Species& sp : chem.species) {
        if (sp.ionSize <= 0) continue;
        const double s = sp.ionSize;
        const double rho = NumberDensity(sp);
        omegaSum += rho * s * s * s / (1 + gamma * s);
        pSum += rho * s * sp.charge / (1 + gamma * s);
    }
    st.msaOmega = 1 + pi / (2 * delta) * omegaSum;
    st.msaPPrime = pi / (2 * delta * st.msaOmega) * pSum;
    const double pPrime = st.msaPPrime;

    // The fixed point converges in a handful of passes for any real water;
    // the bound only keeps a pathological composition from hanging the solve.
    st.gammaIterationCapped = true;
    double next = gamma;
    for (int32_t pass = 0; pass < kSolverOptions.maxGammaPasses; ++pass) {
        next = GammaStep(chem, gamma, pPrime);
        if (RelativelyEqual(gamma, next, st.workingCriterion)) {
            st.gammaIterationCapped = false;
            break;
        }
        gamma = next;
    }
    gamma = next;
    st.msaGamma = gamma;

    for (Species& sp : chem.species) {
        if (sp.ionSize <= 0) continue;
        const double s = sp.ionSize;
        const double z = sp.charge;
        const double denom = 1 + gamma * s;
        sp.lnGammaEl = -kBjerrumLength * (gamma * z * z / denom +
                                          pPrime * s * ((2 * z - pPrime * s * s) / denom + pPrime * s * s / 3));
        sp.lnGamma = sp.lnGammaHS + sp.lnGammaEl;
        sp.gamma = std::exp(sp.lnGamma);
    }
}

}  // namespace tormel
