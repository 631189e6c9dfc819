#pragma once
// Judges the input problem against the database. Findings are only reported;
// they never block editing, saving or calculating.
#include <string>

#include "core/database.h"
#include "input/input_problem.h"

namespace tormel {

class Language;

struct ConsistencyResult {
    std::string errors;    // empty when nothing was found
    std::string warnings;  // empty when nothing was found

    bool Empty() const { return errors.empty() && warnings.empty(); }
};

// Runs the checks in their fixed order (H+ value, H+ with OH, ligands fixed
// by a gas, redox solids without redox, organic matter, redox groups, MSA
// with fixed ionic strength, temperature, neutralisation), composing each
// finding from texts of section "Input" ("ConsistencyError1" ... "22").
// Reads the problem and the database and changes nothing.
ConsistencyResult CheckConsistency(const InputProblem& input, const Database& db, const Language& language);

}  // namespace tormel
