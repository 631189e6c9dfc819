#include "core/chemical_system.h"

namespace tormel {

int32_t OrganicParameterCount(int32_t modelCode) {
    switch (modelCode) {
        case Model5: return kModel5ParameterCount;
        case Model6: return kModel6ParameterCount;
        case Model7: return kModel7ParameterCount;
        default: return 0;
    }
}

int32_t ChemicalSystem::FindComponent(std::string_view name) const {
    for (size_t i = 0; i < components.size(); ++i)
        if (components[i].name == name) return static_cast<int32_t>(i);
    return -1;
}

int32_t ChemicalSystem::FindEquilibrium(std::string_view name) const {
    for (size_t i = 0; i < equilibria.size(); ++i)
        if (equilibria[i].name == name) return static_cast<int32_t>(i);
    return -1;
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
