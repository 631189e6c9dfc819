// Precipitation over many waters: the reference waters with precipitation
// switched on, and a few hundred random waters. Whatever solids form, the
// solution must end with every mass balance closed, every present solid
// saturated and no absent solid oversaturated, within the iteration bound.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <random>

#include "calc/json_reader.h"
#include "calc/precipitation_invariants.h"
#include "calc/random_water.h"
#include "calc/real_database.h"
#include "calc/reference_case.h"
#include "calc/run_calculation.h"

namespace tormel::test {

namespace {

constexpr double kCriterion = 1.000001;
// A converged solve balances within the criterion when the species are
// formed; the last update still moves the solid amounts by up to that much.
constexpr double kBalanceTolerance = 3 * (kCriterion - 1);

// Solves and checks one system; returns a description of what failed, empty when all holds.
std::string SolveAndCheck(ChemicalSystem& chem, InputProblem& input, int32_t& iterations, size_t& solids) {
    SolverState state;
    CalcContext ctx{chem, input, state};
    const CalculationOutcome out = RunCalculation(ctx, false);
    iterations = out.solve.iterations;
    if (!out.assembled) return "assembly refused";
    if (!out.solve.converged) return "not converged: " + out.solve.message;
    const PrecipitationInvariants inv = CheckPrecipitation(chem, state, input);
    solids = inv.present.size();
    const double slack = SaturationSlack(kCriterion);
    std::string problems;
    if (!inv.complete) problems += " a saturation index could not be formed;";
    if (inv.worstBalance > kBalanceTolerance)
        problems += " balance of " + inv.worstBalanceName + " off by " + std::to_string(inv.worstBalance) + ";";
    if (inv.worstPresentSi > slack)
        problems += " present " + inv.worstPresentName + " SI " + std::to_string(inv.worstPresentSi) + ";";
    if (inv.worstAbsentSi > slack)
        problems += " absent " + inv.worstAbsentName + " SI " + std::to_string(inv.worstAbsentSi) + ";";
    return problems;
}

}  // namespace

TEST(PrecipitationWaters, ReferenceWatersWithPrecipitationOn) {
    const ChemicalSystem* database = RealDatabase();
    ASSERT_NE(database, nullptr);
    const std::vector<std::string> files = ReferenceCaseFiles();
    ASSERT_FALSE(files.empty());
    size_t withSolids = 0;
    for (const std::string& file : files) {
        const auto reference = ReadJsonFile(file);
        ASSERT_TRUE(reference.has_value()) << file;
        ChemicalSystem chem;
        InputProblem input;
        ASSERT_TRUE(PrepareReferenceCase(*reference, *database, kCriterion, chem, input)) << file;
        input.precipitation = true;
        int32_t iterations = 0;
        size_t solids = 0;
        const std::string problems = SolveAndCheck(chem, input, iterations, solids);
        EXPECT_TRUE(problems.empty()) << reference->TextOr("id", file) << ":" << problems;
        std::printf("[precipitation] %-24s iterations %5d  solids present %zu\n", reference->TextOr("id", "?").c_str(),
                    iterations, solids);
        if (solids > 0) ++withSolids;
    }
    // several of the waters are oversaturated with some solid: the check must see solids form
    EXPECT_GE(withSolids, 3u);
}

TEST(PrecipitationWaters, RandomWatersEndSaturatedAndBalanced) {
    const ChemicalSystem* database = RealDatabase();
    ASSERT_NE(database, nullptr);
    std::mt19937 rng(20240611);
    constexpr int kWaters = 300;
    int withSolids = 0, failures = 0;
    int32_t mostIterations = 0;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kWaters; ++i) {
        const RandomWater water = MakeRandomWater(rng);
        ChemicalSystem chem;
        InputProblem input;
        ASSERT_TRUE(ApplyRandomWater(water, *database, kCriterion, chem, input)) << water.Describe();
        int32_t iterations = 0;
        size_t solids = 0;
        const std::string problems = SolveAndCheck(chem, input, iterations, solids);
        mostIterations = std::max(mostIterations, iterations);
        if (!problems.empty()) ++failures;
        EXPECT_TRUE(problems.empty()) << "water " << i << " (" << water.Describe() << "):" << problems;
        if (solids > 0) ++withSolids;
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("[precipitation] %d random waters, %d with solids, %d failing, most iterations %d, %.2f s\n", kWaters,
                withSolids, failures, mostIterations, seconds);
    EXPECT_GE(withSolids, kWaters / 5);
}

}  // namespace tormel::test
