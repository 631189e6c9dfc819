#pragma once
// The input problem a result set was calculated from, with the values the
// calculation kept beside the user's options.
#include <array>

#include "input/input_problem.h"

namespace tormel {

// One organic fraction (fulvic, then humic) at the solution.
struct OrganicFractionValues {
    double charge = 0;          // Z
    double enrichment = 0;      // counter-ion enrichment factor R
    double volumeFraction = 0;  // diffuse-layer volume fraction V
    double concentration = 0;   // C, g C/L; 0 when the fraction is absent
};

struct InputSnapshot {
    InputProblem input;
    bool protonBalance = false;             // H+ was given as a total concentration
    double ionicStrength = 0;               // the calculated I
    double ionicStrengthFromComposition = 0;  // I of the composition when I was fixed
    bool adsorptionLinked = false;
    std::array<OrganicFractionValues, 2> fractions{};
    double bulkFraction = 1.0;

    // The ionic strength the results report: the composition's when I was
    // fixed, else the calculated one.
    double ReportedIonicStrength() const {
        return input.ionicStrengthFixed ? ionicStrengthFromComposition : ionicStrength;
    }
};

}  // namespace tormel
