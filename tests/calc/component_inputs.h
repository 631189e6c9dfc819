#pragma once
// Inputs of the components of a chemical system.
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/chemical_system.h"
#include "input/input_problem.h"

namespace tormel::test {

// Every component without an input: totals and gas pressures of 0, OH- not
// given at all.
void ClearInputs(InputProblem& input, const ChemicalSystem& chem);

// A copy of `database` whose only inputs are the pH (or, without one, the
// proton total) and the total concentrations of the named components; false
// when a name is not in the database.
bool SetWaterInputs(const ChemicalSystem& database, std::optional<double> ph, double hTotal,
                    const std::vector<std::pair<std::string, double>>& totals, ChemicalSystem& chem,
                    InputProblem& input);

}  // namespace tormel::test
