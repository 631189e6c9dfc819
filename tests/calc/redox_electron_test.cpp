// The electron in mass-action laws: the pE fixes the electron's activity
// 10^-pE, so every equilibrium that holds the electron (complexes, redox
// couples, solids, also those formed through a redox partner) must agree with
// its law written in activities, as the user checks it from the result
// tables. At an ionic strength of 0.05 an electron counted as a free
// concentration instead would be off by log gamma1 = -0.085 per electron.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "calc/result_water.h"

namespace tormel::test {

namespace {

constexpr double kPe = 4;
constexpr double kLaw = 1e-6;

struct Term {
    const char* species;  // as in the species table; "e" is the electron
    int coefficient;
};

// A law of the form log a(formed) (or SI for a solid) = log K + sum nu log a.
struct Law {
    const char* formed;
    bool solid;
    double logK;  // formation, from the source data (minteq.v4.dat)
    std::vector<Term> terms;
};

const std::vector<Law> kLaws = {
    // 2 H+ + 2 e- = H2, log_k -3.15
    {"H2 (aq)", false, -3.15, {{"free H +", 2}, {"e", 2}}},
    // 2 H2O = O2 + 4 H+ + 4 e-, log_k -85.9951
    {"O2 (aq)", false, -85.9951, {{"free H +", -4}, {"e", -4}}},
    // Mn+3 + e- = Mn+2, log_k 25.35: Mn(II) is the partner of the group's head Mn(III)
    {"free Mn(II) 2+", false, 25.35, {{"free Mn(III) 3+", 1}, {"e", 1}}},
    // Ag = Ag+ + e-, log_k -13.5065
    {"Agmetal", true, 13.5065, {{"free Ag +", 1}, {"e", 1}}},
    // MnOOH + 3 H+ + e- = Mn+2 + 2 H2O, log_k 25.34
    {"Manganite", true, -25.34, {{"free Mn(II) 2+", 1}, {"free H +", -3}, {"e", -1}}},
    // MnO2 + 4 H+ + 2 e- = Mn+2 + 2 H2O, log_k 41.38
    {"Pyrolusite", true, -41.38, {{"free Mn(II) 2+", 1}, {"free H +", -4}, {"e", -2}}},
    // AgCl = Ag+ + Cl-, log_k -9.75: no electron, the control
    {"Cerargyrite", true, 9.75, {{"free Ag +", 1}, {"free Cl -", 1}}},
};

double HandValue(const ResultWater& w, const Law& law) {
    double value = law.logK;
    for (const Term& t : law.terms)
        value += t.coefficient * (std::string(t.species) == "e" ? -kPe : w.LogActivity(t.species));
    return value;
}

// Silver and manganese at pH 7 and a fixed pE, ionic strength 0.05.
void SetSilverManganeseWater(ResultWater& w) {
    w.Set("H", InputType::FreeAct, 1e-7);
    w.Set("Ag", InputType::TotalConc, 1e-6);
    w.Set("Cl", InputType::TotalConc, 1e-4);
    w.Set("Mn(II)", InputType::TotalConc, 1e-6);
    w.SetPe(kPe);
}

}  // namespace

TEST(RedoxElectron, SaturationIndexesAndLawsUseTheElectronActivity) {
    ResultWater w(0.05);
    SetSilverManganeseWater(w);
    ASSERT_TRUE(w.Calculate());
    for (const Law& law : kLaws) {
        const double reported = law.solid ? w.SaturationIndex(law.formed) : w.LogActivity(law.formed);
        EXPECT_NEAR(reported, HandValue(w, law), kLaw) << law.formed;
    }
}

TEST(RedoxElectron, SolidsInThePrecipitationRunUseTheElectronActivity) {
    ResultWater w(0.05);
    SetSilverManganeseWater(w);
    w.ws.input.precipitation = true;
    ASSERT_TRUE(w.Calculate());
    for (const Law& law : kLaws) {
        if (!law.solid) continue;
        const SpeciesResult* solid = w.Species(law.formed);
        ASSERT_NE(solid, nullptr) << law.formed;
        EXPECT_NEAR(solid->saturationValue, HandValue(w, law), kLaw) << law.formed;
    }
    // at pE 4 metallic silver forms and ends saturated
    const SpeciesResult* silver = w.Species("Agmetal");
    EXPECT_GT(silver->concentration, 0);
    for (const Law& law : kLaws)
        if (std::string(law.formed) == "Agmetal") {
            EXPECT_NEAR(HandValue(w, law), 0, 1e-3);
        }
}

}  // namespace tormel::test
