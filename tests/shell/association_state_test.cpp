// The options page's text about which files open in the program.
#include <gtest/gtest.h>

#include "input/test_language.h"
#include "shell/association_state.h"

namespace tormel::test {

TEST(AssociationState, TextSaysForEachTypeWhetherItOpensHere) {
    EXPECT_EQ(AssociationText(English(), {false, true}),
              "Files of TORMEL Next can be opened by double-clicking them.\n"
              "Input files (.i64) do not open with TORMEL Next;\n"
              "Output files (.o64) open with TORMEL Next.\n"
              "Use the buttons below to change this.");
}

}  // namespace tormel::test
