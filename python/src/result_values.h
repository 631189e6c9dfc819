#pragma once
// Single values of result set 0 that scripts ask for by name.
#include <string_view>

#include "output/result_store.h"

namespace tormel::python {

// Free components, free OH and the free gas ligands.
bool IsFreeSpecies(const SpeciesResult& species);

// -log10 of the activity of free H+ (species 0); NaN without species.
double ResultPh(const ResultStore& store);

// The ionic strength the results report.
double ResultIonicStrength(const ResultStore& store);

// Saturation index of the solid named `name`: of the saturation checks
// (precipitation off) or of the solids of the precipitation range; NaN when
// the set has no such solid.
double SaturationIndex(const ResultStore& store, std::string_view name);

}  // namespace tormel::python
