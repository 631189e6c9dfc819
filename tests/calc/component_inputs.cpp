#include "component_inputs.h"

namespace tormel::test {

void ClearInputs(ChemicalSystem& chem) {
    for (Component& c : chem.components) {
        c.inputValue = 0;
        c.inputType = c.type == Gas ? InpTypeGasPres : InpTypeTotalConc;
    }
    chem.components[chem.hydroxideIndex].inputType = InpTypeNotSpecified;
}

}  // namespace tormel::test
