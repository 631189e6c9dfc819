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
// coordination: Mg 0.72, Mn 0.83, Fe 0.78, Co 0.745, Ni 0.69, Cu 0.73,
// Zn 0.74, Cd 0.95, Ca 1.00 Angstrom) or the same shape.
struct Analogy {
    const char* species;
    const char* like;  // component name of the fitted ion
    const char* why;
};

constexpr Analogy kAnalogies[] = {
    {"Mn+2", "Mg", "hexaaqua ion of nearly the same crystal radius"},
    {"Fe+2", "Mg", "hexaaqua ion of nearly the same crystal radius"},
    {"Co+2", "Mg", "hexaaqua ion of nearly the same crystal radius"},
    {"Ni+2", "Mg", "hexaaqua ion of nearly the same crystal radius"},
    {"Cu+2", "Mg", "hexaaqua ion of nearly the same crystal radius"},
    {"Zn+2", "Mg", "hexaaqua ion of nearly the same crystal radius"},
    {"Cd+2", "Ca", "nearly the same crystal radius"},
    {"OH-", "F", "nearly the same crystal radius"},
    {"HCO3-", "NO3", "planar anion of three oxygens"},
};

// "Ca" with charge 2 -> "Ca+2", the species formula the converter keys on.
std::string SpeciesFormula(const tormel::Database& database, const std::string& component) {
    const int32_t charge = database.components[database.FindComponent(component)].charge;
    std::string formula = component + (charge > 0 ? "+" : "-");
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
