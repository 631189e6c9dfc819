#include "core/chemical_system.h"

namespace tormel {

std::shared_ptr<const Database> EmptyDatabase() {
    static const std::shared_ptr<const Database> empty = std::make_shared<const Database>();
    return empty;
}

void ChemicalSystem::ClearAssembled() {
    placement.clear();
    systemComponents.clear();
    species.clear();
    reactionReactants.clear();
    reactionProducts.clear();
    reactionRowCount = 0;
    composition.clear();
    maxSpeciesComponents = 0;
    freeHydroxideSpecies = 0;
    complexSpeciesRange = {};
    solidSpeciesRange = {};
    temperatureCorrectionApplied = false;
}

}  // namespace tormel
