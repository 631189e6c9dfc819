#include "shell/input_commands.h"

#include "core/text_file.h"
#include "input/consistency_check.h"
#include "input/input_file_reader.h"
#include "input/input_file_writer.h"
#include "input/input_title.h"
#include "input/program_defaults.h"
#include "core/language.h"
#include "core/messages.h"
#include "input/consistency_report.h"

namespace tormel {

namespace {

void AddRecent(const InputSession& s, const std::string& path) {
    if (s.addRecentFile) s.addRecentFile(path);
}

void RefreshTitle(const InputSession& s) {
    if (s.titleChanged) s.titleChanged();
}

// Reads a file and reports the checks; the shared part of opening a file and
// loading the user defaults.
bool ReadAndCheck(const InputSession& s, const std::string& path) {
    if (!ReadInputFile(path, s.input, s.db, s.ui, s.language)) return false;
    ShowConsistencyResult(s.ui, s.language, CheckConsistency(s.input, s.db, s.language), path);
    return true;
}

bool WriteAndReport(const InputSession& s, const std::string& path) {
    if (!WriteInputFile(path, s.input, s.db, s.ui, s.language)) return false;
    AddRecent(s, s.input.currentInputFile);
    RefreshTitle(s);
    ShowMessage(s.ui, s.language, "\n" + LanguageText(s.language, "Input", "InputSaved"), "", IconInformation);
    return true;
}

}  // namespace

void ResetToProgramDefaults(const InputSession& session) {
    SetProgramDefaults(session.input, session.db);
    session.input.modified = false;
    session.input.currentInputFile.clear();
    RefreshTitle(session);
    ShowMessage(session.ui, session.language, "\n" + LanguageText(session.language, "Input", "InputWasReset"), "",
                IconInformation);
}

bool LoadUserDefaults(const InputSession& session) {
    const std::string path = UserDefaultsPath(session.folders.inputFolder);
    if (!FileExists(path)) {
        ShowMessage(session.ui, session.language, LanguageText(session.language, "Input", "FileNotFound"), "",
                    IconWarning);
        return false;
    }
    if (!ReadAndCheck(session, path)) return false;
    session.input.modified = false;
    session.input.currentInputFile = path;
    RefreshTitle(session);
    AddRecent(session, path);
    return true;
}

bool OpenInputFile(const InputSession& session, const std::string& path) {
    if (!ReadAndCheck(session, path)) return false;
    RefreshTitle(session);
    AddRecent(session, path);
    return true;
}

bool SaveInput(const InputSession& session, const AskInputFileName& askFileName) {
    std::string path = session.input.currentInputFile;
    if (path.empty()) {
        std::optional<std::string> chosen = askFileName ? askFileName() : std::nullopt;
        if (!chosen || chosen->empty()) return false;
        path = *chosen;
    }
    return WriteAndReport(session, path);
}

bool SaveInputAs(const InputSession& session, const AskInputFileName& askFileName) {
    std::optional<std::string> chosen = askFileName ? askFileName() : std::nullopt;
    if (!chosen || chosen->empty()) return false;
    return WriteAndReport(session, *chosen);
}

bool SaveAsUserDefaults(const InputSession& session) {
    const std::string path = UserDefaultsPath(session.folders.inputFolder);
    if (FileExists(path) && !AskOverwrite(session.ui, session.language, path)) return false;
    return WriteAndReport(session, path);
}

}  // namespace tormel
