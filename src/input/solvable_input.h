#pragma once
// Values from which no calculation can start: a negative or non-finite input
// value, a convergence criterion that is no ratio above 1. Unlike the
// consistency checks these refuse the calculation, before the solver runs
// into its iteration bound with a misleading worst component.
#include <string>

#include "core/database.h"
#include "input/input_problem.h"

namespace tormel {

class Language;

// Empty when the problem can be calculated; otherwise Input/"InputUnsolvable"
// followed by one line per refused field: the language text of the reason
// ("UnsolvableNegative", "UnsolvableNotFinite", "UnsolvableCriterion") and
// the field's name as the input file writes it (a component's name for its
// value).
std::string UnsolvableInputText(const InputProblem& input, const Database& db, const Language& language);

}  // namespace tormel
