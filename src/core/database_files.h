#pragma once
// The six database files: reading them into the chemical system, writing them
// (for the database converter), refreshing the working copies from the raw
// data files shipped with the program, and linking gases and redox groups.
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/database.h"
#include "core/text_file.h"
#include "core/ui_services.h"

namespace tormel {

enum DatabaseFilePosition : int {
    DbComponents = 0,
    DbEquilibria = 1,
    DbLiterature = 2,
    DbModel5 = 3,
    DbModel6 = 4,
    DbModel7 = 5,
};

// Base names, each ending in a full stop, in loading order.
extern const std::array<const char*, 6> kDatabaseBaseNames;

// dataFolder + base name + "D64"
std::string WorkingCopyPath(const std::string& dataFolder, int position);
// programFolder + "RawData/" + base name + "RW64"
std::string ShippedCopyPath(const std::string& programFolder, int position);

// The three header lines as the database information window shows them.
struct DatabaseHeader {
    std::string contents;      // text two characters after the colon of line 1
    std::string versionText;   // of line 2
    std::string countText;     // of line 3
    float version = 0;         // single precision, as the refresh compares it
    int recordCount = 0;
};
std::optional<DatabaseHeader> ReadDatabaseHeader(const std::string& path, FileError* error = nullptr);

// A reader's failure: which file, where, and what.
struct DatabaseError {
    std::string path;
    int line = 0;          // 1-based line in the file; 0 when not known
    std::string record;    // e.g. "component 12" or "equilibrium 40 (\"CaCO3\")"
    std::string message;   // English detail
    std::string Describe() const;
};

bool RefreshDatabase(const std::string& dataFolder, const std::string& programFolder);
bool CopyRawData(const std::string& dataFolder, const std::string& programFolder);

std::optional<DatabaseError> ReadComponentFile(Database& chem, const std::string& path);
std::optional<DatabaseError> ReadEquilibriumFile(Database& chem, const std::string& path);
std::optional<DatabaseError> ReadLiteratureFile(Database& chem, const std::string& path);
std::optional<DatabaseError> ReadModelFile(Database& chem, int32_t modelCode, const std::string& path);

// Loads the six working copies in order and links them. Shows the
// "More than 4 BB" warning through `ui` when an equilibrium has more than four
// components. On error the chemical system is left empty.
std::optional<DatabaseError> LoadDatabase(Database& chem, const std::string& dataFolder, const UiServices& ui);
void LinkDatabase(Database& chem);

// --- writing, the exact formats the readers take ---

struct DatabaseFileHeader {
    std::string contents;  // description on line 1
    std::string version;   // version text on line 2, e.g. "1.0"
};

// Descriptions of the organic model parameter lines: [k][0] fulvic, [k][1] humic.
using OrganicParameterDescriptions = std::vector<std::array<std::string, 2>>;

std::string FormatComponentFile(const Database& chem, const DatabaseFileHeader& header);
std::string FormatEquilibriumFile(const Database& chem, const DatabaseFileHeader& header);
std::string FormatLiteratureFile(const Database& chem, const DatabaseFileHeader& header);
std::string FormatModelFile(const Database& chem, int32_t modelCode, const DatabaseFileHeader& header,
                            const OrganicParameterDescriptions& descriptions = {});

// Writes all six files into `folder` with the given extension ("RW64" or
// "D64"); headers by file position. Stops at the first failure.
bool WriteDatabaseFiles(const Database& chem, const std::string& folder, const std::string& extension,
                        const std::array<DatabaseFileHeader, 6>& headers,
                        const std::array<OrganicParameterDescriptions, 3>& descriptions, FileError* error = nullptr);

}  // namespace tormel
