#pragma once
// What must hold in every solved system with precipitation, worked out here
// from the species and the database rather than from the solver's own sums:
// mass balances closed (solids included), every present solid saturated and
// no absent solid oversaturated. Saturation indices are written with Davies
// activities of the species that stand for each database component and the
// database constant of the solid.
#include <cmath>
#include <string>
#include <vector>

#include "calc/solver_state.h"
#include "core/chemical_system.h"
#include "input/input_problem.h"

namespace tormel::test {

struct SolidReport {
    std::string name;
    double amount = 0;  // mol/L
    double saturationIndex = 0;
};

struct PrecipitationInvariants {
    // largest |calculated / given - 1| over the mass balances (for a net
    // proton total: the imbalance relative to the larger of donors and acceptors)
    double worstBalance = 0;
    std::string worstBalanceName;
    double worstPresentSi = 0;  // largest |SI| of a present solid
    std::string worstPresentName;
    double worstAbsentSi = -HUGE_VAL;  // largest SI of an absent solid
    std::string worstAbsentName;
    std::vector<SolidReport> present;
    bool complete = true;  // false when some solid's SI could not be formed
};

// Davies model only (the model of the reference waters).
PrecipitationInvariants CheckPrecipitation(const ChemicalSystem& chem, const SolverState& state,
                                           const InputProblem& input);

// The species whose activity is that of database component k: its free (or,
// for a site, its adsorbed) species; -1 when the system has none.
int32_t RepresentingSpecies(const ChemicalSystem& chem, int32_t k);

// log10(IAP K) of database solid `equilibrium` from the activities of the
// solved system; false when a component has no species in the system.
bool DatabaseSaturationIndex(const ChemicalSystem& chem, const SolverState& state, const InputProblem& input,
                             int32_t equilibrium, double& si);

// Tolerance of the saturation checks: log10 of the saturation tolerance at
// the given criterion, plus the drift of the ionic strength in the last
// iteration.
inline double SaturationSlack(double criterion) {
    return std::log10(std::max(criterion, std::pow(10.0, 0.000499))) + 1e-5;
}

}  // namespace tormel::test
