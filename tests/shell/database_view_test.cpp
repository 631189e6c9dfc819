// What the database viewer lists and draws, on the synthetic database.
#include <gtest/gtest.h>

#include "input/test_language.h"
#include "shell/database_view.h"
#include "support/database_builder.h"
#include "support/synthetic_database.h"

namespace tormel::test {

namespace {

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

// "2 H + 1 CO3 = 1 CO2(g) | log K | note | literature"
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
    return side(definition.reactants) + " = " + side(definition.products) + " | " + logK + " | " + definition.note.str() +
           " | " + definition.literature.str();
}

}  // namespace

TEST(DatabaseView, TreesOfTheThreeModes) {
    const Database db = SyntheticDatabase();
    const Language english = English();
    const DatabaseTree byComponent = BuildDatabaseTree(db, english, ViewByComponent);
    EXPECT_EQ(Texts(byComponent),
              (std::vector<std::string>{"Cations#0^-1", "Ligands#0^-1", "Other components#0^-1", "H#1^0", "Na#2^0",
                                        "Ca#3^0", "Fe(II)#4^0", "Fe(III)#5^0", "Mn(II)#6^0", "e#7^2", "OH#8^1",
                                        "Cl#9^1", "CO3#10^1", "Hfo_wOH#11^2", "MnO2(s)#12^2", "CO2(g)#13^2",
                                        "FA5 (Model 5)#14^2", "HA5 (Model 5)#15^2", "FA7 (Model 7)#16^2",
                                        "HA7 (Model 7)#17^2"}));
    EXPECT_EQ(byComponent.selected, 3);  // H+
    EXPECT_EQ(byComponent.expanded, 0);
    EXPECT_TRUE(byComponent.connectingLines);

    const DatabaseTree byType = BuildDatabaseTree(db, english, ViewByType);
    ASSERT_EQ(byType.items.size(), 7u);
    EXPECT_EQ(byType.items[4].text, "Gases");
    EXPECT_EQ(byType.items[6].number, 7);
    EXPECT_EQ(byType.selected, 0);

    EXPECT_EQ(Texts(BuildDatabaseTree(db, english, ViewByLiterature)),
              (std::vector<std::string>{"Reference one#1^-1", "Nordstrom et al. (1990)#2^-1",
                                        "Smith and Martell (2004) NIST 46#3^-1",
                                        "Tipping (1998) Humic ion-binding model VI#4^-1"}));
    EXPECT_EQ(BuildDatabaseTree(Database{}, english, ViewByComponent).selected, -1);
}

TEST(DatabaseView, SummaryAndEquilibriumLinesOfEachMode) {
    const Database db = SyntheticDatabase();
    const Language english = English();
    const DecimalSeparator comma{","};
    struct Case {
        int mode;
        int number;
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        // items count from 1: component k + 1, literature reference k + 1
        {ViewByComponent, kCO3 + 1,
         {"Component: CO3", "Charge: -2", "Molar mass (g/mol): 0,000", "There are 6 equilibria with CO3", "HCO3- #3",
          "H2CO3 #4", "CaCO3 #5", "MnCl(CO3)OH-2 #9", "CO3 / CO2(g) #14", "Rhodochrosite #15"}},
        // the gas component counts through the equilibrium's link
        {ViewByComponent, kCO2Gas + 1,
         {"Component: CO2(g)", "Charge: 0", "Molar mass (g/mol): 0,000", "There are 1 equilibria with CO2(g)",
          "CO3 / CO2(g) #14"}},
        {ViewByComponent, kMn2 + 1,
         {"Component: Mn(II)", "Charge: 2", "Molar mass (g/mol): 54,938", "There are 3 equilibria with Mn(II)",
          "MnCl(CO3)OH-2 #9", "Mn(II)/MnO2(s) #13", "Rhodochrosite #15"}},
        // the organic lines carry their model and no equilibrium to draw
        {ViewByComponent, kCa + 1,
         {"Component: Ca", "Charge: 2", "Molar mass (g/mol): 0,000", "There are 6 equilibria with Ca", "CaCl+ #2",
          "CaCO3 #5", "CaOH+ #6", "Hfo_wOCa+ #11", "FA5-Ca (Model 5) #-1", "FA7-Ca (Model 7) #-1"}},
        {ViewByType, CodeOf(EquilibriumType::Gas), {"There are 1 equilibria of this type.", "CO3 / CO2(g) #14"}},
        {ViewByType, CodeOf(EquilibriumType::Adsorption), {"There are 2 equilibria of this type.", "Hfo_wOH2+ #10", "Hfo_wOCa+ #11"}},
        {ViewByType, 8, {"There are 0 equilibria of this type."}},
        {ViewByLiterature, 1,
         {"There are 3 equilibria from this reference.", "H2O #0", "Mn(II)/MnO2(s) #13", "FA5-Ca (Model 5) #-1"}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Lines(SelectDatabaseItem(db, english, c.mode, c.number, comma)), c.lines)
            << "mode " << c.mode << ", item " << c.number;
    EXPECT_TRUE(Lines(SelectDatabaseItem(db, english, ViewByComponent, 0, comma)).empty());
}

TEST(DatabaseView, ReactionDefinitionsAsDrawn) {
    Database db = SyntheticDatabase();
    const Language english = English();
    const std::string solid = "The activity of a solid is 1.";
    // a redox solid among the reacting components makes the note too
    const int32_t solidComplex = AppendEquilibrium(db, MakeEquilibrium(EquilibriumType::Complex, "MnO2Cl", -1, 2.0), {{kMnO2, 1}, {kCl, 1}});
    const std::pair<int, std::string> cases[] = {
        {kWater, "1 H + 1 OH = 1 H2O(aq) | 14 | The activity of water is 1. | Reference one"},
        {kCaCl, "1 Ca + 1 Cl = 1 CaCl+ | 0.4 |  | "},
        {kCaCO3, "1 Ca + 1 CO3 = 1 CaCO3(aq) | 3.22 |  | Smith and Martell (2004) NIST 46"},
        {kSiteCa, "1 Ca + 1 Hfo_wOH = 1 H + 1 Hfo_wOCa+ | -5.85 |  | "},
        {kCO2Equilibrium, "2 H + 1 CO3 = 1 CO2(g) | 18.147 |  | Smith and Martell (2004) NIST 46"},
        // the linked component is what forms
        {kFeRedox, "1 Fe(II) = 1 e + 1 Fe(III) | -13.02 |  | Nordstrom et al. (1990)"},
        {kMnRedox, "1 Mn(II) = 4 H + 2 e + 1 MnO2(s) | 41.38 | " + solid + " | Reference one"},
        {kRhodochrosite, "1 Mn(II) + 1 CO3 = 1 Rhodochrosite | 10.58 | " + solid + " | Smith and Martell (2004) NIST 46"},
        {solidComplex, "1 Cl + 1 MnO2(s) = 1 MnO2Cl | 2 | " + solid + " | "},
    };
    for (const auto& [e, written] : cases)
        EXPECT_EQ(Written(DatabaseReactionDefinition(db, english, e)), written) << "equilibrium " << e;
}

}  // namespace tormel::test
