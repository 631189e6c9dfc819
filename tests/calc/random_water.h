#pragma once
// Random natural and laboratory waters on the real database, for tests that
// must hold for any water: a few cations and ligands with totals spread over
// several decades, the pH either fixed or from a proton balance that makes
// the given totals neutral. Reproducible from the seed.
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "core/chemical_system.h"
#include "input/input_problem.h"

namespace tormel::test {

struct RandomWater {
    std::vector<std::pair<std::string, double>> totals;  // component name, mol/L
    bool protonBalance = false;
    double ph = 7;       // fixed mode
    double hTotal = 0;   // proton-balance mode
    std::string Describe() const;
};

// The next water of the sequence.
RandomWater MakeRandomWater(std::mt19937& rng);

// Puts the water into a copy of the database with Davies activities,
// precipitation on and the given criterion; false when a name is missing.
bool ApplyRandomWater(const RandomWater& water, const ChemicalSystem& database, double criterion,
                      ChemicalSystem& chem, InputProblem& input);

}  // namespace tormel::test
