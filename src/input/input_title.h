#pragma once
// The title line of the current input, shown in the main window's status
// line. These texts are fixed, not language texts.
#include <string>
#include <string_view>

#include "input/input_problem.h"

namespace tormel {

// The user's default input file: inputFolder + "defaults.i64".
std::string UserDefaultsPath(std::string_view inputFolder);

// "Input data: user defaults (<path>)" when the current file is the user
// defaults (compared without regard to letter case), "Input data: <path>" for
// any other file, "Input data: program defaults" without a file; " (modified)"
// is appended when the problem is modified.
std::string InputTitle(const InputProblem& input, std::string_view inputFolder);

}  // namespace tormel
