#pragma once
// Measured mean activity coefficients of single salts at 25 °C (the
// tab-separated table measured_mean_activity_coefficients.tsv) and their
// conversion from the molality scale to the molarity scale the model uses.
#include <optional>
#include <string>
#include <vector>

namespace msafit {

struct MeasuredPoint {
    double molality;  // mol/kg water
    double gamma;     // molality-scale mean activity coefficient
};

struct MeasuredSalt {
    std::string formula;
    std::string cation;  // component names of the database
    std::string anion;
    double apparentMolarVolume;  // cm3/mol
    double pH;                   // 0: an acid, H+ is the cation
    bool fitsCation = true;      // the salt takes part in the fit of its cation
    bool fitsAnion = true;       // and of its anion
    bool fitsPair = false;       // and of the size of its ion pair (the complex PairName)
    std::string sources;
    std::vector<MeasuredPoint> points;
};

// The database name of the salt's ion pair: cation and anion names joined
// ("K" + "SO4" -> "KSO4"; "Co(II)" + "Cl" -> "CoCl").
std::string PairName(const MeasuredSalt& salt);

// The molarity (mol/L) of a solution of molality m.
double Molarity(const MeasuredSalt& salt, double molality);

// The molarity-scale mean activity coefficient y of a measured point.
double MolarGamma(const MeasuredSalt& salt, const MeasuredPoint& point);

// Reads the table; nullopt with `error` set when the file cannot be read or
// a line is malformed.
std::optional<std::vector<MeasuredSalt>> ReadMeasuredSalts(const std::string& path, std::string& error);

}  // namespace msafit
