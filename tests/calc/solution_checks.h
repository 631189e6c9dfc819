#pragma once
// Independent checks of a solved system: activities from the Davies equation
// written out here, totals summed from the species by name.
#include <cmath>
#include <string>

#include "calc/calc_fixture.h"

namespace tormel::test {

inline double DaviesLog(double ionicStrength, int charge) {
    const double r = std::sqrt(ionicStrength);
    return -0.5079 * charge * charge * (r / (1 + r) - 0.3 * ionicStrength);
}

// Concentration of a named species; fails the test when it is absent.
double Conc(const CalcFixture& f, const std::string& name);
// Davies activity of a named species at the solver's final ionic strength.
double LogAct(const CalcFixture& f, const std::string& name);
// Half the sum of c z^2 over the dissolved species.
double IonicStrengthOf(const CalcFixture& f);

}  // namespace tormel::test
