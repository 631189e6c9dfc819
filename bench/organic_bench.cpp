// Time per calculation (assembly, solve and post-processing) of a natural
// water with ten metals and dissolved organic matter under Models 5, 6 and
// 7, at a fixed pH and at a proton balance, with the solver's iteration
// count and the species count as counters.
//
// The database loader is the test harness's own; solver_bench.cpp compiles
// it into this program.
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

#include "calc/real_database.h"
#include "timed_calculation.h"

namespace {

using namespace tormel;

void Set(const ChemicalSystem& chem, InputProblem& input, const char* name, InputType type, double value) {
    const int32_t c = chem.db().FindComponent(name);
    if (c < 0) return;
    input.components[c] = {value, type};
}

// Ca, Mg, Na, K, Cu, Zn, Cd, Pb, Ni and Al with chloride, sulphate and
// carbonate; 5 mg C/L, 70 % fulvic acid.
void NaturalWater(ChemicalSystem& chem, InputProblem& input, int32_t model, bool protonBalance) {
    input.components.assign(chem.db().components.size(), ComponentInput{});
    input.ionicStrengthModel = 1;
    input.convergenceCriterion = 1.000001;
    input.organicComplexation = true;
    input.organicModel = model;
    input.docConcentration = 5;
    input.fulvicFraction = 0.7;
    if (protonBalance)
        Set(chem, input, "H", InputType::TotalConc, 1.3e-3);
    else
        Set(chem, input, "H", InputType::FreeAct, 1e-7);
    Set(chem, input, "Ca", InputType::TotalConc, 5e-4);
    Set(chem, input, "Mg", InputType::TotalConc, 2e-4);
    Set(chem, input, "Na", InputType::TotalConc, 5e-4);
    Set(chem, input, "K", InputType::TotalConc, 5e-5);
    Set(chem, input, "Cu(II)", InputType::TotalConc, 5e-8);
    Set(chem, input, "Zn", InputType::TotalConc, 2e-7);
    Set(chem, input, "Cd", InputType::TotalConc, 1e-9);
    Set(chem, input, "Pb", InputType::TotalConc, 5e-9);
    Set(chem, input, "Ni", InputType::TotalConc, 3e-8);
    Set(chem, input, "Al", InputType::TotalConc, 2e-7);
    Set(chem, input, "Cl", InputType::TotalConc, 5e-4);
    Set(chem, input, "SO4", InputType::TotalConc, 2e-4);
    Set(chem, input, "CO3", InputType::TotalConc, 1e-3);
}

void SolveOrganicWater(benchmark::State& state, int32_t model, bool protonBalance) {
    const ChemicalSystem* database = test::RealDatabase();
    if (!database) {
        state.SkipWithError("database not loaded");
        return;
    }
    ChemicalSystem chem = *database;
    InputProblem input;
    NaturalWater(chem, input, model, protonBalance);
    bench::TimeCalculation(state, chem, input, bench::SolverStart::Fresh);
    state.counters["unknowns"] = static_cast<double>(chem.systemComponents.size());
}

const bool kRegistered = [] {
    const char* names[] = {"Model5", "Model6", "Model7"};
    for (int32_t model = Model5; model <= Model7; ++model)
        for (bool protonBalance : {false, true}) {
            const std::string name = std::string("Organic/") + names[model - Model5] +
                                     (protonBalance ? "/proton_balance" : "/pH7");
            benchmark::RegisterBenchmark(name.c_str(), SolveOrganicWater, model, protonBalance)
                ->Unit(benchmark::kMillisecond);
        }
    return true;
}();

}  // namespace
