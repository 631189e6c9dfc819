#include "calc/species_tables.h"

namespace tormel {

void SpeciesTermList::Clear() {
    species.clear();
    start.assign(1, 0);
    terms.clear();
}

void BuildSpeciesTables(const ChemicalSystem& chem, SpeciesTables& tables) {
    BuildMassActionTable(chem, tables);
    BuildBalanceTables(chem, tables);
    BuildActivityTables(chem, tables);
    BuildChargeTable(chem, tables);
    tables.logFree.assign(chem.systemComponents.size(), 0.0);
    tables.speciesCount = static_cast<int32_t>(chem.species.size());
}

SpeciesTables& TablesFor(const ChemicalSystem& chem, SpeciesTables& tables) {
    if (tables.speciesCount != static_cast<int32_t>(chem.species.size()) ||
        tables.logFree.size() != chem.systemComponents.size())
        BuildSpeciesTables(chem, tables);
    return tables;
}

}  // namespace tormel
