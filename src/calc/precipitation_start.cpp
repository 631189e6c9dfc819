// Every solve starts with all solids absent: a solid enters only through the
// saturation check, which gives it its place in the Newton system. (An
// amount left from an earlier solve of the same assembled system, as in the
// passes of the neutral-solution calculation, would otherwise count in the
// balances without being an unknown.)
#include "calc/precipitation.h"

namespace tormel {

void StartSolids(CalcContext& ctx) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    st.solidProgressLines.clear();
    st.solidPreviousAmount.clear();
    st.solidBarSlope = st.solidBarOffset = 0;
    st.solidBarPosition = 0;
    const TypeRange range = chem.solidSpeciesRange;
    if (range.empty()) return;
    for (int32_t s = range.first; s <= range.last; ++s) chem.species[s].concentration = 0;
    st.solidPreviousAmount.assign(static_cast<size_t>(range.last - range.first + 1), 0.0);
}

}  // namespace tormel
