#pragma once
// A water described by named values rather than by a file: each field is a
// label of the input file with its value text ("Temperature" "10",
// "Ca" "0.001 (total concentration)"), or one of three shorthands:
//   "pH" x, "pe" x         the free activity 10^-x of H+, of the electron
//   "Name (type text)" v   component Name given as v of that input type,
//                          e.g. "H (total concentration)" for a proton balance
// The fields are read by the input file reader, so names, values and
// messages are those of input files.
#include <optional>
#include <span>
#include <string>

#include "core/database.h"
#include "input/input_file_error.h"
#include "input/input_problem.h"

namespace tormel {

struct WaterField {
    std::string name;
    std::string value;
};

// The line of the input file that stands for a field.
std::string WaterFieldLine(const WaterField& field, const Database& db);

// Sets `input` to the program defaults, then applies the fields in order as
// the lines of an input file. An error quotes the line made of the field
// (there is no file, so no path and no line number).
std::optional<InputFileError> ReadWaterFields(std::span<const WaterField> fields, InputProblem& input,
                                              const Database& db);

}  // namespace tormel
