#include "calc/result_water.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "calc/component_inputs.h"

namespace tormel::test {

ResultWater::ResultWater(double ionicStrength) {
    ClearInputs(ws.input, ws.chem);
    ws.input.ionicStrengthModel = kDaviesModel;
    ws.input.ionicStrengthFixed = true;
    ws.input.fixedIonicStrength = ionicStrength;
    ws.input.convergenceCriterion = 1.000001;
    ws.input.redox = true;
}

void ResultWater::Set(const std::string& component, InputType type, double value) {
    const int32_t k = ws.chem.db().FindComponent(component);
    ASSERT_GE(k, 0) << component;
    ws.input.components[k] = {value, type};
}

void ResultWater::SetPe(double pe) { Set("e", InputType::FreeAct, std::pow(10.0, -pe)); }

bool ResultWater::Calculate() {
    ws.solver = SolverState{};
    const CalculationOutcome outcome = CalculateInput(ws, false);
    return outcome.assembled && outcome.solve.converged;
}

const SpeciesResult* ResultWater::Species(const std::string& name) const {
    for (const SpeciesResult& s : ViewSet(ws.results, 0).species)
        if (s.name == name) return &s;
    return nullptr;
}

double ResultWater::LogActivity(const std::string& species) const {
    const SpeciesResult* s = Species(species);
    if (s == nullptr || !s->hasActivity) {
        ADD_FAILURE() << "no activity of " << species;
        return std::numeric_limits<double>::quiet_NaN();
    }
    return std::log10(s->activity);
}

double ResultWater::SaturationIndex(const std::string& solid) const {
    for (const SolidSaturation& s : ViewSet(ws.results, 0).solidChecks)
        if (s.name == solid) return s.saturationIndex;
    ADD_FAILURE() << "no saturation index of " << solid;
    return std::numeric_limits<double>::quiet_NaN();
}

}  // namespace tormel::test
