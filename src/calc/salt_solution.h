#pragma once
// The mean activity coefficient that the MSA model gives for a solution of
// one salt in pure water, with everything the database lets the two ions do
// (ion pairs, hydrolysis) taking part.
#include <optional>
#include <string>

#include "core/chemical_system.h"

namespace tormel {

struct SaltSolution {
    std::string cation;  // component names in the database
    std::string anion;
    double concentration;  // mol/L of salt
    // free activity of H+ the solution is held at; 0 for an acid, whose
    // cation is H+ itself and given as a total
    double hydrogenActivity = 1e-7;
};

// The salt table's stoichiometric mean activity coefficient of the salt
// after a solve under the MSA model; nullopt when a component is missing or
// the solve does not converge.
std::optional<double> SaltMeanActivityCoefficient(const Database& database, const SaltSolution& salt);

}  // namespace tormel
