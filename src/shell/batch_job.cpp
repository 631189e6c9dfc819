#include "shell/batch_job.h"

#include "input/consistency_check.h"
#include "input/consistency_report.h"
#include "input/input_file_reader.h"
#include "shell/command_line.h"
#include "output/export_csv.h"
#include "output/export_xml.h"
#include "output/output_file.h"

namespace tormel {

const char* SaveFailureKey(SaveStatus status) {
    return status == SaveStatus::UnknownKind ? "ErrorJobOutputType" : "ErrorJobSave";
}

namespace {

// The steps of a job, in the order of kBatchWaitKeys. A batch shows them for
// every water, so their texts are looked up together, once per reading of
// the language file.
enum WaitStep { WaitReading, WaitCalculating, WaitSaving };

void WaitText(const Workspace& ws, bool newLine, WaitStep step) {
    const UiServices& ui = ws.Ui();
    if (!ui.setWaitText) return;
    static const IniFile::KeyList kList{"Batch", kBatchWaitKeys, kLanguageTextLimit};
    const std::shared_ptr<const IniFile::Table> texts = LanguageTexts(ws.language, kList);
    const std::string& text = (*texts)[step];
    if (!newLine) {
        ui.setWaitText(text);
        return;
    }
    std::string onNewLine;
    onNewLine.reserve(text.size() + 1);
    ui.setWaitText(onNewLine.append(1, '\n').append(text));
}

}  // namespace

ResultFileKind ResultFileKindOf(const std::string& path) {
    if (HasExtension(path, ".o64")) return ResultFileKind::OutputFile;
    if (HasExtension(path, ".csv")) return ResultFileKind::Csv;
    if (HasExtension(path, ".xml")) return ResultFileKind::Xml;
    return ResultFileKind::Unknown;
}

SaveOutcome SaveResults(const Workspace& ws, const std::string& path, int32_t set) {
    SaveOutcome outcome;
    switch (ResultFileKindOf(path)) {
        case ResultFileKind::OutputFile: {
            FileError error;
            if (!WriteOutputFile(path, ws.results, set, &error)) {
                outcome.status = SaveStatus::Failed;
                outcome.detail = path + ": " + error.message;
            }
            break;
        }
        case ResultFileKind::Csv:
        case ResultFileKind::Xml: {
            FileError error;
            const ExportContext context{ws.language, ws.outputOptions};
            const bool written = ResultFileKindOf(path) == ResultFileKind::Csv
                                     ? ExportCsv(path, "\t", ws.results, set, context, &error)
                                     : ExportXml(path, ws.results, set, context, &error);
            if (!written) {
                outcome.status = SaveStatus::Failed;
                outcome.detail = path + ": " + error.message;
            }
            break;
        }
        case ResultFileKind::Unknown:
            outcome.status = SaveStatus::UnknownKind;
            outcome.detail = path;
            break;
    }
    return outcome;
}

JobOutcome RunJob(Workspace& ws, const std::string& inputPath, const std::string& outputPath,
                  bool waitTextsOnNewLine, const std::function<void(const std::string&)>& reportConsistency) {
    JobOutcome outcome;
    WaitText(ws, waitTextsOnNewLine, WaitReading);
    if (std::optional<InputFileError> error = LoadInputFile(inputPath, ws.input, ws.chem.db())) {
        outcome.status = JobStatus::ReadFailed;
        outcome.detail = InputFileErrorText(ws.language, *error);
        while (!outcome.detail.empty() && outcome.detail.front() == '\n') outcome.detail.erase(0, 1);
        return outcome;
    }
    const ConsistencyResult consistency = CheckConsistency(ws.input, ws.chem.db(), ws.language);
    outcome.consistencyErrors = !consistency.errors.empty();
    outcome.consistencyReport = ConsistencyReportText(ws.language, consistency);
    if (reportConsistency && !outcome.consistencyReport.empty()) reportConsistency(outcome.consistencyReport);

    WaitText(ws, waitTextsOnNewLine, WaitCalculating);
    outcome.calculation = CalculateInput(ws, true);
    const SolveResult& solve = outcome.calculation.solve;
    if (!outcome.calculation.assembled || solve.cancelled || !solve.converged) {
        outcome.status = JobStatus::NotCalculated;
        outcome.detail = solve.message;
        return outcome;
    }

    WaitText(ws, waitTextsOnNewLine, WaitSaving);
    outcome.save = SaveResults(ws, outputPath);
    if (outcome.save.status != SaveStatus::Saved) outcome.status = JobStatus::SaveFailed;
    return outcome;
}

}  // namespace tormel
