#pragma once
// Which components each equilibrium is made of, found once per database so
// that an assembly looks only at the equilibria that the components of its
// water can form, and never scans the whole stoichiometry.
//
// Every equilibrium is filed under one of its components (its key): the one
// that takes part in the fewest equilibria. An equilibrium can only form when
// its key takes part, so the equilibria filed under the components of a water
// are all the candidates. Read only once built, so copies of a chemical
// system and several threads share one index.
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "core/chemical_types.h"

namespace tormel {

struct ChemicalSystem;
struct Database;

struct EquilibriumTerm {
    int32_t component = 0;
    int32_t coefficient = 0;
};

class EquilibriumIndex {
public:
    explicit EquilibriumIndex(const Database& db);

    // The components with a non-zero coefficient in `equilibrium`, in
    // ascending component order.
    std::span<const EquilibriumTerm> Terms(int32_t equilibrium) const;
    // The equilibria filed under `component`, in ascending order.
    std::span<const int32_t> FiledUnder(int32_t component) const;
    // Equilibria without any component (formed whatever the water holds).
    std::span<const int32_t> WithoutComponents() const { return withoutComponents_; }

    // Whether the index was built from a database of this shape.
    bool Fits(const Database& db) const;

private:
    int32_t componentCount_ = 0;
    int32_t equilibriumCount_ = 0;
    std::vector<int32_t> termStart_;  // per equilibrium, one more at the end
    std::vector<EquilibriumTerm> terms_;
    std::vector<int32_t> filedStart_;  // per component, one more at the end
    std::vector<int32_t> filed_;
    std::vector<int32_t> withoutComponents_;
};

// The index of `db`, built (and kept in `db`) when it has none or one of
// a database of another shape. The loader builds it once per load.
const EquilibriumIndex& IndexOf(Database& db);

// The index kept in `db` when it fits, otherwise one built into `temporary`.
const EquilibriumIndex& FittingIndex(const Database& db, std::optional<EquilibriumIndex>& temporary);

// The equilibria of `type`, within the type's range, whose components all
// take part in the current calculation (their inInput placement flag), in ascending
// order. Without a fitting index in the database a temporary one is built.
std::vector<int32_t> EquilibriaInInput(const ChemicalSystem& chem, EquilibriumType type);

}  // namespace tormel
