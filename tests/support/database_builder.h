#pragma once
// Records of a chemical database built in code, for the test databases:
// components, equilibria and their columns of the stoichiometry.
#include <initializer_list>
#include <string>
#include <utility>

#include "core/database.h"

namespace tormel::test {

// A component of a reaction and its coefficient.
using ReactionTerm = std::pair<int32_t, int32_t>;  // component, coefficient

Component MakeComponent(ComponentType type, const std::string& name, int32_t charge, double molarMass = 0,
                        double ionDiameter = 0);

Equilibrium MakeEquilibrium(EquilibriumType type, const std::string& name, int32_t charge, double logK);

// Sum of coefficient x charge^2 over the terms.
int32_t ChargeSquareSum(const Database& chem, std::initializer_list<ReactionTerm> terms);

// Appends `eq` with its column of the stoichiometry, which is laid out by
// equilibrium count and so is widened; sets its component count and returns
// its index.
int32_t AppendEquilibrium(Database& chem, Equilibrium eq, std::initializer_list<ReactionTerm> terms);

}  // namespace tormel::test
