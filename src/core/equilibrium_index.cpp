#include "core/equilibrium_index.h"

#include <algorithm>
#include <optional>

#include "core/chemical_system.h"

namespace tormel {

EquilibriumIndex::EquilibriumIndex(const Database& db)
    : componentCount_(db.ComponentCount()), equilibriumCount_(db.EquilibriumCount()) {
    // the terms, equilibrium by equilibrium, from the component-major matrix
    std::vector<int32_t> termCount(equilibriumCount_, 0);
    for (int32_t c = 0; c < componentCount_; ++c)
        for (int32_t e = 0; e < equilibriumCount_; ++e)
            if (db.Coefficient(c, e) != 0) ++termCount[e];
    termStart_.assign(equilibriumCount_ + 1, 0);
    for (int32_t e = 0; e < equilibriumCount_; ++e) termStart_[e + 1] = termStart_[e] + termCount[e];
    terms_.resize(termStart_.back());
    std::vector<int32_t> fill(termStart_.begin(), termStart_.end() - 1);
    for (int32_t c = 0; c < componentCount_; ++c)
        for (int32_t e = 0; e < equilibriumCount_; ++e)
            if (const int32_t nu = db.Coefficient(c, e); nu != 0) terms_[fill[e]++] = {c, nu};

    // each equilibrium under its type and the component of its terms that
    // takes part in the fewest equilibria of that type
    std::vector<int32_t> ofType(static_cast<size_t>(componentCount_) * kTypeSlots, 0);
    for (int32_t e = 0; e < equilibriumCount_; ++e)
        for (const EquilibriumTerm& t : Terms(e)) ++ofType[Slot(t.component, TypeSlot(db.equilibria[e].type))];
    std::vector<int32_t> key(equilibriumCount_, -1);
    std::vector<int32_t> filedCount(ofType.size(), 0);
    for (int32_t e = 0; e < equilibriumCount_; ++e) {
        const int32_t type = TypeSlot(db.equilibria[e].type);
        int32_t fewest = 0;
        for (const EquilibriumTerm& t : Terms(e)) {
            const int32_t count = ofType[Slot(t.component, type)];
            if (key[e] < 0 || count < fewest) {
                key[e] = t.component;
                fewest = count;
            }
        }
        if (key[e] < 0)
            withoutComponents_[type].push_back(e);
        else
            filedCount[Slot(key[e], type)] += 1 + static_cast<int32_t>(Terms(e).size());  // e, count, the others
    }
    for (int32_t c = 0; c < componentCount_; ++c)
        for (int32_t type = 0; type < kTypeSlots; ++type)
            if (filedCount[Slot(c, type)] > 0) keys_[type].push_back(c);
    filedStart_.assign(filedCount.size() + 1, 0);
    for (size_t k = 0; k < filedCount.size(); ++k) filedStart_[k + 1] = filedStart_[k] + filedCount[k];
    filed_.resize(filedStart_.back());
    fill.assign(filedStart_.begin(), filedStart_.end() - 1);
    for (int32_t e = 0; e < equilibriumCount_; ++e) {
        if (key[e] < 0) continue;
        int32_t& at = fill[Slot(key[e], TypeSlot(db.equilibria[e].type))];
        filed_[at++] = e;
        filed_[at++] = static_cast<int32_t>(Terms(e).size()) - 1;
        for (const EquilibriumTerm& t : Terms(e))
            if (t.component != key[e]) filed_[at++] = t.component;
    }
}

bool EquilibriumIndex::Fits(const Database& db) const {
    return componentCount_ == db.ComponentCount() && equilibriumCount_ == db.EquilibriumCount() &&
           db.stoichiometry.size() == static_cast<size_t>(componentCount_) * equilibriumCount_;
}

const EquilibriumIndex& IndexOf(Database& db) {
    if (!db.equilibriumIndex || !db.equilibriumIndex->Fits(db))
        db.equilibriumIndex = std::make_shared<const EquilibriumIndex>(db);
    return *db.equilibriumIndex;
}

const EquilibriumIndex& FittingIndex(const Database& db, std::optional<EquilibriumIndex>& temporary) {
    if (db.equilibriumIndex && db.equilibriumIndex->Fits(db)) return *db.equilibriumIndex;
    return temporary.emplace(db);
}

void EquilibriaInInput(const ChemicalSystem& chem, EquilibriumType type, std::vector<int32_t>& found) {
    const Database& db = chem.db();
    found.clear();
    const TypeRange range = db.equilibriumRange[type];
    if (range.empty()) return;
    found.reserve(std::min<size_t>(static_cast<size_t>(range.last - range.first) + 1, 64));  // a typical water's
    std::optional<EquilibriumIndex> temporary;
    const EquilibriumIndex& index = FittingIndex(db, temporary);
    const ComponentPlacement* placement = chem.placement.data();
    // the type is checked last: most candidates fail on a component first
    auto ofType = [&](int32_t e) { return e >= range.first && e <= range.last && db.equilibria[e].type == type; };
    for (int32_t e : index.WithoutComponents(type))
        if (ofType(e)) found.push_back(e);
    for (const int32_t c : index.Keys(type)) {
        if (!placement[c].inInput) continue;
        const std::span<const int32_t> records = index.FiledUnder(c, type);
        for (const int32_t* r = records.data(); r != records.data() + records.size();) {
            const int32_t e = r[0];
            const int32_t* other = r + 2;
            const int32_t* end = other + r[1];
            r = end;
            while (other != end && placement[*other].inInput) ++other;
            if (other == end && ofType(e)) found.push_back(e);
        }
    }
    std::sort(found.begin(), found.end());
}

std::vector<int32_t> EquilibriaInInput(const ChemicalSystem& chem, EquilibriumType type) {
    std::vector<int32_t> found;
    EquilibriaInInput(chem, type, found);
    return found;
}

}  // namespace tormel
