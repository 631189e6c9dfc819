#include "timed_calculation.h"

#include "calc/run_calculation.h"

namespace tormel::bench {

void TimeCalculation(benchmark::State& state, ChemicalSystem& chem, InputProblem& input, SolverStart start) {
    SolverState kept;
    int32_t iterations = 0;
    bool converged = true;
    auto calculate = [&](SolverState& solver) {
        CalcContext ctx{chem, input, solver};
        const CalculationOutcome out = RunCalculation(ctx, false);
        iterations = out.solve.iterations;
        converged = converged && out.solve.converged;
        benchmark::DoNotOptimize(chem.species.data());
    };
    for (auto _ : state) {
        if (start == SolverStart::Fresh) {
            SolverState solver;
            calculate(solver);
        } else {
            kept.ionicStrength = 0;
            calculate(kept);
        }
    }
    state.counters["solver_iterations"] = iterations;
    state.counters["species"] = static_cast<double>(chem.species.size());
    if (!converged) state.SkipWithError("not converged");
}

}  // namespace tormel::bench
