#pragma once
// The calculation driver: assembly, solve, post-processing and the hand-over
// to the result tables.
#include <cstdint>
#include <string>
#include <vector>

#include "calc/calc_context.h"

namespace tormel {

struct CalculationOutcome {
    bool assembled = false;  // false: the assembly refused
    std::string refusal;     // the assembly's warning for the user; empty otherwise
    SolveResult solve;
};

// Assembles, solves (reporting progress through the UI services when
// showProgress), post-processes and, unless cancelled, marks that a result
// exists and builds the results.
CalculationOutcome RunCalculation(CalcContext& ctx, bool showProgress);

// Bookkeeping after a successful solve: proton sums, the ionic strength from
// the composition, charge sums, the balance sums of the components without a
// mass balance, and the MSA salt table.
void PostProcess(CalcContext& ctx);

// Net charge of the given totals (minus OH's input value); |x| < 1e-10 gives 0.
double InputChargeExcess(const ChemicalSystem& chem, const InputProblem& input);

// Positive and negative charge carried by the dissolved and adsorbed species;
// the second form sums only the species of the list the species tables keep
// for it (SpeciesTables::charged).
void SpeciesChargeSums(const ChemicalSystem& chem, double& cationCharge, double& anionCharge);
void SpeciesChargeSums(const ChemicalSystem& chem, const std::vector<int32_t>& charged, double& cationCharge,
                       double& anionCharge);

// The MSA salt table: mean activity coefficients of every salt of a sized
// cation with a later sized ligand.
void BuildSaltTable(CalcContext& ctx);

}  // namespace tormel
