// The "Other info" report: which blocks are present, the rows each block
// lays out, the cell conventions (numbers behind their texts, percentages
// kept as fractions), the states of solids, and the report rebuilt from a
// set read back from its output file.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <limits>

#include "calc/reference_case.h"
#include "input/test_language.h"
#include "core/c_number.h"
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
        records.components.push_back(MakeComponent(ComponentType::Cation, "H", 1e-7, 1.008, ""));
        records.components[0].percentagesAllowed = false;
        records.componentInfos.push_back({"H", ComponentType::Cation, 1e-7, 1.008, InputType::FreeAct});
    }
    const InfoBlocks& Build(const Database* database = nullptr) {
        StoreSetRecords(store, 0, records);
        BuildOtherInfo(store, 0, ResultContext{language, options, DecimalSeparator{}}, database);
        return set.otherInfo;
    }
};

SpeciesResult Organic(int32_t code, double concentration) {
    SpeciesResult s = MakeSpecies(SpeciesKindFromCode(code).value(), "org" + std::to_string(code), concentration);
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
    EXPECT_TRUE(iterations->Numeric());
    EXPECT_EQ(iterations->number, set.header.iterationCount);
    EXPECT_EQ(general.Shown(*iterations), std::to_string(set.header.iterationCount));
    const InfoCell* difference = general.FindCell(1, 4);
    ASSERT_NE(difference, nullptr);
    EXPECT_DOUBLE_EQ(difference->number, set.header.cationCharge - set.header.anionCharge);
    EXPECT_DOUBLE_EQ(general.FindCell(1, 1)->number, set.snapshot.ionicStrength);
}

TEST(OtherInfo, MsaBlockListsSaltsIonsAndModelParameters) {
    const CalculatedWorkspace c(ReferenceCaseFile("seawater_major_ions"), 2);
    ASSERT_TRUE(c.ok);
    const ResultSet& set = c.ws.results.sets[0];
    const InfoBlock& msa = set.otherInfo[InfoMsa];
    const int32_t salts = set.header.saltCount, ions = set.header.msaIonCount;
    ASSERT_GT(salts, 0);
    ASSERT_GT(ions, 0);

    EXPECT_EQ(msa.ShownAt(0, 0), "Mean activity coefficients of " + std::to_string(salts) + " salts");
    const int32_t ionTitles = salts + 3;  // salts from row 1, an empty row, the heading
    EXPECT_EQ(msa.ShownAt(0, ionTitles - 1), "Activity coefficients of the ions");
    const SetView view = ViewSet(c.ws.results, 0);
    const MsaIonResult& firstIon = view.msaIons[0];
    EXPECT_EQ(msa.ShownAt(0, ionTitles + 1).rfind(firstIon.name, 0), 0u);
    EXPECT_DOUBLE_EQ(msa.FindCell(1, ionTitles + 1)->number, firstIon.gamma);
    // an empty row, the parameters' heading, then x, F1..F3, X0..X3, Γ, η, Ω
    const int32_t heading = ionTitles + ions + 2;
    EXPECT_EQ(msa.ShownAt(0, heading), "Parameters of the MSA model");
    EXPECT_EQ(msa.ShownAt(0, heading + 11), "Ω");
    EXPECT_DOUBLE_EQ(msa.FindCell(1, heading + 11)->number, set.msa.omega);
    EXPECT_EQ(msa.rowCount, heading + 12);
}

void Adsorption(HandSet& h) {
    h.input.adsorption = true;
    h.records.components[0].amounts[AmountAdsorbed] = 1e-6;
    ComponentResult zinc = MakeComponent(ComponentType::Cation, "Zn", 1e-5, 65.4, "");
    zinc.amounts[AmountAdsorbed] = 3e-6;
    ComponentResult sulfate = MakeComponent(ComponentType::Ligand, "SO4", 1e-3, 96, "");
    sulfate.amounts[AmountAdsorbed] = 2e-10;
    ComponentResult phosphate = MakeComponent(ComponentType::Ligand, "PO4", 1e-5, 95, "");
    phosphate.amounts[AmountAdsorbed] = 5e-7;
    h.records.components.insert(h.records.components.end(), {zinc, sulfate, phosphate});
    h.records.componentInfos.resize(4);
    h.set.header.reportedComponentCount = 4;
}

// A block as a reader sees it: its texts, then one line per row with the row
// key and each cell, a numeric cell's unformatted value after "=".
std::string Dump(const InfoBlock& block) {
    std::string out = "title: " + block.title + "\nlong text: " + block.longText + "\ngrid header: " +
                      block.gridHeader + "\nrows: " + std::to_string(block.rowCount) + "\n";
    for (int32_t r = 0; r < block.rowCount; ++r) {
        out += "[" + (static_cast<size_t>(r) < block.rowKeys.size() ? std::to_string(block.rowKeys[r]) : "-") + "]";
        for (int32_t column = 0; column < block.columnCount; ++column) {
            const InfoCell* cell = block.FindCell(column, r);
            out += " | " + block.ShownAt(column, r);
            if (cell && cell->Numeric()) out += "=" + FormatC("%.16G", cell->number);
        }
        out += "\n";
    }
    return out;
}

void Organic(HandSet& h, int32_t model) {
    h.input.organicComplexation = true;
    h.input.organicModel = model;
    h.set.snapshot.fractions[0].concentration = 2;  // fulvic only: nothing about humic acids
    h.set.header.organicReference = "Ref 2020";
    h.set.header.cationCharge = h.set.header.anionCharge = 1e-3;  // a charge ratio, not 0 / 0
    ComponentResult copper = MakeComponent(ComponentType::Cation, "Cu", 4e-6, 63.5, "");
    copper.amounts[AmountOrganic] = 3e-6;
    copper.siteAmounts[SiteMonoFulvic] = 1e-6;
    copper.siteAmounts[SiteBiFulvic] = 3e-6;
    copper.siteAmounts[SiteDiffuseFulvic] = 2e-6;
    h.records.components.push_back(copper);
    h.records.componentInfos.push_back({"Cu", ComponentType::Cation, 4e-6, 63.5, InputType::TotalConc});
    // free sites 1e-6 and bound 1e-6: half each; two bidentate free-site species hold one site pair
    h.records.species = {MakeSpecies(SpeciesKind::FreeComponent, "H+", 1e-7), Organic(9, 1e-6), Organic(10, 2e-6),
                         Organic(27, 3e-6), Organic(17, 5e-6)};
    h.set.header.firstOrganicSpecies = 1;
    h.set.header.reportedComponentCount = 2;
}

// Each block built from a hand-made set, compared whole with its golden
// dump in tests/data/golden/other_info/.
TEST(OtherInfo, HandBuiltBlocksMatchTheirGoldenDumps) {
    struct Case {
        const char* name;
        std::vector<int32_t> blocks;
        std::function<void(HandSet&)> setUp;
        bool withDatabase = false;
    };
    const std::vector<Case> cases = {
        // tridentate sites only outside model 5; the general block gains the organic rows
        {"organic_model5", {InfoOrganic, InfoGeneral}, [](HandSet& h) { Organic(h, Model5); }},
        {"organic_model7", {InfoOrganic, InfoGeneral}, [](HandSet& h) { Organic(h, Model7); }},
        {"organic_humic", {InfoOrganic},
         [](HandSet& h) {
             h.input.organicComplexation = true;
             h.input.organicModel = Model6;
             h.set.snapshot.fractions[0].concentration = 1;
             h.set.snapshot.fractions[1].concentration = 1;
             h.records.species = {MakeSpecies(SpeciesKind::FreeComponent, "H+", 1e-7), Organic(9, 1e-6), Organic(17, 1e-6)};
             h.set.header.firstOrganicSpecies = 1;
         }},
        // the saturation band of +-0.0005; an absent component (log 0) is a text, not -INF
        {"solid_states", {InfoSolids},
         [](HandSet& h) {
             const double indexes[] = {0.0004, 0.0005, -0.0005, -0.00051, -std::numeric_limits<double>::infinity()};
             for (int32_t k = 0; k < 5; ++k)
                 h.records.solidChecks.push_back({"S" + std::to_string(k), indexes[k], -8.48, -8.3, "Lit", k + 2});
         }},
        {"solids_none", {InfoSolids}, [](HandSet&) {}},
        // the iteration count says when the fallback solver finished the solve
        // (without a fallback that cell stays empty: see organic_model5)
        {"general_fallback", {InfoGeneral},
         [](HandSet& h) {
             h.set.header.iterationCount = 340;
             h.set.header.fallbackIteration = 312;
         }},
        {"solids_absent", {InfoSolids}, [](HandSet& h) { h.input.precipitation = true; }},
        {"solids_present", {InfoSolids},
         [](HandSet& h) {
             h.input.precipitation = true;
             SpeciesResult calcite = MakeSpecies(SpeciesKind::SolidSpecies, "Calcite", 2e-4);
             calcite.reactionDefinition = 4;
             calcite.saturationValue = 0;
             SpeciesResult gypsum = MakeSpecies(SpeciesKind::SolidSpecies, "Gypsum", 0);
             gypsum.reactionDefinition = 5;
             gypsum.saturationValue = -1.25;
             h.records.species = {MakeSpecies(SpeciesKind::FreeComponent, "H+", 1e-7), calcite, gypsum};
             h.set.header.firstPrecipitatedSolid = 1;
             h.set.header.lastPrecipitatedSolid = 2;
             h.options.units.order = 1;  // mM
         }},
        // sulfate's share is below the cut-off of 1e-4 x 4e-6 unless every row is shown
        {"adsorption", {InfoAdsorption}, [](HandSet& h) { Adsorption(h); }},
        {"adsorption_show_all", {InfoAdsorption},
         [](HandSet& h) {
             Adsorption(h);
             h.options.showAll = true;
         }},
        {"gases", {InfoGases},
         [](HandSet& h) {
             ComponentResult co2 = MakeComponent(ComponentType::Gas, "CO2(g)", 5e-4, 44, "2=1;");
             co2.gasText = "CO2(g) / CO3 2-";
             co2.displayName = "CO3";
             h.records.components.push_back(co2);
             h.records.componentInfos.push_back({"CO2(g)", ComponentType::Gas, 3.1622777e-4, 44, InputType::GasPres});
             SpeciesResult ligand = MakeSpecies(SpeciesKind::GasLigand, "CO3 2-", 2e-5);
             ligand.reactionDefinition = 7;
             h.records.species = {MakeSpecies(SpeciesKind::FreeComponent, "H+", 1e-7), ligand};
             h.records.gases.push_back({"H2S(g) / HS -", 1e-9, 1e-6, 8, 8.1, "Lit", 9});
         }},
        {"gases_none", {InfoGases}, [](HandSet&) {}},
        // options, redox and the components of kinds 1, 3, 4, 5, 6 only, with redox by their display names
        {"input_echo", {InfoInput},
         [](HandSet& h) {
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
             ComponentResult iron = MakeComponent(ComponentType::Cation, "Fe+2", 1e-5, 55.8, "");
             iron.displayName = "Fe+2 / Fe+3";
             h.records.components.insert(h.records.components.end(), {iron, ComponentResult{}, ComponentResult{}});
             h.records.componentInfos.push_back({"Fe+2", ComponentType::Cation, 1e-5, 55.8, InputType::TotalConc});
             h.records.componentInfos.push_back({"e", ComponentType::Electron, 1e-4, 0, InputType::FreeAct});
             h.records.componentInfos.push_back({"Fe+3", ComponentType::RedSol, 2e-6, 55.8, InputType::RedoxMemberGiven});
         },
         true},
        {"input_echo_organic", {InfoInput},
         [](HandSet& h) {
             h.input.organicComplexation = true;
             h.input.organicModel = Model6;
             h.input.docConcentration = 5;
             h.input.fulvicFraction = 0.7;
             h.set.header.organicReference = "Tipping 1998";
         }},
    };
    Database database;  // the neutralising components' names
    database.components.resize(3);
    database.components[1].name = "Na";
    database.components[2].name = "Cl";
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        HandSet h;
        c.setUp(h);
        const InfoBlocks& blocks = h.Build(c.withDatabase ? &database : nullptr);
        std::string dump;
        for (const int32_t b : c.blocks) dump += "== block " + std::to_string(b) + "\n" + Dump(blocks[b]);
        ExpectMatchesGolden(dump, std::string("other_info/") + c.name + ".txt");
    }
}

// The report's texts are kept between builds, but a language file read again
// (a new language installed) or written is seen by the very next build.
TEST(OtherInfo, NextBuildShowsTheLanguageFileAsReadAgainOrWritten) {
    const TempFolder folder;
    const std::string path = folder.File("LANG.INI");
    std::filesystem::copy_file(EnglishLanguageFile(), path);
    HandSet h;
    h.language = Language(path);
    EXPECT_EQ(h.Build()[InfoGeneral].title, "General");

    std::filesystem::copy_file(DeliveredLanguagePath("deutsch.lang"), path,
                               std::filesystem::copy_options::overwrite_existing);
    IniFile::ReadAgain(path);
    const std::string german = LanguageText(German(), "OtherInfo", "General");
    ASSERT_NE(german, "General");
    EXPECT_EQ(h.Build()[InfoGeneral].title, german);

    ASSERT_TRUE(IniFile(path).WriteString("OtherInfo", "General", "Written"));
    EXPECT_EQ(h.Build()[InfoGeneral].title, "Written");
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
    EXPECT_EQ(back.sets[0].otherInfo[InfoGeneral].FindCell(0, 0), nullptr);
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
                EXPECT_EQ(x.ShownAt(column, r), y.ShownAt(column, r)) << "row " << r << " column " << column;
            }
    }
    EXPECT_FALSE(c.ws.results.sets[0].otherInfo[InfoGases].title.empty());
}

}  // namespace
}  // namespace tormel::test
