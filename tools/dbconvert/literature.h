#pragma once
// Literature references of the converted database: one line per distinct
// source, written as a full citation where the source code names a known
// compilation.
#include <map>
#include <string>
#include <vector>

namespace dbconvert {

// Longest line the literature reader keeps.
constexpr size_t kMaxLiteratureLine = 258;

// Citation text for a source code of the MINTEQA2 v4 data ("NIST46.4",
// "Bard85", "SCD3.02 (1968 DKa)"). Codes without a known expansion are
// quoted as they stand. `resolved` tells whether a full citation was found.
std::string CitationForSourceCode(const std::string& code, bool* resolved = nullptr);

// Fixed references of our own.
extern const char* const kCitationNoSource;       // MINTEQA2 v4 data, no source given
extern const char* const kCitationSurface;        // Hfo surface constants
extern const char* const kCitationOrganicModel5;
extern const char* const kCitationOrganicModel6;
extern const char* const kCitationOrganicModel7;

// Collects references in order of first use; index 0 is always the
// "no source given" reference.
class LiteratureTable {
public:
    LiteratureTable();
    // 0-based index of the reference with this text, added when new.
    int Add(const std::string& text);
    // Index for a MINTEQA2 source code; empty codes map to index 0.
    int AddSourceCode(const std::string& code);
    const std::vector<std::string>& Lines() const { return lines_; }
    const std::vector<std::string>& UnresolvedCodes() const { return unresolved_; }

private:
    std::vector<std::string> lines_;
    std::map<std::string, int> index_;
    std::vector<std::string> unresolved_;
};

}  // namespace dbconvert
