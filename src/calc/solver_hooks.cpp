// Places of precipitation and of the organic model in the solver's
// iteration. Until those models are built the assembly adds no solids and no
// organic species, so the saturation check always reports the solids
// unchanged and no organic model replaces the inorganic update.
#include "calc/solver.h"

namespace tormel {

bool SaturationCheck(CalcContext& /*ctx*/, bool /*showProgress*/) { return true; }

bool OrganicModelActive(const CalcContext& /*ctx*/) { return false; }

void OrganicSpeciesStep(CalcContext& /*ctx*/) {}

void OrganicUpdate(CalcContext& ctx, bool& converged) { InorganicUpdate(ctx, converged); }

void OrganicElectrostaticUpdate(CalcContext& /*ctx*/, bool& /*converged*/) {}

}  // namespace tormel
