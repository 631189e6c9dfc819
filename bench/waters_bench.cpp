// The 1,000 natural waters of ../shared/bench/waters1000.tsv (fixed pH, the
// totals of Ca, Mg, Na, K, Cl, SO4 and CO3; 25 °C, Davies, no solids), timed
// per water so that the figures compare with the independent program's
// figures in ../shared/bench/README.md:
//   Waters/Calculation       from the input in memory to the built result set
//   Waters/Batch/jobs:N      "/batch:" end to end, one .o64 per water on the
//                            local disk, with N jobs at a time (per_water:
//                            wall clock; cpu_per_water: all threads' time;
//                            user_per_water: the part outside the kernel)
//   Waters/FileFloor/jobs:N  the kernel's part of that: the first water's
//                            .o64 written as new files the way the batch
//                            writes each, and nothing else; Batch minus
//                            FileFloor is the program's own time per water
//   Waters/BatchPeakMemory   peak resident memory of a whole batch with one
//                            and with eight jobs at a time (each in a child
//                            process started from the same parent)
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "bench_workspace.h"
#include "core/c_number.h"
#include "core/text_file.h"
#include "input/input_file_writer.h"
#include "input/water_fields.h"
#include "input/water_table.h"
#include "output/output_file.h"
#include "shell/batch_run.h"

namespace {

using namespace tormel;

const std::string kWatersFile = TORMEL_SOURCE_DIR "/../shared/bench/waters1000.tsv";
constexpr const char* kMissingWaters =
    "../shared/bench/waters1000.tsv not found beside the source tree: the waters benchmarks need it";

// The fields of row `row` of the table: every column but the row number "n".
std::vector<WaterField> RowFields(const WaterTable& table, size_t row) {
    std::vector<WaterField> fields;
    for (size_t c = 0; c < table.columns.size(); ++c)
        if (table.columns[c] != "n") fields.push_back({table.columns[c], FormatC("%.17G", table.At(row, c))});
    fields.push_back({"Ionic strength model", "1"});  // Davies
    fields.push_back({"Convergence criterion", "1.0001"});
    return fields;
}

// Puts one water into the workspace's input; false when the input refuses it.
bool ApplyWater(Workspace& ws, const std::vector<WaterField>& water) {
    return !ReadWaterFields(water, ws.input, ws.chem.db());
}

// The waters, their input files and the batch file, made once for all runs.
struct WatersSetUp {
    bench::BenchWorkspace folder{"waters-bench"};
    std::vector<std::vector<WaterField>> waters;
    std::vector<InputProblem> problems;  // each water read into an input problem once
    std::string error;

    WatersSetUp() {
        const std::optional<WaterTable> table = ReadWaterTable(kWatersFile);
        if (!table) {
            error = kMissingWaters;
            return;
        }
        if (!folder.loaded) {
            error = "the database could not be loaded";
            return;
        }
        Workspace& ws = *folder.ws;
        for (size_t row = 0; row < table->RowCount(); ++row) waters.push_back(RowFields(*table, row));
        std::string batch;
        for (size_t i = 0; i < waters.size(); ++i) {
            if (!ApplyWater(ws, waters[i])) {
                error = "water " + std::to_string(i + 1) + " is refused by the input reader";
                return;
            }
            problems.push_back(ws.input);
            const std::string name = "water" + std::to_string(i + 1);
            if (!WriteUtf16File(ws.folders.inputFolder + name + ".i64",
                                std::string_view(FormatInputFile(ws.input, ws.chem.db())))) {
                error = "cannot write the input files";
                return;
            }
            batch += name + ".i64 " + name + ".o64\n";
        }
        if (!WriteUtf16File(ws.folders.inputFolder + "waters.txt", std::string_view(batch)))
            error = "cannot write the batch file";
    }

    bool Usable(benchmark::State& state) const {
        if (error.empty()) return true;
        state.SkipWithError(error.c_str());
        return false;
    }

    // Every run writes into an output folder of its own, as a batch into a
    // new folder does: rewriting the same 1,000 files would time the file
    // system's reuse of just-deleted files rather than the batch.
    BatchSummary RunBatch(int32_t jobs) {
        Workspace& ws = *folder.ws;
        ws.folders.outputFolder = folder.root + "Output" + std::to_string(++runs) + "/";
        std::error_code ec;
        std::filesystem::create_directories(ws.folders.outputFolder, ec);
        BatchOptions options;
        options.jobs = jobs;
        options.logPath = folder.root + "batch_log.txt";
        return RunBatchFile(ws, "waters.txt", options);
    }
    int runs = 0;
};

WatersSetUp& SetUp() {
    static WatersSetUp setUp;
    return setUp;
}

// Time per water, shown in the counter "per_water".
void CountPerWater(benchmark::State& state, size_t waters) {
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * waters));
    state.counters["per_water"] = benchmark::Counter(static_cast<double>(waters),
                                                     benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
}

void Calculation(benchmark::State& state) {
    WatersSetUp& setUp = SetUp();
    if (!setUp.Usable(state)) return;
    Workspace& ws = *setUp.folder.ws;
    int failed = 0;
    for (auto _ : state)
        for (const InputProblem& problem : setUp.problems) {
            ws.input = problem;
            ResetSolverState(ws.solver);
            const CalculationOutcome out = CalculateInput(ws, false);
            if (!out.assembled || !out.solve.converged) ++failed;
            benchmark::DoNotOptimize(ws.results);
        }
    CountPerWater(state, setUp.waters.size());
    if (failed) state.SkipWithError("a water did not converge");
}

// User and system time of the whole process (every thread), in seconds.
struct ProcessTimes {
    double user = 0;
    double system = 0;
};
ProcessTimes ProcessCpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    auto seconds = [](const timeval& t) { return static_cast<double>(t.tv_sec) + t.tv_usec * 1e-6; };
    return {seconds(usage.ru_utime), seconds(usage.ru_stime)};
}

void Batch(benchmark::State& state) {
    WatersSetUp& setUp = SetUp();
    if (!setUp.Usable(state)) return;
    int failed = 0;
    const ProcessTimes before = ProcessCpuSeconds();
    for (auto _ : state) {
        const BatchSummary summary = setUp.RunBatch(static_cast<int32_t>(state.range(0)));
        failed += summary.ExitCode();
    }
    // on a busy machine the wall-clock figure waits for the processor; these
    // do not: all threads' time, and the part of it spent in the program
    // itself rather than in the kernel's file handling
    const ProcessTimes after = ProcessCpuSeconds();
    const double waters = static_cast<double>(std::max<int64_t>(state.iterations(), 1) * setUp.waters.size());
    state.counters["cpu_per_water"] = (after.user + after.system - before.user - before.system) / waters;
    state.counters["user_per_water"] = (after.user - before.user) / waters;
    CountPerWater(state, setUp.waters.size());
    if (failed) state.SkipWithError("a batch job failed");
}

// The bytes of the first water's .o64, as the batch writes them.
std::string FirstOutputBytes(WatersSetUp& setUp) {
    Workspace& ws = *setUp.folder.ws;
    ws.input = setUp.problems.front();
    ws.solver = SolverState{};
    CalculateInput(ws, false);
    const std::string path = setUp.folder.root + "first.o64";
    if (!WriteOutputFile(path, ws.results, 0)) return {};
    return ReadBinaryFile(path).value_or(std::string());
}

void FileFloor(benchmark::State& state) {
    WatersSetUp& setUp = SetUp();
    if (!setUp.Usable(state)) return;
    const std::string bytes = FirstOutputBytes(setUp);
    if (bytes.empty()) {
        state.SkipWithError("the first water's output could not be written");
        return;
    }
    const int32_t jobs = static_cast<int32_t>(state.range(0));
    const size_t waters = setUp.waters.size();
    bool failed = false;
    int run = 0;
    for (auto _ : state) {
        // a new folder for each run, as the batch runs get
        const std::string folder = setUp.folder.root + "Floor" + std::to_string(++run) + "/";
        std::error_code ec;
        std::filesystem::create_directories(folder, ec);
        std::vector<std::thread> workers;
        std::vector<char> ok(static_cast<size_t>(jobs), 1);
        for (int32_t j = 0; j < jobs; ++j)
            workers.emplace_back([&, j] {
                for (size_t i = static_cast<size_t>(j); i < waters; i += static_cast<size_t>(jobs))
                    if (!WriteFileAtomically(folder + "water" + std::to_string(i + 1) + ".o64", bytes)) ok[j] = 0;
            });
        for (std::thread& worker : workers) worker.join();
        failed = failed || std::find(ok.begin(), ok.end(), 0) != ok.end();
    }
    CountPerWater(state, waters);
    if (failed) state.SkipWithError("a file could not be written");
}

// Peak resident memory (MiB) of a child process that runs the whole batch.
double ChildPeakMemory(WatersSetUp& setUp, int32_t jobs) {
    const pid_t child = fork();
    if (child == 0) _exit(setUp.RunBatch(jobs).ExitCode());
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return -1;
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

void BatchPeakMemory(benchmark::State& state) {
    WatersSetUp& setUp = SetUp();
    if (!setUp.Usable(state)) return;
    double one = 0, eight = 0;
    for (auto _ : state) {
        one = ChildPeakMemory(setUp, 1);
        eight = ChildPeakMemory(setUp, 8);
    }
    state.counters["MiB_jobs1"] = one;
    state.counters["MiB_jobs8"] = eight;
    state.counters["ratio"] = one > 0 ? eight / one : 0;
    if (one < 0 || eight < 0) state.SkipWithError("a batch child failed");
}

BENCHMARK(Calculation)->Name("Waters/Calculation")->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(Batch)->Name("Waters/Batch")->ArgName("jobs")->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)
    ->UseRealTime()->MinTime(3.0);
BENCHMARK(FileFloor)->Name("Waters/FileFloor")->ArgName("jobs")->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)
    ->UseRealTime()->MinTime(3.0);
BENCHMARK(BatchPeakMemory)->Name("Waters/BatchPeakMemory")->Iterations(1)->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
