#include "shell/batch_run.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "core/messages.h"
#include "core/text_file.h"
#include "shell/batch_file.h"
#include "shell/batch_job.h"
#include "shell/batch_log.h"
#include "shell/command_line.h"

namespace tormel {

namespace {

// One line of the batch file and, once handled, what it came to.
struct BatchItem {
    std::string line;
    std::optional<BatchJob> job;  // nullopt: syntax error
    JobOutcome outcome;
    std::vector<MessageBoxRequest> messages;  // shown while the job ran
};

// UI services of a worker: message boxes are kept for the item being run and
// answered as the headless program would; no wait window, no cancel.
class CapturingUi {
public:
    CapturingUi() {
        services.showMessageBox = [this](const MessageBoxRequest& request) {
            if (target) target->push_back(request);
            MessageBoxAnswer answer;
            const auto buttons = static_cast<int32_t>(request.buttons.size());
            answer.result = request.enterResult > 0 && request.enterResult <= buttons ? request.enterResult
                            : buttons == 1                                             ? 1
                                                                                       : 0;
            return answer;
        };
        services.progress = [](const SolverProgress&) { return false; };
    }
    UiServices services;
    std::vector<MessageBoxRequest>* target = nullptr;
};

std::string MessageText(const std::vector<MessageBoxRequest>& messages) {
    std::string text;
    for (const MessageBoxRequest& request : messages)
        for (const std::string& line : request.lines) {
            if (!text.empty()) text += "\n";
            text += line;
        }
    while (!text.empty() && text.front() == '\n') text.erase(0, 1);
    return text;
}

void RunItem(Workspace& worker, CapturingUi& ui, BatchItem& item) {
    ui.target = &item.messages;
    worker.input = InputProblem{};
    ResetSolverState(worker.solver);
    const std::string input = CompleteWithFolder(item.job->input, worker.folders.inputFolder);
    const std::string output = CompleteWithFolder(item.job->output, worker.folders.outputFolder);
    item.outcome = RunJob(worker, input, output, true);
    ui.target = nullptr;
}

// The log entries of a handled line, in the order the user reads them.
std::string LogEntries(const Language& language, const BatchItem& item) {
    if (!item.job) return BatchSyntaxErrorEntry(language, item.line);
    const JobOutcome& outcome = item.outcome;
    std::string entries;
    if (!outcome.consistencyReport.empty()) {
        // the job's line right under the heading, as in the other entries
        std::string report = outcome.consistencyReport;
        report.insert(std::min(report.find('\n'), report.size()), "\n(" + item.line + ")");
        entries += report + "\n";
    }
    switch (outcome.status) {
        case JobStatus::Saved: break;
        case JobStatus::ReadFailed:
            entries += BatchJobErrorEntry(language, "ErrorJobRead", item.line, outcome.detail);
            break;
        case JobStatus::NotCalculated: {
            std::string detail = outcome.detail;
            if (detail.empty()) detail = MessageText(item.messages);
            entries += BatchJobErrorEntry(language, "ErrorJobCalc", item.line, detail);
            break;
        }
        case JobStatus::SaveFailed: {
            entries += BatchJobErrorEntry(language, SaveFailureKey(outcome.save.status), item.line, outcome.save.detail);
            break;
        }
    }
    return entries;
}

// Hands out the jobs to the threads and tells the calling thread, which
// reports in batch-file order, when each is done.
class JobBoard {
public:
    explicit JobBoard(std::vector<BatchItem>& items) : items_(items), done_(items.size(), false) {}

    // The next item holding a job, or -1 when none is left.
    int32_t Take() {
        for (;;) {
            const size_t i = next_.fetch_add(1);
            if (i >= items_.size()) return -1;
            if (items_[i].job) return static_cast<int32_t>(i);
            Finish(static_cast<int32_t>(i));
        }
    }
    void Finish(int32_t i) {
        std::lock_guard<std::mutex> lock(mutex_);
        done_[i] = true;
        if (waiting_) changed_.notify_all();
    }
    bool Done(int32_t i) {
        std::lock_guard<std::mutex> lock(mutex_);
        return done_[i];
    }
    void WaitFor(int32_t i) {
        std::unique_lock<std::mutex> lock(mutex_);
        waiting_ = true;
        changed_.wait(lock, [&] { return static_cast<bool>(done_[i]); });
        waiting_ = false;
    }

private:
    std::vector<BatchItem>& items_;
    std::atomic<size_t> next_{0};
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<char> done_;
    bool waiting_ = false;  // the calling thread sleeps until an item is done
};

}  // namespace

int32_t MaxBatchThreads() { return static_cast<int32_t>(std::max(1u, std::thread::hardware_concurrency())); }

BatchSummary RunBatchFile(Workspace& ws, const std::string& path, const BatchOptions& options) {
    BatchSummary summary;
    const UiServices& ui = ws.Ui();
    summary.logPath = options.logPath.empty() ? BatchLogPath(ws.folders) : options.logPath;
    const std::string batchPath = CompleteWithFolder(path, ws.folders.inputFolder);
    FileError fileError;
    // editors often save a batch file as UTF-8: such a file is read as UTF-8
    std::optional<std::u16string> text = ReadUtf16OrUtf8File(batchPath, &fileError);
    if (!text) {
        ShowMessage(ui, ws.language,
                    LanguageText(ws.language, "Batch", "ErrorBatchOpen") + "\n" + batchPath + "\n" + fileError.message,
                    {}, IconWarning);
        return summary;
    }
    summary.opened = true;
    if (ui.showWait) ui.showWait("");

    std::vector<BatchItem> items;
    for (std::string& line : SplitBatchLines(std::move(*text))) {
        BatchItem item;
        item.job = ParseBatchLine(line);
        item.line = std::move(line);
        items.push_back(std::move(item));
    }
    summary.lines = static_cast<int32_t>(items.size());

    // output options once, before the workers copy them
    LoadOutputOptions(ws.outputOptions, ws.settings);
    const int32_t jobCount = static_cast<int32_t>(std::count_if(items.begin(), items.end(), [](const BatchItem& i) {
        return i.job.has_value();
    }));
    const int32_t threads = std::clamp(options.jobs, 1, std::max(1, std::min(jobCount, MaxBatchThreads())));

    // The calling thread takes jobs like every other and, between its own,
    // reports the items done so far in batch-file order: no thread sits
    // waiting while jobs are left, and messages, the log and the progress
    // stay on the caller's thread. The other threads' workspaces are cloned
    // here, before any job changes the caller's.
    JobBoard board(items);
    std::vector<std::unique_ptr<CapturingUi>> workerUis;
    std::vector<std::unique_ptr<Workspace>> workerSpaces;
    for (int32_t t = 1; t < threads; ++t) {
        workerUis.push_back(std::make_unique<CapturingUi>());
        workerSpaces.push_back(std::make_unique<Workspace>(CloneForWorker(ws, workerUis.back()->services)));
    }
    std::vector<std::thread> workers;
    for (size_t t = 0; t < workerSpaces.size(); ++t)
        workers.emplace_back([&board, &items, worker = workerSpaces[t].get(), capture = workerUis[t].get()] {
            for (int32_t i = board.Take(); i >= 0; i = board.Take()) {
                RunItem(*worker, *capture, items[i]);
                board.Finish(i);
            }
        });

    int32_t reported = 0;
    auto report = [&](BatchItem& item) {
        for (const MessageBoxRequest& request : item.messages) ShowMessageBox(ui, request);
        const std::string entries = LogEntries(ws.language, item);
        const bool failed = !item.job || item.outcome.status != JobStatus::Saved;
        if (!item.job) ++summary.syntaxErrors;
        else if (failed) ++summary.failedJobs;
        if (item.job && item.outcome.consistencyErrors) ++summary.inconsistentJobs;
        if (!entries.empty()) {
            summary.logWritten = true;
            // a log that cannot be written must not swallow what it would have said
            if (!AppendBatchLog(summary.logPath, entries)) ShowMessage(ui, ws.language, entries, {}, IconWarning);
        }
        if (options.progress) options.progress(BatchProgress{reported + 1, summary.lines, item.line, failed});
        item.outcome = JobOutcome{};  // keep memory flat over long batches
        item.messages.clear();
    };
    CapturingUi localCapture;
    localCapture.services.setWaitText = ui.setWaitText;
    const UiServices* callerUi = ws.ui;
    for (int32_t i = board.Take(); i >= 0; i = board.Take()) {
        ws.ui = &localCapture.services;
        RunItem(ws, localCapture, items[i]);
        ws.ui = callerUi;
        board.Finish(i);
        for (; reported < summary.lines && board.Done(reported); ++reported) report(items[reported]);
    }
    for (; reported < summary.lines; ++reported) {
        board.WaitFor(reported);
        report(items[reported]);
    }
    for (std::thread& worker : workers) worker.join();

    if (ui.closeWait) ui.closeWait();
    if (summary.logWritten)
        ShowMessage(ui, ws.language, LanguageText(ws.language, "Batch", "LogFileNotEmpty") + "\n" + summary.logPath, {},
                    IconWarning);
    return summary;
}

}  // namespace tormel
