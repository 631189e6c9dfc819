#pragma once
// The narrow part of the workspace that the equilibrium calculation works on.
#include <functional>
#include <string>
#include <string_view>

#include "calc/solver_state.h"
#include "core/chemical_system.h"
#include "core/ui_services.h"
#include "input/input_problem.h"

namespace tormel {

// Language text of a section and key. The calculation never reads the
// language file itself; the shell hands it this lookup.
using TextLookup = std::function<std::string(std::string_view section, std::string_view key)>;

struct CalcContext {
    CalcContext(ChemicalSystem& chemicalSystem, InputProblem& inputProblem, SolverState& solverState,
                const UiServices* services = nullptr)
        : chem(chemicalSystem), input(inputProblem), state(solverState), ui(services) {}

    // the assembled layer this calculation builds; its database (chem.db())
    // is read only, possibly shared with other calculations
    ChemicalSystem& chem;
    // Read by the calculation; a neutralisation adjusts the input value of
    // the ion it neutralises with.
    InputProblem& input;
    SolverState& state;
    const UiServices* ui = nullptr;  // progress windows; none in silent runs (messages go back in the results)
    TextLookup text;                 // empty: the key stands in for the text
    // Builds the result tables from the assembled layer after a successful
    // calculation (the result store lives above the calculation).
    std::function<void(CalcContext&)> buildResults;

    std::string Text(std::string_view section, std::string_view key) const {
        return text ? text(section, key) : std::string(key);
    }
};

}  // namespace tormel
