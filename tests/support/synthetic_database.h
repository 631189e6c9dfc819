#pragma once
// A small database built in code for unit tests: H+ at 0 with the first other
// cation at index 5, every component type, a gas, a redox group, adsorption,
// solids and organic equilibria of all three models.
#include <array>
#include <string>

#include "core/database.h"
#include "core/database_files.h"

namespace tormel::test {

Database SyntheticDatabase();
std::array<DatabaseFileHeader, 6> SyntheticHeaders(const std::string& version = "1.0");

// Writes the synthetic database into `folder` as working copies (".D64") or
// raw data files (".RW64", into folder + "RawData/").
void WriteSyntheticWorkingCopies(const Database& chem, const std::string& dataFolder,
                                 const std::string& version = "1.0");
void WriteSyntheticRawData(const Database& chem, const std::string& programFolder,
                           const std::string& version = "1.0");

}  // namespace tormel::test
