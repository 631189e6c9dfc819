#pragma once
// A small chemical database built in code, with constants close to the real
// ones, for tests whose answers can be checked by hand.
#include "core/database.h"

namespace tormel::test {

// Component indices of the synthetic database.
enum SyntheticComponent : int32_t {
    kH = 0,
    kNa = 1,
    kCa = 2,
    kFe2 = 3,
    kFe3 = 4,
    kElectron = 5,
    kOH = 6,
    kCl = 7,
    kCO3 = 8,
    kSite = 9,
    kCO2Gas = 10,
};

// Equilibrium indices.
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
    kFeRedox = 9,
    kCO2Equilibrium = 10,
    kSiteH = 11,
    kSiteCa = 12,
};

Database BuildSyntheticDatabase();

}  // namespace tormel::test
