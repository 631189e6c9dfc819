#include "calc/calc_fixture.h"

#include "calc/component_inputs.h"

namespace tormel::test {

CalcFixture::CalcFixture() {
    ClearInputs(input, chem);
    Set(kElectron, InputType::FreeAct, 1.0);
    input.ionicStrengthModel = 1;  // Davies
    input.convergenceCriterion = 1.000001;
}

int32_t CalcFixture::SpeciesIndex(const std::string& name) const {
    for (size_t s = 0; s < chem.species.size(); ++s)
        if (chem.species[s].name == name) return static_cast<int32_t>(s);
    return -1;
}

}  // namespace tormel::test
