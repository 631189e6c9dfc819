#include "measured_table.h"

#include <fstream>
#include <sstream>

#include "core/c_number.h"

namespace msafit {

namespace {

constexpr double kWaterDensity = 0.997047;  // kg/L at 25 °C

std::vector<std::string> SplitTabs(const std::string& line) {
    std::vector<std::string> fields;
    std::stringstream in(line);
    std::string field;
    while (std::getline(in, field, '\t')) fields.push_back(field);
    return fields;
}

bool ReadPoints(const std::string& text, std::vector<MeasuredPoint>& points) {
    std::stringstream in(text);
    std::string pair;
    while (in >> pair) {
        const size_t colon = pair.find(':');
        if (colon == std::string::npos) return false;
        auto m = tormel::ParseDoubleC(pair.substr(0, colon));
        auto g = tormel::ParseDoubleC(pair.substr(colon + 1));
        if (!m || !g || *m <= 0 || *g <= 0) return false;
        if (!points.empty() && *m <= points.back().molality) return false;
        points.push_back({*m, *g});
    }
    return !points.empty();
}

// The fit column: "both", "cation" or "anion", optionally followed by
// ",pair".
bool ReadFitChoice(const std::string& text, MeasuredSalt& salt) {
    const size_t comma = text.find(',');
    const std::string ions = text.substr(0, comma);
    if (ions != "both" && ions != "cation" && ions != "anion") return false;
    if (comma != std::string::npos && text.substr(comma + 1) != "pair") return false;
    salt.fitsCation = ions != "anion";
    salt.fitsAnion = ions != "cation";
    salt.fitsPair = comma != std::string::npos;
    return true;
}

}  // namespace

std::string PairName(const MeasuredSalt& salt) {
    return salt.cation.substr(0, salt.cation.find("(I")) + salt.anion;
}

double Molarity(const MeasuredSalt& salt, double molality) {
    // litres of solution per kg of water: the water's own volume and the
    // salt's apparent molar volume
    return molality / (1 / kWaterDensity + molality * salt.apparentMolarVolume / 1000);
}

double MolarGamma(const MeasuredSalt& salt, const MeasuredPoint& point) {
    return point.gamma * point.molality * kWaterDensity / Molarity(salt, point.molality);
}

std::optional<std::vector<MeasuredSalt>> ReadMeasuredSalts(const std::string& path, std::string& error) {
    std::ifstream in(path);
    if (!in) {
        error = "cannot read " + path;
        return std::nullopt;
    }
    std::vector<MeasuredSalt> salts;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (line.empty() || line[0] == '#') continue;
        const std::vector<std::string> f = SplitTabs(line);
        MeasuredSalt salt;
        bool ok = f.size() == 8 && ReadFitChoice(f[5], salt);
        if (ok) {
            salt.formula = f[0];
            salt.cation = f[1];
            salt.anion = f[2];
            salt.sources = f[6];
            auto volume = tormel::ParseDoubleC(f[3]);
            auto pH = f[4] == "-" ? std::optional<double>(0) : tormel::ParseDoubleC(f[4]);
            ok = volume && pH && ReadPoints(f[7], salt.points);
            if (ok) {
                salt.apparentMolarVolume = *volume;
                salt.pH = *pH;
            }
        }
        if (!ok) {
            error = path + ":" + std::to_string(number) + ": malformed line";
            return std::nullopt;
        }
        salts.push_back(std::move(salt));
    }
    return salts;
}

}  // namespace msafit
