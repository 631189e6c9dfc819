#pragma once
// The unknowns of the solver's fallback and the balances that are their
// residuals. Each mass-balance component is one unknown, the logarithm of its
// free concentration, except the members of an organic pair or triple: their
// balances hold the same metal species, so they agree exactly when the
// members' site totals (free + protonated) agree, and are nearly the same
// equation otherwise. Such members share one unknown, the logarithm of their
// common site total, from which each member's free concentration follows by
// its protonation; the balance of the first member is its residual. The
// amounts of the present solids follow.
#include <cstdint>
#include <vector>

#include "calc/calc_context.h"

namespace tormel {

struct FallbackUnknown {
    int32_t component = 0;  // the system component whose balance is the residual
    // an organic pair or triple: its members' components and protonated species
    std::vector<int32_t> members, protonatedSpecies;
};

struct FallbackLayout {
    std::vector<FallbackUnknown> free;  // the unknowns before the solids
    std::vector<int32_t> rowOf;         // per system component: its residual row, -1 for none

    int32_t FreeCount() const { return static_cast<int32_t>(free.size()); }
};

struct FallbackValues {
    std::vector<double> logFree;  // per entry of FallbackLayout::free
    std::vector<double> amount;   // per present solid
};

// The layout for the current Newton system (and organic matter, if active).
FallbackLayout FallbackLayoutOf(const CalcContext& ctx);
// The unknowns at the current state; a pair's or triple's site total is the
// mean of its members'.
FallbackValues ReadFallbackValues(const CalcContext& ctx, const FallbackLayout& layout);
// Sets the free concentrations and solid amounts to the values.
void WriteFallbackValues(CalcContext& ctx, const FallbackLayout& layout, const FallbackValues& x);

}  // namespace tormel
