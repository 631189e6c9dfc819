#include "shell/startup.h"

#include "core/messages.h"
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

}  // namespace

StartupOutcome InitializeApplication(Workspace& ws, const CommandLine& line, const StartupHooks& hooks,
                                     CommandLineServices services) {
    const UiServices& ui = ws.Ui();
    ws.settings = Settings(ws.folders.settingsFile);
    ws.language = Language(ws.folders.languageFile);
    ws.uiReady = false;
    if (ui.showWait) ui.showWait("\n" + LanguageTextOr(ws.language, "TOOLS", "Init", "Initializing..."));

    CreateWorkingFolders(ws.folders);
    bool updateCheckStarted = false;
    if (ws.settings.ReadSettingBool("Options", "Check_Updates") && line.arguments.empty() && hooks.startUpdateCheck) {
        hooks.startUpdateCheck();
        updateCheckStarted = true;
    }
    Call(hooks.loadColours);
    if (EnsureLanguageFile(ws.folders, ui, hooks.chooseLanguage) == LanguageSetup::NoLanguageFiles)
        return EndStartup(ws, hooks, 0);

    // The decimal separator is read from the locale here rather than between
    // the database refresh and load: nothing in between depends on it.
    ws.decimalSeparator = UserDecimalSeparator();
    switch (PrepareDatabase(ws.chem, ws.folders, ws.language, ui).outcome) {
        case DatabaseStartup::Loaded: break;
        case DatabaseStartup::RefreshFailed: return EndStartup(ws, hooks, 0);
        // without a database nothing can run; scripts must see it
        case DatabaseStartup::LoadFailed: return EndStartup(ws, hooks, 1);
    }
    SetProgramDefaults(ws.input, ws.chem);
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
    return {};
}

void SaveSettingsAndShutDown(Workspace& ws, const StartupHooks& hooks) {
    Call(hooks.saveWindowPlacement);
    SaveRecentFiles(ws.recentFiles, ws.settings);
    Call(hooks.releaseResources);
}

}  // namespace tormel
