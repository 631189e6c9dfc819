#include "component_inputs.h"

namespace tormel::test {

void ClearInputs(InputProblem& input, const ChemicalSystem& chem) {
    input.components.assign(chem.db().components.size(), ComponentInput{});
    for (size_t k = 0; k < chem.db().components.size(); ++k)
        input.components[k].inputType = chem.db().components[k].type == ComponentType::Gas ? InputType::GasPres : InputType::TotalConc;
    input.components[chem.db().hydroxideIndex].inputType = InputType::NotSpecified;
}

}  // namespace tormel::test
