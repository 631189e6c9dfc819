// Time per calculation (assembly, solve and post-processing) of each
// reference water, with the solver's iteration count as a counter; then the
// same waters with precipitation switched on (any solid of the database may
// form), and a fixed set of random waters with precipitation.
//
// The case reader and the database loader come from the test-support
// library, so that the tests and this program read the cases the same way.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <vector>

#include "calc/random_water.h"
#include "calc/real_database.h"
#include "calc/reference_case.h"
#include "calc/run_calculation.h"
#include "timed_calculation.h"

namespace {

using namespace tormel;
using namespace tormel::test;

void SolveCase(benchmark::State& state, JsonValue reference, bool precipitation) {
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
    input.precipitation = input.precipitation || precipitation;
    bench::TimeCalculation(state, chem, input, bench::SolverStart::Reset);
}

// A fixed set of random waters (the sequence of the precipitation tests),
// each solved once per round: time and iterations per solve.
void SolveRandomWaters(benchmark::State& state) {
    const ChemicalSystem* database = RealDatabase();
    if (!database) {
        state.SkipWithError("database not loaded");
        return;
    }
    constexpr int kWaters = 100;
    std::mt19937 rng(20240611);
    std::vector<RandomWater> waters;
    for (int i = 0; i < kWaters; ++i) waters.push_back(MakeRandomWater(rng));
    int64_t iterations = 0, solves = 0, unconverged = 0, withSolids = 0;
    for (auto _ : state) {
        for (const RandomWater& water : waters) {
            ChemicalSystem chem;
            InputProblem input;
            state.PauseTiming();  // copying the database is not part of a calculation
            ApplyRandomWater(water, *database, 1.000001, chem, input);
            state.ResumeTiming();
            SolverState solver;
            CalcContext ctx{chem, input, solver};
            const CalculationOutcome out = RunCalculation(ctx, false);
            iterations += out.solve.iterations;
            ++solves;
            if (!out.solve.converged) ++unconverged;
            if (solver.newton.m > 0) ++withSolids;
        }
    }
    state.SetItemsProcessed(solves);
    state.counters["iterations_per_solve"] = static_cast<double>(iterations) / std::max<int64_t>(solves, 1);
    state.counters["with_solids"] = static_cast<double>(withSolids) / std::max<int64_t>(solves, 1);
    if (unconverged > 0) state.SkipWithError("a random water did not converge");
}

// One benchmark per case file, without and with precipitation, and the random waters.
const bool kRegistered = [] {
    for (const std::string& file : ReferenceCaseFiles()) {
        auto reference = ReadJsonFile(file);
        if (!reference) continue;
        const std::string stem = std::filesystem::path(file).stem().string();
        benchmark::RegisterBenchmark(("Solve/" + stem).c_str(), SolveCase, *reference, false)
            ->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark(("SolvePrecipitation/" + stem).c_str(), SolveCase, *reference, true)
            ->Unit(benchmark::kMicrosecond);
    }
    benchmark::RegisterBenchmark("SolveRandomWatersWithPrecipitation/100", SolveRandomWaters)
        ->Unit(benchmark::kMillisecond);
    return true;
}();

}  // namespace
