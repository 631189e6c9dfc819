#include "shell/command_line_handler.h"

#include "core/messages.h"
#include "core/text_file.h"
#include "input/consistency_check.h"
#include "input/consistency_report.h"
#include "input/input_file_reader.h"
#include "input/input_title.h"
#include "output/build_other_info.h"
#include "output/output_file.h"
#include "shell/batch_job.h"

namespace tormel {

namespace {

constexpr size_t kRunPrefix = 5;    // "/run:"
constexpr size_t kBatchPrefix = 7;  // "/batch:"
constexpr size_t kPrintPrefix = 7;  // "/print:"

std::string WithoutPrefix(const std::string& argument, size_t prefix) {
    return argument.size() > prefix ? argument.substr(prefix) : std::string();
}

CommandLineOutcome End(Workspace& ws, const CommandLineServices& services, int exitCode) {
    if (services.shutDown) services.shutDown(ws);
    return CommandLineOutcome{true, exitCode};
}

// Shows the consistency report; true when it holds no errors.
bool ShowConsistency(Workspace& ws) {
    const ConsistencyResult result = CheckConsistency(ws.input, ws.chem.db(), ws.language);
    ShowConsistencyResult(ws.Ui(), ws.language, result, std::nullopt);
    return result.errors.empty();
}

void LoadDefaultInput(Workspace& ws) {
    const std::string path = UserDefaultsPath(ws.folders.inputFolder);
    if (!FileExists(path)) return;
    if (!ReadInputFile(path, ws.input, ws.chem.db(), ws.Ui(), ws.language)) return;
    AddRecentFile(ws.recentFiles.input, path, ws.settings);
    ShowConsistency(ws);
}

void ShowJobFailure(Workspace& ws, const JobOutcome& outcome) {
    const char* key = nullptr;
    std::string detail = outcome.detail;
    switch (outcome.status) {
        case JobStatus::Saved: return;
        case JobStatus::ReadFailed: key = "ErrorJobRead"; break;
        case JobStatus::NotCalculated: key = "ErrorJobCalc"; break;
        case JobStatus::SaveFailed:
            key = SaveFailureKey(outcome.save.status);
            detail = outcome.save.detail;
            break;
    }
    std::string text = LanguageText(ws.language, "Batch", key);
    if (!detail.empty()) text += "\n" + detail;
    ShowMessage(ws.Ui(), ws.language, text, {}, IconWarning);
}

// Reads an output file into set 0. A refused file, and one that ends early
// or holds something unreadable after its header, is reported with its path
// (and the line where reading stopped) and fails, whatever was read before.
bool ReadOutputForCommandLine(Workspace& ws, const std::string& path) {
    OutputReadReport report;
    std::string text;
    if (std::optional<OutputFileError> error = ReadOutputFile(path, ws.results, 0, &ws.input, &ws.Ui(), &report)) {
        text = OutputFileErrorText(ws.language, *error);  // names the file
    } else if (!report.complete) {
        text = LanguageText(ws.language, "Output", "ErrorIncomplete") + "\n" + path + ":" +
               std::to_string(report.stoppedAtLine);
    } else {
        return true;
    }
    ShowMessage(ws.Ui(), ws.language, text, {}, IconWarning);
    return false;
}

}  // namespace

CommandLineOutcome HandleCommandLine(Workspace& ws, const CommandLine& line, const CommandLineServices& services) {
    switch (ClassifyCommandLine(line)) {
        case CommandLineAction::None:
            LoadDefaultInput(ws);
            return {};
        case CommandLineAction::OpenFile: {
            const std::string path = CommandLineArgument(line, 1);
            if (services.forwardToRunningInstance && services.forwardToRunningInstance(path))
                return CommandLineOutcome{true, 0};
            bool opened = true;
            if (HasExtension(path, ".i64")) {
                opened = OpenInputFromCommandLine(ws, path);
            } else if (HasExtension(path, ".o64")) {
                opened = OpenOutputFromCommandLine(ws, path, services);
            }
            return CommandLineOutcome{false, opened ? 0 : 1};
        }
        case CommandLineAction::Run: return RunSingleInput(ws, line, services);
        case CommandLineAction::Batch: return RunBatchFromCommandLine(ws, line, services);
        case CommandLineAction::Print: return PrintOutputFile(ws, line, services);
    }
    return {};
}

bool OpenInputFromCommandLine(Workspace& ws, const std::string& path) {
    const std::string full = CompleteWithFolder(path, ws.folders.inputFolder);
    const bool read = ReadInputFile(full, ws.input, ws.chem.db(), ws.Ui(), ws.language);
    return ShowConsistency(ws) && read;
}

bool OpenOutputFromCommandLine(Workspace& ws, const std::string& path, const CommandLineServices& services) {
    const std::string full = CompleteWithFolder(path, ws.folders.outputFolder);
    if (!ReadOutputForCommandLine(ws, full)) return false;
    LoadOutputOptions(ws.outputOptions, ws.settings);
    RebuildNumberFormats(ws.outputOptions);
    BuildOtherInfo(ws.results, 0, MakeResultContext(ws), &ws.chem.db());
    if (services.showOutput) services.showOutput(ws);
    return true;
}

CommandLineOutcome RunSingleInput(Workspace& ws, const CommandLine& line, const CommandLineServices& services) {
    const std::string input = WithoutPrefix(CommandLineArgument(line, 1), kRunPrefix);
    std::string output = CommandLineArgument(line, 2);
    if (output.empty()) output = ReplaceExtension(FileNamePart(input), ".o64");
    const std::string inputPath = CompleteWithFolder(input, ws.folders.inputFolder);
    const std::string outputPath = CompleteWithFolder(output, ws.folders.outputFolder);

    const UiServices& ui = ws.Ui();
    if (ui.showWait) ui.showWait(LanguageText(ws.language, "Batch", "OpenAndRunInputInit"));
    const JobOutcome outcome = RunJob(ws, inputPath, outputPath, false, [&ws](const std::string& report) {
        ShowMessage(ws.Ui(), ws.language, report, {}, IconWarning);
    });
    if (ui.closeWait) ui.closeWait();
    ShowJobFailure(ws, outcome);
    return End(ws, services, outcome.status == JobStatus::Saved && !outcome.consistencyErrors ? 0 : 1);
}

CommandLineOutcome RunBatchFromCommandLine(Workspace& ws, const CommandLine& line, const CommandLineServices& services) {
    const std::string path = WithoutPrefix(CommandLineArgument(line, 1), kBatchPrefix);
    const BatchSummary summary = RunBatchFile(ws, path, services.batch);
    return End(ws, services, summary.ExitCode());
}

CommandLineOutcome PrintOutputFile(Workspace& ws, const CommandLine& line, const CommandLineServices& services) {
    const UiServices& ui = ws.Ui();
    if (!services.printOutput) {
        ShowMessage(ui, ws.language, LanguageText(ws.language, "Batch", "PrintNeedsDesktop"), {}, IconWarning);
        return End(ws, services, 1);
    }
    const std::string path =
        CompleteWithFolder(WithoutPrefix(CommandLineArgument(line, 1), kPrintPrefix), ws.folders.outputFolder);
    if (!HasExtension(path, ".o64")) {
        ShowMessage(ui, ws.language, LanguageText(ws.language, "Output", "PrintWrongExtension"), {}, IconWarning);
        return {};
    }
    if (!FileExists(path)) {
        ShowMessage(ui, ws.language,
                    LanguageText(ws.language, "Output", "PrintFileDoesNotExist1") + "\n" + path + "\n" +
                        LanguageText(ws.language, "Output", "PrintFileDoesNotExist2"),
                    {}, IconWarning);
        return {};
    }
    if (!ReadOutputForCommandLine(ws, path)) return End(ws, services, 0);
    LoadOutputOptions(ws.outputOptions, ws.settings);
    BuildOtherInfo(ws.results, 0, MakeResultContext(ws), &ws.chem.db());
    services.printOutput(ws, path);
    return End(ws, services, 0);
}

}  // namespace tormel
