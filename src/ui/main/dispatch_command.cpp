// What the commands of the main window do.
#include <QApplication>
#include <QStatusBar>

#include "core/messages.h"
#include "input/input_file_writer.h"
#include "shell/batch_job.h"
#include "shell/command_line_handler.h"
#include "shell/input_commands.h"
#include "shell/workspace.h"
#include "ui/database/open_database_viewer.h"
#include "ui/input/open_input_editor.h"
#include "ui/main/command_table.h"
#include "ui/main/desktop_ui.h"
#include "ui/main/help_pages.h"
#include "ui/main/main_window.h"
#include "ui/main/ui_text.h"
#include "ui/options/open_options_dialog.h"
#include "ui/output/open_comparison.h"
#include "ui/output/open_output_viewer.h"
#include "ui/output/open_print_dialog.h"
#include "updates/open_document.h"

namespace tormel {

namespace {

// The links of the contact buttons, in button order.
constexpr WebLink kContactLinks[] = {WebLink::Website, WebLink::Email, WebLink::Social, WebLink::Video};

InputSession SessionOf(Workspace& ws, MainWindow* window) {
    return InputSession{ws.input, ws.chem.db(), ws.folders, ws.language, ws.Ui(),
                        [&ws](const std::string& path) { AddRecentFile(ws.recentFiles.input, path, ws.settings); },
                        [window] { window->UpdateStatusLine(); }};
}

const QString kInputFilter = QStringLiteral("TORMEL input (*.i64 *.inp)");
const QString kOutputFilter = QStringLiteral("TORMEL output (*.o64)");

}  // namespace

void MainWindow::DispatchCommand(int identifier, int notification) {
    (void)notification;
    switch (identifier) {
        case 1111:
            commandLog_.push_back(identifier);
            ShowMessage(ws_.Ui(), ws_.language,
                        LanguageText(ws_.language, "Input", "InpNew") + "\n(" +
                            LanguageText(ws_.language, "InputMenu", "Input1a") + " / " +
                            LanguageText(ws_.language, "InputMenu", "Input1b") + ").");
            return;
        case 1113:
            commandLog_.push_back(identifier);
            ShowMessage(ws_.Ui(), ws_.language, LanguageText(ws_.language, "Input", "InputRecent"));
            return;
        case 1133:
            commandLog_.push_back(identifier);
            ShowMessage(ws_.Ui(), ws_.language, LanguageText(ws_.language, "Output", "OutputRecent"));
            return;
        case 1136:
            commandLog_.push_back(identifier);
            ShowMessage(ws_.Ui(), ws_.language, LanguageText(ws_.language, "Output", "OutputExport"));
            return;
        case 1165:
            commandLog_.push_back(identifier);
            ShowMessage(ws_.Ui(), ws_.language, LanguageText(ws_.language, "Help", "HelpContact"));
            return;
        default: break;
    }
    if (identifier >= kTileCaptionCommand && identifier < kTileCaptionCommand + 6) {
        OpenPanel(identifier - kTileCaptionCommand);
        return;
    }
    if (identifier >= kTileImageCommand && identifier < kTileImageCommand + 6) {
        ws_.uiReady = false;  // the open panel stays while the pointer passes other tiles
        return;
    }
    ClosePanel();
    ws_.uiReady = true;
    RunAction(identifier);
}

void MainWindow::RunAction(int command) {
    if (AlwaysDisabled(command)) return;
    if (!ItemOfCommand(command) && command != kWebLinkCommand) return;
    commandLog_.push_back(command);
    const InputSession session = SessionOf(ws_, this);
    auto askInputName = [this] { return AskFileName(true, kInputFilter, ws_.folders.inputFolder); };
    switch (command) {
        case 1211: ResetToProgramDefaults(session); break;
        case 1212: LoadUserDefaults(session); break;
        case 1112:
            if (std::optional<std::string> path = AskFileName(false, kInputFilter, ws_.folders.inputFolder))
                OpenInputFile(session, *path);
            break;
        case 1114: OpenInputEditor(ws_, this); break;
        case 1115: SaveInput(session, askInputName); break;
        case 1116: SaveInputAs(session, askInputName); break;
        case 1117: SaveAsUserDefaults(session); break;
        case 1121: Calculate(); break;
        case 1131: OpenOutputViewer(ws_, this); break;
        case 1132: OpenOutputFileDialog(); break;
        case 1134:
        case 1231:
        case 1232:
        case 1233:
        case 1234: SaveResultsAs(command); break;
        case 1135: OpenPrintDialog(ws_, this); break;
        case 1137: OpenComparison(ws_, this); break;
        case 1141: OpenDatabaseViewer(ws_, this); break;
        case 1143: OpenDatabaseInformation(ws_, this); break;
        case 1144: OpenDocument(ws_, this, "document64.pdf"); break;
        case 1151:
        case 1152:
        case 1153:
        case 1154:
        case 1155: OpenOptionsDialog(ws_, this, command - 1151); break;
        case 1161:
            if (services_.openHelp) services_.openHelp(500);
            break;
        case 1162:
        case 1163:
        case 1164:
            if (services_.openHelp) services_.openHelp(1162 - command);  // 0 contents, -1 index, -2 search
            break;
        case 1166: OpenDocument(ws_, this, "manual64.pdf"); break;
        case 1167: PaintInfoArea(); break;
        case kWebLinkCommand: OpenLink(WebLink::Website); break;
        case 1261:
        case 1262:
        case 1263:
        case 1264: OpenLink(kContactLinks[command - 1261]); break;
        default: break;
    }
    UpdateStatusLine();
}

void MainWindow::OpenLink(WebLink link) {
    const std::string target = S(WebLinkUrl(ws_.folders, ws_.settings, link).toString());
    if (ws_.Ui().openExternal) ws_.Ui().openExternal(target);
}

void MainWindow::Calculate() {
    ws_.uiReady = false;
    const CalculationOutcome outcome = CalculateInput(ws_, true);
    if (desktopUi_) desktopUi_->CloseProgress();
    ws_.uiReady = true;
    if (outcome.assembled && outcome.solve.converged && !outcome.solve.cancelled) OpenOutputViewer(ws_, this);
}

void MainWindow::OpenOutputFileDialog() {
    std::optional<std::string> path = AskFileName(false, kOutputFilter, ws_.folders.outputFolder);
    if (!path) return;
    CommandLineServices services;
    services.showOutput = [this](Workspace& ws) { OpenOutputViewer(ws, this); };
    if (OpenOutputFromCommandLine(ws_, *path, services))
        AddRecentFile(ws_.recentFiles.output, *path, ws_.settings);
}

void MainWindow::SaveResultsAs(int command) {
    const bool csv = command == 1231 || command == 1232;
    const bool xml = command == 1233 || command == 1234;
    const QString filter = csv   ? QStringLiteral("Text (*.csv)")
                           : xml ? QStringLiteral("XML spreadsheet (*.xml)")
                                 : kOutputFilter;
    std::optional<std::string> path = AskFileName(true, filter, ws_.folders.outputFolder);
    if (!path) return;
    const char* extension = csv ? ".csv" : xml ? ".xml" : ".o64";
    if (!HasExtension(*path, extension)) *path += extension;
    const SaveOutcome saved = SaveResults(ws_, *path);
    if (saved.status != SaveStatus::Saved) {
        ShowMessage(ws_.Ui(), ws_.language,
                    LanguageText(ws_.language, "Batch", SaveFailureKey(saved.status)) + "\n" + *path + "\n" +
                        saved.detail,
                    {}, IconError);
        return;
    }
    if (!csv && !xml) AddRecentFile(ws_.recentFiles.output, *path, ws_.settings);
    if ((command == 1232 || command == 1234) && ws_.Ui().openExternal) ws_.Ui().openExternal("file://" + *path);
}

void MainWindow::OpenRecentFile(int list, int position) {
    const RecentFileList& files = list == kRecentInputList ? ws_.recentFiles.input : ws_.recentFiles.output;
    const RecentFileEntry* entry = RecentFileAt(files, position);
    if (!entry) return;
    const std::string path = entry->Path();
    commandLog_.push_back(list);
    if (list == kRecentInputList) {
        OpenInputFile(SessionOf(ws_, this), path);
    } else {
        CommandLineServices services;
        services.showOutput = [this](Workspace& ws) { OpenOutputViewer(ws, this); };
        if (OpenOutputFromCommandLine(ws_, path, services)) AddRecentFile(ws_.recentFiles.output, path, ws_.settings);
    }
    UpdateStatusLine();
}

bool MainWindow::AskSaveInput() {
    if (ws_.input.modified) {
        MessageBoxRequest request;
        request.caption = LanguageText(ws_.language, "Input", "AskSaveCaption");
        request.icon = IconQuestion;
        request.lines = {LanguageText(ws_.language, "Input", "AskSaveTxt1"),
                         LanguageText(ws_.language, "Input", "AskSaveTxt2")};
        request.buttons = {LanguageText(ws_.language, "Input", "AskSaveBtn1"),
                           LanguageText(ws_.language, "Input", "AskSaveBtn2"),
                           LanguageText(ws_.language, "Input", "AskSaveBtn3")};
        request.enterResult = 1;
        request.escapeResult = 3;
        const MessageBoxAnswer answer = ShowMessageBox(ws_.Ui(), request);
        if (answer.result == 3) return true;
        if (answer.result == 1) {
            hide();
            std::optional<std::string> path = ws_.input.currentInputFile.empty()
                                                  ? AskFileName(true, kInputFilter, ws_.folders.inputFolder)
                                                  : std::optional<std::string>(ws_.input.currentInputFile);
            if (path && !path->empty() &&
                WriteInputFile(*path, ws_.input, ws_.chem.db(), ws_.Ui(), ws_.language))
                AddRecentFile(ws_.recentFiles.input, ws_.input.currentInputFile, ws_.settings);
        }
    }
    hide();
    if (services_.shutDown) services_.shutDown();
    return false;
}

}  // namespace tormel
