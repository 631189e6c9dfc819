#include "result_values.h"

#include <cmath>
#include <limits>

namespace tormel::python {

bool IsFreeSpecies(const SpeciesResult& species) {
    return species.kind == SpeciesKind::FreeComponent || species.kind == SpeciesKind::FreeHydroxide ||
           species.kind == SpeciesKind::GasLigand;
}

double ResultPh(const ResultStore& store) {
    const SetView view = ViewSet(store, 0);
    if (view.species.empty() || !view.species[0].hasActivity) return std::numeric_limits<double>::quiet_NaN();
    return -std::log10(view.species[0].activity);
}

double ResultIonicStrength(const ResultStore& store) { return store.sets[0].snapshot.ReportedIonicStrength(); }

double SaturationIndex(const ResultStore& store, std::string_view name) {
    const SetView view = ViewSet(store, 0);
    for (const SolidSaturation& solid : view.solidChecks)
        if (solid.name == name) return solid.saturationIndex;
    const ResultHeader& header = store.sets[0].header;
    for (int32_t s = std::max(0, header.firstPrecipitatedSolid); s <= header.lastPrecipitatedSolid; ++s)
        if (static_cast<size_t>(s) < view.species.size() && view.species[s].name == name)
            return view.species[s].saturationValue;
    return std::numeric_limits<double>::quiet_NaN();
}

}  // namespace tormel::python
