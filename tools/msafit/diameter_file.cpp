#include "diameter_file.h"

#include <cstdlib>
#include <set>
#include <sstream>

#include "core/c_number.h"
#include "core/text_file.h"

namespace msafit {

namespace {

// Ions without measured tables here take the diameter of a fitted ion of the
// same charge and nearly the same crystal radius (Shannon 1976, six-fold
// coordination: Mg 0.72, Mn 0.83, Fe 0.78, Ni 0.69, Cu 0.73, Zn 0.74
// Angstrom) or the same shape. The divalent transition metals follow Mg+2,
// whose salt the database leaves unpaired, rather than Co+2, whose large
// fitted diameter goes with the size fitted to its pair CoCl+.
struct Analogy {
    const char* species;
    const char* like;  // component name of the fitted ion
    const char* why;
};

constexpr const char* kHexaaqua = "hexaaqua ion of nearly the same crystal radius";

constexpr Analogy kAnalogies[] = {
    {"Mn+2", "Mg", kHexaaqua}, {"Fe+2", "Mg", kHexaaqua}, {"Ni+2", "Mg", kHexaaqua},
    {"Cu+2", "Mg", kHexaaqua}, {"Zn+2", "Mg", kHexaaqua}, {"OH-", "F", "nearly the same crystal radius"},
    {"HCO3-", "NO3", "planar anion of three oxygens"},
};

// "Ca" with charge 2 -> "Ca+2", the species formula the converter keys on;
// a component named with its oxidation state drops it ("Co(II)" -> "Co+2");
// an ion pair is named by its complex ("KSO4" -> "KSO4-").
std::string SpeciesFormula(const tormel::Database& database, const std::string& name) {
    const int32_t component = database.FindComponent(name);
    const int32_t charge = component >= 0 ? database.components[component].charge
                                          : database.equilibria[database.FindEquilibrium(name)].charge;
    std::string formula = name.substr(0, name.find("(I"));
    if (charge == 0) return formula;
    formula += charge > 0 ? "+" : "-";
    if (std::abs(charge) > 1) formula += std::to_string(std::abs(charge));
    return formula;
}

std::string Joined(const std::vector<std::string>& items) {
    std::set<std::string> seen;
    std::string out;
    for (const std::string& item : items) {
        std::stringstream parts(item);
        std::string part;
        while (std::getline(parts, part, ','))
            if (seen.insert(part).second) out += (out.empty() ? "" : ", ") + part;
    }
    return out;
}

void Entry(std::string& text, const std::string& species, double diameter, const std::string& origin) {
    text += "{\"" + species + "\", " + tormel::FormatC("%.3e", diameter) + ", \"" + origin + "\"},\n";
}

}  // namespace

bool WriteDiameterTable(const std::string& path, const tormel::Database& database,
                        const std::vector<FittedIon>& fitted, std::string& error) {
    std::string text =
        "// MSA ion diameters (m) fitted by tormel-msafit to the measured mean activity\n"
        "// coefficients in tools/msafit/measured_mean_activity_coefficients.tsv.\n"
        "// Written by that program; run it again instead of editing.\n";
    for (const FittedIon& ion : fitted) {
        std::string salts;
        for (const std::string& s : ion.salts) salts += (salts.empty() ? "" : ", ") + s;
        Entry(text, SpeciesFormula(database, ion.component), ion.diameter,
              "fitted to " + salts + " up to 1 mol/kg (" + Joined(ion.sources) + "); worst deviation " +
                  tormel::FormatC("%.1f", 100 * ion.worstDeviation) + " %");
    }
    for (const Analogy& a : kAnalogies) {
        for (const FittedIon& ion : fitted) {
            if (ion.component != a.like) continue;
            Entry(text, a.species, ion.diameter,
                  "as " + SpeciesFormula(database, ion.component) + " (" + a.why + "); not fitted");
        }
    }
    tormel::FileError fileError;
    if (tormel::WriteFileAtomically(path, text, &fileError)) return true;
    error = fileError.path + ": " + fileError.message;
    return false;
}

}  // namespace msafit
