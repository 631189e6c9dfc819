// One Newton-Raphson step on the mass balances (and the saturation of the
// present solids), with limits that keep every unknown positive and keep the
// step of H+, of solid amounts and of components touched by a solid small.
#include <algorithm>
#include <cmath>

#include "calc/dense_solve.h"
#include "calc/solver.h"
#include "calc/solver_options.h"
#include "calc/species_tables.h"

namespace tormel {

namespace {

constexpr double kLn10 = 2.302585092994046;

// Residuals: calculated minus given total; for a present solid its
// saturation in natural logarithms.
void Residuals(const ChemicalSystem& chem, NewtonSystem& ns) {
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    for (int32_t u = 0; u < ns.n; ++u) {
        const SystemComponent& sc = chem.systemComponents[ns.unknownComponent[u]];
        ns.r[u] = sc.calculatedTotal - sc.balanceTotal;
    }
    for (int32_t k = 0; k < ns.m; ++k) {
        const int32_t s = ns.solidSpecies[k];
        const Species& solid = chem.species[s];
        double sum = kLn10 * solid.workingLogK;
        for (int32_t e = 0; e < solid.componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            if (term.coefficient == 0) continue;
            sum += term.coefficient * std::log(chem.systemComponents[term.systemComponent].freeConcentration);
        }
        ns.r[ns.n + k] = sum;
    }
}

// d(total of u)/d(c of v) contributed by species s: nu_u nu_v c_s / c_v,
// formed again in logarithms when the plain product is not finite.
bool JacobianTerm(const ChemicalSystem& chem, int32_t s, int32_t nuU, int32_t v, int32_t nuV, double& value) {
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    const Species& sp = chem.species[s];
    const double cv = chem.systemComponents[v].freeConcentration;
    double product = nuU * nuV * std::pow(cv, nuV - 1) * std::pow(10.0, sp.workingLogK);
    double logSum = std::log(std::fabs(static_cast<double>(nuU) * nuV)) + (nuV - 1) * std::log(cv);
    for (int32_t e = 0; e < sp.componentTerms; ++e) {
        const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
        if (term.coefficient == 0 || term.systemComponent == v) continue;
        const double c = chem.systemComponents[term.systemComponent].freeConcentration;
        product *= std::pow(c, term.coefficient);
        logSum += term.coefficient * std::log(c);
    }
    if (std::isfinite(product)) {
        value = product;
        return true;
    }
    const double sign = (nuU * nuV) < 0 ? -1.0 : 1.0;
    value = sign * std::pow(10.0, logSum / kLn10 + sp.workingLogK);
    return std::isfinite(value);
}

// The component block's entries in the order they are summed: by species,
// then by the term of the row's unknown, then by the term of the column's.
// Only dissolved species holding a mass-balance unknown enter.
void BuildNewtonTables(const ChemicalSystem& chem, const NewtonSystem& ns, int32_t end, SpeciesTables& tables) {
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    tables.newtonSpecies.Clear();
    tables.newtonSpecies.Reserve(static_cast<size_t>(end), static_cast<size_t>(chem.maxSpeciesComponents));
    tables.newtonDistinct.clear();
    tables.newtonComponents.clear();
    tables.jacobianEntries.clear();
    for (int32_t s = 0; s < end; ++s) {
        const Species& sp = chem.species[s];
        const size_t before = tables.jacobianEntries.size();
        bool distinct = true;
        for (int32_t a = 0; a < sp.componentTerms; ++a) {
            const CompositionTerm& ta = chem.composition[Position(s, a, speciesCount)];
            for (int32_t f = 0; f < a; ++f)
                if (chem.composition[Position(s, f, speciesCount)].systemComponent == ta.systemComponent) distinct = false;
            const int32_t u = ns.componentUnknown[ta.systemComponent];
            if (u < 0 || ta.coefficient == 0) continue;
            for (int32_t b = 0; b < sp.componentTerms; ++b) {
                const CompositionTerm& tb = chem.composition[Position(s, b, speciesCount)];
                const int32_t v = ns.componentUnknown[tb.systemComponent];
                if (v < 0 || tb.coefficient == 0) continue;
                tables.jacobianEntries.push_back({s, u, v, tb.systemComponent, ta.coefficient, tb.coefficient,
                                                 static_cast<double>(ta.coefficient * tb.coefficient)});
            }
        }
        if (tables.jacobianEntries.size() == before) continue;
        tables.newtonSpecies.Add(chem, s, [](const CompositionTerm& term) { return term.coefficient != 0; });
        tables.newtonDistinct.push_back(distinct ? 1 : 0);
    }
    std::vector<char>& used = tables.componentHeld;
    used.assign(chem.systemComponents.size(), 0);
    for (const CompositionTerm& term : tables.newtonSpecies.terms) used[term.systemComponent] = 1;
    for (size_t j = 0; j < used.size(); ++j)
        if (used[j]) tables.newtonComponents.push_back(static_cast<int32_t>(j));
    tables.newtonBuilt = true;
}

// c_s of every species of the component block from the current unknowns,
// formed once per step: its entry for unknowns u and v is then
// nu_u nu_v c_s / c_v. A species that holds a component in more than one
// entry, or whose c_s is not a finite non-zero number, gets 0 and its
// entries are formed term by term.
void SpeciesTerms(const ChemicalSystem& chem, int32_t end, SpeciesTables& tables, NewtonSystem& ns) {
    if (ns.speciesTerm.size() < static_cast<size_t>(end)) ns.speciesTerm.resize(static_cast<size_t>(end));
    for (int32_t j : tables.newtonComponents) LogFree(tables, j, chem.systemComponents[j].freeConcentration);
    const SpeciesTermList& list = tables.newtonSpecies;
    const CompositionTerm* terms = list.terms.data();
    for (int32_t k = 0; k < list.Size(); ++k) {
        const int32_t s = list.species[k];
        double exponent = chem.species[s].workingLogK;
        for (int32_t t = list.start[k]; t < list.start[k + 1]; ++t)
            exponent += terms[t].coefficient * tables.logFree[terms[t].systemComponent];
        const double c = PowerOfTen(tables, s, exponent);
        ns.speciesTerm[static_cast<size_t>(s)] = tables.newtonDistinct[k] && std::isfinite(c) && c != 0 ? c : 0;
    }
}

bool BuildJacobian(const ChemicalSystem& chem, SpeciesTables& tables, NewtonSystem& ns) {
    const int32_t size = ns.Size();
    std::fill(ns.jacobian.begin(), ns.jacobian.end(), 0.0);
    const int32_t speciesCount = static_cast<int32_t>(chem.species.size());
    const int32_t end = chem.solidSpeciesRange.empty() ? speciesCount : chem.solidSpeciesRange.first;
    if (!tables.newtonBuilt) BuildNewtonTables(chem, ns, end, tables);
    SpeciesTerms(chem, end, tables, ns);
    // the free concentrations, as SpeciesTerms took their logarithms: one
    // dense array rather than a field of each component record
    const double* free = tables.logFreeOf.data();
    const double* speciesTerm = ns.speciesTerm.data();
    for (const JacobianEntry& entry : tables.jacobianEntries) {
        const double cs = speciesTerm[entry.species];
        double value = entry.product * cs / free[entry.component];
        if ((cs == 0 || !std::isfinite(value)) &&
            !JacobianTerm(chem, entry.species, entry.nuU, entry.component, entry.nuV, value))
            return false;
        ns.jacobian[entry.u * size + entry.v] += value;
    }
    for (int32_t k = 0; k < ns.m; ++k) {
        const int32_t s = ns.solidSpecies[k];
        const Species& solid = chem.species[s];
        for (int32_t e = 0; e < solid.componentTerms; ++e) {
            const CompositionTerm& term = chem.composition[Position(s, e, speciesCount)];
            const int32_t u = ns.componentUnknown[term.systemComponent];
            if (u < 0 || term.coefficient == 0) continue;
            ns.jacobian[u * size + ns.n + k] = term.coefficient;
            ns.jacobian[(ns.n + k) * size + u] =
                term.coefficient / chem.systemComponents[term.systemComponent].freeConcentration;
        }
    }
    return true;
}

// With solids present, the saturation conditions tie the solid's components
// together (for a hydroxide, Al / H^3): limiting each unknown on its own
// (halving both Al and H multiplies that product by 4) turns the step away
// from the solution and can push a solid ever further from saturation. So a
// step that would carry a solid's amount or a component it touches past its
// factor limit is first shortened as a whole, keeping its direction; the
// limits below then hold by themselves for those unknowns. Without solids
// there are no such unknowns and the step is taken in full.
void ShortenForSolids(NewtonSystem& ns) {
    double scale = 1;
    for (int32_t u = 0; u < ns.Size(); ++u) {
        if (ns.kind[u] == UnknownComponent || ns.delta[u] == 0 || !(ns.x[u] > 0)) continue;
        const double f = ns.kind[u] == UnknownTouchedBySolid ? kSolverOptions.touchedFactor : kSolverOptions.solidFactor;
        const double x = ns.x[u];
        const double y = x - ns.delta[u];
        if (y > f * x) scale = std::min(scale, (f - 1) * x / -ns.delta[u]);
        if (y < x / f) scale = std::min(scale, (x - x / f) / ns.delta[u]);
    }
    if (scale < 1)
        for (double& d : ns.delta) d *= scale;
}

}  // namespace

bool NewtonStep(CalcContext& ctx, bool& converged) {
    ChemicalSystem& chem = ctx.chem;
    SolverState& st = ctx.state;
    NewtonSystem& ns = st.newton;
    const int32_t size = ns.Size();
    Residuals(chem, ns);
    // A present solid is part of the same system of equations as the mass
    // balances: the iteration has converged only when its saturation holds as
    // closely as they do. (Otherwise the step of the last iteration could
    // still move the solid's amount by a share of its components that the
    // reported species no longer balance.)
    for (int32_t k = 0; k < ns.m; ++k)
        if (std::fabs(ns.r[ns.n + k]) > std::log(st.workingCriterion)) converged = false;
    if (!BuildJacobian(chem, TablesFor(chem, st.tables), ns)) return false;
    std::copy(ns.r.begin(), ns.r.begin() + size, ns.delta.begin());
    if (!SolvePivotedInPlace(ns.jacobian, std::span<double>(ns.delta).first(static_cast<size_t>(size)), size, 0))
        return false;
    ShortenForSolids(ns);
    for (int32_t u = 0; u < size; ++u) {
        const double y = ns.x[u] - ns.delta[u];
        const int16_t kind = ns.kind[u];
        if (kind == UnknownComponent) {
            const int32_t j = ns.unknownComponent[u];
            SystemComponent& sc = chem.systemComponents[j];
            if (j == 0 && st.protonBalanceMode) {
                double h = sc.freeConcentration;
                if (h > 1e-10 && h < 0.0001) {
                    if (y < 0.8 * h) {
                        h = 0.8 * h;
                        converged = false;
                    } else if (y > 1.25 * h) {
                        h = 1.25 * h;
                        converged = false;
                    } else {
                        h = y;
                    }
                }
                ns.x[u] = h;
            } else if (y <= 0 || y * st.bulkFraction > sc.balanceTotal * st.workingCriterion) {
                RatioUpdate(ctx, j);
                ns.x[u] = sc.freeConcentration;
                converged = false;
            } else {
                ns.x[u] = y;
            }
            continue;
        }
        const double f = kind == UnknownTouchedBySolid ? kSolverOptions.touchedFactor : kSolverOptions.solidFactor;
        if (y > 0) {
            if (y > f * ns.x[u]) {
                ns.x[u] = f * ns.x[u];
                converged = false;
            } else if (y >= ns.x[u] / f) {
                ns.x[u] = y;
            } else {
                ns.x[u] = ns.x[u] / f;
                converged = false;
            }
        } else {
            ns.x[u] = ns.x[u] / f;
            converged = false;
        }
    }
    for (int32_t u = 0; u < ns.n; ++u) chem.systemComponents[ns.unknownComponent[u]].freeConcentration = ns.x[u];
    for (int32_t k = 0; k < ns.m; ++k) chem.species[ns.solidSpecies[k]].concentration = ns.x[ns.n + k];
    return true;
}

}  // namespace tormel
