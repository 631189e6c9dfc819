#pragma once
// What the user does with the current input problem as a whole: reset it to
// the program defaults, load the user defaults or an input file, and save it.
// The file dialogs are the caller's: these functions take the chosen path,
// or a callback that asks for one.
#include <functional>
#include <optional>
#include <string>

#include "core/chemical_system.h"
#include "core/ui_services.h"
#include "input/input_problem.h"
#include "shell/app_folders.h"

namespace tormel {

class Language;

// Everything the input commands read or change.
struct InputSession {
    InputProblem& input;
    const Database& db;
    const AppFolders& folders;
    const Language& language;
    const UiServices& ui;
    // Enters a file in the recent input files; may be empty.
    std::function<void(const std::string& path)> addRecentFile;
    // Refreshes the shown title line (the status line); may be empty.
    std::function<void()> titleChanged;
};

// Asks the user for a file name to save to; nullopt when cancelled.
using AskInputFileName = std::function<std::optional<std::string>()>;

// Program defaults, not modified, no file; shows "\n" + Input/"InputWasReset".
void ResetToProgramDefaults(const InputSession& session);

// Reads inputFolder + "defaults.i64" and reports the consistency checks; the
// problem then is the user defaults (not modified) and the file enters the
// recent list. A missing file gives the warning Input/"FileNotFound"; a file
// the reader refuses changes nothing more. True when the file was read.
bool LoadUserDefaults(const InputSession& session);

// Reads `path` (chosen in the open dialog or the recent list) and reports the
// consistency checks; the file enters the recent list. True when read.
bool OpenInputFile(const InputSession& session, const std::string& path);

// Saves to the current file, asking for a name when there is none; then the
// recent list, the title and "\n" + Input/"InputSaved". False when cancelled
// or the write failed.
bool SaveInput(const InputSession& session, const AskInputFileName& askFileName);

// Asks for a name and saves there, as SaveInput does.
bool SaveInputAs(const InputSession& session, const AskInputFileName& askFileName);

// Saves as inputFolder + "defaults.i64", asking first (AskOverwrite) when the
// file exists. False when the user declined or the write failed.
bool SaveAsUserDefaults(const InputSession& session);

}  // namespace tormel
