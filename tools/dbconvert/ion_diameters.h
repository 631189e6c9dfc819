#pragma once
// Ion sizes for the MSA activity model: diameters fitted to measured mean
// activity coefficients of simple salts (msa_ion_diameters.inc, written by
// tools/msafit) and, for every other ion, the published effective sizes.
#include <optional>
#include <string>
#include <vector>

namespace dbconvert {

// Ion diameter (m) of a free ion or complex, by species formula with charge
// ("Ca+2", "HCO3-"); nullopt when no size is at hand.
std::optional<double> IonDiameter(const std::string& speciesWithCharge);

// A diameter of the fitted table with how it was obtained.
struct FittedDiameter {
    const char* species;
    double diameter;  // m
    const char* origin;
};

const std::vector<FittedDiameter>& FittedDiameters();

// Where the fitted diameters and the other sizes come from, for the report.
extern const char* const kFittedSizeSource;
extern const char* const kIonSizeSource;

}  // namespace dbconvert
