#pragma once
// What the tab-separated and the XML spreadsheet exports both write for one
// component of a result set: its summary rows (amounts with their fraction of
// the total) and its details rows (every species of its species list, then
// the organic sites it occupies). Numbers are kept unformatted; each export
// writes them its own way. No cut-off applies.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/language.h"
#include "output/output_options.h"
#include "output/result_store.h"

namespace tormel {

// The program's file version (major.minor.build.revision) that exports name,
// from the project's version.
std::string ProgramFileVersion();

// What an export needs beside the set: the language texts and the units.
struct ExportContext {
    const Language& language;
    const OutputOptions& options;
    std::string programVersion = ProgramFileVersion();

    // The text of `key` of section "Output".
    std::string Text(std::string_view key) const { return LanguageText(language, "Output", key); }
};

// Components of these kinds are exported: cations, ligands, gases.
bool IsExportedKind(ComponentType kind);

// A share of a component's total: `amount` / `total`, with the amount first
// rounded to single precision where an export asks for that.
double ExportFraction(double amount, double total, bool singlePrecisionAmount);

struct ExportAmountRow {
    std::string label;     // "Dissolved" ... "Total", a blank, the display name
    double converted = 0;  // in the chosen units
    std::string unit;
    double amount = 0;  // mol/L, for the fraction
};

struct ExportSpeciesRow {
    std::string name;
    double concentration = 0;  // converted
    std::string unit;
    double share = 0;  // concentration x coefficient, mol/L of bulk solution, for the fraction
    bool hasActivity = false;
    double activity = 0;  // converted
    std::string activityUnit;
    bool hasConstants = false;
    double intrinsicLogK = 0;
    double conditionalLogK = 0;
    bool hasLiterature = false;
    SharedText literature;
};

struct ExportSiteRow {
    std::string label;  // e.g. "FA-monodentate"
    double converted = 0;
    std::string unit;
    double amount = 0;  // mol/L, for the fraction
};

struct ExportComponent {
    const ComponentResult* component = nullptr;
    bool percentagesAllowed = false;
    double total = 0;  // mol/L
    std::vector<ExportAmountRow> summary;
    std::vector<ExportSpeciesRow> species;
    std::vector<ExportSiteRow> sites;
};

// The rows of component i of `set`.
ExportComponent ExportComponentRows(const ResultStore& store, int32_t set, int32_t i, const ExportContext& context);

}  // namespace tormel
