#include "report.h"

#include <map>
#include <sstream>

#include "core/c_number.h"
#include "ion_diameters.h"
#include "literature.h"
#include "published_data.h"

namespace dbconvert {

namespace {

const char* ComponentTypeName(int type) {
    switch (type) {
        case 1: return "cations (type 1, H+ included)";
        case 2: return "electron (type 2)";
        case 3: return "ligands (type 3, OH included)";
        case 4: return "adsorbent sites (type 4)";
        case 5: return "redox solids (type 5)";
        case 6: return "gases (type 6)";
        case 7: return "organic fractions (type 7)";
        default: return "other";
    }
}

const char* EquilibriumTypeName(int type) {
    switch (type) {
        case 1: return "water";
        case 2: return "aqueous complexes";
        case 3: return "surface (adsorbed) species";
        case 4: return "redox couples";
        case 5: return "gases";
        case 6: return "solids";
        case 7: return "organic (humic) equilibria";
        default: return "other";
    }
}

std::string Escape(const std::string& s) {
    std::string out;
    for (char c : s) {
        if (c == '|') out += "\\|";
        else out += c;
    }
    return out;
}

void ItemTable(std::ostringstream& out, const std::vector<ReportItem>& items) {
    out << "| kind | name | line | reason |\n|---|---|---|---|\n";
    for (const auto& i : items)
        out << "| " << i.kind << " | `" << Escape(i.name) << "` | " << (i.line > 0 ? std::to_string(i.line) : "")
            << " | " << Escape(i.reason) << " |\n";
}

}  // namespace

std::string FormatConversionReport(const ConversionResult& result, const std::string& sourceName) {
    const auto& chem = result.chem;
    const auto& r = result.report;
    std::ostringstream out;
    out << "# Conversion report\n\n";
    out << "Written by `tormel-dbconvert` from `" << sourceName << "` (MINTEQA2 v4 data in PHREEQC format). "
        << "Database version " << kDatabaseVersion << ". Regenerate with "
        << "`build/bin/tormel-dbconvert ../shared/data/minteq.v4.dat data/RawData`; see tools/dbconvert/README.md "
        << "for the rules.\n\n";

    out << "## Counts\n\n| what | count |\n|---|---|\n";
    std::map<int, int> compTypes, eqTypes;
    for (const auto& c : chem.components) ++compTypes[tormel::CodeOf(c.type)];
    for (const auto& e : chem.equilibria) ++eqTypes[tormel::CodeOf(e.type)];
    for (const auto& [t, n] : compTypes) out << "| components: " << ComponentTypeName(t) << " | " << n << " |\n";
    out << "| components, total | " << chem.components.size() << " |\n";
    for (const auto& [t, n] : eqTypes) out << "| equilibria: " << EquilibriumTypeName(t) << " | " << n << " |\n";
    std::map<int, int> perModel;
    for (const auto& e : chem.equilibria)
        if (e.type == tormel::EquilibriumType::Organic) ++perModel[e.organicModel];
    for (const auto& [code, n] : perModel) out << "| organic equilibria of Model " << code + 3 << " | " << n << " |\n";
    out << "| equilibria, total | " << chem.equilibria.size() << " |\n";
    out << "| literature references | " << chem.literature.size() << " |\n\n";

    out << "## Left out\n\n";
    out << "Species, solids, gases and redox relations of the source data that are not in the database.\n\n";
    ItemTable(out, r.skipped);

    out << "\n## Defined twice\n\nThe later definition is used, as PHREEQC does.\n\n";
    ItemTable(out, r.replacedDefinitions);

    out << "\n## Remarks\n\n";
    ItemTable(out, r.notes);

    // Since version 1.1 the electron counts in dz^2 (charge -1); before, it was
    // left out, which put a spurious gamma1 into every such mass-action law.
    out << "\n## The electron in dz^2\n\n";
    out << "dz^2 counts the electron with its charge -1, like every component given by its activity (since "
           "version 1.1; version 1.0 left it out). Equilibria holding the electron, whose dz^2 this concerns:\n\n";
    out << "| what | count |\n|---|---|\n";
    std::map<int, int> withElectron;
    for (int32_t e = 0; e < chem.EquilibriumCount(); ++e)
        if (chem.electronIndex > 0 && chem.Coefficient(chem.electronIndex, e) != 0)
            ++withElectron[tormel::CodeOf(chem.equilibria[e].type)];
    for (const auto& [t, n] : withElectron) out << "| equilibria: " << EquilibriumTypeName(t) << " | " << n << " |\n";

    out << "\n## Ion sizes (MSA)\n\n";
    out << "Diameters " << kFittedSizeSource << ":\n\n";
    out << "| species | diameter (Angstrom) | how |\n|---|---|---|\n";
    for (const FittedDiameter& d : FittedDiameters())
        out << "| `" << d.species << "` | " << tormel::FormatC("%.3f", d.diameter * 1e10) << " | " << d.origin
            << " |\n";
    out << "\nEvery other size: " << kIonSizeSource << ".\n\n";
    out << "Complexes with a size: ";
    for (size_t i = 0; i < r.complexesWithDiameter.size(); ++i)
        out << (i ? ", " : "") << "`" << r.complexesWithDiameter[i] << "`";
    out << ". Every other complex has size 0.\n\n";
    out << "Cations and ligands without a published size (stored as 0): ";
    for (size_t i = 0; i < r.componentsWithoutDiameter.size(); ++i)
        out << (i ? ", " : "") << "`" << r.componentsWithoutDiameter[i] << "`";
    out << ".\n\n";

    out << "## Organic matter\n\n";
    out << "Parameters per gram of carbon: the published site densities n_A and n_B (per gram of humic substance, "
           "50 % carbon) are doubled; the molar mass M, the electrostatic parameter P and the diffuse-layer factor "
           "K_D are halved; the radius is unchanged. n_B = n_A/2 in all three models. Metal constants: Model 5 "
           "stores pK_MHA, Model 6 log K_MA with delta LK1 (2.8 for every metal) and delta LK2, Model 7 log K_MA "
           "with delta LK2. Where the published parameter files give the first hydroxo species the metal's own "
           "constants, a hydrolysed equilibrium (metal, -1 H+) is stored too.\n\n";
    out << "Uncertain values kept: Model VI and VII humic share of sites in triples 0.065 (an older file has 0.07); "
           "Model VII fulvic log K_MA of Cu 2.16 (another transcription has 2.32); Model VII radius and molar mass "
           "repeat the Model VI values. No Model VI constant for Ag was found; it is left out.\n\n";
    for (const auto& n : r.organicNotes) out << "- " << n << "\n";
    if (!r.organicNotes.empty()) out << "\n";

    out << "## Literature\n\n";
    out << "Source codes without a full citation (kept as the code): ";
    for (size_t i = 0; i < r.unresolvedSourceCodes.size(); ++i)
        out << (i ? ", " : "") << "`" << r.unresolvedSourceCodes[i] << "`";
    out << ".\n\n";
    if (!r.parserProblems.empty()) {
        out << "## Lines of the source that were not read\n\n";
        for (const auto& p : r.parserProblems) out << "- " << Escape(p) << "\n";
    }
    return out.str();
}

}  // namespace dbconvert
