#pragma once
// What the database information window shows: where the database files come
// from, and the header values of the six working copies.
#include <array>
#include <string>

#include "core/language.h"
#include "shell/app_folders.h"

namespace tormel {

// Rows of the table, in the order shown.
enum DatabaseInformationRow : int { InfoContents, InfoNumTot, InfoNumOrig, InfoNumModif, InfoNumAdded, InfoVersion };

struct DatabaseInformation {
    std::string text;                    // lines joined by "\n"
    std::array<std::string, 7> headings;  // empty, then base name + "RAW/D64" per file
    std::array<std::array<std::string, 7>, 6> cells;  // [row][column]; column 0 holds the row names
};

// A file that cannot be read, or a header line without a colon, leaves its
// cells empty.
DatabaseInformation BuildDatabaseInformation(const AppFolders& folders, const Language& language);

}  // namespace tormel
