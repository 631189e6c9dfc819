#include <gtest/gtest.h>

#include "core/database_files.h"
#include "support/synthetic_database.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

using test::TempFolder;

struct Installation {
    TempFolder program;
    TempFolder data;
    Database chem = test::SyntheticDatabase();
    explicit Installation(const std::string& shippedVersion) { test::WriteSyntheticRawData(chem, program.Path(), shippedVersion); }
    bool Refresh() const { return RefreshDatabase(data.Path(), program.Path()); }
    bool Copy() const { return CopyRawData(data.Path(), program.Path()); }
    float WorkingVersion(int position) const { return ReadDatabaseHeader(WorkingCopyPath(data.Path(), position))->version; }
};

TEST(CoreDatabaseRefresh, MissingWorkingCopiesAreMadeFromTheShippedOnes) {
    Installation inst("1.5");
    EXPECT_TRUE(inst.Refresh());
    ASSERT_TRUE(inst.Copy());
    EXPECT_FALSE(inst.Refresh());
    for (int position = 0; position < 6; ++position) EXPECT_FLOAT_EQ(inst.WorkingVersion(position), 1.5f);
    // one missing working copy is enough to refresh
    std::remove(WorkingCopyPath(inst.data.Path(), DbModel7).c_str());
    EXPECT_TRUE(inst.Refresh());
}

TEST(CoreDatabaseRefresh, EqualVersionIsKeptAndAGreaterOneReplaces) {
    Installation inst("2");
    test::WriteSyntheticWorkingCopies(inst.chem, inst.data.Path(), "2.0");
    EXPECT_FALSE(inst.Refresh());
    test::WriteSyntheticRawData(inst.chem, inst.program.Path(), "2.1");
    EXPECT_TRUE(inst.Refresh());
    ASSERT_TRUE(inst.Copy());
    EXPECT_FLOAT_EQ(inst.WorkingVersion(DbEquilibria), 2.1f);
    // an older shipped copy never replaces a newer working copy
    test::WriteSyntheticRawData(inst.chem, inst.program.Path(), "1.9");
    EXPECT_FALSE(inst.Refresh());
}

TEST(CoreDatabaseRefresh, VersionsCompareInSinglePrecision) {
    Installation inst("1.00000001");  // equal to 1.0 in single precision, greater in double
    test::WriteSyntheticWorkingCopies(inst.chem, inst.data.Path(), "1.0");
    EXPECT_FALSE(inst.Refresh());
    test::WriteSyntheticRawData(inst.chem, inst.program.Path(), "1.0001");
    EXPECT_TRUE(inst.Refresh());
}

TEST(CoreDatabaseRefresh, UserDataBlocksEveryCopy) {
    Installation inst("3");
    test::WriteSyntheticWorkingCopies(inst.chem, inst.data.Path(), "1");
    test::WriteBytes(inst.data.File("UserData.INI"), "");
    EXPECT_TRUE(inst.Refresh());
    EXPECT_TRUE(inst.Copy());  // success without copying
    EXPECT_FLOAT_EQ(inst.WorkingVersion(DbComponents), 1.0f);
}

TEST(CoreDatabaseRefresh, UnreadableShippedCopyRefreshesAndTheCopyFails) {
    Installation inst("1");
    ASSERT_TRUE(inst.Copy());
    std::remove(ShippedCopyPath(inst.program.Path(), DbLiterature).c_str());
    EXPECT_TRUE(inst.Refresh());
    EXPECT_FALSE(inst.Copy());
}

TEST(CoreDatabaseRefresh, HeaderValuesAsTheInformationWindowShowsThem) {
    Installation inst("1.25");
    auto header = ReadDatabaseHeader(ShippedCopyPath(inst.program.Path(), DbComponents));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->contents, "Synthetic components");
    EXPECT_EQ(header->versionText, "1.25");
    EXPECT_EQ(header->countText, std::to_string(inst.chem.ComponentCount()));
    EXPECT_EQ(header->recordCount, inst.chem.ComponentCount());
}

}  // namespace
}  // namespace tormel
