// Random natural waters with dissolved organic matter, seeded: every one
// must converge under each model within the solver's iteration bound, at a
// fixed pH and at a proton balance, with Davies and with MSA activities.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>

#include "calc/organic_test_support.h"
#include "support/sanitized_build.h"

namespace tormel::test {

namespace {

// 210 waters in all, about ten seconds; a sanitizer build takes 45
constexpr int kWatersPerModel = kSanitizedBuild ? 15 : 70;

double LogUniform(std::mt19937& rng, double lo, double hi) {
    std::uniform_real_distribution<double> u(std::log10(lo), std::log10(hi));
    return std::pow(10.0, u(rng));
}

// A fresh water: major ions, carbonate, trace metals, 1 to 20 mg C/L.
OrganicWater RandomWater(int32_t model, std::mt19937& rng, bool protonBalance) {
    std::uniform_real_distribution<double> unit(0, 1);
    OrganicWater w(model, LogUniform(rng, 1, 20), 0.3 + 0.6 * unit(rng));
    if (!w.ok) return w;
    w.Set("Ca", InputType::TotalConc, LogUniform(rng, 5e-5, 3e-3));
    w.Set("Mg", InputType::TotalConc, LogUniform(rng, 2e-5, 1e-3));
    w.Set("Na", InputType::TotalConc, LogUniform(rng, 5e-5, 5e-3));
    w.Set("K", InputType::TotalConc, LogUniform(rng, 1e-5, 2e-4));
    const double carbonate = LogUniform(rng, 1e-4, 4e-3);
    w.Set("CO3", InputType::TotalConc, carbonate);
    w.Set("SO4", InputType::TotalConc, LogUniform(rng, 2e-5, 1e-3));
    w.Set("Cl", InputType::TotalConc, LogUniform(rng, 5e-5, 5e-3));
    w.Set("Cu(II)", InputType::TotalConc, LogUniform(rng, 1e-9, 1e-6));
    w.Set("Zn", InputType::TotalConc, LogUniform(rng, 1e-9, 1e-6));
    w.Set("Cd", InputType::TotalConc, LogUniform(rng, 1e-11, 1e-8));
    w.Set("Pb", InputType::TotalConc, LogUniform(rng, 1e-10, 1e-7));
    w.Set("Ni", InputType::TotalConc, LogUniform(rng, 1e-9, 1e-7));
    w.Set("Al", InputType::TotalConc, LogUniform(rng, 1e-8, 1e-6));
    if (protonBalance)
        // between bicarbonate and carbonic acid, as waters in contact with air and soil are
        w.Set("H", InputType::TotalConc, carbonate * (1 + 0.8 * unit(rng)));
    else
        w.FixPh(5 + 4 * unit(rng));
    return w;
}

}  // namespace

TEST(OrganicConvergence, RandomNaturalWaters) {
    for (int32_t model = Model5; model <= Model7; ++model) {
        std::mt19937 rng(20240611u + model);
        int32_t most = 0;
        long total = 0;
        int failures = 0;
        for (int i = 0; i < kWatersPerModel; ++i) {
            const bool protonBalance = i % 2 == 1;
            OrganicWater w = RandomWater(model, rng, protonBalance);
            ASSERT_TRUE(w.ok);
            w.input.ionicStrengthModel = (i / 2) % 2 == 0 ? 1 : 2;  // Davies and MSA in turn
            const CalculationOutcome out = w.Run();
            EXPECT_TRUE(out.solve.converged) << "model " << model << " water " << i
                                             << (protonBalance ? " (proton balance): " : " (fixed pH): ")
                                             << out.solve.message;
            failures += out.solve.converged ? 0 : 1;
            most = std::max(most, out.solve.iterations);
            total += out.solve.iterations;
        }
        // the slowest water of each model takes about 1100 to 1250 iterations; a
        // proton update misled by the other unknowns' moves took up to 3000
        EXPECT_LE(most, 1500) << "model " << model;
        std::printf("model code %d: %d waters, %d not converged, iterations mean %ld, most %d\n", model,
                    kWatersPerModel, failures, total / kWatersPerModel, most);
    }
}

}  // namespace tormel::test
