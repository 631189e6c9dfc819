#include "input/program_defaults.h"

namespace tormel {

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

    // every element written once, in one pass
    input.components.resize(db.components.size());
    for (size_t k = 0; k < db.components.size(); ++k) {
        const Component& c = db.components[k];
        ComponentInput given;  // 0, total concentration
        given.inputType = InputType::TotalConc;
        if (c.type == ComponentType::Electron) {
            given.inputValue = 1.0;
            given.inputType = InputType::FreeAct;
        } else if (c.type == ComponentType::Gas) {
            given.inputType = InputType::GasPres;
        } else if (c.waterPartnerOfH != 0 || c.waterPartnerOfOH != 0) {
            const bool cation = c.type == ComponentType::Cation;
            given.inputValue = cation ? 1e-7 : 0;
            given.inputType = cation ? InputType::FreeAct : InputType::NotSpecified;
        }
        input.components[k] = given;
    }
}

}  // namespace tormel
