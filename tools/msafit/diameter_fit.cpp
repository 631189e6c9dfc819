#include "diameter_fit.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "salt_deviation.h"

namespace msafit {

namespace {

constexpr double kAngstrom = 1e-10;
// below 2 Angstrom, smaller than any ion fitted here, a diameter would only
// bend the model to mimic ion association
constexpr double kLowest = 2.0 * kAngstrom;
constexpr double kHighest = 12.0 * kAngstrom;
constexpr double kTolerance = 0.002 * kAngstrom;
constexpr int kMaxRounds = 8;

// A free ion's diameter, or an ion pair's (a complex, by its name).
double& DiameterOf(tormel::Database& chem, const std::string& name) {
    const int32_t component = chem.FindComponent(name);
    if (component >= 0) return chem.components[component].ionDiameter;
    return chem.equilibria[chem.FindEquilibrium(name)].complexDiameter;
}

// The worst relative deviation over the salts containing the ion.
double WorstDeviation(const tormel::Database& chem, const std::vector<const MeasuredSalt*>& salts) {
    double worst = 0;
    for (const MeasuredSalt* salt : salts)
        for (double d : SaltDeviations(chem, *salt, kFitUpTo))
            worst = std::isnan(d) ? 1e9 : std::max(worst, std::fabs(d));
    return worst;
}

// Golden-section search for the diameter with the smallest worst deviation;
// `worstAt` sets the diameter and answers the worst deviation there.
template <typename WorstAt>
double GoldenSection(WorstAt worstAt, double highest = kHighest) {
    const double ratio = (std::sqrt(5.0) - 1) / 2;
    double a = kLowest, b = highest;
    double c = b - ratio * (b - a), d = a + ratio * (b - a);
    double fc = worstAt(c), fd = worstAt(d);
    while (b - a > kTolerance) {
        if (fc <= fd) {
            b = d, d = c, fd = fc;
            c = b - ratio * (b - a);
            fc = worstAt(c);
        } else {
            a = c, c = d, fc = fd;
            d = a + ratio * (b - a);
            fd = worstAt(d);
        }
    }
    return fc <= fd ? c : d;
}

struct FitWork {
    tormel::Database& chem;
    std::map<std::string, std::vector<const MeasuredSalt*>> saltsOf;  // the salts an ion is fitted to
    // anion -> the cations and ion pairs fitted with it
    std::map<std::string, std::vector<std::string>> followersOf;
    std::map<std::string, const MeasuredSalt*> saltOfPair;
};

// The best diameter of one ion or ion pair, the others held. A pair is no
// larger than its two ions side by side.
double FitIon(FitWork& w, const std::string& ion) {
    double highest = kHighest;
    if (auto pair = w.saltOfPair.find(ion); pair != w.saltOfPair.end())
        highest = DiameterOf(w.chem, pair->second->cation) + DiameterOf(w.chem, pair->second->anion);
    double& diameter = DiameterOf(w.chem, ion);
    diameter = GoldenSection(
        [&](double d) {
            diameter = d;
            return WorstDeviation(w.chem, w.saltsOf[ion]);
        },
        highest);
    return diameter;
}

// The best diameter of an anion when the cations and ion pairs fitted to its
// salts follow every trial value: held cations would pin a shared anion such
// as Cl- to whatever value it started from.
double FitAnion(FitWork& w, const std::string& anion) {
    auto worstAt = [&](double d) {
        DiameterOf(w.chem, anion) = d;
        for (const std::string& follower : w.followersOf[anion]) FitIon(w, follower);
        return WorstDeviation(w.chem, w.saltsOf[anion]);
    };
    const double best = GoldenSection(worstAt);
    worstAt(best);
    return best;
}

}  // namespace

double StartDiameter(const tormel::Database& database, const std::string& component) {
    // crystal diameters: twice the Pauling radii of the halides as Robinson &
    // Stokes (1959) tabulate them, twice the thermochemical radii of NO3- and
    // SO4-2 (Marcus Y. (1988) Chem. Rev. 88, 1475)
    static const std::map<std::string, double> crystal = {
        {"Cl", 3.62 * kAngstrom}, {"Br", 3.90 * kAngstrom},  {"I", 4.32 * kAngstrom},
        {"F", 2.72 * kAngstrom},  {"NO3", 3.58 * kAngstrom}, {"SO4", 4.60 * kAngstrom},
    };
    auto it = crystal.find(component);
    if (it != crystal.end()) return it->second;
    const int32_t c = database.FindComponent(component);
    return c >= 0 ? database.components[c].ionDiameter : 0;
}

std::vector<FittedIon> FitDiameters(tormel::Database& database, const std::vector<MeasuredSalt>& salts) {
    // cations first, then anions, then ion pairs, each in the order of the
    // table
    enum Kind { kCation, kAnion, kPair };
    FitWork w{database, {}, {}, {}};
    std::vector<FittedIon> ions;
    std::vector<bool> isAnion;
    for (int kind : {kCation, kAnion, kPair})
        for (const MeasuredSalt& salt : salts) {
            const bool fits = kind == kCation ? salt.fitsCation : kind == kAnion ? salt.fitsAnion : salt.fitsPair;
            if (!fits) continue;
            const std::string name = kind == kCation ? salt.cation : kind == kAnion ? salt.anion : PairName(salt);
            if (!w.saltsOf.count(name)) {
                ions.push_back({name, 0, 0, {}, {}});
                isAnion.push_back(kind == kAnion);
            }
            w.saltsOf[name].push_back(&salt);
            if (kind == kAnion && salt.fitsCation) w.followersOf[name].push_back(salt.cation);
            if (kind == kPair) w.saltOfPair[name] = &salt;
            if (kind == kPair && salt.fitsAnion) w.followersOf[salt.anion].push_back(name);
        }
    for (FittedIon& ion : ions) {
        DiameterOf(database, ion.component) = StartDiameter(database, ion.component);
        for (const MeasuredSalt* salt : w.saltsOf[ion.component]) {
            ion.salts.push_back(salt->formula);
            ion.sources.push_back(salt->sources);
        }
    }
    for (int round = 1; round <= kMaxRounds; ++round) {
        double largestMove = 0;
        for (size_t i = 0; i < ions.size(); ++i) {
            const double before = DiameterOf(database, ions[i].component);
            const double after = isAnion[i] ? FitAnion(w, ions[i].component) : FitIon(w, ions[i].component);
            largestMove = std::max(largestMove, std::fabs(after - before));
        }
        std::fprintf(stderr, "round %d: largest change %.3f Angstrom\n", round, largestMove / kAngstrom);
        if (largestMove < 5 * kTolerance) break;
    }
    for (FittedIon& ion : ions) {
        ion.diameter = DiameterOf(database, ion.component);
        ion.worstDeviation = WorstDeviation(database, w.saltsOf[ion.component]);
    }
    return ions;
}

}  // namespace msafit
