#include "component_inputs.h"

namespace tormel::test {

void ClearInputs(InputProblem& input, const ChemicalSystem& chem) {
    input.components.assign(chem.components.size(), ComponentInput{});
    for (size_t k = 0; k < chem.components.size(); ++k)
        input.components[k].inputType = chem.components[k].type == Gas ? InpTypeGasPres : InpTypeTotalConc;
    input.components[chem.hydroxideIndex].inputType = InpTypeNotSpecified;
}

}  // namespace tormel::test
