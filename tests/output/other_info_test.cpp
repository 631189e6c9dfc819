// The "Other info" report: which blocks are present, the rows each block
// lays out, the cell conventions (numbers behind their texts, percentages
// kept as fractions), the states of solids, and the report rebuilt from a
// set read back from its output file.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "calc/reference_case.h"
#include "output/build_other_info.h"
#include "output/other_info_blocks.h"
#include "output/output_file.h"
#include "result_test_support.h"

namespace tormel::test {
namespace {

// A result set built by hand, with the English texts and default options.
struct HandSet {
    Language language{EnglishLanguageFile()};
    OutputOptions options;
    ResultStore store;
    SetRecords records;
    ResultSet& set = store.sets[0];
    InputProblem& input = store.sets[0].snapshot.input;

    HandSet() {
        input.ionicStrengthModel = 1;
        records.components.push_back(MakeComponent(Cation, "H", 1e-7, 1.008, ""));
        records.components[0].percentagesAllowed = false;
        records.componentInfos.push_back({"H", Cation, 1e-7, 1.008, InpTypeFreeAct});
    }
    const InfoBlocks& Build(const Database* database = nullptr) {
        StoreSetRecords(store, 0, records);
        BuildOtherInfo(store, 0, ResultContext{language, options, DecimalSeparator{}}, database);
        return set.otherInfo;
    }
    std::string Text(int32_t block, int32_t column, int32_t row) const {
        const InfoCell* cell = set.otherInfo[block].FindCell(column, row);
        return cell ? cell->text : std::string();
    }
    const InfoCell* Cell(int32_t block, int32_t column, int32_t row) const {
        return set.otherInfo[block].FindCell(column, row);
    }
};

SpeciesResult Organic(int32_t kind, double concentration) {
    SpeciesResult s = MakeSpecies(kind, "org" + std::to_string(kind), concentration);
    s.category = CategoryOrganic;
    s.hasActivity = false;
    s.hasConstants = false;
    return s;
}

TEST(OtherInfo, DaviesWithoutOrganicMatterHasSixGeneralRowsAndNoMsaOrOrganicBlock) {
    // the calculation builds the report with the results
    const CalculatedWorkspace c(ReferenceCaseFile("carbonate_hard_ph8_3"), 1);
    ASSERT_TRUE(c.ok);
    const ResultSet& set = c.ws.results.sets[0];
    const InfoBlock& general = set.otherInfo[InfoGeneral];

    EXPECT_FALSE(general.title.empty());
    EXPECT_EQ(general.rowCount, 6);
    EXPECT_EQ(general.columnCount, 3);
    EXPECT_TRUE(set.otherInfo[InfoMsa].title.empty());
    EXPECT_TRUE(set.otherInfo[InfoOrganic].title.empty());
    EXPECT_TRUE(set.otherInfo[InfoAdsorption].title.empty());

    const InfoCell* iterations = general.FindCell(1, 0);
    ASSERT_NE(iterations, nullptr);
    EXPECT_TRUE(iterations->numeric);
    EXPECT_EQ(iterations->number, set.header.iterationCount);
    EXPECT_EQ(iterations->text, std::to_string(set.header.iterationCount));
    const InfoCell* difference = general.FindCell(1, 4);
    ASSERT_NE(difference, nullptr);
    EXPECT_DOUBLE_EQ(difference->number, set.header.cationCharge - set.header.anionCharge);
    EXPECT_DOUBLE_EQ(general.FindCell(1, 1)->number, set.snapshot.ionicStrength);
}

TEST(OtherInfo, IterationCountSaysWhenTheFallbackFinishedTheSolve) {
    HandSet h;
    h.set.header.iterationCount = 340;
    h.Build();
    EXPECT_EQ(h.Text(InfoGeneral, 2, 0), "");
    h.set.header.fallbackIteration = 312;
    h.Build();
    EXPECT_EQ(h.Text(InfoGeneral, 1, 0), "340");
    EXPECT_EQ(h.Text(InfoGeneral, 2, 0), "with the fallback solver from iteration 312");
}

TEST(OtherInfo, MsaBlockListsSaltsIonsAndModelParameters) {
    const CalculatedWorkspace c(ReferenceCaseFile("seawater_major_ions"), 2);
    ASSERT_TRUE(c.ok);
    const ResultSet& set = c.ws.results.sets[0];
    const InfoBlock& msa = set.otherInfo[InfoMsa];
    const int32_t salts = set.header.saltCount, ions = set.header.msaIonCount;
    ASSERT_GT(salts, 0);
    ASSERT_GT(ions, 0);

    EXPECT_EQ(msa.FindCell(0, 0)->text, "Mean activity coefficients of " + std::to_string(salts) + " salts");
    const int32_t ionTitles = salts + 3;  // salts from row 1, an empty row, the heading
    EXPECT_EQ(msa.FindCell(0, ionTitles - 1)->text, "Activity coefficients of the ions");
    const SetView view = ViewSet(c.ws.results, 0);
    const MsaIonResult& firstIon = view.msaIons[0];
    EXPECT_EQ(msa.FindCell(0, ionTitles + 1)->text.rfind(firstIon.name, 0), 0u);
    EXPECT_DOUBLE_EQ(msa.FindCell(1, ionTitles + 1)->number, firstIon.gamma);
    // an empty row, the parameters' heading, then x, F1..F3, X0..X3, Γ, η, Ω
    const int32_t heading = ionTitles + ions + 2;
    EXPECT_EQ(msa.FindCell(0, heading)->text, "Parameters of the MSA model");
    EXPECT_EQ(msa.FindCell(0, heading + 11)->text, "Ω");
    EXPECT_DOUBLE_EQ(msa.FindCell(1, heading + 11)->number, set.msa.omega);
    EXPECT_EQ(msa.rowCount, heading + 12);
}

TEST(OtherInfo, OrganicBlockShowsTridentateSitesOnlyOutsideModel5) {
    for (const int32_t model : {Model5, Model7}) {
        SCOPED_TRACE(model);
        HandSet h;
        h.input.organicComplexation = true;
        h.input.organicModel = model;
        h.set.snapshot.fractions[0].concentration = 2;  // fulvic only
        h.set.header.organicReference = "Ref 2020";
        ComponentResult copper = MakeComponent(Cation, "Cu", 4e-6, 63.5, "");
        copper.amounts[AmountOrganic] = 3e-6;
        copper.siteAmounts[SiteMonoFulvic] = 1e-6;
        copper.siteAmounts[SiteBiFulvic] = 3e-6;
        copper.siteAmounts[SiteDiffuseFulvic] = 2e-6;
        h.records.components.push_back(copper);
        h.records.componentInfos.push_back({"Cu", Cation, 4e-6, 63.5, InpTypeTotalConc});
        h.records.species = {MakeSpecies(FreeComponent, "H+", 1e-7), Organic(9, 1e-6), Organic(10, 2e-6),
                             Organic(27, 3e-6), Organic(17, 5e-6)};
        h.set.header.firstOrganicSpecies = 1;
        h.set.header.reportedComponentCount = 2;
        const InfoBlock& block = h.Build()[InfoOrganic];

        EXPECT_EQ(h.Text(InfoOrganic, 0, 0), "Fulvic acids");
        EXPECT_EQ(h.Text(InfoOrganic, 0, 1), "  FA-monodentates");
        // free sites 1e-6 and bound 1e-6: half each
        EXPECT_EQ(h.Text(InfoOrganic, 0, 2), "    Free sites");
        EXPECT_DOUBLE_EQ(h.Cell(InfoOrganic, 1, 2)->number, 1e-6);
        EXPECT_DOUBLE_EQ(h.Cell(InfoOrganic, 3, 2)->number, 0.5);
        EXPECT_EQ(h.Text(InfoOrganic, 3, 2), "50.00%");
        EXPECT_EQ(h.Text(InfoOrganic, 4, 2), "Ref 2020");
        EXPECT_EQ(h.Text(InfoOrganic, 0, 4), "    Cu");
        EXPECT_EQ(h.Text(InfoOrganic, 0, 5), "  FA-bidentates");
        // two bidentate free-site species hold one site pair: 2e-6 / 2
        EXPECT_DOUBLE_EQ(h.Cell(InfoOrganic, 1, 6)->number, 1e-6);
        EXPECT_DOUBLE_EQ(h.Cell(InfoOrganic, 3, 6)->number, 0.25);
        const bool tridentate = model != Model5;
        EXPECT_EQ(h.Text(InfoOrganic, 0, 9), tridentate ? "  FA-tridentates" : "  FA-DDL");
        if (tridentate) {
            EXPECT_DOUBLE_EQ(h.Cell(InfoOrganic, 1, 10)->number, 1e-6);  // 3e-6 / 3, nothing bound
            EXPECT_EQ(h.Text(InfoOrganic, 0, 12), "  FA-DDL");
        }
        const int32_t ddl = tridentate ? 12 : 9;
        EXPECT_EQ(h.Text(InfoOrganic, 0, ddl + 1), "    Cu");
        EXPECT_DOUBLE_EQ(h.Cell(InfoOrganic, 3, ddl + 1)->number, 1.0);
        EXPECT_EQ(block.rowCount, ddl + 2);
        // no humic acids: nothing about them
        for (int32_t r = 0; r < block.rowCount; ++r) EXPECT_EQ(h.Text(InfoOrganic, 0, r).find("HA"), std::string::npos);

        const InfoBlock& general = h.set.otherInfo[InfoGeneral];
        EXPECT_EQ(general.rowCount, 16);
        EXPECT_EQ(h.Text(InfoGeneral, 0, 6), "");
        EXPECT_EQ(h.Text(InfoGeneral, 0, 11), "");
        EXPECT_EQ(h.Text(InfoGeneral, 0, 15), "Bulk solution");
    }
}

TEST(OtherInfo, HumicFractionFollowsTheFulvicOneAfterAnEmptyRow) {
    HandSet h;
    h.input.organicComplexation = true;
    h.input.organicModel = Model6;
    h.set.snapshot.fractions[0].concentration = 1;
    h.set.snapshot.fractions[1].concentration = 1;
    h.records.species = {MakeSpecies(FreeComponent, "H+", 1e-7), Organic(9, 1e-6), Organic(17, 1e-6)};
    h.set.header.firstOrganicSpecies = 1;
    const InfoBlock& block = h.Build()[InfoOrganic];
    // fulvic: heading, 3 x (site, free, bound), DDL -> rows 0..10
    EXPECT_EQ(h.Text(InfoOrganic, 0, 10), "  FA-DDL");
    EXPECT_EQ(h.Text(InfoOrganic, 0, 11), "");
    EXPECT_EQ(h.Text(InfoOrganic, 0, 12), "Humic acids");
    EXPECT_EQ(h.Text(InfoOrganic, 0, 13), "  HA-monodentates");
    EXPECT_EQ(block.rowCount, 23);
}

TEST(OtherInfo, SolidStatesFollowTheSaturationBand) {
    HandSet h;
    // the last: a component of the solid is absent (log 0)
    const double indexes[] = {0.0004, 0.0005, -0.0005, -0.00051, -std::numeric_limits<double>::infinity()};
    for (int32_t k = 0; k < 5; ++k)
        h.records.solidChecks.push_back({"S" + std::to_string(k), indexes[k], -8.48, -8.3, "Lit", k + 2});
    const InfoBlock& block = h.Build()[InfoSolids];

    EXPECT_EQ(block.longText, "Solids Precipitation was not included; saturation of the solids that could form:");
    EXPECT_EQ(block.rowCount, 5);
    EXPECT_EQ(h.Text(InfoSolids, 1, 4), "none: a component of the solid is absent");
    EXPECT_FALSE(h.Cell(InfoSolids, 1, 4)->numeric) << "exports show the text, not -INF";
    EXPECT_EQ(h.Text(InfoSolids, 2, 4), "undersaturated");
    EXPECT_EQ(h.Text(InfoSolids, 2, 0), "in equilibrium");
    EXPECT_EQ(h.Text(InfoSolids, 2, 1), "oversaturated");
    EXPECT_EQ(h.Text(InfoSolids, 2, 2), "in equilibrium");
    EXPECT_EQ(h.Text(InfoSolids, 2, 3), "undersaturated");
    EXPECT_EQ(block.rowKeys[0], 20);
    EXPECT_EQ(block.rowKeys[1], 3 + 30);
    EXPECT_EQ(h.Text(InfoSolids, 1, 1), "0.001");  // "%9.3f", trimmed
    EXPECT_DOUBLE_EQ(h.Cell(InfoSolids, 1, 1)->number, 0.0005);
}

TEST(OtherInfo, SolidsWithoutCandidatesOrPrecipitates) {
    HandSet off;
    const InfoBlock& none = off.Build()[InfoSolids];
    EXPECT_FALSE(none.title.empty());
    EXPECT_EQ(none.longText, "");
    EXPECT_EQ(none.rowCount, 0);

    HandSet on;
    on.input.precipitation = true;
    const InfoBlock& absent = on.Build()[InfoSolids];
    EXPECT_EQ(absent.longText, "Solids Precipitation was included, but no solid is present.");
    EXPECT_EQ(absent.gridHeader, "");

    HandSet present;
    present.input.precipitation = true;
    SpeciesResult calcite = MakeSpecies(SolidSpecies, "Calcite", 2e-4);
    calcite.reactionDefinition = 4;
    calcite.saturationValue = 0;
    SpeciesResult gypsum = MakeSpecies(SolidSpecies, "Gypsum", 0);
    gypsum.reactionDefinition = 5;
    gypsum.saturationValue = -1.25;
    present.records.species = {MakeSpecies(FreeComponent, "H+", 1e-7), calcite, gypsum};
    present.set.header.firstPrecipitatedSolid = 1;
    present.set.header.lastPrecipitatedSolid = 2;
    present.options.units.order = 1;
    const InfoBlock& block = present.Build()[InfoSolids];
    EXPECT_EQ(block.longText, "Solids Precipitation was included; these solids are present.");
    EXPECT_EQ(block.rowCount, 2);
    EXPECT_DOUBLE_EQ(present.Cell(InfoSolids, 1, 0)->number, 0.2);  // mM
    EXPECT_EQ(present.Text(InfoSolids, 2, 0), "mM");
    EXPECT_EQ(present.Text(InfoSolids, 4, 0), "in equilibrium");
    EXPECT_EQ(present.Text(InfoSolids, 4, 1), "undersaturated");
    EXPECT_EQ(block.rowKeys[0], 43);
    EXPECT_EQ(block.rowKeys[1], 50);
}

TEST(OtherInfo, GridGrowsPastItsFirstCapacityKeepingEveryCell) {
    HandSet h;
    for (int32_t k = 0; k < 75; ++k) h.records.solidChecks.push_back({"S" + std::to_string(k), -1.0 - k, 0, 0, "", k});
    const InfoBlock& block = h.Build()[InfoSolids];
    ASSERT_EQ(block.rowCount, 75);
    for (const int32_t r : {0, 49, 50, 59, 60, 74}) {
        EXPECT_EQ(h.Text(InfoSolids, 0, r), "S" + std::to_string(r));
        EXPECT_DOUBLE_EQ(h.Cell(InfoSolids, 1, r)->number, -1.0 - r);
        EXPECT_EQ(block.rowKeys[r], 10 * r);
    }
}

TEST(OtherInfo, AdsorptionSharesOfTheSites) {
    HandSet h;
    h.input.adsorption = true;
    h.records.components[0].amounts[AmountAdsorbed] = 1e-6;
    ComponentResult zinc = MakeComponent(Cation, "Zn", 1e-5, 65.4, "");
    zinc.amounts[AmountAdsorbed] = 3e-6;
    ComponentResult sulfate = MakeComponent(Ligand, "SO4", 1e-3, 96, "");
    sulfate.amounts[AmountAdsorbed] = 2e-10;  // below the cut-off of 1e-4 x 4e-6
    ComponentResult phosphate = MakeComponent(Ligand, "PO4", 1e-5, 95, "");
    phosphate.amounts[AmountAdsorbed] = 5e-7;
    h.records.components.insert(h.records.components.end(), {zinc, sulfate, phosphate});
    h.records.componentInfos.resize(4);
    h.set.header.reportedComponentCount = 4;
    const InfoBlock& block = h.Build()[InfoAdsorption];

    EXPECT_EQ(h.Text(InfoAdsorption, 3, 0), "25.00%");
    EXPECT_EQ(h.Text(InfoAdsorption, 3, 1), "75.00%");
    EXPECT_DOUBLE_EQ(h.Cell(InfoAdsorption, 3, 1)->number, 0.75);
    EXPECT_EQ(h.Text(InfoAdsorption, 0, 2), "  Zn");
    EXPECT_EQ(h.Text(InfoAdsorption, 0, 3), "  PO4");
    EXPECT_EQ(block.rowCount, 4);

    h.options.showAll = true;
    EXPECT_EQ(h.Build()[InfoAdsorption].rowCount, 5);
}

TEST(OtherInfo, GasesGivenAndInEquilibrium) {
    HandSet h;
    ComponentResult co2 = MakeComponent(Gas, "CO2(g)", 5e-4, 44, "2=1;");
    co2.gasText = "CO2(g) / CO3 2-";
    co2.displayName = "CO3";
    h.records.components.push_back(co2);
    h.records.componentInfos.push_back({"CO2(g)", Gas, 3.1622777e-4, 44, InpTypeGasPres});
    SpeciesResult ligand = MakeSpecies(GasLigand, "CO3 2-", 2e-5);
    ligand.reactionDefinition = 7;
    h.records.species = {MakeSpecies(FreeComponent, "H+", 1e-7), ligand};
    h.records.gases.push_back({"H2S(g) / HS -", 1e-9, 1e-6, 8, 8.1, "Lit", 9});
    const InfoBlock& block = h.Build()[InfoGases];

    EXPECT_EQ(
        block.longText,
        "The partial pressure is given for CO2(g) ; it fixes the free concentration of the dissolved ligand. "
        "Partial pressures in equilibrium with HS -  were calculated. Pressures in atm, concentrations in mol/L.");
    EXPECT_EQ(h.Text(InfoGases, 0, 0), "CO2(g) / CO3 2-");
    EXPECT_DOUBLE_EQ(h.Cell(InfoGases, 1, 0)->number, 3.1622777e-4);
    EXPECT_EQ(h.Text(InfoGases, 2, 0), "atm");
    EXPECT_EQ(block.rowKeys[0], 70);
    EXPECT_EQ(h.Text(InfoGases, 0, 1), "");
    EXPECT_EQ(h.Text(InfoGases, 0, 2), "H2S(g) / HS -");
    EXPECT_EQ(block.rowKeys[2], 90);
    EXPECT_EQ(block.rowCount, 3);

    HandSet none;
    EXPECT_EQ(none.Build()[InfoGases].title, "");
}

TEST(OtherInfo, InputEchoListsOptionsRedoxAndComponents) {
    HandSet h;
    h.input.description = "   ";
    h.input.precipitation = true;
    h.input.adsorption = true;
    h.input.redox = true;
    h.input.temperature = 10.4;
    h.input.convergenceCriterion = 1.0001;
    h.input.ionicStrengthFixed = true;
    h.input.fixedIonicStrength = 0.1;
    h.input.forceNeutral = true;
    h.input.neutraliseCation = 1;
    h.input.neutraliseAnion = 2;
    ComponentResult iron = MakeComponent(Cation, "Fe+2", 1e-5, 55.8, "");
    iron.displayName = "Fe+2 / Fe+3";
    h.records.components.insert(h.records.components.end(), {iron, ComponentResult{}, ComponentResult{}});
    h.records.componentInfos.push_back({"Fe+2", Cation, 1e-5, 55.8, InpTypeTotalConc});
    h.records.componentInfos.push_back({"e", Electron, 1e-4, 0, InpTypeFreeAct});
    h.records.componentInfos.push_back({"Fe+3", RedSol, 2e-6, 55.8, 5});
    Database database;
    database.components.resize(3);
    database.components[1].name = "Na";
    database.components[2].name = "Cl";
    const InfoBlock& block = h.Build(&database)[InfoInput];

    EXPECT_EQ(h.Text(InfoInput, 1, 0), "(none)");
    EXPECT_EQ(h.Text(InfoInput, 1, 1), "fixed");
    EXPECT_EQ(h.Text(InfoInput, 1, 2), "fixed at");
    EXPECT_DOUBLE_EQ(h.Cell(InfoInput, 2, 2)->number, 0.1);
    EXPECT_EQ(h.Text(InfoInput, 1, 3), "Davies");
    EXPECT_DOUBLE_EQ(h.Cell(InfoInput, 1, 4)->number, 1.0001 - 1);
    EXPECT_EQ(h.Text(InfoInput, 1, 5), "10");
    EXPECT_DOUBLE_EQ(h.Cell(InfoInput, 1, 5)->number, 10.4);
    EXPECT_EQ(h.Text(InfoInput, 2, 5), "°C");
    EXPECT_EQ(h.Text(InfoInput, 1, 7), "forced by adjusting Na or Cl");
    // the included options from row 8; without organic matter the last loses its comma
    EXPECT_EQ(h.Text(InfoInput, 0, 8), "Included:");
    EXPECT_EQ(h.Text(InfoInput, 1, 8), "precipitation,");
    EXPECT_EQ(h.Text(InfoInput, 1, 9), "adsorption,");
    EXPECT_EQ(h.Text(InfoInput, 1, 10), "redox equilibria");
    EXPECT_EQ(h.Text(InfoInput, 0, 12), "pE");
    EXPECT_DOUBLE_EQ(h.Cell(InfoInput, 1, 12)->number, 4);
    EXPECT_NEAR(h.Cell(InfoInput, 1, 13)->number, 4 * 59.159, 1e-9);
    EXPECT_EQ(h.Text(InfoInput, 2, 13), "mV");
    // kinds 1, 3, 4, 5, 6 only; with redox the display name
    EXPECT_EQ(h.Text(InfoInput, 0, 14), "H");
    EXPECT_EQ(h.Text(InfoInput, 3, 14), "free activity");
    EXPECT_EQ(h.Text(InfoInput, 0, 15), "Fe+2 / Fe+3");
    EXPECT_EQ(h.Text(InfoInput, 3, 15), "total concentration");
    EXPECT_EQ(h.Text(InfoInput, 0, 16), "Fe+3");
    EXPECT_EQ(h.Text(InfoInput, 3, 16), "");
    EXPECT_EQ(block.rowCount, 17);
}

TEST(OtherInfo, InputEchoWithOrganicMatterNamesTheModelAndTheCarbon) {
    HandSet h;
    h.input.organicComplexation = true;
    h.input.organicModel = Model6;
    h.input.docConcentration = 5;
    h.input.fulvicFraction = 0.7;
    h.set.header.organicReference = "Tipping 1998";
    const InfoBlock& block = h.Build()[InfoInput];
    EXPECT_EQ(h.Text(InfoInput, 0, 8), "Included:");
    EXPECT_EQ(h.Text(InfoInput, 1, 8), "organic complexation");
    EXPECT_EQ(h.Text(InfoInput, 1, 9), "Model 6 (see Tipping 1998)");
    EXPECT_EQ(h.Text(InfoInput, 0, 11), "H");
    EXPECT_EQ(h.Text(InfoInput, 0, 12), "Dissolved organic carbon");
    EXPECT_EQ(h.Text(InfoInput, 3, 12), "total concentration");
    EXPECT_DOUBLE_EQ(h.Cell(InfoInput, 1, 13)->number, 0.7);
    EXPECT_EQ(block.rowCount, 14);
}

TEST(OtherInfo, RebuiltFromAnOutputFileAsItWasBuiltFromTheCalculation) {
    CalculatedWorkspace c(ReferenceCaseFile("co2_open_ph8"), 2);
    ASSERT_TRUE(c.ok);
    const ResultContext context = MakeResultContext(c.ws);
    const std::string path = c.folder.File("case.o64");
    ASSERT_TRUE(WriteOutputFile(path, c.ws.results, 0));

    ResultStore back;
    ASSERT_FALSE(ReadOutputFile(path, back, 0).has_value());
    // the file keeps titles and sizes only; the rebuild restores the cells
    EXPECT_TRUE(back.sets[0].otherInfo[InfoGeneral].cells.empty());
    BuildOtherInfo(back, 0, context);
    for (int32_t b = 0; b < kInfoBlockCount; ++b) {
        SCOPED_TRACE(b);
        const InfoBlock& x = c.ws.results.sets[0].otherInfo[b];
        const InfoBlock& y = back.sets[0].otherInfo[b];
        EXPECT_EQ(x.title, y.title);
        EXPECT_EQ(x.longText, y.longText);
        ASSERT_EQ(x.rowCount, y.rowCount);
        for (int32_t r = 0; r < x.rowCount; ++r)
            for (int32_t column = 0; column < x.columnCount; ++column) {
                const InfoCell* p = x.FindCell(column, r);
                const InfoCell* q = y.FindCell(column, r);
                EXPECT_EQ(p ? p->text : "", q ? q->text : "") << "row " << r << " column " << column;
            }
    }
    EXPECT_FALSE(c.ws.results.sets[0].otherInfo[InfoGases].title.empty());
}

}  // namespace
}  // namespace tormel::test
