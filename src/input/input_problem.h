#pragma once
// The current input problem: global options of the calculation and the
// input value and type of every database component.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/chemical_types.h"

namespace tormel {

// Activity models of the input problem.
constexpr int32_t kDaviesModel = 1;
constexpr int32_t kMsaModel = 2;

// Longest description, in UTF-16 characters, that a problem keeps.
constexpr size_t kDescriptionLimit = 259;

// What the user gives for one database component.
struct ComponentInput {
    double inputValue = 0;
    InputType inputType = InputType::NotSpecified;
    bool operator==(const ComponentInput&) const = default;
};

struct InputProblem {
    std::string description;
    bool ionicStrengthFixed = false;
    double fixedIonicStrength = 0;  // mol/L; kept by a reset
    int32_t ionicStrengthModel = kMsaModel;
    double convergenceCriterion = 1.0001;
    double temperature = 25;  // degrees C
    int32_t temperatureCorrection = 0;  // 0 none, 1 when all enthalpies known, 2 always
    bool forceNeutral = false;
    int32_t neutraliseCation = 0;  // component index; kept by a reset
    int32_t neutraliseAnion = 0;   // component index; kept by a reset
    bool precipitation = false;
    bool redox = false;
    bool adsorption = false;
    bool organicComplexation = false;
    int32_t organicModel = Model7;
    double docConcentration = 0;  // mg/L of carbon
    double fulvicFraction = 0.5;
    // One per database component, in component index order; sized by
    // SetProgramDefaults.
    std::vector<ComponentInput> components;

    std::string currentInputFile;
    bool modified = false;

    bool operator==(const InputProblem&) const = default;
};

}  // namespace tormel
