// What the database viewer lists and draws, on a small database made in code.
#include <gtest/gtest.h>

#include "input/test_language.h"
#include "shell/database_view.h"
#include "support/database_builder.h"

namespace tormel::test {

namespace {

// H+, Ca+2, CO3-2, the gas CO2 dissolving into CO3-2, Fe+2/Fe+3, a solid
// redox state, and fulvic acid under Model 6.
struct ViewDatabase {
    Database db;
    ViewDatabase() {
        db.components = {MakeComponent(ComponentType::Cation, "H+", 1, 1.008),     MakeComponent(ComponentType::Cation, "Ca+2", 2, 40.078),
                         MakeComponent(ComponentType::Ligand, "CO3-2", -2, 60.009), MakeComponent(ComponentType::Gas, "CO2", 0, 44.01),
                         MakeComponent(ComponentType::Cation, "Fe+2", 2, 55.845),   MakeComponent(ComponentType::Cation, "Fe+3", 3, 55.845),
                         MakeComponent(ComponentType::RedSol, "S(s)", 0, 32.06),    MakeComponent(ComponentType::Organic, "FA", 0)};
        db.components[3].linkedLigand = 2;
        db.components[7].organicModel = Model6;
        db.literature = {"Stumm and Morgan 1996", "Smith and Martell 2004"};
        Equilibrium water = MakeEquilibrium(EquilibriumType::Water, "OH-", -1, -14);
        water.literatureRef = 0;
        AppendEquilibrium(db, water, {{0, -1}});
        Equilibrium complex = MakeEquilibrium(EquilibriumType::Complex, "CaCO3", 0, 3.22);
        complex.literatureRef = 1;
        AppendEquilibrium(db, complex, {{1, 1}, {2, 1}});
        Equilibrium gas = MakeEquilibrium(EquilibriumType::Gas, "CO2(g)", 0, 18.15);
        gas.linkedComponent = 3;
        AppendEquilibrium(db, gas, {{0, 2}, {2, 1}});
        Equilibrium redox = MakeEquilibrium(EquilibriumType::Redox, "Fe+3/Fe+2", 2, 13.03);
        redox.linkedComponent = 4;
        AppendEquilibrium(db, redox, {{5, 1}});
        AppendEquilibrium(db, MakeEquilibrium(EquilibriumType::Solid, "Calcite", 0, 8.48), {{1, 1}, {2, 1}});
        AppendEquilibrium(db, MakeEquilibrium(EquilibriumType::Complex, "CaHS", 1, 2.0), {{1, 1}, {6, 1}, {0, -1}});
        Equilibrium organic = MakeEquilibrium(EquilibriumType::Organic, "FA-Ca", 0, 0);
        organic.organicModel = Model6;
        AppendEquilibrium(db, organic, {{1, 1}, {7, 1}});
    }
};

std::vector<std::string> Texts(const DatabaseTree& tree) {
    std::vector<std::string> texts;
    for (const DatabaseTreeItem& item : tree.items)
        texts.push_back(item.text + "#" + std::to_string(item.number) + "^" + std::to_string(item.parent));
    return texts;
}

std::vector<std::string> Lines(const DatabaseSelection& selection) {
    std::vector<std::string> lines = selection.summary;
    for (const EquilibriumLine& line : selection.lines) lines.push_back(line.text + " #" + std::to_string(line.equilibrium));
    return lines;
}

// "2 H+ + 1 CO3-2 = 1 CO2(g) | log K | note | literature"
std::string Written(const ReactionDefinition& definition) {
    auto side = [](const auto& entries) {
        std::string text;
        for (const ReactionEntry& entry : entries) {
            if (entry.coefficient == 0) continue;
            if (!text.empty()) text += " + ";
            text += std::to_string(entry.coefficient) + " " + entry.name + entry.phase;
        }
        return text;
    };
    char logK[32];
    std::snprintf(logK, sizeof logK, "%g", definition.logK);
    return side(definition.reactants) + " = " + side(definition.products) + " | " + logK + " | " + definition.note +
           " | " + definition.literature;
}

}  // namespace

TEST(DatabaseView, TreesOfTheThreeModes) {
    const ViewDatabase data;
    const Language english = English();
    const DatabaseTree byComponent = BuildDatabaseTree(data.db, english, ViewByComponent);
    EXPECT_EQ(Texts(byComponent),
              (std::vector<std::string>{"Cations#0^-1", "Ligands#0^-1", "Other components#0^-1", "H+#1^0", "Ca+2#2^0",
                                        "CO3-2#3^1", "CO2#4^2", "Fe+2#5^0", "Fe+3#6^0", "S(s)#7^2",
                                        "FA (Model 6)#8^2"}));
    EXPECT_EQ(byComponent.selected, 3);  // H+
    EXPECT_EQ(byComponent.expanded, 0);
    EXPECT_TRUE(byComponent.connectingLines);

    const DatabaseTree byType = BuildDatabaseTree(data.db, english, ViewByType);
    ASSERT_EQ(byType.items.size(), 7u);
    EXPECT_EQ(byType.items[4].text, "Gases");
    EXPECT_EQ(byType.items[6].number, 7);
    EXPECT_EQ(byType.selected, 0);

    EXPECT_EQ(Texts(BuildDatabaseTree(data.db, english, ViewByLiterature)),
              (std::vector<std::string>{"Stumm and Morgan 1996#1^-1", "Smith and Martell 2004#2^-1"}));
    EXPECT_EQ(BuildDatabaseTree(Database{}, english, ViewByComponent).selected, -1);
}

TEST(DatabaseView, SummaryAndEquilibriumLinesOfEachMode) {
    const ViewDatabase data;
    const Language english = English();
    const DecimalSeparator comma{","};
    struct Case {
        int mode;
        int number;
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        {ViewByComponent, 1,
         {"Component: H+", "Charge: 1", "Molar mass (g/mol): 1,008", "There are 3 equilibria with H+", "OH- #0",
          "CO3-2 / CO2(g) #2", "CaHS #5"}},
        // the gas component counts through the equilibrium's link; the organic line carries its model
        {ViewByComponent, 4,
         {"Component: CO2", "Charge: 0", "Molar mass (g/mol): 44,010", "There are 1 equilibria with CO2",
          "CO3-2 / CO2(g) #2"}},
        {ViewByComponent, 2,
         {"Component: Ca+2", "Charge: 2", "Molar mass (g/mol): 40,078", "There are 4 equilibria with Ca+2", "CaCO3 #1",
          "Calcite #4", "CaHS #5", "FA-Ca (Model 6) #-1"}},
        {ViewByType, CodeOf(EquilibriumType::Gas), {"There are 1 equilibria of this type.", "CO3-2 / CO2(g) #2"}},
        {ViewByType, CodeOf(EquilibriumType::Adsorption), {"There are 0 equilibria of this type."}},
        {ViewByLiterature, 1, {"There are 1 equilibria from this reference.", "OH- #0"}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Lines(SelectDatabaseItem(data.db, english, c.mode, c.number, comma)), c.lines)
            << "mode " << c.mode << ", item " << c.number;
    EXPECT_TRUE(Lines(SelectDatabaseItem(data.db, english, ViewByComponent, 0, comma)).empty());
}

TEST(DatabaseView, ReactionDefinitionsAsDrawn) {
    const ViewDatabase data;
    const Language english = English();
    const std::string water = "The activity of water is 1.";
    const std::string solid = "The activity of a solid is 1.";
    const std::pair<int, std::string> cases[] = {
        {0, " = 1 H+ + 1 OH- | -14 | " + water + " | Stumm and Morgan 1996"},
        {1, "1 Ca+2 + 1 CO3-2 = 1 CaCO3(aq) | 3.22 |  | Smith and Martell 2004"},
        {2, "2 H+ + 1 CO3-2 = 1 CO2(g) | 18.15 |  | "},
        {3, "1 Fe+3 = 1 Fe+2 | 13.03 |  | "},  // the linked component is what forms
        {4, "1 Ca+2 + 1 CO3-2 = 1 Calcite | 8.48 | " + solid + " | "},
        {5, "1 Ca+2 + 1 S(s) = 1 H+ + 1 CaHS | 2 | " + solid + " | "},
    };
    for (const auto& [e, written] : cases)
        EXPECT_EQ(Written(DatabaseReactionDefinition(data.db, english, e)), written) << "equilibrium " << e;
}

}  // namespace tormel::test
