#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "calc/real_database.h"
#include "core/chemical_system.h"
#include "core/database_reader_support.h"
#include "core/equilibrium_index.h"
#include "support/synthetic_database.h"

namespace tormel {
namespace {

// What the index must give: the equilibria of a type within its range whose
// every component takes part, found by scanning the whole stoichiometry.
std::vector<int32_t> ScanForEquilibria(const ChemicalSystem& chem, EquilibriumType type) {
    std::vector<int32_t> found;
    const TypeRange range = chem.db().equilibriumRange[type];
    if (range.empty()) return found;
    for (int32_t e = range.first; e <= range.last; ++e) {
        if (chem.db().equilibria[e].type != type) continue;
        bool all = true;
        for (int32_t k = 0; k < chem.db().ComponentCount(); ++k)
            if (chem.db().Coefficient(k, e) != 0 && !chem.placement[k].inInput) all = false;
        if (all) found.push_back(e);
    }
    return found;
}

void ExpectTermsAreTheColumns(const Database& db, const EquilibriumIndex& index) {
    for (int32_t e = 0; e < db.EquilibriumCount(); ++e) {
        std::vector<EquilibriumTerm> column;
        for (int32_t k = 0; k < db.ComponentCount(); ++k)
            if (db.Coefficient(k, e) != 0) column.push_back({k, db.Coefficient(k, e)});
        const auto terms = index.Terms(e);
        ASSERT_EQ(terms.size(), column.size()) << db.equilibria[e].name;
        for (size_t t = 0; t < column.size(); ++t) {
            EXPECT_EQ(terms[t].component, column[t].component) << db.equilibria[e].name;
            EXPECT_EQ(terms[t].coefficient, column[t].coefficient) << db.equilibria[e].name;
        }
    }
}

// Random sets of components in the input, H+ and OH always in: the index
// finds exactly what a full scan finds, in the same order, for every type.
void ExpectIndexMatchesScan(ChemicalSystem chem, unsigned seed) {
    std::mt19937 rng(seed);
    for (double share : {0.0, 0.02, 0.1, 0.5, 1.0}) {
        std::bernoulli_distribution takesPart(share);
        for (int round = 0; round < 10; ++round) {
            chem.placement.assign(chem.db().components.size(), ComponentPlacement{});
            for (ComponentPlacement& p : chem.placement) p.inInput = takesPart(rng);
            chem.placement[chem.db().hydrogenIndex].inInput = true;
            chem.placement[chem.db().hydroxideIndex].inInput = true;
            for (EquilibriumType type : {EquilibriumType::Complex, EquilibriumType::Adsorption, EquilibriumType::Redox,
                                          EquilibriumType::Gas, EquilibriumType::Solid, EquilibriumType::Organic})
                ASSERT_EQ(EquilibriaInInput(chem, type), ScanForEquilibria(chem, type))
                    << "type " << CodeOf(type) << ", share " << share;
        }
    }
}

TEST(CoreEquilibriumIndex, FindsWhatAFullScanFindsInTheShippedDatabase) {
    const ChemicalSystem* database = test::RealDatabase();
    ASSERT_NE(database, nullptr);
    ASSERT_NE(database->db().equilibriumIndex, nullptr);  // built by the load
    ExpectTermsAreTheColumns(database->db(), *database->db().equilibriumIndex);
    ExpectIndexMatchesScan(*database, 15);
}

// The type ranges as the loader sets them.
void SetEquilibriumRanges(Database& db) {
    db.equilibriumRange = {};
    for (int32_t e = 0; e < db.EquilibriumCount(); ++e) ExtendTypeRange(db.equilibriumRange[db.equilibria[e].type], e);
}

TEST(CoreEquilibriumIndex, IsBuiltForAHandMadeDatabaseAndAgainWhenItsShapeChanges) {
    Database db = test::SyntheticDatabase();
    SetEquilibriumRanges(db);
    db.equilibriumIndex.reset();
    const EquilibriumIndex& first = IndexOf(db);
    ExpectTermsAreTheColumns(db, first);
    EXPECT_EQ(&IndexOf(db), &first);  // kept while it fits
    ExpectIndexMatchesScan(ChemicalSystem(db), 7);

    // an equilibrium without components is formed whatever the input holds
    db.equilibria.push_back(db.equilibria[db.equilibriumRange[EquilibriumType::Complex].last]);
    SetEquilibriumRanges(db);
    std::vector<int32_t> widened(db.components.size() * db.equilibria.size(), 0);
    for (int32_t k = 0; k < db.ComponentCount(); ++k)
        for (int32_t e = 0; e + 1 < db.EquilibriumCount(); ++e)
            widened[k * db.equilibria.size() + e] = db.stoichiometry[k * (db.equilibria.size() - 1) + e];
    db.stoichiometry = std::move(widened);
    EXPECT_TRUE(IndexOf(db).Terms(db.EquilibriumCount() - 1).empty());
    ChemicalSystem chem(db);
    chem.placement.assign(db.components.size(), ComponentPlacement{});
    EXPECT_EQ(EquilibriaInInput(chem, EquilibriumType::Complex), std::vector<int32_t>{db.EquilibriumCount() - 1});
    ExpectIndexMatchesScan(chem, 8);
}

}  // namespace
}  // namespace tormel
