// An oversaturated solid whose composition is a combination of solids
// already present (cupricferrite CuFe2O4 beside tenorite CuO and hematite
// Fe2O3): the phase rule leaves no room for all of them, so the newcomer
// forms from the present ones (CuO + Fe2O3 -> CuFe2O4) until one of those is
// used up and leaves. The solution is untouched: the amounts move between
// solids only, and every mass balance stays as it was.
#include <algorithm>
#include <cmath>
#include <vector>

#include "calc/precipitation.h"
#include "calc/solver_options.h"

namespace tormel {

namespace {


// The composition of solid s over the Newton unknowns (mass-balance components).
std::vector<double> CompositionVector(const CalcContext& ctx, int32_t s) {
    const ChemicalSystem& chem = ctx.chem;
    const NewtonSystem& ns = ctx.state.newton;
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    std::vector<double> v(ns.n, 0.0);
    for (int32_t e = 0; e < chem.species[s].componentTerms; ++e) {
        const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
        const int32_t u = ns.componentUnknown[term.systemComponent];
        if (u >= 0) v[u] += term.coefficient;
    }
    return v;
}

// Solves sum_k a_k v_k = target for the present solids' vectors v_k by
// elimination with partial pivoting; false when target is outside their span.
bool ExpressInPresentSolids(const CalcContext& ctx, int32_t s, std::vector<double>& a) {
    const NewtonSystem& ns = ctx.state.newton;
    const int32_t rows = ns.n;
    const int32_t cols = ns.m;
    if (cols == 0 || rows == 0) return false;
    // augmented matrix, row-major: rows x (cols + 1)
    std::vector<double> m(static_cast<size_t>(rows) * (cols + 1), 0.0);
    auto at = [&](int32_t r, int32_t c) -> double& { return m[static_cast<size_t>(r) * (cols + 1) + c]; };
    for (int32_t k = 0; k < cols; ++k) {
        const std::vector<double> v = CompositionVector(ctx, ns.solidSpecies[k]);
        for (int32_t r = 0; r < rows; ++r) at(r, k) = v[r];
    }
    const std::vector<double> target = CompositionVector(ctx, s);
    double scale = 0;
    for (int32_t r = 0; r < rows; ++r) {
        at(r, cols) = target[r];
        scale = std::max(scale, std::fabs(target[r]));
    }
    if (scale == 0) return false;
    std::vector<int32_t> pivotColumn;  // per pivot row
    int32_t row = 0;
    for (int32_t c = 0; c < cols && row < rows; ++c) {
        int32_t best = row;
        for (int32_t r = row + 1; r < rows; ++r)
            if (std::fabs(at(r, c)) > std::fabs(at(best, c))) best = r;
        if (std::fabs(at(best, c)) <= kSolverOptions.dependenceTolerance) continue;  // dependent column: no pivot
        for (int32_t k = 0; k <= cols; ++k) std::swap(at(row, k), at(best, k));
        for (int32_t r = 0; r < rows; ++r) {
            if (r == row || at(r, c) == 0) continue;
            const double factor = at(r, c) / at(row, c);
            for (int32_t k = c; k <= cols; ++k) at(r, k) -= factor * at(row, k);
        }
        pivotColumn.push_back(c);
        ++row;
    }
    for (int32_t r = row; r < rows; ++r)
        if (std::fabs(at(r, cols)) > kSolverOptions.dependenceTolerance * scale) return false;
    a.assign(cols, 0.0);
    for (int32_t r = 0; r < row; ++r) a[pivotColumn[r]] = at(r, cols) / at(r, pivotColumn[r]);
    return true;
}

}  // namespace

bool ReplacePresentSolids(CalcContext& ctx, int32_t s, double ratio, bool showProgress) {
    ChemicalSystem& chem = ctx.chem;
    NewtonSystem& ns = ctx.state.newton;
    std::vector<double> a;
    if (!ExpressInPresentSolids(ctx, s, a)) return false;
    // the amount that forms: until the first present solid it uses up is gone
    int32_t leaving = -1;
    double amount = HUGE_VAL;
    for (int32_t k = 0; k < ns.m; ++k) {
        if (a[k] <= kSolverOptions.dependenceTolerance) continue;
        const double possible = chem.species[ns.solidSpecies[k]].concentration / a[k];
        if (possible < amount) {
            amount = possible;
            leaving = k;
        }
    }
    if (leaving < 0 || !(amount > 0)) return false;
    for (int32_t k = 0; k < ns.m; ++k) {
        Species& present = chem.species[ns.solidSpecies[k]];
        present.concentration = k == leaving ? 0.0 : std::max(0.0, present.concentration - a[k] * amount);
        ns.x[ns.n + k] = present.concentration;
    }
    const int32_t leavingSpecies = ns.solidSpecies[leaving];
    RemoveSolidUnknown(ns, leaving);
    const int32_t offset = leavingSpecies - chem.solidSpeciesRange.first;
    if (offset >= 0 && offset < static_cast<int32_t>(ctx.state.solidPreviousAmount.size()))
        ctx.state.solidPreviousAmount[offset] = 0;
    chem.species[s].concentration = amount;
    AdmitSolid(ctx, s, ratio, showProgress);
    return true;
}

}  // namespace tormel
