#pragma once
// Runs a batch file: every line in order, exactly once. Syntax errors,
// consistency messages and failed jobs go to the batch log; a single message
// at the end points to the log when anything was written to it.
//
// With more than one job at a time, the jobs are calculated on worker
// threads, each with a workspace of its own (all reading the one loaded
// database), but everything the user sees — log entries, messages,
// progress — is reported in the order of the batch file, so the log is the
// same as with one thread. Every job starts from fresh solver state, so a
// job's results do not depend on the jobs before it.
#include <cstdint>
#include <functional>
#include <string>

#include "shell/workspace.h"

namespace tormel {

// The most jobs calculated at the same time: one per hardware thread (at
// least one). More gain nothing: the workers would only take turns.
int32_t MaxBatchThreads();

struct BatchProgress {
    int32_t finished = 0;  // lines handled so far
    int32_t total = 0;     // lines of the batch file
    std::string line;      // the line just handled
    bool failed = false;   // a syntax error or a job that failed
};

struct BatchOptions {
    int32_t jobs = 1;     // jobs calculated at the same time (at most MaxBatchThreads())
    std::string logPath;  // empty: BatchLogPath of the workspace's folders
    // Called on the calling thread after each line, in batch-file order.
    std::function<void(const BatchProgress&)> progress;
};

struct BatchSummary {
    bool opened = false;  // the batch file could be read
    int32_t lines = 0;
    int32_t syntaxErrors = 0;
    int32_t failedJobs = 0;
    int32_t inconsistentJobs = 0;  // jobs run although their input had consistency errors
    bool logWritten = false;
    std::string logPath;

    // 0 when every line was a job whose input had no consistency errors and
    // that was calculated and saved, else 1.
    int ExitCode() const { return opened && syntaxErrors == 0 && failedJobs == 0 && inconsistentJobs == 0 ? 0 : 1; }
};

// Runs the batch file at `path` (completed with the input folder when it has
// no folder part). The calling workspace's database, language, settings,
// output options and decimal separator are used; with one job at a time its
// input, solver and results are those of the last job afterwards.
BatchSummary RunBatchFile(Workspace& ws, const std::string& path, const BatchOptions& options = {});

}  // namespace tormel
