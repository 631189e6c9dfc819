// Mean activity coefficients of simple salts from the MSA model with the
// database's ion diameters, against the measured tables the diameters were
// fitted to (tools/msafit/measured_mean_activity_coefficients.tsv, with its
// sources). Every salt is solved with the whole database, ion pairs
// included, and compared on the molarity scale.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <iterator>

#include "calc/real_database.h"
#include "calc/run_calculation.h"
#include "measured_table.h"
#include "salt_deviation.h"

namespace tormel::test {

namespace {

// Largest deviation allowed up to 1 mol/kg, per salt: what the fitted
// diameters reach, rounded up. 2 % is out of reach for the rest:
// - 2:1 chlorides: even with both diameters free for the one salt the best
//   is 3.1 % (CaCl2, BaCl2) and 3.5 % (MgCl2); the model lies low near
//   0.3 mol/kg and high at 1 mol/kg whatever the sizes.
// - KNO3: K+ holds its halide diameter, and NO3- would need under 0.5
//   Angstrom; it stays at the 2 Angstrom floor (the database has no KNO3
//   pair).
// - Sulfates: alone each fits within 1 % with Na+ 4.4 and K+ 4.2 Angstrom;
//   with the halide diameters the sized pair KSO4- brings both to 3.9 %.
// - CoCl2, Cd(NO3)2: the database's pairs (CoCl+; CdNO3+, Cd(NO3)2) pull
//   the salt down at 1 mol/kg more steeply than the measured values fall.
struct SaltBound {
    const char* formula;
    double bound;
};

constexpr SaltBound kBounds[] = {
    {"NaCl", 0.02},   {"KCl", 0.02},    {"LiCl", 0.02},   {"HCl", 0.02},     {"NaBr", 0.02},
    {"KNO3", 0.19},   {"CaCl2", 0.033}, {"MgCl2", 0.036}, {"BaCl2", 0.035},  {"Na2SO4", 0.04},
    {"K2SO4", 0.04},  {"CoCl2", 0.056}, {"Cd(NO3)2", 0.03},
};

}  // namespace

TEST(CalcMsa, MeanActivityCoefficientsOfSimpleSalts) {
    const ChemicalSystem* database = RealDatabase();
    ASSERT_NE(database, nullptr);
    std::string error;
    const auto salts = msafit::ReadMeasuredSalts(
        std::string(TORMEL_SOURCE_DIR) + "/tools/msafit/measured_mean_activity_coefficients.tsv", error);
    ASSERT_TRUE(salts.has_value()) << error;
    size_t asserted = 0;
    // every salt printed to the end of its table, the listed ones asserted up
    // to 1 mol/kg
    for (const msafit::MeasuredSalt& salt : *salts) {
        const SaltBound* expected = nullptr;
        for (const SaltBound& b : kBounds)
            if (salt.formula == b.formula) expected = &b;
        asserted += expected != nullptr;
        const std::vector<double> deviations =
            msafit::SaltDeviations(database->db(), salt, salt.points.back().molality);
        std::printf("[msa] %-8s", salt.formula.c_str());
        for (size_t i = 0; i < deviations.size(); ++i) {
            const double m = salt.points[i].molality;
            std::printf(" %g:%+.1f%%", m, 100 * deviations[i]);
            if (expected && m <= 1.0) {
                EXPECT_LE(std::fabs(deviations[i]), expected->bound) << salt.formula << " at " << m << " mol/kg";
            }
        }
        std::printf("\n");
    }
    EXPECT_EQ(asserted, std::size(kBounds)) << "a bounded salt is missing from the measured table";
}

TEST(CalcMsa, MeasuredTableRejectsMalformedLines) {
    const std::string path = ::testing::TempDir() + "msa_measured.tsv";
    const char* const bad[] = {
        "NaCl\tNa\tCl\t18.6\t7\tboth\tRS59",                       // no points
        "NaCl\tNa\tCl\t18.6\t7\tboth\tRS59\t0.1:0.778 0.1:0.735",  // molality not rising
        "NaCl\tNa\tCl\tx\t7\tboth\tRS59\t0.1:0.778",               // volume not a number
        "NaCl\tNa\tCl\t18.6\t7\tboth\tRS59\t0.1=0.778",            // pair without colon
        "NaCl\tNa\tCl\t18.6\t7\tsalt\tRS59\t0.1:0.778",            // unknown fit choice
        "NaCl\tNa\tCl\t18.6\t7\tRS59\t0.1:0.778",                  // fit choice missing
        "NaCl\tNa\tCl\t18.6\t7\tboth,salt\tRS59\t0.1:0.778",        // unknown addition to the choice
    };
    for (const char* line : bad) {
        FILE* f = std::fopen(path.c_str(), "w");
        ASSERT_NE(f, nullptr);
        std::fprintf(f, "# comment\n%s\n", line);
        std::fclose(f);
        std::string error;
        EXPECT_FALSE(msafit::ReadMeasuredSalts(path, error).has_value()) << line;
        EXPECT_NE(error.find(":2:"), std::string::npos) << error;
    }
    FILE* f = std::fopen(path.c_str(), "w");
    ASSERT_NE(f, nullptr);
    std::fprintf(f, "CoCl2\tCo(II)\tCl\t14\t7\tcation,pair\tCRC92\t0.1:0.528 1.0:0.532\n");
    std::fclose(f);
    std::string error;
    const auto good = msafit::ReadMeasuredSalts(path, error);
    ASSERT_TRUE(good.has_value()) << error;
    ASSERT_EQ(good->size(), 1u);
    EXPECT_TRUE((*good)[0].fitsCation);
    EXPECT_FALSE((*good)[0].fitsAnion);
    EXPECT_TRUE((*good)[0].fitsPair);
    EXPECT_EQ(msafit::PairName((*good)[0]), "CoCl");  // the complex CoCl+ of the database
    EXPECT_EQ((*good)[0].points.size(), 2u);
}

}  // namespace tormel::test

#include "calc/calc_fixture.h"

namespace tormel::test {

TEST(CalcMsa, UnsizedComplexKeepsDaviesConstantAndSaltsAreNamed) {
    CalcFixture f;
    f.input.ionicStrengthModel = 2;
    f.Set(kH, InputType::FreeAct, 1e-7);
    f.SetTotals({{kNa, 0.05}, {kCa, 0.02}, {kCl, 0.09}});
    CalcContext ctx = f.Context();
    const CalculationOutcome out = RunCalculation(ctx, false);
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    EXPECT_FALSE(f.state.gammaIterationCapped);
    // the complexes have no size: Davies constants
    const Species& nacl = f.chem.species[f.SpeciesIndex("NaCl")];
    EXPECT_NEAR(nacl.workingLogK, nacl.logK + f.state.logGamma1 * nacl.deltaZ2, 1e-12);
    // sized free ions carry MSA coefficients below 1 at this strength
    const Species& na = f.chem.species[f.SpeciesIndex("free Na")];
    EXPECT_GT(na.gamma, 0.5);
    EXPECT_LT(na.gamma, 1.0);
    EXPECT_NEAR(na.lnGamma, na.lnGammaHS + na.lnGammaEl, 1e-15);
    EXPECT_GT(na.lnGammaHS, 0);  // packing raises the coefficient
    std::vector<std::string> formulas;
    for (const SaltRecord& r : f.state.saltRecords) formulas.push_back(r.formula);
    // H, Na, Ca are sized cations, Cl the sized ligand (CO3 is not in the input)
    EXPECT_EQ(formulas, (std::vector<std::string>{"HCl", "NaCl", "CaCl2"}));
}

}  // namespace tormel::test
