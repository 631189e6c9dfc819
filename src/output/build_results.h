#pragma once
// The hand-over from a finished calculation to the result store.
#include "calc/calc_context.h"
#include "output/result_context.h"
#include "output/result_store.h"

namespace tormel {

// Resets the store to one set and fills set 0 from the assembled layer of the
// solved system (components, species, reaction definitions, species lists,
// header, saturation of solids or the precipitated range, gases, component
// infos, MSA tables, input snapshot), then builds set 0's "Other info" with
// the context's output options. Sets each MSA ion species' resultRow.
void BuildResults(CalcContext& calc, ResultStore& store, ResultContext& context);

}  // namespace tormel
