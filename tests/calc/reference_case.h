#pragma once
// Runs one reference water (a case file of tests/data/reference) through the
// assembly and the solver and compares every listed quantity with the
// case's own tolerance.
#include <string>
#include <vector>

#include "json_reader.h"
#include "calc/solver_state.h"
#include "core/chemical_system.h"
#include "input/input_problem.h"

namespace tormel::test {

struct Comparison {
    std::string quantity;  // e.g. "species CaHCO3+"
    double ours = 0;
    double expected = 0;
    double deviation = 0;  // relative, or absolute for pH and saturation indices
    double tolerance = 0;
    bool relative = true;
    bool ok = false;
};

struct ReferenceOutcome {
    std::string id;
    bool hasSolids = false;  // precipitation cases
    std::string setupError;  // a name of the case not found in the database
    SolveResult solve;
    std::vector<Comparison> comparisons;
    double maxRelative = 0;   // largest relative deviation of a concentration or I
    double maxAbsolute = 0;   // largest deviation of pH or a saturation index
    int failures = 0;
};

ReferenceOutcome RunReferenceCase(const JsonValue& reference, const ChemicalSystem& database, double criterion);

// The chemical system and input problem of a case, ready for RunCalculation;
// false when a name of the case is not in the database.
bool PrepareReferenceCase(const JsonValue& reference, const ChemicalSystem& database, double criterion,
                          ChemicalSystem& chem, InputProblem& input);

// The case files of tests/data/reference, sorted by name.
std::vector<std::string> ReferenceCaseFiles();

}  // namespace tormel::test
