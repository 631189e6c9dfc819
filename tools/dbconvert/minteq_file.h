#pragma once
// Reader for thermodynamic data in the PHREEQC database format, as far as
// the MINTEQA2 v4 data use it: SOLUTION_MASTER_SPECIES, SOLUTION_SPECIES,
// PHASES, SURFACE_MASTER_SPECIES and SURFACE_SPECIES, with log_k, delta_h
// (kJ or kcal), and the source comments ("# log K source: NIST46.4").
#include <optional>
#include <string>
#include <vector>

namespace dbconvert {

struct ReactionTerm {
    std::string species;  // as written, with charge suffix ("Fe+3")
    double coefficient = 1;
};

// Both sides as written; coefficients positive.
struct Reaction {
    std::vector<ReactionTerm> left;
    std::vector<ReactionTerm> right;
};

struct MasterSpeciesLine {
    int line = 0;
    std::string element;      // "Fe", "Fe(2)"
    std::string species;      // "Fe+3"
    std::string gfwFormula;   // column 4
    std::optional<double> elementGfw;  // column 5
};

// One SOLUTION_SPECIES, SURFACE_SPECIES or PHASES entry.
struct DataEntry {
    int line = 0;             // line of the reaction
    std::string phaseName;    // PHASES only
    Reaction reaction;
    std::optional<double> logK;
    std::optional<double> enthalpy;  // J/mol
    bool analytic = false;           // an -analytic expression was given
    std::string logKSource;          // from "# log K source:" comments
    std::string enthalpySource;
    bool isGas = false;              // PHASES entry named "...(g)"
};

struct SurfaceMasterLine {
    std::string site;     // "Hfo_w"
    std::string species;  // "Hfo_wOH"
};

struct MinteqData {
    std::vector<MasterSpeciesLine> masters;
    std::vector<DataEntry> solutionSpecies;  // in file order, identities included
    std::vector<DataEntry> phases;
    std::vector<SurfaceMasterLine> surfaceMasters;
    std::vector<DataEntry> surfaceSpecies;
    std::vector<std::string> problems;  // lines that could not be read
};

// Parses the text of a database file. Never fails as a whole; unreadable
// lines are listed in `problems`.
MinteqData ParseMinteqText(const std::string& text);

// Parses one reaction "a A + b B = C + d D"; nullopt when malformed.
std::optional<Reaction> ParseReaction(const std::string& text);

}  // namespace dbconvert
