#include <cmath>

#include "calc/activity.h"

namespace tormel {

double DaviesLogGamma1(double ionicStrength) {
    const double root = std::sqrt(ionicStrength);
    return -kDaviesA * (root / (1 + root) - kDaviesLinear * ionicStrength);
}

double Activity(const SolverState& state, const Species& species) {
    const double z = species.charge;
    return std::pow(10.0, z * z * state.logGamma1) * species.concentration;
}

}  // namespace tormel
