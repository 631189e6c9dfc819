#include "salt_deviation.h"

#include <cmath>
#include <cstdio>
#include <limits>

#include "calc/salt_solution.h"

namespace msafit {

std::vector<double> SaltDeviations(const tormel::Database& database, const MeasuredSalt& salt,
                                   double upToMolality) {
    std::vector<double> deviations;
    for (const MeasuredPoint& point : salt.points) {
        if (point.molality > upToMolality) break;
        tormel::SaltSolution solution{salt.cation, salt.anion, Molarity(salt, point.molality)};
        solution.hydrogenActivity = salt.pH > 0 ? std::pow(10.0, -salt.pH) : 0;
        const auto model = tormel::SaltMeanActivityCoefficient(database, solution);
        deviations.push_back(model ? *model / MolarGamma(salt, point) - 1 : std::numeric_limits<double>::quiet_NaN());
    }
    return deviations;
}

void PrintDeviations(const tormel::Database& database, const MeasuredSalt& salt) {
    const std::vector<double> deviations = SaltDeviations(database, salt, salt.points.back().molality);
    std::printf("%-7s", salt.formula.c_str());
    for (size_t i = 0; i < deviations.size(); ++i)
        std::printf(" %g:%+.1f%%", salt.points[i].molality, 100 * deviations[i]);
    std::printf("\n");
}

}  // namespace msafit
