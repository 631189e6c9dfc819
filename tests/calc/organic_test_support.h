#pragma once
// A water with dissolved organic matter on the real database: components set
// by name, one calculation, and sums over the organic species read straight
// from the species (independently of the solver's own sums).
#include <cmath>
#include <initializer_list>
#include <string>
#include <utility>

#include "calc/calc_context.h"
#include "calc/run_calculation.h"
#include "core/chemical_system.h"
#include "input/input_problem.h"

namespace tormel::test {

struct OrganicWater {
    // false (and the test failed) when the database could not be loaded
    bool ok = false;
    ChemicalSystem chem;
    InputProblem input;
    SolverState state;

    // model 2, 3 or 4; DOC in mg C/L; fulvic fraction 0..1
    OrganicWater(int32_t model, double doc, double fulvic);

    // Sets a component's input by name; fails the test for an unknown name.
    void Set(const std::string& component, InputType type, double value);
    // Gives each listed component its total concentration.
    void SetTotals(std::initializer_list<std::pair<const char*, double>> totals) {
        for (auto [component, total] : totals) Set(component, InputType::TotalConc, total);
    }
    void FixPh(double pH) { Set("H", InputType::FreeAct, std::pow(10.0, -pH)); }
    CalculationOutcome Run();

    int32_t SystemIndexOf(const std::string& component) const;
    int32_t SpeciesIndex(const std::string& name) const;
    // Sum of nu c over the species of the organic metal kinds (or all organic
    // kinds) that hold the component.
    double MetalBound(const std::string& component) const;
    // Fraction of the component's given total that is bound to the organic
    // matter as metal species or held in the diffuse layers.
    double BoundFraction(const std::string& component) const;
};

}  // namespace tormel::test
