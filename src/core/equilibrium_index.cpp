#include "core/equilibrium_index.h"

#include <algorithm>
#include <optional>

#include "core/chemical_system.h"

namespace tormel {

EquilibriumIndex::EquilibriumIndex(const Database& db)
    : componentCount_(db.ComponentCount()), equilibriumCount_(db.EquilibriumCount()) {
    // the terms, equilibrium by equilibrium, from the component-major matrix
    std::vector<int32_t> termCount(equilibriumCount_, 0);
    std::vector<int32_t> equilibriaOf(componentCount_, 0);
    for (int32_t c = 0; c < componentCount_; ++c)
        for (int32_t e = 0; e < equilibriumCount_; ++e)
            if (db.Coefficient(c, e) != 0) {
                ++termCount[e];
                ++equilibriaOf[c];
            }
    termStart_.assign(equilibriumCount_ + 1, 0);
    for (int32_t e = 0; e < equilibriumCount_; ++e) termStart_[e + 1] = termStart_[e] + termCount[e];
    terms_.resize(termStart_.back());
    std::vector<int32_t> fill(termStart_.begin(), termStart_.end() - 1);
    for (int32_t c = 0; c < componentCount_; ++c)
        for (int32_t e = 0; e < equilibriumCount_; ++e)
            if (const int32_t nu = db.Coefficient(c, e); nu != 0) terms_[fill[e]++] = {c, nu};

    // each equilibrium under its least common component
    std::vector<int32_t> key(equilibriumCount_, -1);
    std::vector<int32_t> filedCount(componentCount_, 0);
    for (int32_t e = 0; e < equilibriumCount_; ++e) {
        for (const EquilibriumTerm& t : Terms(e))
            if (key[e] < 0 || equilibriaOf[t.component] < equilibriaOf[key[e]]) key[e] = t.component;
        if (key[e] < 0)
            withoutComponents_.push_back(e);
        else
            ++filedCount[key[e]];
    }
    filedStart_.assign(componentCount_ + 1, 0);
    for (int32_t c = 0; c < componentCount_; ++c) filedStart_[c + 1] = filedStart_[c] + filedCount[c];
    filed_.resize(filedStart_.back());
    fill.assign(filedStart_.begin(), filedStart_.end() - 1);
    for (int32_t e = 0; e < equilibriumCount_; ++e)
        if (key[e] >= 0) filed_[fill[key[e]]++] = e;
}

std::span<const EquilibriumTerm> EquilibriumIndex::Terms(int32_t equilibrium) const {
    return {terms_.data() + termStart_[equilibrium], terms_.data() + termStart_[equilibrium + 1]};
}

std::span<const int32_t> EquilibriumIndex::FiledUnder(int32_t component) const {
    return {filed_.data() + filedStart_[component], filed_.data() + filedStart_[component + 1]};
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

std::vector<int32_t> EquilibriaInInput(const ChemicalSystem& chem, EquilibriumType type) {
    const Database& db = chem.db();
    std::vector<int32_t> found;
    const TypeRange range = db.equilibriumRange[type];
    if (range.empty()) return found;
    std::optional<EquilibriumIndex> temporary;
    const EquilibriumIndex& index = FittingIndex(db, temporary);
    auto consider = [&](int32_t e) {
        if (e < range.first || e > range.last || db.equilibria[e].type != type) return;
        for (const EquilibriumTerm& t : index.Terms(e))
            if (!chem.placement[t.component].inInput) return;
        found.push_back(e);
    };
    for (int32_t e : index.WithoutComponents()) consider(e);
    for (int32_t c = 0; c < db.ComponentCount(); ++c)
        if (chem.placement[c].inInput)
            for (int32_t e : index.FiledUnder(c)) consider(e);
    std::sort(found.begin(), found.end());
    return found;
}

}  // namespace tormel
