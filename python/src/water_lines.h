#pragma once
// Waters between Python and the input reader: (label, value text) pairs in,
// the labelled lines of the input file out.
#include <string>
#include <utility>
#include <vector>

#include "input/water_fields.h"
#include "session.h"

namespace tormel::python {

using Fields = std::vector<std::pair<std::string, std::string>>;

std::vector<WaterField> ToFields(const Fields& pairs);

// The input problem of a water; raises InputFileError when the reader refuses a field.
InputProblem ReadFields(const Session& session, const Fields& pairs);

// The labelled lines of an input problem as the input file writes them.
Fields InputLines(const InputProblem& input, const Database& db);

}  // namespace tormel::python
