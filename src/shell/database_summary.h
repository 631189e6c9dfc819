#pragma once
// Plain-text listings of the loaded database, for the command line.
#include <string>

#include "core/chemical_system.h"

namespace tormel {

// Counts per component type and equilibrium type, organic parameters, and
// the three header values of each of the six working copies in dataFolder.
std::string DatabaseSummary(const ChemicalSystem& chem, const std::string& dataFolder);

// One line per record: index, type, name, charge and (for equilibria) the
// log K and the reaction written on the components.
std::string ComponentListing(const ChemicalSystem& chem);
std::string EquilibriumListing(const ChemicalSystem& chem);
std::string LiteratureListing(const ChemicalSystem& chem);

}  // namespace tormel
