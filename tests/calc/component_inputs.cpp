#include "component_inputs.h"

#include <cmath>

namespace tormel::test {

void ClearInputs(InputProblem& input, const ChemicalSystem& chem) {
    input.components.assign(chem.db().components.size(), ComponentInput{});
    for (size_t k = 0; k < chem.db().components.size(); ++k)
        input.components[k].inputType = chem.db().components[k].type == ComponentType::Gas ? InputType::GasPres : InputType::TotalConc;
    input.components[chem.db().hydroxideIndex].inputType = InputType::NotSpecified;
}

bool SetWaterInputs(const ChemicalSystem& database, std::optional<double> ph, double hTotal,
                    const std::vector<std::pair<std::string, double>>& totals, ChemicalSystem& chem,
                    InputProblem& input) {
    chem = database;
    input = InputProblem{};
    ClearInputs(input, chem);
    input.components[chem.db().hydrogenIndex] =
        ph ? ComponentInput{std::pow(10.0, -*ph), InputType::FreeAct} : ComponentInput{hTotal, InputType::TotalConc};
    for (const auto& [name, value] : totals) {
        const int32_t k = chem.db().FindComponent(name);
        if (k < 0) return false;
        input.components[k] = {value, InputType::TotalConc};
    }
    return true;
}

}  // namespace tormel::test
