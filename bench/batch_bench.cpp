// Throughput of batch runs: jobs per second for one and for two worker
// threads. The jobs are the bundled example waters, each written many times
// with its totals scaled a little, so that every job is a real calculation
// followed by the writing of its output file.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "bench_workspace.h"
#include "core/text_file.h"
#include "input/input_file_reader.h"
#include "input/input_file_writer.h"
#include "shell/batch_run.h"

namespace {

using namespace tormel;

constexpr int kBatchJobs = 400;

// The inputs and the batch file, written once for all runs.
struct BatchSetUp {
    bench::BenchWorkspace folder{"batch-bench"};
    std::string& root = folder.root;
    std::unique_ptr<Workspace>& ws = folder.ws;
    bool ok = false;

    BatchSetUp() {
        if (!folder.loaded) return;
        const std::string source = TORMEL_SOURCE_DIR;
        std::string batch;
        const char* examples[] = {"hard_water.i64", "soft_water.i64"};
        for (int k = 0; k < kBatchJobs; ++k) {
            InputProblem input;
            if (LoadInputFile(source + "/data/examples/" + examples[k % 2], input, ws->chem.db())) return;
            for (size_t c = 0; c < input.components.size(); ++c)
                if (input.components[c].inputType == InputType::TotalConc &&
                    static_cast<int32_t>(c) != ws->chem.db().hydrogenIndex)
                    input.components[c].inputValue *= 1.0 + 0.002 * (k % 100);
            const std::string name = "job" + std::to_string(k);
            if (!WriteUtf16File(ws->folders.inputFolder + name + ".i64",
                                std::string_view(FormatInputFile(input, ws->chem.db()))))
                return;
            batch += name + ".i64 " + name + ".o64\n";
        }
        ok = WriteUtf16File(ws->folders.inputFolder + "jobs.txt", std::string_view(batch));
    }
};

BatchSetUp& SetUp() {
    static BatchSetUp setUp;
    return setUp;
}

void BatchThroughput(benchmark::State& state) {
    BatchSetUp& setUp = SetUp();
    if (!setUp.ok) {
        state.SkipWithError("batch set-up failed");
        return;
    }
    BatchOptions options;
    options.jobs = static_cast<int32_t>(state.range(0));
    options.logPath = setUp.root + "batch_log.txt";
    int failed = 0;
    for (auto _ : state) {
        const BatchSummary summary = RunBatchFile(*setUp.ws, "jobs.txt", options);
        failed += summary.failedJobs + summary.syntaxErrors;
    }
    state.counters["jobs_per_second"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * kBatchJobs, benchmark::Counter::kIsRate);
    if (failed) state.SkipWithError("jobs failed");
}

BENCHMARK(BatchThroughput)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

}  // namespace
