#pragma once
// Plain-text listings of the loaded database, for the command line.
#include <string>

#include "core/database.h"

namespace tormel {

// Counts per component type and equilibrium type, organic parameters, and
// the three header values of each of the six working copies in dataFolder.
std::string DatabaseSummary(const Database& db, const std::string& dataFolder);

// One line per record: index, type, name, charge and (for equilibria) the
// log K and the reaction written on the components.
std::string ComponentListing(const Database& db);
std::string EquilibriumListing(const Database& db);
std::string LiteratureListing(const Database& db);

}  // namespace tormel
