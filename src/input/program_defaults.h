#pragma once
// The program defaults of the input problem.
#include "core/database.h"
#include "input/input_problem.h"

namespace tormel {

// Sets every global option that has a default and gives the problem one
// component input per database component, each with its program default:
//   electron          1.0   free activity
//   gas               0     partial pressure
//   water partner     1e-7  free activity (pH 7) when a cation (H+),
//                     0     not specified otherwise
//   any other         0     total concentration
// A water partner is a component whose waterPartnerOfH or waterPartnerOfOH
// link is non-zero; with H+ at index 0 the OH record links to 0 and so takes
// the last row. fixedIonicStrength, neutraliseCation, neutraliseAnion,
// currentInputFile and modified are left as they are.
void SetProgramDefaults(InputProblem& input, const Database& db);

}  // namespace tormel
