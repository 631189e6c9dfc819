// Redox couples away from 25 degrees C: with the temperature correction on,
// the ratio of two members of a redox group follows the couple's log K
// shifted by its van 't Hoff term, whichever way the assembly reaches the
// partner (from a group's head, along a chain of couples, or from a gas
// ligand) and in whichever direction it uses the couple.
#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>

#include "calc/result_water.h"
#include "calc/solution_checks.h"
#include "calc/run_calculation.h"
#include "support/edit_database.h"

namespace tormel::test {

namespace {

constexpr double kLaw = 1e-6;
constexpr double kTemperatures[] = {10, 25, 35};

// van 't Hoff shift of log K from 25 degrees C, written out here.
double VantHoff(double celsius, double enthalpy) {
    return enthalpy / (8.3144598 * std::log(10.0)) * (1 / 298.15 - 1 / (celsius + 273.15));
}

// A couple B + h H+ + n e- = A, log K and enthalpy from the source data
// (minteq.v4.dat): log a(A) - log a(B) = log K(T) + h log a(H+) - n pE.
struct Couple {
    const char* a;
    const char* b;
    double logK;
    double enthalpy;  // J/mol
    int h, n;
};

void ExpectCoupleRatio(const ResultWater& w, const Couple& c, double pe, double celsius) {
    const double expected = c.logK + VantHoff(celsius, c.enthalpy) + c.h * w.LogActivity("free H +") - c.n * pe;
    EXPECT_NEAR(w.LogActivity(c.a) - w.LogActivity(c.b), expected, kLaw) << c.a << " / " << c.b << " at " << celsius;
}

// Calculates the water that `setInputs` gives at each temperature, with the
// correction always on, and checks the couples; no message may appear.
template <class Inputs>
void ExpectCouplesAtEachTemperature(Inputs setInputs, double pe, std::initializer_list<Couple> couples) {
    for (const double t : kTemperatures) {
        ResultWater w(0.01);
        w.ws.input.temperature = t;
        w.ws.input.temperatureCorrection = 2;
        setInputs(w);
        w.SetPe(pe);
        ASSERT_TRUE(w.Calculate()) << t;
        for (const Couple& c : couples) ExpectCoupleRatio(w, c, pe, t);
        EXPECT_TRUE(w.ui.messages.empty()) << w.ui.messages.front().caption;
    }
}

}  // namespace

TEST(RedoxTemperature, IronAtFixedPe) {
    // Fe+3 + e- = Fe+2, log_k 13.032, delta_h -42.7 kJ; Fe(III) heads the group
    ExpectCouplesAtEachTemperature(
        [](ResultWater& w) {
            w.Set("H", InputType::FreeAct, 1e-3);
            w.Set("Fe(III)", InputType::TotalConc, 1e-5);
        },
        13, {{"free Fe(II) 2+", "free Fe(III) 3+", 13.032, -42700, 0, 1}});
}

TEST(RedoxTemperature, NitrogenGroupGivenByTheAmmoniumTotal) {
    // NO3- + 10 H+ + 8 e- = NH4+ + 3 H2O, log_k 119.077, delta_h -187.055 kcal:
    // NH4 heads the group, so NO3 is reached by using the couple backwards;
    // NO3- + 2 H+ + 2 e- = NO2- + H2O, log_k 28.57, delta_h -43.76 kcal: NO2
    // is reached from the NO3 partner, forwards.
    ExpectCouplesAtEachTemperature(
        [](ResultWater& w) {
            w.Set("H", InputType::FreeAct, 1e-7);
            w.Set("NH4", InputType::TotalConc, 1e-4);
        },
        6,
        {{"free NH4 +", "free NO3 -", 119.077, -782638.12, 10, 8},
         {"free NO2 -", "free NO3 -", 28.57, -183091.84, 2, 2}});
}

TEST(RedoxTemperature, PartnersOfTheHydrogenSelenideGas) {
    // HSe is the ligand of H2Se(g) (H2Se = HSe- + H+, delta_h -15.3 kJ), so its
    // partners are reached before any group, each couple used backwards:
    // HSeO3- + 6 H+ + 6 e- = HSe- + 3 H2O, log_k 44.86, delta_h 0, and
    // SeO4-2 + 3 H+ + 2 e- = HSeO3- + H2O, log_k 36.308, delta_h -201.2 kJ.
    ExpectCouplesAtEachTemperature(
        [](ResultWater& w) {
            w.Set("H", InputType::FreeAct, 1e-7);
            w.Set("H2Se(g)", InputType::GasPres, 1e-6);
        },
        0.5,
        {{"free HSe -", "free HSeO3 -", 44.86, 0, 6, 6}, {"free HSeO3 -", "free SeO4 2-", 36.308, -201200, 3, 2}});
}

// Mode 1 corrects only when every species has its enthalpy: a redox partner
// counts like any other species, and a complex formed through the partner
// carries the couple's term.
TEST(RedoxTemperature, ModeOneCountsThePartners) {
    for (const bool coupleEnthalpy : {false, true}) {
        CalcFixture f;
        Equilibrium& couple = test::EditDatabase(f.chem).equilibria[kFeRedox];
        couple.hasEnthalpy = coupleEnthalpy;
        couple.enthalpy = coupleEnthalpy ? 42700 : 0;
        f.input.redox = true;
        f.input.temperature = 10;
        f.input.temperatureCorrection = 1;
        f.input.ionicStrengthFixed = true;
        f.input.fixedIonicStrength = 0.01;
        f.Set(kH, InputType::FreeAct, 1e-3);
        f.SetTotals({{kFe3, 1e-4}, {kCl, 1e-3}});
        f.Set(kElectron, InputType::FreeAct, 1e-13);
        CalcContext ctx = f.Context();
        ASSERT_TRUE(RunCalculation(ctx, false).solve.converged);
        EXPECT_EQ(f.chem.temperatureCorrectionApplied, coupleEnthalpy);
        if (!coupleEnthalpy) continue;
        // Fe+2 - e- = Fe+3, log K -13.02, and Fe+3 + Cl- = FeCl+2, log K 1.48, 23 kJ
        EXPECT_NEAR(LogAct(f, "free Fe(III)") - LogAct(f, "free Fe(II)"), -13.02 + VantHoff(10, 42700) + 13, kLaw);
        EXPECT_NEAR(LogAct(f, "FeCl+2") - LogAct(f, "free Fe(III)") - LogAct(f, "free Cl"),
                    1.48 + VantHoff(10, 23000), kLaw);
    }
}

}  // namespace tormel::test
