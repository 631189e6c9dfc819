// Batch files: the two line forms, the lines that are syntax errors, the log
// that only ever grows, and a run that reports what went wrong per line.
#include <gtest/gtest.h>

#include "core/text_file.h"
#include "core/utf16.h"
#include "output/output_file.h"
#include "output/result_test_support.h"
#include "shell/batch_file.h"
#include "shell/batch_log.h"
#include "shell/batch_run.h"

namespace tormel::test {
namespace {

TEST(BatchFile, QuotedAndPlainLinesAndEverythingElseIsASyntaxError) {
    const auto quoted = ParseBatchLine("\"my water.i64\" \"my result.o64\"");
    ASSERT_TRUE(quoted.has_value());
    EXPECT_EQ(quoted->input, "my water.i64");
    EXPECT_EQ(quoted->output, "my result.o64");
    const auto plain = ParseBatchLine("water.i64 result.o64");
    ASSERT_TRUE(plain.has_value());
    EXPECT_EQ(plain->input, "water.i64");
    EXPECT_EQ(plain->output, "result.o64");
    for (const char* line : {"water.i64  result.o64", "\"water.i64\" \"result.o64", "water.i64", "",
                             " water.i64 result.o64x y", "\"\" \"result.o64\"", "\"a.i64\"  \"b.o64\"",
                             " \"a.i64\" \"b.o64\"", "\"a.i64\" \"b.o64\" ", "a.i64 \"b.o64\"", "water.i64 "})
        EXPECT_FALSE(ParseBatchLine(line).has_value()) << "[" << line << "]";
}

TEST(BatchFile, LinesEndAtLineFeedsAndAtTheLengthLimit) {
    EXPECT_EQ(SplitBatchLines(u"\uFEFFa.i64 a.o64\nb.i64 b.o64\n"),
              (std::vector<std::string>{"a.i64 a.o64", "b.i64 b.o64"}))
        << "a final line break does not add a job";
    EXPECT_EQ(SplitBatchLines(u"a.i64 a.o64\n\nb.i64 b.o64"),
              (std::vector<std::string>{"a.i64 a.o64", "", "b.i64 b.o64"}));
    const std::string longLine(600, 'x');
    const std::vector<std::string> parts = SplitBatchLines(Utf8ToUtf16(longLine + "\n"));
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_EQ(parts[0].size(), kBatchLineLimit);
    EXPECT_EQ(parts[1].size(), 600 - kBatchLineLimit);
}

TEST(BatchLog, EntriesAreAppendedBehindEarlierOnes) {
    TempFolder folder;
    const std::string path = folder.File("batch_log.txt");
    ASSERT_TRUE(AppendBatchLog(path, "first\n"));
    ASSERT_TRUE(AppendBatchLog(path, "second \u00e4\n"));
    const auto bytes = ReadBinaryFile(path);
    ASSERT_TRUE(bytes.has_value());
    EXPECT_EQ(bytes->substr(0, 2), "\xFF\xFE");
    EXPECT_EQ(bytes->find("\xFF\xFE", 2), std::string::npos) << "one byte-order mark";
    EXPECT_EQ(ReadUtf16Text(path), "first\nsecond \u00e4\n");
    EXPECT_FALSE(AppendBatchLog(folder.File("no/such/folder/log.txt"), "x"));
}

struct BatchRun : ::testing::Test, PreparedWorkspace {
    void SetUp() override { options.logPath = folder.File("batch_log.txt"); }
    void WriteBatch(const std::string& text) {
        ASSERT_TRUE(WriteUtf16File(ws.folders.inputFolder + "jobs.txt", std::string_view(text)));
    }
    BatchOptions options;
};

TEST_F(BatchRun, ACleanBatchWritesNothingToTheLogAndShowsNothing) {
    ASSERT_TRUE(WriteReferenceInput(ReferenceCaseFile("carbonate_hard_ph8_3"), ws.folders.inputFolder + "a.i64"));
    ASSERT_TRUE(WriteReferenceInput(ReferenceCaseFile("nahco3_proton_balance"), ws.folders.inputFolder + "b c.i64"));
    WriteBatch("a.i64 a.o64\n\"b c.i64\" \"" + folder.File("b c.o64") + "\"\na.i64 a.csv\na.i64 a.xml\n");
    const BatchSummary summary = RunBatchFile(ws, "jobs.txt", options);
    EXPECT_EQ(summary.ExitCode(), 0);
    EXPECT_EQ(summary.lines, 4);
    EXPECT_FALSE(summary.logWritten);
    EXPECT_FALSE(FileExists(options.logPath));
    EXPECT_TRUE(ui.messages.empty());
    ResultStore store;
    EXPECT_FALSE(ReadOutputFile(ws.folders.outputFolder + "a.o64", store, 0).has_value());
    EXPECT_FALSE(ReadOutputFile(folder.File("b c.o64"), store, 0).has_value());
    // an export where the output name's extension asks for one
    EXPECT_EQ(ReadUtf16Text(ws.folders.outputFolder + "a.csv").rfind("\"Calculated with TORMEL Next", 0), 0u);
    EXPECT_EQ(ReadUtf16Text(ws.folders.outputFolder + "a.xml").rfind("<?xml", 0), 0u);
}

TEST_F(BatchRun, ProblemsGoToTheLogInLineOrderAndTheBatchGoesOn) {
    ASSERT_TRUE(WriteReferenceInput(ReferenceCaseFile("carbonate_hard_ph8_3"), ws.folders.inputFolder + "good.i64"));
    ASSERT_TRUE(WriteReferenceInput(ReferenceCaseFile("soft_lake_10C"), ws.folders.inputFolder + "cold.i64"));
    ASSERT_TRUE(AppendBatchLog(options.logPath, "an earlier run\n"));
    WriteBatch("good.i64  two_blanks.o64\n"
               "\"good.i64\" \"three quotes.o64\n"
               "missing.i64 missing.o64\n"
               "cold.i64 cold.o64\n"
               "good.i64 good.txt\n"
               "good.i64 good.o64\n");
    int progressCalls = 0;
    options.progress = [&](const BatchProgress& p) {
        ++progressCalls;
        EXPECT_EQ(p.total, 6);
        EXPECT_EQ(p.finished, progressCalls);
    };
    const BatchSummary summary = RunBatchFile(ws, ws.folders.inputFolder + "jobs.txt", options);
    EXPECT_EQ(summary.ExitCode(), 1);
    EXPECT_EQ(summary.syntaxErrors, 2);
    EXPECT_EQ(summary.failedJobs, 2) << "the unreadable input and the unknown output type";
    EXPECT_EQ(progressCalls, 6);
    EXPECT_TRUE(FileExists(ws.folders.outputFolder + "cold.o64")) << "a warning does not stop the job";
    EXPECT_TRUE(FileExists(ws.folders.outputFolder + "good.o64"));

    const std::string log = ReadUtf16Text(options.logPath);
    const std::string expectedStart =
        "an earlier run\n"
        "This line of the batch file cannot be read:\n(good.i64  two_blanks.o64)\n"
        "This line of the batch file cannot be read:\n(\"good.i64\" \"three quotes.o64)\n"
        "The input file of this job could not be read; the job was not calculated:\n(missing.i64 missing.o64)\n";
    EXPECT_EQ(log.substr(0, expectedStart.size()), expectedStart) << log;
    const size_t warning = log.find("Please check the input:\n");
    const size_t exportEntry = log.find("The output name has none of the extensions .o64, .csv or .xml");
    EXPECT_NE(warning, std::string::npos);
    EXPECT_NE(exportEntry, std::string::npos);
    EXPECT_LT(warning, exportEntry);
    ASSERT_FALSE(ui.messages.empty());
    EXPECT_EQ(ui.messages.back().lines.at(0),
              "Some jobs reported problems. Please read the batch log:\n" + options.logPath);
}

TEST_F(BatchRun, ABatchFileSavedAsUtf8IsReadAsUtf8) {
    ASSERT_TRUE(WriteReferenceInput(ReferenceCaseFile("carbonate_hard_ph8_3"), ws.folders.inputFolder + "wässer.i64"));
    // with and without the UTF-8 byte-order mark, CR LF line ends, a name with an umlaut
    for (const std::string bom : {"", "\xEF\xBB\xBF"}) {
        const std::string out = folder.File("ä" + std::to_string(bom.size()) + ".o64");
        ASSERT_TRUE(WriteFileAtomically(ws.folders.inputFolder + "jobs.txt", bom + "wässer.i64 " + out + "\r\n"));
        const BatchSummary summary = RunBatchFile(ws, "jobs.txt", options);
        EXPECT_EQ(summary.ExitCode(), 0) << ReadUtf16Text(options.logPath);
        EXPECT_EQ(summary.lines, 1);
        EXPECT_TRUE(FileExists(out));
    }
    EXPECT_TRUE(ui.messages.empty());
    // bytes that are not UTF-8 (Latin-1) are read as UTF-16 as before: a syntax error, not a job
    ASSERT_TRUE(WriteFileAtomically(ws.folders.inputFolder + "jobs.txt", "w\xE4sser.i64 x.o64\r\n"));
    EXPECT_EQ(RunBatchFile(ws, "jobs.txt", options).syntaxErrors, 1);
}

TEST_F(BatchRun, AnUnreadableBatchFileIsReported) {
    const BatchSummary summary = RunBatchFile(ws, "none.txt", options);
    EXPECT_FALSE(summary.opened);
    EXPECT_EQ(summary.ExitCode(), 1);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_NE(ui.messages[0].lines.at(0).find(ws.folders.inputFolder + "none.txt"), std::string::npos);
}

}  // namespace
}  // namespace tormel::test
