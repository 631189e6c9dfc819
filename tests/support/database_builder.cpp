#include "support/database_builder.h"

#include <vector>

namespace tormel::test {

Component MakeComponent(ComponentType type, const std::string& name, int32_t charge, double molarMass, double ionDiameter) {
    Component c;
    c.type = type;
    c.name = name;
    c.charge = charge;
    c.molarMass = molarMass;
    c.ionDiameter = ionDiameter;
    return c;
}

Equilibrium MakeEquilibrium(EquilibriumType type, const std::string& name, int32_t charge, double logK) {
    Equilibrium q;
    q.type = type;
    q.name = name;
    q.charge = charge;
    q.logK = logK;
    return q;
}

int32_t ChargeSquareSum(const Database& chem, std::initializer_list<ReactionTerm> terms) {
    int32_t sum = 0;
    for (auto [c, nu] : terms) {
        const int32_t z = chem.components[c].charge;
        sum += nu * z * z;
    }
    return sum;
}

int32_t AppendEquilibrium(Database& chem, Equilibrium eq, std::initializer_list<ReactionTerm> terms) {
    const int32_t index = chem.EquilibriumCount();
    const int32_t columns = index + 1;
    std::vector<int32_t> widened(static_cast<size_t>(chem.ComponentCount()) * columns, 0);
    for (int32_t c = 0; c < chem.ComponentCount(); ++c)
        for (int32_t e = 0; e < index; ++e) widened[Position(e, c, columns)] = chem.Coefficient(c, e);
    for (auto [c, nu] : terms) widened[Position(index, c, columns)] = nu;
    eq.componentCount = static_cast<int32_t>(terms.size());
    chem.equilibria.push_back(eq);
    chem.stoichiometry = std::move(widened);
    return index;
}

}  // namespace tormel::test
