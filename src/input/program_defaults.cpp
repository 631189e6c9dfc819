#include "input/program_defaults.h"

namespace tormel {

void SetProgramDefaults(InputProblem& input, ChemicalSystem& chem) {
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

    for (Component& c : chem.components) {
        if (c.type == Electron) {
            c.inputValue = 1.0;
            c.inputType = InpTypeFreeAct;
        } else if (c.type == Gas) {
            c.inputValue = 0;
            c.inputType = InpTypeGasPres;
        } else if (c.waterPartnerOfH != 0 || c.waterPartnerOfOH != 0) {
            if (c.type == Cation) {
                c.inputValue = 1e-7;
                c.inputType = InpTypeFreeAct;
            } else {
                c.inputValue = 0;
                c.inputType = InpTypeNotSpecified;
            }
        } else {
            c.inputValue = 0;
            c.inputType = InpTypeTotalConc;
        }
    }
}

}  // namespace tormel
