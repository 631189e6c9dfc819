#pragma once
// The fitted diameters as the table the database converter compiles in
// (tools/dbconvert/msa_ion_diameters.inc), with how each was obtained.
#include <string>
#include <vector>

#include "core/database.h"
#include "diameter_fit.h"

namespace msafit {

// Writes the fitted ions and the ions that take the size of a fitted one;
// false with `error` set when the file cannot be written.
bool WriteDiameterTable(const std::string& path, const tormel::Database& database,
                        const std::vector<FittedIon>& fitted, std::string& error);

}  // namespace msafit
