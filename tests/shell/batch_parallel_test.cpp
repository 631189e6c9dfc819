// A thousand jobs run on two threads give the same files and the same log as
// on one thread.
#include <gtest/gtest.h>

#include <filesystem>

#include "calc/reference_case.h"
#include "core/text_file.h"
#include "output/result_test_support.h"
#include "shell/batch_run.h"

namespace tormel::test {
namespace {

constexpr int kJobs = 1000;

struct BatchParallel : ::testing::Test, PreparedWorkspace {};

TEST_F(BatchParallel, TwoThreadsWriteWhatOneThreadWritesAndTheSameLog) {
    // 1000 jobs from the reference waters, each with its own scaling of the
    // totals; a few lines are broken on purpose so that the log has entries
    const std::vector<std::string> cases = ReferenceCaseFiles();
    ASSERT_FALSE(cases.empty());
    std::string batch;
    for (int k = 0; k < kJobs; ++k) {
        const std::string name = "job" + std::to_string(k);
        if (k % 97 == 13) {
            batch += name + ".i64  " + name + ".o64\n";  // syntax error
            continue;
        }
        if (k % 101 == 7) {
            batch += "absent" + std::to_string(k) + ".i64 " + name + ".o64\n";  // unreadable input
            continue;
        }
        const std::string& file = cases[static_cast<size_t>(k) % cases.size()];
        ASSERT_TRUE(WriteReferenceInput(file, ws.folders.inputFolder + name + ".i64", 1.0 + 0.0005 * (k % 50),
                                        "job " + std::to_string(k)));
        batch += name + ".i64 " + name + ".o64\n";
    }
    ASSERT_TRUE(WriteUtf16File(ws.folders.inputFolder + "jobs.txt", std::string_view(batch)));

    auto run = [&](int32_t threads, const std::string& tag) {
        ws.folders.outputFolder = folder.File(tag + "/");
        std::filesystem::create_directories(ws.folders.outputFolder);
        BatchOptions options;
        options.jobs = threads;
        options.logPath = folder.File(tag + "_log.txt");
        std::vector<std::string> order;
        options.progress = [&](const BatchProgress& p) { order.push_back(p.line); };
        const BatchSummary summary = RunBatchFile(ws, "jobs.txt", options);
        EXPECT_EQ(static_cast<int>(order.size()), kJobs);
        return summary;
    };
    const BatchSummary one = run(1, "one");
    const BatchSummary two = run(2, "two");
    EXPECT_EQ(one.lines, kJobs);
    EXPECT_GT(one.syntaxErrors, 5);
    EXPECT_GT(one.failedJobs, 5);
    EXPECT_EQ(one.syntaxErrors, two.syntaxErrors);
    EXPECT_EQ(one.failedJobs, two.failedJobs);
    EXPECT_EQ(one.ExitCode(), 1);

    const auto logOne = ReadBinaryFile(folder.File("one_log.txt"));
    const auto logTwo = ReadBinaryFile(folder.File("two_log.txt"));
    ASSERT_TRUE(logOne && logTwo);
    EXPECT_EQ(*logOne, *logTwo);

    int compared = 0;
    for (int k = 0; k < kJobs; ++k) {
        const std::string name = "job" + std::to_string(k) + ".o64";
        const bool inOne = FileExists(folder.File("one/" + name));
        ASSERT_EQ(inOne, FileExists(folder.File("two/" + name))) << name;
        if (!inOne) continue;
        // every job starts from fresh solver state, so the files are identical
        EXPECT_EQ(ReadBinaryFile(folder.File("one/" + name)), ReadBinaryFile(folder.File("two/" + name))) << name;
        ++compared;
    }
    EXPECT_EQ(compared, kJobs - one.syntaxErrors - one.failedJobs);
}

}  // namespace
}  // namespace tormel::test
