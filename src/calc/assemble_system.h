#pragma once
// The problem assembly: turns the input problem and the database into the
// assembled layer of the chemical system (the unknowns, the species and how
// each species is formed from the unknowns).
#include "calc/calc_context.h"

namespace tormel {

// Rebuilds the assembled layer. False when the calculation must not run
// (a solid that no mass balance can limit); the user has then been told.
bool AssembleSystem(CalcContext& ctx);

}  // namespace tormel
