#include "database_water.h"

#include <algorithm>
#include <cmath>

#include "component_inputs.h"
#include "core/c_number.h"

namespace tormel::test {

namespace {

// Components common in natural waters get totals up to brackish levels;
// everything else stays at trace levels.
bool IsMajor(const std::string& name) {
    static const char* const kMajors[] = {"Ca", "Mg", "Na", "K", "Cl", "SO4", "CO3", "NO3", "H4SiO4"};
    for (const char* major : kMajors)
        if (name == major) return true;
    return false;
}

// First member of the redox group a component belongs to (itself when none).
int32_t GroupHead(const ChemicalSystem& chem, int32_t k) {
    while (chem.db().components[k].redoxPrev > 0) k = chem.db().components[k].redoxPrev;
    return k;
}

std::vector<int32_t> Candidates(const ChemicalSystem& chem) {
    std::vector<int32_t> list;
    for (int32_t k = 0; k < static_cast<int32_t>(chem.db().components.size()); ++k) {
        const Component& c = chem.db().components[k];
        if (k == chem.db().hydrogenIndex || k == chem.db().hydroxideIndex) continue;
        if (c.type == ComponentType::Cation || c.type == ComponentType::Ligand) list.push_back(k);
    }
    return list;
}

}  // namespace

std::string DatabaseWater::Describe() const {
    std::string out = FormatC("%s %.4g, %s, %.1f C%s%s%s", protonBalance ? "proton balance, H total" : "pH",
                              protonBalance ? hTotal : ph, activityModel == kMsaModel ? "MSA" : "Davies", temperature,
                              precipitation ? ", precipitation" : "", adsorption ? ", Hfo" : "", redox ? ", redox pe " : "");
    if (redox) out += FormatC("%.3g", pe);
    if (organicModel != 0) out += FormatC(", Model %d DOC %.3g fulvic %.2f", organicModel + 3, doc, fulvic);
    for (const auto& [name, value] : totals) out += FormatC(", %s %.3g", name.c_str(), value);
    return out;
}

DatabaseWater MakeDatabaseWater(std::mt19937& rng, const ChemicalSystem& database) {
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    DatabaseWater water;
    water.redox = unit(rng) < 0.25;
    water.precipitation = unit(rng) < 0.5;
    water.adsorption = unit(rng) < 0.2;
    water.activityModel = unit(rng) < 0.5 ? kDaviesModel : kMsaModel;
    water.temperature = 60 * unit(rng);
    if (unit(rng) < 0.2) {
        water.organicModel = 2 + static_cast<int32_t>(3 * unit(rng)) % 3;
        water.doc = 1 + 19 * unit(rng);
        water.fulvic = unit(rng);
    }
    std::vector<int32_t> pool = Candidates(database);
    std::shuffle(pool.begin(), pool.end(), rng);
    const int count = 2 + static_cast<int>(10 * unit(rng)) % 10;  // besides H+: 3 to 12 in all
    std::vector<int32_t> groups;
    double charge = 0;
    for (int32_t k : pool) {
        if (static_cast<int>(water.totals.size()) == count) break;
        if (water.redox) {  // a second given member of a redox group is an input error
            const int32_t head = GroupHead(database, k);
            if (std::find(groups.begin(), groups.end(), head) != groups.end()) continue;
            groups.push_back(head);
        }
        const Component& c = database.db().components[k];
        const bool major = IsMajor(c.name);
        const double logLow = major ? -5 : -9, logHigh = major ? -1.5 : -4;
        const double value = std::pow(10.0, logLow + (logHigh - logLow) * unit(rng));
        water.totals.emplace_back(c.name, value);
        charge += c.charge * value;
    }
    if (water.adsorption) {  // ferrihydrite of 1e-5 .. 1e-3 mol Fe/L with its two site types
        const double iron = std::pow(10.0, -5 + 2 * unit(rng));
        water.totals.emplace_back("Hfo_sOH", 0.005 * iron);
        water.totals.emplace_back("Hfo_wOH", 0.2 * iron);
    }
    water.protonBalance = unit(rng) < 0.5;
    water.ph = 3 + 8 * unit(rng);
    water.pe = 2 + 16 * unit(rng) - water.ph;  // pe + pH within the stability field of water
    // neutral totals, with now and then a strong acid or base added
    water.hTotal = -charge + (unit(rng) < 0.3 ? (unit(rng) - 0.5) * 2e-3 : 0);
    return water;
}

bool ApplyDatabaseWater(const DatabaseWater& water, const ChemicalSystem& database, double criterion,
                        ChemicalSystem& chem, InputProblem& input) {
    if (!SetWaterInputs(database, water.protonBalance ? std::optional<double>() : water.ph, water.hTotal, water.totals,
                        chem, input))
        return false;
    input.ionicStrengthModel = water.activityModel;
    input.convergenceCriterion = criterion;
    input.temperature = water.temperature;
    input.temperatureCorrection = 2;
    input.precipitation = water.precipitation;
    input.adsorption = water.adsorption;
    input.redox = water.redox;
    if (water.redox) {
        ComponentInput& electron = input.components[chem.db().electronIndex];
        electron.inputType = InputType::FreeAct;
        electron.inputValue = std::pow(10.0, -water.pe);
    }
    if (water.organicModel != 0) {
        input.organicComplexation = true;
        input.organicModel = water.organicModel;
        input.docConcentration = water.doc;
        input.fulvicFraction = water.fulvic;
    }
    return true;
}

}  // namespace tormel::test
