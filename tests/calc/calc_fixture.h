#pragma once
// A calculation on the synthetic database: the chemical system, the input
// problem and the solver state, with every input cleared.
#include <initializer_list>
#include <string>
#include <utility>

#include "calc/calc_context.h"
#include "support/synthetic_database.h"
#include "core/chemical_system.h"
#include "input/input_problem.h"

namespace tormel::test {

struct CalcFixture {
    ChemicalSystem chem{SyntheticDatabase()};
    InputProblem input;
    SolverState state;
    // No inputs but the electron's free activity of 1; Davies activities.
    CalcFixture();
    CalcContext Context() { return CalcContext{chem, input, state}; }
    void Set(int32_t component, InputType type, double value) {
        input.components[component] = {value, type};
    }
    // Gives each listed component its total concentration.
    void SetTotals(std::initializer_list<std::pair<int32_t, double>> totals) {
        for (auto [component, total] : totals) Set(component, InputType::TotalConc, total);
    }
    // index of the species with the given name; -1 when absent
    int32_t SpeciesIndex(const std::string& name) const;
};

}  // namespace tormel::test
