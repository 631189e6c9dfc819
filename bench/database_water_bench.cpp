// Random waters over the whole database (the sequence of the convergence
// test): each water solved once per round, timed one by one. Reports the
// share that needed the solver's fallback, the median time per water and
// the iterations and time of the slowest water (and of the slowest that
// converged: waters that reach the iteration bound take longest).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <vector>

#include "calc/database_water.h"
#include "calc/real_database.h"
#include "calc/run_calculation.h"

namespace {

using namespace tormel;
using namespace tormel::test;

constexpr int kWaters = 300;

void SolveDatabaseWaters(benchmark::State& state, bool fallback) {
    const ChemicalSystem* database = RealDatabase();
    if (!database) {
        state.SkipWithError("database not loaded");
        return;
    }
    std::mt19937 rng(20261123);
    std::vector<DatabaseWater> waters;
    for (int i = 0; i < kWaters; ++i) waters.push_back(MakeDatabaseWater(rng, *database));
    std::vector<double> seconds;
    int64_t fallbacks = 0, unconverged = 0;
    double slowest = 0, slowestConverged = 0;
    int32_t slowestIterations = 0, slowestConvergedIterations = 0;
    for (auto _ : state) {
        for (const DatabaseWater& water : waters) {
            ChemicalSystem chem;
            InputProblem input;
            state.PauseTiming();  // copying the database is not part of a calculation
            ApplyDatabaseWater(water, *database, 1.000001, chem, input);
            state.ResumeTiming();
            SolverState solver;
            solver.fallbackAllowed = fallback;
            CalcContext ctx{chem, input, solver};
            const auto start = std::chrono::steady_clock::now();
            const CalculationOutcome out = RunCalculation(ctx, false);
            const double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
            seconds.push_back(s);
            if (out.solve.fallbackUsed) ++fallbacks;
            if (!out.solve.converged) ++unconverged;
            if (s > slowest) {
                slowest = s;
                slowestIterations = out.solve.iterations;
            }
            if (out.solve.converged && s > slowestConverged) {
                slowestConverged = s;
                slowestConvergedIterations = out.solve.iterations;
            }
        }
    }
    const double solves = static_cast<double>(std::max<size_t>(seconds.size(), 1));
    std::nth_element(seconds.begin(), seconds.begin() + seconds.size() / 2, seconds.end());
    state.SetItemsProcessed(static_cast<int64_t>(seconds.size()));
    state.counters["fallback_share"] = fallbacks / solves;
    state.counters["unconverged_share"] = unconverged / solves;
    state.counters["median_ms"] = seconds.empty() ? 0 : 1e3 * seconds[seconds.size() / 2];
    state.counters["slowest_ms"] = 1e3 * slowest;
    state.counters["slowest_iterations"] = slowestIterations;
    state.counters["slowest_converged_ms"] = 1e3 * slowestConverged;
    state.counters["slowest_converged_iterations"] = slowestConvergedIterations;
}

const bool kRegistered = [] {
    benchmark::RegisterBenchmark("SolveDatabaseWaters/300", SolveDatabaseWaters, true)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1);
    benchmark::RegisterBenchmark("SolveDatabaseWatersWithoutFallback/300", SolveDatabaseWaters, false)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1);
    return true;
}();

}  // namespace
