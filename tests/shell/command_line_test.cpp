// The command line: which arguments are switches, how bare names are
// completed, and what /run:, /print: and no arguments do without windows.
#include <gtest/gtest.h>

#include "core/text_file.h"
#include "core/utf16.h"
#include "input/input_title.h"
#include "output/output_file.h"
#include "output/result_test_support.h"
#include "shell/command_line.h"
#include "shell/command_line_handler.h"

namespace tormel::test {
namespace {

TEST(CommandLine, OnlyTheThreePrefixesAreSwitchesAndTheLongFormsMeanTheSame) {
    auto action = [](std::vector<std::string> arguments) {
        return ClassifyCommandLine(NormaliseCommandLine(std::move(arguments)));
    };
    EXPECT_EQ(action({}), CommandLineAction::None);
    EXPECT_EQ(action({"  "}), CommandLineAction::None) << "the joined arguments are trimmed";
    EXPECT_EQ(action({"/RUN:water.i64"}), CommandLineAction::Run);
    EXPECT_EQ(action({"/Batch:jobs.txt"}), CommandLineAction::Batch);
    EXPECT_EQ(action({"/print:x.o64"}), CommandLineAction::Print);
    EXPECT_EQ(action({"/home/user/water.i64"}), CommandLineAction::OpenFile) << "an absolute path is a file";
    EXPECT_EQ(action({"/runner/x.i64"}), CommandLineAction::OpenFile);
    EXPECT_EQ(action({"--run", "water.i64", "out.csv"}), CommandLineAction::Run);
    EXPECT_EQ(action({"--batch=jobs.txt"}), CommandLineAction::Batch);
    EXPECT_EQ(action({"water.i64", "/run:x.i64"}), CommandLineAction::OpenFile) << "only the first switch counts";

    const CommandLine line = NormaliseCommandLine({"--run", "water.i64", "out.csv"});
    EXPECT_EQ(CommandLineArgument(line, 1), "/run:water.i64");
    EXPECT_EQ(CommandLineArgument(line, 2), "out.csv");
    EXPECT_EQ(CommandLineArgument(line, 3), "");
    EXPECT_EQ(CommandLineArgument(line, 0), "/run:water.i64 out.csv");
    EXPECT_EQ(CommandLineArgument(NormaliseCommandLine({"--print=a b.o64"}), 1), "/print:a b.o64");
}

TEST(CommandLine, BareNamesAreCompletedWithTheirFolder) {
    EXPECT_EQ(CompleteWithFolder("water.i64", "/data/Input/"), "/data/Input/water.i64");
    EXPECT_EQ(CompleteWithFolder("sub/water.i64", "/data/Input/"), "sub/water.i64");
    EXPECT_EQ(CompleteWithFolder("/abs/water.i64", "/data/Input/"), "/abs/water.i64");
    const std::string longName(255, 'w');
    EXPECT_EQ(CompleteWithFolder(longName, "/data/Input/"), longName) << "a path holds at most 260 characters";
    EXPECT_EQ(ReplaceExtension("water.I64", ".o64"), "water.o64");
    EXPECT_EQ(ReplaceExtension("water", ".o64"), "water.o64");
    EXPECT_EQ(ReplaceExtension("dir.v2/water", ".o64"), "dir.v2/water.o64");
    EXPECT_TRUE(HasExtension("RESULT.CSV", ".csv"));
}

struct CommandLineRun : ::testing::Test, PreparedWorkspace {
    CommandLineOutcome Handle(std::vector<std::string> arguments) {
        return HandleCommandLine(ws, NormaliseCommandLine(std::move(arguments)), services);
    }
    std::string LastMessage() const {
        return ui.messages.empty() || ui.messages.back().lines.empty() ? "" : ui.messages.back().lines[0];
    }
    CommandLineServices services;
};

// The export is made from the whole result set, the "Other info" blocks
// included, which a run builds as the desktop program does.
TEST_F(CommandLineRun, ExportsAreWrittenByExtensionAndUnknownExtensionsAnsweredWithAMessage) {
    ASSERT_TRUE(WriteReferenceInput(ReferenceCaseFile("co2_open_ph8"), ws.folders.inputFolder + "water.i64"));
    EXPECT_EQ(Handle({"/run:water.i64", "result.XML"}).exitCode, 0);
    const std::string xml = ReadUtf16Text(ws.folders.outputFolder + "result.XML");
    EXPECT_EQ(xml.rfind("<?xml version=\"1.0\"?>\n<?mso-application progid=\"Excel.Sheet\"?>", 0), 0u);
    EXPECT_NE(xml.find("<Worksheet ss:Name=\"Gas controlled ligands\">"), std::string::npos);
    EXPECT_NE(xml.find("Block 5: Gases"), std::string::npos);
    EXPECT_EQ(Handle({"/run:water.i64", "result.csv"}).exitCode, 0);
    const std::string csv = ReadUtf16Text(ws.folders.outputFolder + "result.csv");
    EXPECT_EQ(csv.rfind("\"Calculated with TORMEL Next, version ", 0), 0u) << csv.substr(0, 200);
    EXPECT_NE(csv.find("\n\"Block 1: General\"\n\"Number of iterations\"\t"), std::string::npos);
    EXPECT_EQ(Handle({"/run:water.i64", "result.txt"}).exitCode, 1);
    EXPECT_NE(LastMessage().find("The output name has none of the extensions"), std::string::npos);
    EXPECT_FALSE(FileExists(ws.folders.outputFolder + "result.txt"));
    EXPECT_EQ(Handle({"/run:missing.i64"}).exitCode, 1);
    EXPECT_NE(LastMessage().find("could not be read"), std::string::npos);
}

TEST_F(CommandLineRun, ConsistencyMessagesAreShownBeforeTheRunGoesOn) {
    // 10 degrees C with temperature correction: a consistency warning
    ASSERT_TRUE(WriteReferenceInput(ReferenceCaseFile("soft_lake_10C"), ws.folders.inputFolder + "lake.i64"));
    std::vector<std::string> events;
    ui.services.setWaitText = [&](std::string_view text) { events.emplace_back(text); };
    ui.services.showMessageBox = [&](const MessageBoxRequest& request) {
        events.push_back("message: " + request.lines.at(0));
        return MessageBoxAnswer{1, false};
    };
    const CommandLineOutcome outcome = Handle({"/run:lake.i64", "out.o64"});
    EXPECT_EQ(outcome.exitCode, 0) << "the run goes on after the message";
    ASSERT_EQ(events.size(), 4u);
    EXPECT_EQ(events[1].rfind("message: Please check the input:\n", 0), 0u) << events[1];
    EXPECT_EQ(events[2], "Calculating...");
    EXPECT_TRUE(FileExists(ws.folders.outputFolder + "out.o64"));
}

TEST_F(CommandLineRun, PrintNeedsTheDesktopProgram) {
    const CommandLineOutcome outcome = Handle({"/print:result.o64"});
    EXPECT_TRUE(outcome.endProcess);
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_NE(LastMessage().find("Printing needs the desktop program"), std::string::npos);

    int printed = 0;
    services.printOutput = [&](Workspace&, const std::string&) { ++printed; };
    const CommandLineOutcome wrong = Handle({"/print:result.csv"});
    EXPECT_FALSE(wrong.endProcess) << "a refused file lets start-up go on";
    EXPECT_EQ(LastMessage(), "Only output files (.o64) can be printed.");
    EXPECT_FALSE(Handle({"/print:none.o64"}).endProcess);
    EXPECT_EQ(printed, 0);
}

TEST_F(CommandLineRun, NoArgumentsLoadTheUserDefaultsWhenThereAreAny) {
    const InputProblem before = ws.input;
    EXPECT_FALSE(Handle({}).endProcess);
    EXPECT_TRUE(ui.messages.empty()) << "no defaults.i64: nothing is shown";
    EXPECT_EQ(ws.input.description, before.description);

    ASSERT_TRUE(WriteReferenceInput(ReferenceCaseFile("soft_lake_10C"), UserDefaultsPath(ws.folders.inputFolder), 1.0,
                                    "my defaults"));
    EXPECT_FALSE(Handle({}).endProcess);
    EXPECT_EQ(ws.input.description, "my defaults");
    EXPECT_EQ(ws.recentFiles.input.places[0].fileName, "defaults.i64");
}

TEST_F(CommandLineRun, ARunEndsTheProcessAndItsOutputFileOpensInTheViewer) {
    // the switch in capitals reads from the input folder and writes to the output folder
    ASSERT_TRUE(WriteReferenceInput(ReferenceCaseFile("carbonate_hard_ph8_3"), ws.folders.inputFolder + "water.i64"));
    int shutDowns = 0;
    services.shutDown = [&](Workspace&) { ++shutDowns; };
    const CommandLineOutcome run = Handle({"/RUN:water.i64"});
    EXPECT_TRUE(run.endProcess);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(shutDowns, 1);
    ResultStore empty;
    ws.results = empty;
    int shown = 0;
    services.showOutput = [&](Workspace& w) { shown += ViewSet(w.results, 0).species.empty() ? 0 : 1; };
    EXPECT_FALSE(Handle({"water.o64"}).endProcess);
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(ws.results.holdsLoadedOutput);
    Handle({"water.csv"});
    EXPECT_EQ(shown, 1) << "other files are ignored";
}

}  // namespace
}  // namespace tormel::test
