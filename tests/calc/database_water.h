#pragma once
// Random waters over the whole real database, as a new user might try them:
// 3 to 12 components (any cation or ligand), a fixed pH or a proton balance,
// Davies or MSA, 0 to 60 °C, and any combination of precipitation, redox
// (one member per redox group, the electron given), Hfo adsorption and
// dissolved organic matter under Models 5, 6 and 7 that the consistency
// check accepts. Reproducible from the seed.
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "core/chemical_system.h"
#include "input/input_problem.h"

namespace tormel::test {

struct DatabaseWater {
    std::vector<std::pair<std::string, double>> totals;  // component name, mol/L
    bool protonBalance = false;
    double ph = 7;      // fixed mode
    double hTotal = 0;  // proton-balance mode
    int32_t activityModel = 1;
    double temperature = 25;
    bool precipitation = false;
    bool redox = false;
    double pe = 4;  // with redox
    bool adsorption = false;
    int32_t organicModel = 0;  // 0 none, else 2, 3 or 4
    double doc = 0, fulvic = 0.5;
    std::string Describe() const;
};

// The next water of the sequence.
DatabaseWater MakeDatabaseWater(std::mt19937& rng, const ChemicalSystem& database);

// Puts the water into a copy of the database with the given criterion.
// False when a name is missing.
bool ApplyDatabaseWater(const DatabaseWater& water, const ChemicalSystem& database, double criterion,
                        ChemicalSystem& chem, InputProblem& input);

}  // namespace tormel::test
