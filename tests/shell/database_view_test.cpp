// What the database viewer lists and draws, on the synthetic database.
#include <gtest/gtest.h>

#include "core/c_number.h"
#include "input/test_language.h"
#include "output/golden_file.h"
#include "shell/database_view.h"
#include "support/database_builder.h"
#include "support/synthetic_database.h"

namespace tormel::test {

namespace {

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
    return side(definition.reactants) + " = " + side(definition.products) + " | " + FormatC("%g", definition.logK) +
           " | " + definition.note.str() + " | " + definition.literature.str();
}

}  // namespace

// The trees of the three modes, the lines of every item and the drawing of
// every equilibrium but the organic ones.
TEST(DatabaseView, TreesLinesAndReactionsMatchTheirGoldenCopy) {
    Database db = SyntheticDatabase();
    // a redox solid among the reacting components makes the solid's note too
    AppendEquilibrium(db, MakeEquilibrium(EquilibriumType::Complex, "MnO2Cl", -1, 2.0), {{kMnO2, 1}, {kCl, 1}});
    const Language english = English();
    const DecimalSeparator comma{","};
    std::string text;
    for (int mode : {ViewByComponent, ViewByType, ViewByLiterature}) {
        const DatabaseTree tree = BuildDatabaseTree(db, english, mode);
        text += "mode " + std::to_string(mode) + ", selected " + std::to_string(tree.selected) + ", expanded " +
                std::to_string(tree.expanded) + (tree.connectingLines ? ", lines\n" : "\n");
        for (const DatabaseTreeItem& item : tree.items) {
            text += item.text + " #" + std::to_string(item.number) + " ^" + std::to_string(item.parent) + "\n";
            if (item.number > 0)
                for (const std::string& line : Lines(SelectDatabaseItem(db, english, mode, item.number, comma)))
                    text += "    " + line + "\n";
        }
    }
    for (int32_t e = 0; e < db.EquilibriumCount(); ++e)
        if (db.equilibria[e].type != EquilibriumType::Organic)
            text += Written(DatabaseReactionDefinition(db, english, e)) + "\n";
    ExpectMatchesGolden(text, "database_view.txt");
    EXPECT_EQ(BuildDatabaseTree(Database{}, english, ViewByComponent).selected, -1);
    EXPECT_EQ(Lines(SelectDatabaseItem(db, english, ViewByType, 8, comma)),
              std::vector<std::string>{"There are 0 equilibria of this type."});
    EXPECT_TRUE(Lines(SelectDatabaseItem(db, english, ViewByComponent, 0, comma)).empty());
}

}  // namespace tormel::test
