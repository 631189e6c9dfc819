#pragma once
// A water on the real database calculated the way the user does it, so that
// tests read the values of the result tables: the activities of the species
// and the saturation indexes of the solids.
#include <string>

#include "output/result_test_support.h"

namespace tormel::test {

// Davies activities at a fixed ionic strength (so that every mass-action law
// holds exactly with the activities shown), redox on, no inputs yet.
struct ResultWater : PreparedWorkspace {
    explicit ResultWater(double ionicStrength);

    // Gives the named component an input of `type`.
    void Set(const std::string& component, InputType type, double value);
    // The electron's activity 10^-pE.
    void SetPe(double pe);
    // Assembles, solves and builds result set 0; false when it did not converge.
    bool Calculate();

    // log10 of the activity of the species named as in the species table
    // ("free Ag +", "H2 (aq)"); a test failure and NaN when it is absent.
    double LogActivity(const std::string& species) const;
    // The species record of result set 0; nullptr when absent.
    const SpeciesResult* Species(const std::string& name) const;
    // The saturation index reported for a solid (calculations without
    // precipitation); a test failure and NaN when it is absent.
    double SaturationIndex(const std::string& solid) const;
};

}  // namespace tormel::test
