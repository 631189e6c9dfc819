#pragma once
// How far the MSA model's mean activity coefficients of a salt lie from the
// measured ones, point by point.
#include <vector>

#include "core/database.h"
#include "measured_table.h"

namespace msafit {

// Relative deviation model/measured - 1 (molarity scale) at every point of
// the salt up to `upToMolality`; NaN where the model has no answer.
std::vector<double> SaltDeviations(const tormel::Database& database, const MeasuredSalt& salt,
                                   double upToMolality);

// Prints the salt's deviations at every point of its table, one line.
void PrintDeviations(const tormel::Database& database, const MeasuredSalt& salt);

}  // namespace msafit
