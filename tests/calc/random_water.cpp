#include "random_water.h"

#include <algorithm>
#include <cmath>

#include "component_inputs.h"
#include "core/c_number.h"

namespace tormel::test {

namespace {

struct Candidate {
    const char* name;
    int charge;
    double logLow, logHigh;  // range of log10(total)
};

// Major ions over the range of fresh to brackish waters; trace metals lower.
const Candidate kCations[] = {
    {"Ca", 2, -5, -2},   {"Mg", 2, -5, -2},  {"Na", 1, -5, -1.5}, {"K", 1, -5, -2.5},   {"Sr", 2, -6, -3.5},
    {"Ba", 2, -7, -4},   {"Fe(III)", 3, -7, -4}, {"Al", 3, -7, -4.5}, {"Mn(II)", 2, -7, -4}, {"Zn", 2, -8, -4.5},
    {"Cu(II)", 2, -8, -5}, {"Pb", 2, -9, -5.5}, {"Cd", 2, -9, -6},   {"Ni", 2, -8, -5},
};
const Candidate kLigands[] = {
    {"Cl", -1, -5, -1.5}, {"SO4", -2, -5, -2}, {"CO3", -2, -5, -2}, {"F", -1, -6, -3.5},
    {"PO4", -3, -7, -4},  {"H4SiO4", 0, -6, -3}, {"NO3", -1, -6, -3},
};

// mol/L; see MakeRandomWater
constexpr double kLargestProtonTotal = 2e-3;

template <size_t N>
std::vector<const Candidate*> Pick(std::mt19937& rng, const Candidate (&pool)[N], int count) {
    std::vector<const Candidate*> all;
    for (const Candidate& c : pool) all.push_back(&c);
    std::shuffle(all.begin(), all.end(), rng);
    all.resize(std::min<size_t>(count, N));
    return all;
}

}  // namespace

std::string RandomWater::Describe() const {
    std::string text = protonBalance ? FormatC("proton balance, H total %.4g", hTotal) : FormatC("pH %.4g", ph);
    for (const auto& [name, value] : totals) text += FormatC(", %s %.3g", name.c_str(), value);
    return text;
}

RandomWater MakeRandomWater(std::mt19937& rng) {
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::uniform_int_distribution<int> cationCount(1, 5), ligandCount(1, 4);
    RandomWater water;
    double charge = 0;
    auto add = [&](const Candidate* c) {
        const double value = std::pow(10.0, c->logLow + (c->logHigh - c->logLow) * unit(rng));
        water.totals.emplace_back(c->name, value);
        charge += c->charge * value;
    };
    for (const Candidate* c : Pick(rng, kCations, cationCount(rng))) add(c);
    for (const Candidate* c : Pick(rng, kLigands, ligandCount(rng))) add(c);
    // Acid waters from a proton balance (a large H+ total, nearly all of it
    // bound as H2CO3 or HSO4) are left to the fixed-pH draw: there the
    // solver's charge-balance test can stall before any solid is involved.
    water.protonBalance = unit(rng) < 0.4 && -charge <= kLargestProtonTotal;
    water.ph = 4 + 6 * unit(rng);
    water.hTotal = -charge;  // the given totals carry no net charge
    return water;
}

bool ApplyRandomWater(const RandomWater& water, const ChemicalSystem& database, double criterion,
                      ChemicalSystem& chem, InputProblem& input) {
    if (!SetWaterInputs(database, water.protonBalance ? std::optional<double>() : water.ph, water.hTotal, water.totals,
                        chem, input))
        return false;
    input.ionicStrengthModel = 1;
    input.convergenceCriterion = criterion;
    input.precipitation = true;
    return true;
}

}  // namespace tormel::test
