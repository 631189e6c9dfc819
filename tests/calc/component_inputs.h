#pragma once
// Inputs of the components of a chemical system.
#include "core/chemical_system.h"

namespace tormel::test {

// Every component without an input: totals and gas pressures of 0, OH- not
// given at all.
void ClearInputs(ChemicalSystem& chem);

}  // namespace tormel::test
