#include "shell/startup.h"

#include "core/messages.h"
#include "core/text_file.h"
#include "input/program_defaults.h"
#include "shell/database_startup.h"

namespace tormel {

namespace {

void Call(const std::function<void()>& hook) {
    if (hook) hook();
}

StartupOutcome EndStartup(Workspace& ws, const StartupHooks& hooks, int exitCode) {
    SaveSettingsAndShutDown(ws, hooks);
    return StartupOutcome{true, exitCode};
}

void OfferGettingStarted(Workspace& ws, const StartupHooks& hooks) {
    const Language& language = ws.language;
    MessageBoxRequest request;
    request.caption = LanguageText(language, "TOOLS", "StartCaption");
    request.icon = IconQuestion;
    request.lines = {LanguageText(language, "TOOLS", "StartTxt1"), LanguageText(language, "TOOLS", "StartTxt2")};
    request.buttons = {LanguageText(language, "TOOLS", "StartBtn1"), LanguageText(language, "TOOLS", "StartBtn2")};
    request.enterResult = 1;
    request.showCheckBox = true;
    request.checkBoxText = LanguageText(language, "TOOLS", "StartChk");
    const MessageBoxAnswer answer = ShowMessageBox(ws.Ui(), request);
    if (answer.result == 1 && hooks.openHelp) hooks.openHelp(500);
    if (answer.checkBoxChecked) ws.settings.WriteSettingString("Options", "OfferGetStarted", "0");
}

// The language of start-up messages: "LANG.INI" when there is one, else the
// delivered default language.
Language StartupLanguage(const AppFolders& folders) {
    return Language(FileExists(folders.languageFile) ? folders.languageFile : DefaultLanguagePath(folders));
}

void ShowStartupProblem(const AppFolders& folders, const UiServices& ui, const char* key, const char* fallback,
                        const std::string& path, const std::string& reason) {
    const Language language = StartupLanguage(folders);
    std::string text = LanguageTextOr(language, "TOOLS", key, fallback) + "\n" + path;
    if (!reason.empty()) text += "\n(" + reason + ")";
    ShowMessage(ui, language, text, {}, IconError);
}

}  // namespace

bool ReachWorkingFolders(const AppFolders& folders, const UiServices& ui, bool strict) {
    const std::optional<FolderProblem> problem = CreateWorkingFolders(folders);
    if (!strict || !problem) return true;
    ShowStartupProblem(folders, ui, "FolderUnusable", "The working folder cannot be used:", problem->path,
                       problem->reason);
    return false;
}

bool ReachLanguageFile(const AppFolders& folders, const UiServices& ui, const LanguageChooser& choose, bool strict) {
    if (EnsureLanguageFile(folders, ui, choose) == LanguageSetup::NoLanguageFiles) return false;
    if (!strict || FileExists(folders.languageFile)) return true;
    ShowStartupProblem(folders, ui, "LanguageNotInstalled", "The language file could not be installed:",
                       folders.languageFile, {});
    return false;
}

StartupOutcome InitializeApplication(Workspace& ws, const CommandLine& line, const StartupHooks& hooks,
                                     CommandLineServices services) {
    const UiServices& ui = ws.Ui();
    ws.settings = Settings(ws.folders.settingsFile);
    ws.language = Language(ws.folders.languageFile);
    ws.uiReady = false;
    if (ui.showWait) ui.showWait("\n" + LanguageTextOr(ws.language, "TOOLS", "Init", "Initializing..."));

    // the desktop's start-up ends only when no language file exists, with
    // exit code 0; a headless one ends at any unusable folder or language
    const int fatalExitCode = hooks.headless ? 1 : 0;
    if (!ReachWorkingFolders(ws.folders, ui, hooks.headless)) return EndStartup(ws, hooks, fatalExitCode);
    bool updateCheckStarted = false;
    if (ws.settings.ReadSettingBool("Options", "Check_Updates") && line.arguments.empty() && hooks.startUpdateCheck) {
        hooks.startUpdateCheck();
        updateCheckStarted = true;
    }
    Call(hooks.loadColours);
    if (!ReachLanguageFile(ws.folders, ui, hooks.chooseLanguage, hooks.headless))
        return EndStartup(ws, hooks, fatalExitCode);

    // The decimal separator is read from the locale here rather than between
    // the database refresh and load: nothing in between depends on it.
    ws.decimalSeparator = UserDecimalSeparator();
    switch (PrepareDatabase(ws.chem, ws.folders, ws.language, ui).outcome) {
        case DatabaseStartup::Loaded: break;
        case DatabaseStartup::RefreshFailed: return EndStartup(ws, hooks, fatalExitCode);
        // without a database nothing can run; scripts must see it
        case DatabaseStartup::LoadFailed: return EndStartup(ws, hooks, 1);
    }
    SetProgramDefaults(ws.input, ws.chem.db());
    Call(hooks.buildMainWindow);

    LoadRecentFiles(ws.recentFiles, ws.settings);
    PruneRecentFiles(ws.recentFiles.input);
    PruneRecentFiles(ws.recentFiles.output);
    Call(hooks.setChartColours);
    if (updateCheckStarted && hooks.waitForUpdateCheck && hooks.waitForUpdateCheck()) return EndStartup(ws, hooks, 1);

    if (ui.closeWait) ui.closeWait();
    ws.uiReady = true;
    if (hooks.offerGettingStarted && ws.settings.ReadSettingBool("Options", "OfferGetStarted"))
        OfferGettingStarted(ws, hooks);
    Call(hooks.paintInformation);

    if (!services.shutDown) services.shutDown = [&hooks](Workspace& w) { SaveSettingsAndShutDown(w, hooks); };
    ws.uiReady = false;
    const CommandLineOutcome command = HandleCommandLine(ws, line, services);
    if (command.endProcess) return StartupOutcome{true, command.exitCode};

    Call(hooks.createInstanceMutex);
    Call(hooks.updateStatusLine);
    ws.uiReady = true;
    return StartupOutcome{false, command.exitCode};
}

void SaveSettingsAndShutDown(Workspace& ws, const StartupHooks& hooks) {
    Call(hooks.saveWindowPlacement);
    SaveRecentFiles(ws.recentFiles, ws.settings);
    Call(hooks.releaseResources);
}

}  // namespace tormel
