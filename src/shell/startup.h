#pragma once
// Start-up and orderly shutdown of a session, without windows: folders,
// language file, database, input defaults, recent files and the command
// line, in that order. The desktop program passes hooks for what only it
// has (window contents, update check, colours, single-instance mutex);
// tormel-cli passes none.
#include <functional>

#include "shell/command_line.h"
#include "shell/command_line_handler.h"
#include "shell/language_files.h"
#include "shell/workspace.h"

namespace tormel {

struct StartupHooks {
    // Starts the update check (only when "Check_Updates" is set and the
    // command line has no arguments).
    std::function<void()> startUpdateCheck;
    // Reads the three colours of the settings file and applies them.
    std::function<void()> loadColours;
    // Lets the user choose a language file when there is more than one.
    LanguageChooser chooseLanguage;
    // Builds the main window's contents (status bar, menu tree, tiles).
    std::function<void()> buildMainWindow;
    // Sets the fixed colours of the output charts.
    std::function<void()> setChartColours;
    // Waits for the update check; true when an update is being installed
    // (the process then ends with exit code 1).
    std::function<bool()> waitForUpdateCheck;
    // Opens the help file at a topic number.
    std::function<void(int topic)> openHelp;
    // Paints the main window's information area.
    std::function<void()> paintInformation;
    // Creates and keeps the single-instance mutex.
    std::function<void()> createInstanceMutex;
    // Updates the status line.
    std::function<void()> updateStatusLine;
    // Saves the main window's placement (shutdown, "Remember-Windows").
    std::function<void()> saveWindowPlacement;
    // Releases what the desktop holds (graphics, accelerators, mutex).
    std::function<void()> releaseResources;
    // Whether to offer the getting-started help ("OfferGetStarted").
    bool offerGettingStarted = true;
    // A run without windows (tormel-cli): a working folder that cannot be
    // used or a language file that cannot be installed ends the start-up,
    // and every start-up that ends without reaching the command line ends
    // with exit code 1, so that scripts see it.
    bool headless = false;
};

struct StartupOutcome {
    bool endProcess = false;  // start-up ended the session; the process ends with `exitCode`
    // also when the session goes on: what a run without windows ends with
    // (1 when a file named on the command line could not be opened)
    int exitCode = 0;
};

// Creates the working folders. False when `strict` and one cannot be used;
// the problem has then been shown with the folder's path and the reason.
bool ReachWorkingFolders(const AppFolders& folders, const UiServices& ui, bool strict);

// Installs the language file when needed (EnsureLanguageFile). False when
// there is no language file at all or, when `strict`, "LANG.INI" could not be
// installed; the problem has then been shown.
bool ReachLanguageFile(const AppFolders& folders, const UiServices& ui, const LanguageChooser& choose, bool strict);

// The start-up sequence. `ws` needs its folders and UI services; the
// settings and language file are opened from the folders. Ends early (with
// endProcess set) when no language file exists, when the database cannot be
// refreshed or loaded, when an update is installed, or when the command line
// ran a job.
StartupOutcome InitializeApplication(Workspace& ws, const CommandLine& line, const StartupHooks& hooks,
                                     CommandLineServices services);

// The orderly end: window placement ("Remember-Windows"), the recent-files
// lists, the desktop's resources.
void SaveSettingsAndShutDown(Workspace& ws, const StartupHooks& hooks);

}  // namespace tormel
