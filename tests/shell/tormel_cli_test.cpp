// tormel-cli as scripts see it: exit codes, what it prints and what its batch
// log says.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "core/text_file.h"
#include "core/utf16.h"
#include "output/result_test_support.h"
#include "shell/batch_log.h"
#include "support/cli_home.h"

namespace tormel::test {
namespace {

namespace fs = std::filesystem;

// The reference water with `edit` applied to its input file text.
void WriteWater(const std::string& path, const std::function<void(std::string&)>& edit = {}) {
    ASSERT_TRUE(WriteReferenceInput(ReferenceCaseFile("co2_open_ph8"), path));
    std::string text = ReadUtf16Text(path);
    if (edit) edit(text);
    ASSERT_TRUE(WriteUtf16File(path, std::string_view(text)));
}

// A water whose input has consistency errors (temperature correction at
// 100 degrees C) that can be calculated all the same.
void WriteHotWater(const std::string& path) {
    WriteWater(path, [](std::string& text) { text += "Temperature: 100 \u00B0C\nTemperature correction: 2'always\n"; });
}

TEST(TormelCli, StartUpWithoutAUsableWorkingFolderEndsWithOneNamingThePathAndWhy) {
    struct Case {
        const char* what;
        std::function<std::string(const std::string& home)> spoil;  // the folder the message must name
        bool needsNonRoot = false;
    } cases[] = {
        {"working folder is a file",
         [](const std::string& home) {
             WriteBytes(home.substr(0, home.size() - 1), "x");
             return home;
         }},
        {"data folder is a file",
         [](const std::string& home) {
             fs::create_directories(home);
             WriteBytes(home + "Data", "x");
             return home + "Data/";
         }},
        {"output folder is a file",
         [](const std::string& home) {
             fs::create_directories(home);
             WriteBytes(home + "Output", "x");
             return home + "Output/";
         }},
        {"working folder cannot be created", [](const std::string&) { return std::string("/proc/tormel-home/"); }},
        {"working folder cannot be written",
         [](const std::string& home) {
             fs::create_directories(home);
             fs::permissions(home, fs::perms::owner_read | fs::perms::owner_exec);
             return home;
         },
         true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        if (c.needsNonRoot && geteuid() == 0) continue;  // root writes anywhere
        for (const char* arguments : {"/run:water.i64", "--database"}) {
            SCOPED_TRACE(arguments);
            CliHome cli(false);
            const std::string folder = c.spoil(cli.home);
            cli.home = folder.rfind("/proc/", 0) == 0 ? folder : cli.home;
            EXPECT_EQ(cli.Run(arguments), 1);
            const std::string log = cli.Log();
            EXPECT_NE(log.find("The working folder cannot be used; the program ends:\n  " + folder + "\n  ("),
                      std::string::npos)
                << log;
            fs::permissions(cli.folder.Path(), fs::perms::owner_all);
            if (fs::exists(cli.home)) fs::permissions(cli.home, fs::perms::owner_all);
        }
    }
}

// The first start in a new folder prints results and problems only; a run
// with consistency errors calculates and ends with one, and so does a file
// to check or show that cannot be used.
TEST(TormelCli, ExitCodeAndWhatIsPrintedForARunOrAFileToCheckOrShow) {
    CliHome cli;
    WriteWater(cli.home + "Input/water.i64");
    WriteHotWater(cli.home + "Input/hot.i64");
    struct Case {
        std::string argument;
        int exitCode;
        std::string says;
    } cases[] = {
        {"/run:water.i64", 0, ""},
        {"/run:hot.i64", 1, "The input has errors:"},
        {"water.i64", 0, ""},
        {"hot.i64", 1, "The input has errors:"},
        {"missing.i64", 1, "The input file does not exist:\n  " + cli.home + "Input/missing.i64\n"},
        {"missing.o64", 1, "The output file does not exist:\n  " + cli.home + "Output/missing.o64\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.argument);
        EXPECT_EQ(cli.Run(c.argument), c.exitCode);
        if (c.says.empty()) EXPECT_EQ(cli.Log(), "");
        else EXPECT_NE(cli.Log().find(c.says), std::string::npos) << cli.Log();
    }
    EXPECT_TRUE(fs::exists(cli.home + "LANG.INI"));
    EXPECT_TRUE(fs::exists(cli.home + "Output/water.o64"));
    EXPECT_TRUE(fs::exists(cli.home + "Output/hot.o64"));
}

// Every batch log entry names the job's line, and every job that was not
// clean makes the exit code 1; a job with consistency errors still runs.
TEST(TormelCli, BatchLogEntriesNameTheJobAndProblemsEndWithOne) {
    CliHome cli;
    WriteWater(cli.home + "Input/water.i64");
    WriteHotWater(cli.home + "Input/hot.i64");
    WriteWater(cli.home + "Input/negative.i64", [](std::string& text) {
        const size_t at = text.find("\nCa: ");
        ASSERT_NE(at, std::string::npos);
        text.insert(at + 5, "-");
    });
    ASSERT_TRUE(WriteUtf16File(cli.home + "Input/jobs.txt",
                               std::string_view("water.i64 a.o64\nhot.i64 b.o64\nmissing.i64 c.o64\n"
                                                "negative.i64 d.o64\nnot a job\nwater.i64 e.o64\n")));
    // the log is the program's, kept over runs: only what this run added counts
    AppFolders folders;
    folders.programFolder = TORMEL_PROGRAM_DIR;
    folders.workingFolder = cli.home;
    const std::string logPath = BatchLogPath(folders);
    const size_t before = ReadUtf16Text(logPath).size();
    // far more jobs at a time than there are threads
    EXPECT_EQ(cli.Run("/batch:jobs.txt --jobs 2000"), 1);
    EXPECT_NE(cli.Log().find(logPath), std::string::npos) << cli.Log();
    const std::string log = ReadUtf16Text(logPath).substr(before);
    EXPECT_NE(log.find("\n(not a job)\n"), std::string::npos) << log;
    EXPECT_EQ(log.find("(water.i64"), std::string::npos);
    EXPECT_NE(log.find("The input has errors:\n(hot.i64 b.o64)\n"), std::string::npos);
    EXPECT_NE(log.find("(missing.i64 c.o64)\nThe input file does not exist:\n" + cli.home + "Input/missing.i64"),
              std::string::npos);
    EXPECT_NE(log.find("(negative.i64 d.o64)\nThe input cannot be calculated:\nThis value is negative: Ca\n"),
              std::string::npos);
    for (const char* saved : {"a.o64", "b.o64", "e.o64"}) EXPECT_TRUE(fs::exists(cli.home + "Output/" + saved)) << saved;
    EXPECT_FALSE(fs::exists(cli.home + "Output/d.o64"));
}

}  // namespace
}  // namespace tormel::test
