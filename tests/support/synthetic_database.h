#pragma once
// A small chemical database built in code for the tests, with constants close
// to the real ones so that calculated answers can be checked by hand. It holds
// every component type, a gas, two redox groups, adsorption, a solid and
// organic equilibria of Models V and VII (none of Model VI), sorted by type as
// the shipped database is; its ranges, water partners and links are those
// the loader would give it.
#include <array>
#include <string>

#include "core/database.h"
#include "core/database_files.h"

namespace tormel::test {

// Component indices.
enum SyntheticComponent : int32_t {
    kH = 0,
    kNa = 1,
    kCa = 2,
    kFe2 = 3,
    kFe3 = 4,
    kMn2 = 5,
    kElectron = 6,
    kOH = 7,
    kCl = 8,
    kCO3 = 9,
    kSite = 10,
    kMnO2 = 11,
    kCO2Gas = 12,
    kFA5 = 13,
    kHA5 = 14,
    kFA7 = 15,
    kHA7 = 16,
};

// Equilibrium indices. Manganese takes part only in the equilibria that
// need a component of its own (four components in one complex, the redox
// solid, the solid), so calculations without Mn(II) never form them.
enum SyntheticEquilibrium : int32_t {
    kWater = 0,
    kNaCl = 1,
    kCaCl = 2,
    kHCO3 = 3,
    kH2CO3 = 4,
    kCaCO3 = 5,
    kCaOH = 6,
    kFeCl = 7,
    kFeOH = 8,
    kMnClCO3OH = 9,
    kSiteH = 10,
    kSiteCa = 11,
    kFeRedox = 12,
    kMnRedox = 13,
    kCO2Equilibrium = 14,
    kRhodochrosite = 15,
    kFA5Ca = 16,
    kFA7Ca = 17,
};

Database SyntheticDatabase();
std::array<DatabaseFileHeader, 6> SyntheticHeaders(const std::string& version = "1.0");

// Writes the synthetic database into `folder` as working copies (".D64") or
// raw data files (".RW64", into folder + "RawData/").
void WriteSyntheticWorkingCopies(const Database& chem, const std::string& dataFolder,
                                 const std::string& version = "1.0");
void WriteSyntheticRawData(const Database& chem, const std::string& programFolder,
                           const std::string& version = "1.0");

}  // namespace tormel::test
