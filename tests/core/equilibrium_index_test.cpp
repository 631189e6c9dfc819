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
std::vector<int32_t> ScanForEquilibria(const ChemicalSystem& chem, int32_t type) {
    std::vector<int32_t> found;
    const TypeRange range = chem.equilibriumRange[type];
    if (range.empty()) return found;
    for (int32_t e = range.first; e <= range.last; ++e) {
        if (chem.equilibria[e].type != type) continue;
        bool all = true;
        for (int32_t k = 0; k < chem.ComponentCount(); ++k)
            if (chem.Coefficient(k, e) != 0 && !chem.placement[k].inInput) all = false;
        if (all) found.push_back(e);
    }
    return found;
}

void ExpectTermsAreTheColumns(const ChemicalSystem& chem, const EquilibriumIndex& index) {
    for (int32_t e = 0; e < chem.EquilibriumCount(); ++e) {
        std::vector<EquilibriumTerm> column;
        for (int32_t k = 0; k < chem.ComponentCount(); ++k)
            if (chem.Coefficient(k, e) != 0) column.push_back({k, chem.Coefficient(k, e)});
        const auto terms = index.Terms(e);
        ASSERT_EQ(terms.size(), column.size()) << chem.equilibria[e].name;
        for (size_t t = 0; t < column.size(); ++t) {
            EXPECT_EQ(terms[t].component, column[t].component) << chem.equilibria[e].name;
            EXPECT_EQ(terms[t].coefficient, column[t].coefficient) << chem.equilibria[e].name;
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
            chem.placement.assign(chem.components.size(), ComponentPlacement{});
            for (ComponentPlacement& p : chem.placement) p.inInput = takesPart(rng);
            chem.placement[chem.hydrogenIndex].inInput = true;
            chem.placement[chem.hydroxideIndex].inInput = true;
            for (int32_t type : {EqComplex, EqAdsorption, EqRedox, EqGas, EqSolid, EqOrganic})
                ASSERT_EQ(EquilibriaInInput(chem, type), ScanForEquilibria(chem, type))
                    << "type " << type << ", share " << share;
        }
    }
}

TEST(CoreEquilibriumIndex, FindsWhatAFullScanFindsInTheShippedDatabase) {
    const ChemicalSystem* database = test::RealDatabase();
    ASSERT_NE(database, nullptr);
    ASSERT_NE(database->equilibriumIndex, nullptr);  // built by the load
    ExpectTermsAreTheColumns(*database, *database->equilibriumIndex);
    ExpectIndexMatchesScan(*database, 15);
}

// The type ranges as the loader sets them.
void SetEquilibriumRanges(ChemicalSystem& chem) {
    chem.equilibriumRange = {};
    for (int32_t e = 0; e < chem.EquilibriumCount(); ++e) ExtendTypeRange(chem.equilibriumRange[chem.equilibria[e].type], e);
}

TEST(CoreEquilibriumIndex, IsBuiltForAHandMadeDatabaseAndAgainWhenItsShapeChanges) {
    ChemicalSystem chem = test::SyntheticDatabase();
    SetEquilibriumRanges(chem);
    chem.equilibriumIndex.reset();
    const EquilibriumIndex& first = IndexOf(chem);
    ExpectTermsAreTheColumns(chem, first);
    EXPECT_EQ(&IndexOf(chem), &first);  // kept while it fits
    ExpectIndexMatchesScan(chem, 7);

    // an equilibrium without components is formed whatever the input holds
    chem.equilibria.push_back(chem.equilibria[chem.equilibriumRange[EqComplex].last]);
    SetEquilibriumRanges(chem);
    std::vector<int32_t> widened(chem.components.size() * chem.equilibria.size(), 0);
    for (int32_t k = 0; k < chem.ComponentCount(); ++k)
        for (int32_t e = 0; e + 1 < chem.EquilibriumCount(); ++e)
            widened[k * chem.equilibria.size() + e] = chem.stoichiometry[k * (chem.equilibria.size() - 1) + e];
    chem.stoichiometry = std::move(widened);
    EXPECT_TRUE(IndexOf(chem).Terms(chem.EquilibriumCount() - 1).empty());
    chem.placement.assign(chem.components.size(), ComponentPlacement{});
    EXPECT_EQ(EquilibriaInInput(chem, EqComplex), std::vector<int32_t>{chem.EquilibriumCount() - 1});
    ExpectIndexMatchesScan(chem, 8);
}

}  // namespace
}  // namespace tormel
