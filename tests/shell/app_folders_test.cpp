#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "shell/app_folders.h"
#include "support/scoped_env.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

namespace fs = std::filesystem;
using test::ScopedEnv;
using test::TempFolder;

TEST(ShellFolders, WorkingFolderComesFromTormelHomeThenXdgDataHomeThenHome) {
    ScopedEnv own("TORMEL64_HOME", "/srv/tormel/home");
    ScopedEnv xdg("XDG_DATA_HOME", "/xdg/data");
    ScopedEnv home("HOME", "/home/tester");

    AppFolders f = ResolveFolders();
    EXPECT_EQ(f.workingFolder, "/srv/tormel/home/");
    EXPECT_EQ(f.dataFolder, "/srv/tormel/home/Data/");
    EXPECT_EQ(f.inputFolder, "/srv/tormel/home/Input/");
    EXPECT_EQ(f.outputFolder, "/srv/tormel/home/Output/");
    EXPECT_EQ(f.settingsFile, "/srv/tormel/home/TORMEL64.INI");
    EXPECT_EQ(f.languageFile, "/srv/tormel/home/LANG.INI");
    EXPECT_EQ(f.documentsFolder, "/srv/tormel/home/Documents/");

    own.Set("/srv/tormel/home/");
    EXPECT_EQ(ResolveFolders().workingFolder, "/srv/tormel/home/");

    own.Set("relative/home");
    EXPECT_EQ(ResolveFolders().workingFolder, (fs::current_path() / "relative/home").string() + "/");

    own.Set("");  // empty counts as unset
    f = ResolveFolders();
    EXPECT_EQ(f.workingFolder, "/xdg/data/TORMEL64/");
    EXPECT_EQ(f.documentsFolder, "/xdg/data/TORMEL64/Documents/");

    xdg.Set(std::nullopt);
    EXPECT_EQ(ResolveFolders().workingFolder, "/home/tester/.local/share/TORMEL64/");
    xdg.Set("not/absolute");
    EXPECT_EQ(ResolveFolders().workingFolder, "/home/tester/.local/share/TORMEL64/");
}

TEST(ShellFolders, ProgramFolderIsTheRunningProgramsFolder) {
    const AppFolders f = ResolveFolders();
    EXPECT_EQ(f.executableName, "tormel_tests");
    // The tests run from the build's program folder, which holds RawData.
    EXPECT_EQ(fs::weakly_canonical(f.programFolder), fs::weakly_canonical(TORMEL_PROGRAM_DIR));
    EXPECT_EQ(f.programFolder.back(), '/');
}

TEST(ShellFolders, InstalledProgramFindsItsDataInTheShareFolder) {
    TempFolder tmp;
    const std::string bin = tmp.File("prefix/bin");
    fs::create_directories(bin);
    EXPECT_EQ(ProgramFolderFor(bin, "share/tormel"), bin + "/");  // no data anywhere

    fs::create_directories(tmp.File("prefix/share/tormel/RawData"));
    EXPECT_EQ(ProgramFolderFor(bin, "share/tormel"), tmp.File("prefix/share/tormel/"));
    EXPECT_EQ(ProgramFolderFor(bin + "/", tmp.File("prefix/share/tormel")), tmp.File("prefix/share/tormel/"));

    fs::create_directories(bin + "/RawData");  // data beside the program win
    EXPECT_EQ(ProgramFolderFor(bin, "share/tormel"), bin + "/");
}

TEST(ShellFolders, SeparatorIsAppendedOnlyBelow259Characters) {
    const std::string short258(258, 'a');
    EXPECT_EQ(WithFolderSeparator(short258), short258 + "/");
    const std::string long259(259, 'a');
    EXPECT_EQ(WithFolderSeparator(long259), long259);
    EXPECT_EQ(WithFolderSeparator("/data/"), "/data/");
    EXPECT_EQ(WithFolderSeparator(""), "");
    // Characters are counted as the files count them, not in bytes.
    std::string umlauts;
    for (int i = 0; i < 258; ++i) umlauts += "ä";
    EXPECT_EQ(WithFolderSeparator(umlauts), umlauts + "/");
}

TEST(ShellFolders, CreatesTheFourWorkingFoldersWhenMissing) {
    TempFolder tmp;
    ScopedEnv own("TORMEL64_HOME", tmp.File("deep/nested/home"));
    const AppFolders f = ResolveFolders();
    EXPECT_FALSE(CreateWorkingFolders(f));
    EXPECT_FALSE(CreateWorkingFolders(f));  // existing folders are fine
    for (const std::string& folder : {f.workingFolder, f.dataFolder, f.inputFolder, f.outputFolder})
        EXPECT_TRUE(fs::is_directory(folder)) << folder;
    EXPECT_FALSE(fs::exists(f.documentsFolder));
}

}  // namespace
}  // namespace tormel
