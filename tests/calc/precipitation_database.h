#pragma once
// Solids for the synthetic database, added in code for the precipitation
// tests: formation constants (log K of the solid from its components at
// 25 °C) chosen for each scenario.
#include <initializer_list>

#include "core/chemical_system.h"
#include "support/database_builder.h"

namespace tormel::test {

// Appends a solid equilibrium; returns its index.
int32_t AddSolidEquilibrium(ChemicalSystem& chem, const char* name, double logK,
                            std::initializer_list<ReactionTerm> terms);

}  // namespace tormel::test
