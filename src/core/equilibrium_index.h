#pragma once
// Which components each equilibrium is made of, found once per database so
// that an assembly looks only at the equilibria that the components of its
// water can form, and never scans the whole stoichiometry.
//
// Every equilibrium is filed under its type and one of its components (its
// key): the one that takes part in the fewest equilibria of that type. An
// equilibrium can only form when its key takes part, so the equilibria of a
// type filed under the components of a water are all the candidates. Read only once built, so copies of a chemical
// system and several threads share one index.
#include <array>
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
    std::span<const EquilibriumTerm> Terms(int32_t equilibrium) const {
        return {terms_.data() + termStart_[equilibrium], terms_.data() + termStart_[equilibrium + 1]};
    }
    // The equilibria of `type` filed under `component`, in ascending order,
    // as records: the equilibrium, the count of its other components, then
    // those components, so that a walk checks them without looking up terms.
    std::span<const int32_t> FiledUnder(int32_t component, EquilibriumType type) const {
        const size_t slot = Slot(component, TypeSlot(type));
        return {filed_.data() + filedStart_[slot], filed_.data() + filedStart_[slot + 1]};
    }
    // The components with equilibria of `type` filed under them, ascending.
    std::span<const int32_t> Keys(EquilibriumType type) const { return keys_[TypeSlot(type)]; }
    // Equilibria of `type` without any component (formed whatever the water
    // holds), in ascending order.
    std::span<const int32_t> WithoutComponents(EquilibriumType type) const {
        return withoutComponents_[TypeSlot(type)];
    }

    // Whether the index was built from a database of this shape.
    bool Fits(const Database& db) const;

private:
    // one slot per type code; codes outside the type set share slot 0
    static constexpr int32_t kTypeSlots = 8;
    static int32_t TypeSlot(EquilibriumType type) {
        const int32_t code = static_cast<int32_t>(type);
        return code > 0 && code < kTypeSlots ? code : 0;
    }
    size_t Slot(int32_t component, int32_t typeSlot) const {
        return static_cast<size_t>(component) * kTypeSlots + static_cast<size_t>(typeSlot);
    }

    int32_t componentCount_ = 0;
    int32_t equilibriumCount_ = 0;
    std::vector<int32_t> termStart_;  // per equilibrium, one more at the end
    std::vector<EquilibriumTerm> terms_;
    std::vector<int32_t> filedStart_;  // per component and type slot, one more at the end
    std::vector<int32_t> filed_;  // records, see FiledUnder
    std::array<std::vector<int32_t>, kTypeSlots> withoutComponents_;
    std::array<std::vector<int32_t>, kTypeSlots> keys_;
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
// The same into `found`, which keeps its room from call to call.
void EquilibriaInInput(const ChemicalSystem& chem, EquilibriumType type, std::vector<int32_t>& found);

}  // namespace tormel
