#pragma once
// One job of the command line or of a batch file: read an input file, check
// it, calculate it and save the results in the form the output name's
// extension asks for.
#include <functional>
#include <string>
#include <string_view>

#include "core/text_file.h"
#include "shell/workspace.h"

namespace tormel {

// What an output name's extension (any letter case) asks to be written.
enum class ResultFileKind {
    OutputFile,  // ".o64"
    Csv,         // ".csv": tab-separated text
    Xml,         // ".xml": XML spreadsheet
    Unknown,     // anything else: nothing is written
};
ResultFileKind ResultFileKindOf(const std::string& path);

enum class SaveStatus { Saved, Failed, UnknownKind };

// The [Batch] language key that names a failed save.
const char* SaveFailureKey(SaveStatus status);

// The language keys (section "Batch") of the steps of a job that the wait
// window shows: reading, calculating, saving.
inline constexpr std::string_view kBatchWaitKeys[] = {"OpenAndRunInputInit", "OpenAndRunInputRun",
                                                      "OpenAndRunInputSave"};

struct SaveOutcome {
    SaveStatus status = SaveStatus::Saved;
    std::string detail;  // why the save failed (English)
};

// Writes result set `set` to `path` as its extension asks.
SaveOutcome SaveResults(const Workspace& ws, const std::string& path, int32_t set = 0);

enum class JobStatus {
    Saved,
    ReadFailed,     // the input file could not be read
    NotCalculated,  // refused by the assembly, cancelled or not converged
    SaveFailed,     // see `save`
};

struct JobOutcome {
    JobStatus status = JobStatus::Saved;
    std::string consistencyReport;  // Input/"ConsistencyError" or "ConsistencyWarning" and the texts; may be empty
    bool consistencyErrors = false; // the report holds errors (the job still ran; its exit code is 1)
    std::string detail;             // why the job failed
    SaveOutcome save;
    CalculationOutcome calculation;
};

// Runs one job with full paths: wait texts Batch/"OpenAndRunInputInit",
// "...Run", "...Save" (each after "\n" when `waitTextsOnNewLine`); the
// consistency report goes to `reportConsistency` (when set) before the
// calculation. A job whose input cannot be read is not calculated, and a job
// without results saves nothing.
JobOutcome RunJob(Workspace& ws, const std::string& inputPath, const std::string& outputPath,
                  bool waitTextsOnNewLine = false,
                  const std::function<void(const std::string& report)>& reportConsistency = {});

}  // namespace tormel
