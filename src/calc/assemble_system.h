#pragma once
// The problem assembly: turns the input problem and the database into the
// assembled layer of the chemical system (the unknowns, the species and how
// each species is formed from the unknowns).
#include <string>

#include "calc/calc_context.h"

namespace tormel {

// Whether the calculation may run on the assembled layer and, when it may not
// because of the input, the warning for the caller to show the user.
struct AssemblyResult {
    bool assembled = false;
    std::string refusal;  // empty when assembled (or when there is nothing to tell)
    explicit operator bool() const { return assembled; }
};

// Rebuilds the assembled layer. Refused when the calculation must not run:
// a solid that no mass balance can limit.
AssemblyResult AssembleSystem(CalcContext& ctx);

}  // namespace tormel
