// Result set 0 after a calculation, checked against the physics rather than
// the code: species lists add up to the dissolved amounts, the saturation of
// solids and gases agrees with the reference figures, and the names a user
// reads follow the rules for gases and protons.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "calc/json_reader.h"
#include "calc/reference_case.h"
#include "output/result_tables.h"
#include "result_test_support.h"

namespace tormel::test {
namespace {

TEST(BuildResults, SpeciesListsAddUpToTheDissolvedAmounts) {
    for (const std::string& file : ReferenceCaseFiles()) {
        CalculatedWorkspace c(file);
        SCOPED_TRACE(std::filesystem::path(file).stem().string());
        ASSERT_TRUE(c.ok);
        const SetView view = ViewSet(c.ws.results, 0);
        const ResultHeader& header = c.ws.results.sets[0].header;
        EXPECT_EQ(header.componentCount, static_cast<int32_t>(c.ws.chem.systemComponents.size()));
        EXPECT_EQ(header.speciesCount, static_cast<int32_t>(c.ws.chem.species.size()));
        for (size_t i = 0; i < view.components.size(); ++i) {
            const ComponentResult& component = view.components[i];
            if (component.kind != ComponentType::Cation && component.kind != ComponentType::Ligand) continue;
            double dissolved = 0;
            for (const SpeciesListEntry& entry : ParseSpeciesList(component.speciesList)) {
                ASSERT_GE(entry.species, 1);
                ASSERT_LE(entry.species, header.speciesCount);
                const SpeciesResult& s = view.species[entry.species - 1];
                if (s.category == CategoryDissolved) dissolved += entry.coefficient * s.concentration;
            }
            EXPECT_NEAR(dissolved, component.amounts[AmountDissolved],
                        1e-9 * std::fabs(component.amounts[AmountDissolved]) + 1e-30)
                << component.name;
        }
        for (const SpeciesResult& s : view.species) {
            if (s.reactionDefinition >= 0) { EXPECT_LT(s.reactionDefinition, header.reactionDefinitionCount) << s.name; }
        }
    }
}

TEST(BuildResults, SolidAndGasSaturationAgreesWithTheReferenceFigures) {
    int compared = 0;
    for (const std::string& file : ReferenceCaseFiles()) {
        const auto reference = ReadJsonFile(file);
        ASSERT_TRUE(reference.has_value());
        const JsonValue* options = reference->Find("options");
        if (options && options->BoolOr("precipitation", false)) continue;
        CalculatedWorkspace c(file);
        SCOPED_TRACE(std::filesystem::path(file).stem().string());
        ASSERT_TRUE(c.ok);
        const SetView view = ViewSet(c.ws.results, 0);
        const JsonValue* tolerance = reference->Find("tolerance");
        const double allowed = tolerance ? tolerance->NumberOr("saturation_index_absolute", 0.005) : 0.005;
        const JsonValue* indices = reference->Find("expected")->Find("saturation_indices");
        for (const auto& [name, value] : indices->members) {
            for (const SolidSaturation& solid : view.solidChecks) {
                if (solid.name != name) continue;
                EXPECT_NEAR(solid.saturationIndex, value.number, allowed) << name;
                const ReactionDefinition& definition = view.reactions[solid.reactionDefinition];
                EXPECT_EQ(definition.products[0].name, name);
                EXPECT_EQ(definition.note, "The activity of a solid is 1.");
                ++compared;
            }
            for (const GasResult& gas : view.gases) {
                if (gas.name.rfind(name + " / ", 0) != 0) continue;
                EXPECT_NEAR(std::log10(gas.partialPressure), value.number, allowed) << gas.name;
                EXPECT_EQ(view.reactions[gas.reactionDefinition].products[0].name, name);
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, 20);
}

TEST(BuildResults, GasComponentsAreHeadedByTheLigandTheyControl) {
    CalculatedWorkspace c(ReferenceCaseFile("co2_open_ph8"));
    ASSERT_TRUE(c.ok);
    const SetView view = ViewSet(c.ws.results, 0);
    const ComponentResult* gas = nullptr;
    for (const ComponentResult& component : view.components)
        if (component.kind == ComponentType::Gas) gas = &component;
    ASSERT_NE(gas, nullptr);
    EXPECT_EQ(gas->name, "CO2(g)");
    EXPECT_EQ(gas->displayName, "CO3");
    EXPECT_EQ(gas->gasText, "CO2(g) / CO3 2-");
    for (const GasResult& result : view.gases) EXPECT_EQ(result.name.rfind("CO2(g) /", 0), std::string::npos);

    const ResultContext context = MakeResultContext(c.ws);
    const int32_t index = static_cast<int32_t>(gas - view.components.data());
    const std::vector<SummaryRow> rows = SummaryTable(c.ws.results, 0, index, context);
    ASSERT_FALSE(rows.empty());
    EXPECT_EQ(rows[0].texts[0], "Dissolved CO3");
}

TEST(BuildResults, ProtonPercentagesOnlyInProtonBalanceMode) {
    CalculatedWorkspace fixed(ReferenceCaseFile("carbonate_hard_ph8_3"));
    CalculatedWorkspace balance(ReferenceCaseFile("nahco3_proton_balance"));
    ASSERT_TRUE(fixed.ok && balance.ok);
    EXPECT_FALSE(ViewSet(fixed.ws.results, 0).components[0].percentagesAllowed);
    EXPECT_FALSE(fixed.ws.results.sets[0].snapshot.protonBalance);
    EXPECT_TRUE(ViewSet(balance.ws.results, 0).components[0].percentagesAllowed);
    EXPECT_TRUE(balance.ws.results.sets[0].snapshot.protonBalance);
    EXPECT_TRUE(ViewSet(fixed.ws.results, 0).components[1].percentagesAllowed);
}

TEST(BuildResults, MsaIonsAndSaltsComeFromTheSolvedSystem) {
    CalculatedWorkspace c(ReferenceCaseFile("seawater_major_ions"), 2);
    ASSERT_TRUE(c.ok);
    const SetView view = ViewSet(c.ws.results, 0);
    ASSERT_FALSE(view.msaIons.empty());
    ASSERT_FALSE(view.salts.empty());
    bool naCl = false;
    for (const SaltRecord& salt : view.salts) naCl = naCl || salt.formula == "NaCl";
    EXPECT_TRUE(naCl);
    for (size_t s = 0; s < c.ws.chem.species.size(); ++s) {
        const Species& sp = c.ws.chem.species[s];
        if (sp.ionSize <= 0) continue;
        ASSERT_GE(sp.resultRow, 0);
        const MsaIonResult& ion = view.msaIons[sp.resultRow];
        EXPECT_EQ(ion.name, sp.name);
        EXPECT_NEAR(std::log(ion.gamma), ion.lnGamma, 1e-9);
        EXPECT_GT(ion.ionSize, 0);
    }
    CalculatedWorkspace davies(ReferenceCaseFile("seawater_major_ions"), 1);
    EXPECT_TRUE(ViewSet(davies.ws.results, 0).msaIons.empty());
}

// The "Other info" grids, which the output file leaves out: every row held,
// its key and each cell's text and number.
void ExpectGridsEqual(const InfoBlocks& expected, const InfoBlocks& actual) {
    for (int32_t b = 0; b < kInfoBlockCount; ++b) {
        const InfoBlock& x = expected[b];
        const InfoBlock& y = actual[b];
        EXPECT_EQ(x.gridHeader, y.gridHeader) << "block " << b;
        ASSERT_EQ(x.rowKeys, y.rowKeys) << "block " << b;
        for (int32_t r = 0; r < static_cast<int32_t>(x.rowKeys.size()); ++r)
            for (int32_t c = 0; c < kInfoColumns; ++c) {
                EXPECT_EQ(x.ShownAt(c, r), y.ShownAt(c, r)) << "block " << b << " row " << r << " column " << c;
                EXPECT_EQ(x.FindCell(c, r)->number, y.FindCell(c, r)->number) << "block " << b << " row " << r;
            }
    }
}

// A batch worker calculates one water after another in the same workspace:
// nothing of an earlier water may show in a later one's set.
TEST(BuildResults, AWorkspaceReusedCaseAfterCaseGivesTheSetsOfFreshOnes) {
    PreparedWorkspace reused;
    int32_t model = 1;
    for (const std::string& file : ReferenceCaseFiles()) {
        SCOPED_TRACE(std::filesystem::path(file).stem().string());
        model = 3 - model;  // MSA and Davies by turns
        CalculatedWorkspace fresh(file, model);
        ASSERT_TRUE(fresh.ok);
        ASSERT_TRUE(CalculateReferenceCase(reused.ws, file, model));
        ExpectSetsEqual(fresh.ws.results, 0, reused.ws.results, 0);
        ExpectGridsEqual(fresh.ws.results.sets[0].otherInfo, reused.ws.results.sets[0].otherInfo);
    }
}

}  // namespace
}  // namespace tormel::test
