#pragma once
// The "Other info" report of a result set: seven blocks of labelled values
// about the calculation as a whole.
#include <cstdint>

#include "core/chemical_system.h"
#include "output/result_context.h"
#include "output/result_store.h"

namespace tormel {

// Builds the seven blocks of `set` from its records, its input snapshot and
// its header. Called after a set was built from a calculation, after an
// output file was read and after the output options changed. `database`, when
// given, names the neutralisation cation and anion of the input echo.
void BuildOtherInfo(ResultStore& store, int32_t set, const ResultContext& context,
                    const Database* database = nullptr);

}  // namespace tormel
