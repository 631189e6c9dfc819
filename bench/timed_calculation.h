#pragma once
// The timed loop of the calculation benchmarks: one calculation (assembly,
// solve and post-processing) per round, with the solver's iteration count
// and the species count as counters.
#include <benchmark/benchmark.h>

#include "core/chemical_system.h"
#include "input/input_problem.h"

namespace tormel::bench {

// How every round starts like the first calculation of a session: with a new
// solver state, or with one state kept over the rounds whose ionic strength
// is set back to 0.
enum class SolverStart { Fresh, Reset };

// Calculates `chem` with `input` once per round; the benchmark is marked as
// an error when a round does not converge.
void TimeCalculation(benchmark::State& state, ChemicalSystem& chem, InputProblem& input, SolverStart start);

}  // namespace tormel::bench
