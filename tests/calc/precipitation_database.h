#pragma once
// Solids for the synthetic database, added in code for the precipitation
// tests: formation constants (log K of the solid from its components at
// 25 °C) chosen for each scenario.
#include <initializer_list>
#include <utility>

#include "core/chemical_system.h"

namespace tormel::test {

// Appends a solid equilibrium; returns its index.
int32_t AddSolidEquilibrium(ChemicalSystem& chem, const char* name, double logK,
                            std::initializer_list<std::pair<int32_t, int32_t>> terms);

}  // namespace tormel::test
