// Proton binding by fulvic and humic acid under the three models: the charge
// per gram of carbon across pH 3 to 10 in 0.01 and 0.1 mol/L NaNO3, compared
// with the generic NICA-Donnan description of proton binding by Milne,
// Kinniburgh and Tipping (2001), a model fitted to 49 published titrations.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "calc/organic_test_support.h"
#include "core/c_number.h"

namespace tormel::test {

namespace {

// Generic NICA-Donnan proton parameters, Milne C.J., Kinniburgh D.G.,
// Tipping E. (2001) Environ. Sci. Technol. 35, 2049-2059 (abstract: the
// recommended generic values). Charges in eq/kg of humic substance.
struct NicaDonnan {
    double b;
    double q1, logK1, m1;
    double q2, logK2, m2;
};
constexpr NicaDonnan kGenericFulvic{0.57, 5.88, 2.34, 0.38, 1.86, 8.6, 0.53};
constexpr NicaDonnan kGenericHumic{0.49, 3.15, 2.93, 0.50, 2.55, 8.0, 0.26};

// Deprotonated (negative) charge at the H+ concentration inside the Donnan
// phase, eq/kg.
double NicaCharge(const NicaDonnan& p, double hydrogenInDonnan) {
    const double a = std::pow(std::pow(10.0, p.logK1) * hydrogenInDonnan, p.m1);
    const double b = std::pow(std::pow(10.0, p.logK2) * hydrogenInDonnan, p.m2);
    return -(p.q1 / (1 + a) + p.q2 / (1 + b));
}

// Charge per gram of carbon (humic substance taken as 50 % carbon, as our
// parameter files are) at a given pH in a 1:1 salt. The Donnan volume is
// log V_D = b (1 - log I) - 1 (L/kg); the Boltzmann factor chi is found so
// that the counter-ion excess in V_D balances the charge.
double NicaChargePerCarbon(const NicaDonnan& p, double pH, double salt) {
    const double h = std::pow(10.0, -pH);
    const double volume = std::pow(10.0, p.b * (1 - std::log10(salt)) - 1);
    double lo = 0, hi = 30;  // ln chi
    for (int pass = 0; pass < 200; ++pass) {
        const double mid = (lo + hi) / 2;
        const double chi = std::exp(mid);
        const double balance = NicaCharge(p, h * chi) + volume * (salt + h) * (chi - 1 / chi);
        (balance > 0 ? hi : lo) = mid;
    }
    return NicaCharge(p, h * std::exp((lo + hi) / 2)) * 2 / 1000;
}

double ModelCharge(int32_t model, int32_t fraction, double pH, double salt) {
    OrganicWater w(model, 10, fraction == 0 ? 1.0 : 0.0);
    if (!w.ok) return NAN;
    w.FixPh(pH);
    w.Set("Na", InputType::TotalConc, salt);
    w.Set("NO3", InputType::TotalConc, salt);
    const CalculationOutcome out = w.Run();
    EXPECT_TRUE(out.solve.converged) << "model " << model << " pH " << pH << ": " << out.solve.message;
    return w.state.organic.carry[fraction].charge;
}

const char* ModelName(int32_t model) { return model == Model5 ? "Model 5" : (model == Model6 ? "Model 6" : "Model 7"); }

}  // namespace

// Each series (model, fraction, salt) is printed as ours/generic in meq/g C.
// The generic description reproduces individual titrations to about 20 %
// (Milne et al. 2001); two independent fits to such data may differ by
// their sum, so from pH 4 on ours must lie within 25 % or 0.8 meq/g C of it.
// (At pH 3 the charges are small and the models part most; printed only.)
// Largest deviations seen: Model 5 fulvic 0.1 M pH 7, -9.79 against -11.07
// (-12 %); Model 7 fulvic 0.1 M pH 4, -5.27 against -6.60 (-20 %); Model 7
// humic 0.01 M within 2 % at every pH.
TEST(OrganicTitration, ChargeAgainstGenericNicaDonnan) {
    for (int32_t model = Model5; model <= Model7; ++model)
        for (int32_t fraction = 0; fraction < 2; ++fraction) {
            const NicaDonnan& ref = fraction == 0 ? kGenericFulvic : kGenericHumic;
            double lowSalt[11] = {};
            for (double salt : {0.01, 0.1}) {
                std::string line;
                double previous = 0;
                for (int ph = 3; ph <= 10; ++ph) {
                    const double ours = ModelCharge(model, fraction, ph, salt);
                    const double theirs = NicaChargePerCarbon(ref, ph, salt);
                    line += FormatC(" pH%d %.2f/%.2f", ph, ours * 1000, theirs * 1000);
                    const std::string where = std::string(ModelName(model)) + (fraction == 0 ? " FA" : " HA") +
                                              " salt " + std::to_string(salt) + " pH " + std::to_string(ph);
                    if (ph >= 4) {
                        EXPECT_NEAR(ours, theirs, std::max(0.25 * std::fabs(theirs), 0.8e-3)) << where;
                    }
                    // more negative as the pH rises ...
                    if (ph > 3) { EXPECT_LT(ours, previous) << where; }
                    previous = ours;
                    // ... and as the ionic strength rises
                    if (salt == 0.01)
                        lowSalt[ph] = ours;
                    else
                        EXPECT_LT(ours, lowSalt[ph]) << where;
                }
                std::printf("%s %s %.2f M, meq/g C ours/generic:%s\n", ModelName(model), fraction == 0 ? "FA" : "HA",
                            salt, line.c_str());
            }
        }
}

}  // namespace tormel::test
