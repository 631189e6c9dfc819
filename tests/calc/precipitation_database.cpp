#include "precipitation_database.h"

#include <algorithm>
#include <vector>

namespace tormel::test {

int32_t AddSolidEquilibrium(ChemicalSystem& chem, const char* name, double logK,
                            std::initializer_list<std::pair<int32_t, int32_t>> terms) {
    const int32_t oldCount = chem.EquilibriumCount();
    const int32_t components = chem.ComponentCount();
    // the stoichiometry is laid out by equilibrium count: copy it to the wider layout
    std::vector<int32_t> widened(static_cast<size_t>(components) * (oldCount + 1), 0);
    for (int32_t k = 0; k < components; ++k)
        for (int32_t e = 0; e < oldCount; ++e) widened[Position(e, k, oldCount + 1)] = chem.Coefficient(k, e);
    Equilibrium eq;
    eq.type = EqSolid;
    eq.name = name;
    eq.logK = logK;
    eq.componentCount = static_cast<int32_t>(terms.size());
    for (auto [k, nu] : terms) {
        widened[Position(oldCount, k, oldCount + 1)] = nu;
        eq.deltaZ2 += nu * chem.components[k].charge * chem.components[k].charge;
    }
    chem.equilibria.push_back(eq);
    chem.stoichiometry = std::move(widened);
    chem.maxComponentsPerEquilibrium = std::max(chem.maxComponentsPerEquilibrium, eq.componentCount);
    TypeRange& range = chem.equilibriumRange[EqSolid];
    if (range.empty()) range.first = oldCount;
    range.last = oldCount;
    return oldCount;
}

}  // namespace tormel::test
