#pragma once
// Fits one MSA diameter per ion to the measured mean activity coefficients:
// each ion's diameter is chosen to make the worst deviation over all its
// salts (up to 1 mol/kg) as small as it can be, a cation or ion pair with
// the others held, an anion with the cations and ion pairs of its salts
// following, and the rounds repeat until no diameter moves.
#include <map>
#include <string>
#include <vector>

#include "core/database.h"
#include "measured_table.h"

namespace msafit {

struct FittedIon {
    std::string component;           // database component name, or the ion pair's complex name
    double diameter = 0;             // m
    double worstDeviation = 0;       // relative, over its salts up to kFitUpTo
    std::vector<std::string> salts;  // formulas of the salts it was fitted to
    std::vector<std::string> sources;
};

constexpr double kFitUpTo = 1.0;  // mol/kg

// Start value of an anion: its crystal (Pauling) diameter where known, the
// usual choice of MSA fits of real salts; cations start at the database's
// present size.
double StartDiameter(const tormel::Database& database, const std::string& component);

// Fits every ion of `salts`; `database` holds the diameters used and is
// left with the fitted ones.
std::vector<FittedIon> FitDiameters(tormel::Database& database, const std::vector<MeasuredSalt>& salts);

}  // namespace msafit
