#pragma once
// A small chemical database built in code, with constants close to the real
// ones, for tests whose answers can be checked by hand.
#include <string>

#include "calc/calc_context.h"
#include "core/chemical_system.h"
#include "input/input_problem.h"

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

ChemicalSystem BuildSyntheticDatabase();

// Sets every component's input to nothing (H+ and OH included).
void ClearInputs(ChemicalSystem& chem);

// A calculation context over a chemical system, an input problem and a
// solver state that the fixture owns.
struct CalcFixture {
    ChemicalSystem chem = BuildSyntheticDatabase();
    InputProblem input;
    SolverState state;
    CalcFixture() {
        ClearInputs(chem);
        input.ionicStrengthModel = 1;  // Davies
        input.convergenceCriterion = 1.000001;
    }
    CalcContext Context() { return CalcContext{chem, input, state}; }
    void Set(int32_t component, int32_t type, double value) {
        chem.components[component].inputType = type;
        chem.components[component].inputValue = value;
    }
    // index of the species with the given name; -1 when absent
    int32_t SpeciesIndex(const std::string& name) const;
};

}  // namespace tormel::test
