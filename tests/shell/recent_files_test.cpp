#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "core/c_number.h"
#include "shell/recent_files.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

using test::TempFolder;
using test::WriteBytes;

int UsedPlaces(const RecentFileList& list) {
    int used = 0;
    for (const RecentFileEntry& e : list.places) used += e.Empty() ? 0 : 1;
    return used;
}

// The file names of the nine places, "-" for an empty one.
std::string Names(const RecentFileList& list) {
    std::string names;
    for (const RecentFileEntry& e : list.places) names += (names.empty() ? "" : " ") + (e.Empty() ? "-" : e.fileName);
    return names;
}

struct ShellRecentFiles : ::testing::Test {
    TempFolder tmp;
    Settings settings{tmp.File("TORMEL64.INI")};
    RecentFiles files;
    int seconds = 0;  // the clock advances one second per call
    RecentFileClock clock = [this] { return FormatC("20240101%06d", ++seconds); };
};

TEST(ShellRecentFileTimestamp, IsLocalTimeWithASpacePaddedDay) {
    std::tm march{};
    march.tm_year = 2024 - 1900;
    march.tm_mon = 2;
    march.tm_mday = 5;
    march.tm_hour = 14;
    march.tm_min = 3;
    march.tm_sec = 9;
    march.tm_isdst = -1;
    EXPECT_EQ(FormatRecentFileTimestamp(std::mktime(&march)), "202403 5140309");

    std::tm later = march;
    later.tm_mday = 10;
    later.tm_hour = 0;
    later.tm_isdst = -1;
    const std::string tenth = FormatRecentFileTimestamp(std::mktime(&later));
    EXPECT_EQ(tenth, "20240310000309");
    EXPECT_LT(std::string("202403 9235959"), tenth);  // string order is time order
}

TEST_F(ShellRecentFiles, AddingAFileAgainInAnotherCaseRefreshesItWithoutASecondEntry) {
    RecentFileList& list = files.input;
    AddRecentFile(list, "/home/u/Input/a.i64", settings, clock);
    AddRecentFile(list, "/home/u/Input/b.i64", settings, clock);
    AddRecentFile(list, "/home/u/Input/c.i64", settings, clock);
    EXPECT_EQ(list.places[0].folder, "/home/u/Input/");
    EXPECT_EQ(list.places[0].fileName, "c.i64");
    EXPECT_EQ(list.places[0].timestamp, "20240101000003");

    AddRecentFile(list, "/HOME/U/input/A.I64", settings, clock);
    EXPECT_EQ(Names(list), "a.i64 c.i64 b.i64 - - - - - -");
    EXPECT_EQ(list.places[0].Path(), "/home/u/Input/a.i64");
    EXPECT_EQ(list.places[0].timestamp, "20240101000004");

    // A stored folder without its trailing "/" still matches.
    list.places[2].folder = "/home/u/Input";
    AddRecentFile(list, "/home/u/Input/b.i64", settings, clock);
    EXPECT_EQ(Names(list), "b.i64 a.i64 c.i64 - - - - - -");
}

TEST_F(ShellRecentFiles, TheTenthDistinctFileDropsTheOldest) {
    RecentFileList& list = files.output;
    for (int i = 0; i < 10; ++i) AddRecentFile(list, "/out/r" + std::to_string(i) + ".o64", settings, clock);
    EXPECT_EQ(Names(list), "r9.o64 r8.o64 r7.o64 r6.o64 r5.o64 r4.o64 r3.o64 r2.o64 r1.o64");
}

TEST_F(ShellRecentFiles, PruningRemovesDeletedFilesAndMovesLaterPlacesUp) {
    WriteBytes(tmp.File("a.i64"), "a");
    WriteBytes(tmp.File("d.i64"), "d");
    RecentFileList& list = files.input;
    list.places[0] = {tmp.Path(), "a.i64", "20240101000004"};
    list.places[1] = {tmp.Path(), "b.i64", "20240101000003"};  // deleted
    list.places[2] = {tmp.Path(), "c.i64", "20240101000002"};  // deleted
    list.places[3] = {};                                       // empty place, passed over
    list.places[4] = {tmp.Path(), "d.i64", "20240101000001"};
    list.places[8] = {tmp.Path(), "e.i64", "20240101000000"};  // deleted, last place

    PruneRecentFiles(list);
    EXPECT_EQ(Names(list), "a.i64 - d.i64 - - - - - -");
    EXPECT_EQ(list.places[2].timestamp, "20240101000001");
}

TEST_F(ShellRecentFiles, LoadingSplitsEachValueAtItsCommas) {
    struct Case {
        const char* key;
        const char* value;
        RecentFileEntry expected;  // in the place the key names
    };
    const Case cases[] = {
        {"RIF1", "/in/,a.i64,20240101000000", {"/in/", "a.i64", "20240101000000"}},
        {"RIF2", "/only/a/folder/", {"/only/a/folder/", "", ""}},
        {"RIF3", ",,", {}},  // the stale entry in memory is gone
        {"RIF4", "", {}},
        {"RIF5", "/x,y/,b.i64,20240101000000extra", {"/x", "y/", "b.i64,202401010"}},
        {"RIF6", "/in/,c.i64", {"/in/", "c.i64", ""}},
        {"ROF9", "/out/,r.o64,202403 5140309", {"/out/", "r.o64", "202403 5140309"}},
    };
    IniFile raw(settings.Path());
    for (const Case& c : cases) raw.WriteString("Options", c.key, c.value);
    files.input.places[2] = {"/stale/", "old.i64", "1"};

    LoadRecentFiles(files, settings);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.key);
        const RecentFileList& list = c.key[1] == 'I' ? files.input : files.output;
        const RecentFileEntry& e = list.places[c.key[3] - '1'];
        EXPECT_EQ(e.folder, c.expected.folder);
        EXPECT_EQ(e.fileName, c.expected.fileName);
        EXPECT_EQ(e.timestamp, c.expected.timestamp);
    }
    EXPECT_EQ(UsedPlaces(files.input), 4);
    EXPECT_EQ(UsedPlaces(files.output), 1);
}

TEST_F(ShellRecentFiles, SavingWritesAllNinePlacesAndReadsBackTheSame) {
    AddRecentFile(files.input, "/in/a.i64", settings, clock);
    AddRecentFile(files.input, "/in/b.i64", settings, clock);
    AddRecentFile(files.output, "/out/r.o64", settings, clock);
    SaveRecentFiles(files, settings);

    IniFile raw(settings.Path());
    EXPECT_EQ(raw.ReadString("Options", "RIF1", ""), "/in/,b.i64,20240101000002");
    EXPECT_EQ(raw.ReadString("Options", "RIF2", ""), "/in/,a.i64,20240101000001");
    EXPECT_EQ(raw.ReadString("Options", "ROF1", ""), "/out/,r.o64,20240101000003");
    for (int i = 3; i <= 9; ++i) EXPECT_EQ(raw.ReadString("Options", "RIF" + std::to_string(i), "?"), ",,");
    for (int i = 2; i <= 9; ++i) EXPECT_EQ(raw.ReadString("Options", "ROF" + std::to_string(i), "?"), ",,");

    RecentFiles loaded;
    LoadRecentFiles(loaded, settings);
    for (int i = 0; i < kRecentFilePlaces; ++i) {
        EXPECT_EQ(loaded.input.places[i].Path(), files.input.places[i].Path());
        EXPECT_EQ(loaded.input.places[i].timestamp, files.input.places[i].timestamp);
        EXPECT_EQ(loaded.output.places[i].Path(), files.output.places[i].Path());
    }
}

TEST_F(ShellRecentFiles, WithoutRememberInputFilesTheInputListIsNeitherReadNorWrittenNorChanged) {
    IniFile raw(settings.Path());
    raw.WriteString("Options", "RIF1", "/in/,kept.i64,20240101000000");
    raw.WriteString("Options", "ROF1", "/out/,r.o64,20240101000000");
    settings.WriteSettingBool("Options", "Remember-InputFiles", false);

    LoadRecentFiles(files, settings);
    AddRecentFile(files.input, "/in/new.i64", settings, clock);
    AddRecentFile(files.output, "/out/s.o64", settings, clock);
    EXPECT_EQ(UsedPlaces(files.input), 0);
    EXPECT_EQ(Names(files.output), "s.o64 r.o64 - - - - - - -");

    files.input.places[0] = {"/in/", "memory.i64", "20240101000009"};
    SaveRecentFiles(files, settings);
    EXPECT_EQ(raw.ReadString("Options", "RIF1", ""), "/in/,kept.i64,20240101000000");
    EXPECT_EQ(raw.ReadString("Options", "RIF2", "<none>"), "<none>");
    EXPECT_EQ(raw.ReadString("Options", "ROF1", ""), "/out/,s.o64,20240101000001");
}

}  // namespace
}  // namespace tormel
