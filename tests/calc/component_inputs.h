#pragma once
// Inputs of the components of a chemical system.
#include "core/chemical_system.h"
#include "input/input_problem.h"

namespace tormel::test {

// Every component without an input: totals and gas pressures of 0, OH- not
// given at all.
void ClearInputs(InputProblem& input, const ChemicalSystem& chem);

}  // namespace tormel::test
