#include "input/program_defaults.h"

namespace tormel {

namespace {

ComponentInput DefaultInput(const Component& c) {
    if (c.type == ComponentType::Electron) return {1.0, InputType::FreeAct};
    if (c.type == ComponentType::Gas) return {0, InputType::GasPres};
    if (c.waterPartnerOfH != 0 || c.waterPartnerOfOH != 0)
        return c.type == ComponentType::Cation ? ComponentInput{1e-7, InputType::FreeAct}
                                               : ComponentInput{0, InputType::NotSpecified};
    return {0, InputType::TotalConc};
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

    // the usual default everywhere, then the few components with another
    const ComponentInput usual = {0, InputType::TotalConc};
    input.components.assign(db.components.size(), usual);
    for (size_t k = 0; k < db.components.size(); ++k) {
        const Component& c = db.components[k];
        if (c.type == ComponentType::Electron || c.type == ComponentType::Gas || c.waterPartnerOfH != 0 ||
            c.waterPartnerOfOH != 0)
            input.components[k] = DefaultInput(c);
    }
}

}  // namespace tormel
