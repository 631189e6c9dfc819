#pragma once
// Turns the MINTEQA2 v4 data into the program's chemical system: components,
// equilibria written on them, literature references and the organic model
// parameters.
#include <array>
#include <map>
#include <string>
#include <vector>

#include "core/database.h"
#include "core/database_files.h"
#include "minteq_file.h"

namespace dbconvert {

// A species, solid, gas or relation of the source data that is not in the
// converted database, or an item worth a remark.
struct ReportItem {
    std::string kind;    // "aqueous species", "solid", "gas", ...
    std::string name;    // as in the source data
    int line = 0;        // line in the source file; 0 when not from a line
    std::string reason;
};

struct ConversionReport {
    std::vector<ReportItem> skipped;
    std::vector<ReportItem> replacedDefinitions;  // defined twice; the later one is used
    std::vector<ReportItem> notes;
    std::vector<std::string> componentsWithoutDiameter;
    std::vector<std::string> complexesWithDiameter;
    std::vector<std::string> unresolvedSourceCodes;
    std::vector<std::string> parserProblems;
    std::vector<std::string> organicNotes;
};

struct ConversionResult {
    tormel::Database chem;
    ConversionReport report;
    std::array<tormel::OrganicParameterDescriptions, 3> descriptions;  // by model code - 2
    std::array<tormel::DatabaseFileHeader, 6> headers;
};

// Version written on line 2 of every converted file. Raise it whenever the
// converted data change, so that working copies are refreshed.
extern const char* const kDatabaseVersion;

ConversionResult ConvertMinteq(const MinteqData& data);

}  // namespace dbconvert
