// The present solids' part of the Newton system: each present solid adds
// one unknown (its amount) after the mass-balance components, in the order
// in which the solids entered.
#include "calc/precipitation.h"

namespace tormel {

namespace {

void ResizeMatrices(NewtonSystem& ns) {
    const size_t size = static_cast<size_t>(ns.Size());
    ns.jacobian.assign(size * size, 0.0);
}

}  // namespace

bool PresentSolidHolds(const CalcContext& ctx, int32_t j) {
    const ChemicalSystem& chem = ctx.chem;
    const NewtonSystem& ns = ctx.state.newton;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t s : ns.solidSpecies)
        for (int32_t e = 0; e < chem.species[s].componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            if (term.systemComponent == j && term.coefficient != 0) return true;
        }
    return false;
}

void AddSolidUnknown(NewtonSystem& ns, int32_t s, double amount) {
    ns.solidSpecies.push_back(s);
    ns.m = static_cast<int32_t>(ns.solidSpecies.size());
    const size_t size = static_cast<size_t>(ns.Size());
    ns.x.resize(size, 0.0);
    ns.r.resize(size, 0.0);
    ns.delta.resize(size, 0.0);
    ns.kind.resize(size, UnknownComponent);
    ns.x[size - 1] = amount;
    ns.kind[size - 1] = UnknownSolidAmount;
    ResizeMatrices(ns);
}

void RemoveSolidUnknown(NewtonSystem& ns, int32_t k) {
    if (k < 0 || k >= ns.m) return;
    const auto at = static_cast<std::ptrdiff_t>(ns.n + k);
    ns.x.erase(ns.x.begin() + at);
    ns.r.erase(ns.r.begin() + at);
    ns.delta.erase(ns.delta.begin() + at);
    ns.kind.erase(ns.kind.begin() + at);
    ns.solidSpecies.erase(ns.solidSpecies.begin() + k);
    ns.m = static_cast<int32_t>(ns.solidSpecies.size());
    ResizeMatrices(ns);
}

}  // namespace tormel
