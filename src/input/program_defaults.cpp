#include "input/program_defaults.h"

#include <optional>

namespace tormel {

namespace {

// Most components start at 0 as a total concentration.
constexpr ComponentInput kUsualDefault = {0, InputType::TotalConc};

// The default of a component that does not start as most do.
std::optional<ComponentInput> OtherDefault(const Component& c) {
    if (c.type == ComponentType::Electron) return ComponentInput{1.0, InputType::FreeAct};
    if (c.type == ComponentType::Gas) return ComponentInput{0, InputType::GasPres};
    if (c.waterPartnerOfH != 0 || c.waterPartnerOfOH != 0)
        return c.type == ComponentType::Cation ? ComponentInput{1e-7, InputType::FreeAct}
                                               : ComponentInput{0, InputType::NotSpecified};
    return std::nullopt;
}

}  // namespace

void SetProgramDefaults(InputProblem& input, const Database& db) {
    const InputProblem defaults;
    input.description = defaults.description;
    input.ionicStrengthFixed = defaults.ionicStrengthFixed;
    input.ionicStrengthModel = defaults.ionicStrengthModel;
    input.convergenceCriterion = defaults.convergenceCriterion;
    input.temperature = defaults.temperature;
    input.temperatureCorrection = defaults.temperatureCorrection;
    input.forceNeutral = defaults.forceNeutral;
    input.precipitation = defaults.precipitation;
    input.redox = defaults.redox;
    input.adsorption = defaults.adsorption;
    input.organicComplexation = defaults.organicComplexation;
    input.organicModel = defaults.organicModel;
    input.docConcentration = defaults.docConcentration;
    input.fulvicFraction = defaults.fulvicFraction;

    // the usual default everywhere in one fill, then the few others
    input.components.assign(db.components.size(), kUsualDefault);
    for (size_t k = 0; k < db.components.size(); ++k)
        if (const std::optional<ComponentInput> other = OtherDefault(db.components[k])) input.components[k] = *other;
}

}  // namespace tormel
