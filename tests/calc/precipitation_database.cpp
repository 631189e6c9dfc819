#include "precipitation_database.h"

#include <algorithm>

namespace tormel::test {

int32_t AddSolidEquilibrium(ChemicalSystem& chem, const char* name, double logK,
                            std::initializer_list<ReactionTerm> terms) {
    Equilibrium eq = MakeEquilibrium(EqSolid, name, 0, logK);
    eq.deltaZ2 = ChargeSquareSum(chem, terms);
    const int32_t index = AppendEquilibrium(chem, eq, terms);
    chem.maxComponentsPerEquilibrium =
        std::max(chem.maxComponentsPerEquilibrium, chem.equilibria[index].componentCount);
    TypeRange& range = chem.equilibriumRange[EqSolid];
    if (range.empty()) range.first = index;
    range.last = index;
    return index;
}

}  // namespace tormel::test
