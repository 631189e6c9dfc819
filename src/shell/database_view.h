#pragma once
// What the database viewer lists: the tree of one view mode, the summary
// lines and equilibrium lines of a chosen tree item, and the reaction
// definition of an equilibrium as the viewer draws it.
#include <cstdint>
#include <string>
#include <vector>

#include "core/database.h"
#include "core/language.h"
#include "output/number_text.h"
#include "output/result_records.h"

namespace tormel {

enum DatabaseViewMode : int32_t { ViewByComponent = 1, ViewByType = 2, ViewByLiterature = 3 };

// One tree item: its text, its number (0 for a group item, otherwise the
// 1-based component, equilibrium type or reference), and the position of its
// group item in the list (-1 on the top level).
struct DatabaseTreeItem {
    std::string text;
    int32_t number = 0;
    int32_t parent = -1;
};

struct DatabaseTree {
    std::vector<DatabaseTreeItem> items;  // every parent before its children
    int32_t selected = -1;                // position of the selected item, -1 none
    int32_t expanded = -1;                // position of the expanded group, -1 none
    bool connectingLines = false;
};

DatabaseTree BuildDatabaseTree(const Database& db, const Language& language, int32_t mode);

// A line of the lower list; `equilibrium` is the index, -1 for organic matter.
struct EquilibriumLine {
    std::string text;
    int32_t equilibrium = 0;
};

struct DatabaseSelection {
    std::vector<std::string> summary;
    std::vector<EquilibriumLine> lines;
};

// The lists for the tree item with `number` (> 0) in `mode`.
DatabaseSelection SelectDatabaseItem(const Database& db, const Language& language, int32_t mode, int32_t number,
                                     const DecimalSeparator& separator);

// The lower-list line of equilibrium e.
EquilibriumLine EquilibriumLineOf(const Database& db, int32_t e);

// Equilibrium e written as a reaction of its components forming it, with
// its log K at 25 °C, note (EqDef texts) and literature reference.
ReactionDefinition DatabaseReactionDefinition(const Database& db, const Language& language, int32_t e);

}  // namespace tormel
