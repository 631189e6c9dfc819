#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "calc/real_database.h"
#include "core/ascii_case.h"
#include "core/chemical_system.h"
#include "core/component_name_index.h"
#include "core/database.h"

namespace tormel {
namespace {

// With the index, without it, and with an index of another size (a scan then):
// the lowest index whose name matches with ASCII letters folded.
TEST(CoreComponentNameIndex, FindsTheLowestMatchingIndexWithOrWithoutTheIndex) {
    Database db;
    for (const char* name : {"Ca+2", "CA+2", "ca+2x", "\xC3\x9C", "", "Cl-"}) {
        Component c;
        c.name = name;
        db.components.push_back(c);
    }
    const struct {
        const char* name;
        int32_t found;
    } cases[] = {{"ca+2", 0}, {"CA+2", 0}, {"CA+2X", 2}, {"\xC3\x9C", 3}, {"\xC3\xBC", -1}, {"", 4}, {"cL-", 5}, {"Mg+2", -1}};
    for (int variant = 0; variant < 3; ++variant) {
        db.componentNames.reset();
        if (variant == 1) db.componentNames = std::make_shared<const ComponentNameIndex>(db.components);
        if (variant == 2) db.componentNames = std::make_shared<const ComponentNameIndex>(std::vector<Component>(2));
        for (const auto& c : cases) EXPECT_EQ(FindComponentIgnoreCase(db, c.name), c.found) << c.name << " " << variant;
    }
}

TEST(CoreComponentNameIndex, FindsEveryComponentOfTheShippedDatabaseInCapitals) {
    const ChemicalSystem* database = test::RealDatabase();
    ASSERT_NE(database, nullptr);
    const Database& db = database->db();
    ASSERT_NE(db.componentNames, nullptr);  // built by the load
    for (int32_t i = 0; i < db.ComponentCount(); ++i) {
        std::string upper = db.components[i].name;
        for (char& ch : upper) ch = (ch >= 'a' && ch <= 'z') ? static_cast<char>(ch - 'a' + 'A') : ch;
        const int32_t found = FindComponentIgnoreCase(db, upper);
        ASSERT_GE(found, 0) << upper;
        EXPECT_LE(found, i) << upper;
        EXPECT_TRUE(EqualsIgnoreCase(db.components[found].name, upper)) << upper;
    }
}

}  // namespace
}  // namespace tormel
