#include "calc/species_tables.h"

namespace tormel {

void SpeciesTermList::Clear() {
    species.clear();
    start.assign(1, 0);
    terms.clear();
}

void SpeciesTermList::Reserve(size_t count, size_t width) {
    species.reserve(count);
    start.reserve(count + 1);
    terms.reserve(count * width);
}

void BuildSpeciesTables(const ChemicalSystem& chem, SpeciesTables& tables) {
    BuildMassActionTable(chem, tables);
    BuildBalanceTables(chem, tables);
    BuildActivityTables(chem, tables);
    BuildChargeTable(chem, tables);
    const double none = std::nan("");
    tables.logFree.assign(chem.systemComponents.size(), 0.0);
    tables.logFreeOf.assign(chem.systemComponents.size(), none);
    tables.lastExponent.assign(chem.species.size(), none);
    tables.lastPower.assign(chem.species.size(), 0.0);
    tables.newtonBuilt = false;
    tables.speciesCount = static_cast<int32_t>(chem.species.size());
}

SpeciesTables& TablesFor(const ChemicalSystem& chem, SpeciesTables& tables) {
    if (tables.speciesCount != static_cast<int32_t>(chem.species.size()) ||
        tables.logFree.size() != chem.systemComponents.size())
        BuildSpeciesTables(chem, tables);
    return tables;
}

}  // namespace tormel
