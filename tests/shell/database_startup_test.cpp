#include <gtest/gtest.h>

#include "shell/database_startup.h"
#include "shell/database_summary.h"
#include "support/recording_ui.h"
#include "support/synthetic_database.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

struct Start {
    test::TempFolder program;
    test::TempFolder work;
    AppFolders folders;
    test::RecordingUi ui;
    ChemicalSystem chem;
    Start() {
        folders.programFolder = program.Path();
        folders.dataFolder = work.Path();
    }
    DatabaseStartupResult Run() { return PrepareDatabase(chem, folders, Language(), ui.services); }
};

TEST(ShellDatabaseStartup, FirstStartCopiesTheRawDataAndLoadsIt) {
    Start s;
    test::WriteSyntheticRawData(test::SyntheticDatabase(), s.program.Path(), "1.0");
    DatabaseStartupResult r = s.Run();
    EXPECT_EQ(r.outcome, DatabaseStartup::Loaded);
    EXPECT_TRUE(r.refreshed);
    EXPECT_EQ(s.chem.db().ComponentCount(), test::SyntheticDatabase().ComponentCount());
    EXPECT_TRUE(s.ui.messages.empty());
    // the next start finds current working copies
    ChemicalSystem again;
    EXPECT_FALSE(PrepareDatabase(again, s.folders, Language(), s.ui.services).refreshed);
    std::string summary = DatabaseSummary(again.db(), s.folders.dataFolder);
    EXPECT_NE(summary.find("Components: 17"), std::string::npos) << summary;
    EXPECT_NE(summary.find("Contents: Synthetic equilibria"), std::string::npos) << summary;
}

TEST(ShellDatabaseStartup, DamagedWorkingCopyNamesTheFile) {
    Start s;
    test::WriteSyntheticRawData(test::SyntheticDatabase(), s.program.Path(), "1.0");
    ASSERT_EQ(s.Run().outcome, DatabaseStartup::Loaded);
    // the user keeps own data: nothing is replaced, and the damage is reported
    test::WriteBytes(s.work.File("UserData.INI"), "");
    test::WriteBytes(WorkingCopyPath(s.folders.dataFolder, DbEquilibria),
                     test::Utf16Bytes("Contents: x\nVersion: 0.5\nNumber of records: 4\n\"H2O\" 1"));
    DatabaseStartupResult r = s.Run();
    EXPECT_EQ(r.outcome, DatabaseStartup::LoadFailed);
    ASSERT_EQ(s.ui.messages.size(), 1u);
    EXPECT_NE(s.ui.messages[0].lines.at(0).find("EQUILIB.D64"), std::string::npos);
    EXPECT_EQ(s.chem.db().ComponentCount(), 0);
}

}  // namespace
}  // namespace tormel
