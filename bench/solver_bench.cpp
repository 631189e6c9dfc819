// Time per calculation (assembly, solve and post-processing) of each
// reference water, with the solver's iteration count as a counter.
//
// The case reader and the database loader are the test harness's own; they
// are compiled into this program from tests/calc so that both read the cases
// the same way.
#ifndef TORMEL_TEST_DATA
#define TORMEL_TEST_DATA TORMEL_SOURCE_DIR "/tests/data"
#endif
#include "../tests/calc/json_reader.cpp"
#include "../tests/calc/real_database.cpp"
#include "../tests/calc/reference_case.cpp"

#include <benchmark/benchmark.h>

#include <filesystem>

#include "calc/run_calculation.h"

namespace {

using namespace tormel;
using namespace tormel::test;

void SolveCase(benchmark::State& state, JsonValue reference) {
    const ChemicalSystem* database = RealDatabase();
    if (!database) {
        state.SkipWithError("database not loaded");
        return;
    }
    ChemicalSystem chem;
    InputProblem input;
    if (!PrepareReferenceCase(reference, *database, 1.000001, chem, input)) {
        state.SkipWithError("case names not in the database");
        return;
    }
    SolverState solver;
    int32_t iterations = 0;
    bool converged = true;
    for (auto _ : state) {
        solver.ionicStrength = 0;  // every run starts like the first calculation of a session
        CalcContext ctx{chem, input, solver};
        const CalculationOutcome out = RunCalculation(ctx, false);
        iterations = out.solve.iterations;
        converged = converged && out.solve.converged;
        benchmark::DoNotOptimize(chem.species.data());
    }
    state.counters["solver_iterations"] = iterations;
    state.counters["species"] = static_cast<double>(chem.species.size());
    if (!converged) state.SkipWithError("not converged");
}

// One benchmark per case file.
const bool kRegistered = [] {
    for (const std::string& file : ReferenceCaseFiles()) {
        auto reference = ReadJsonFile(file);
        if (!reference) continue;
        const std::string name = "Solve/" + std::filesystem::path(file).stem().string();
        benchmark::RegisterBenchmark(name.c_str(), SolveCase, *reference)->Unit(benchmark::kMicrosecond);
    }
    return true;
}();

}  // namespace
