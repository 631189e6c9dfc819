#include "session.h"

#include "core/database_files.h"
#include "core/messages.h"
#include "shell/app_folders.h"
#include "shell/database_startup.h"
#include "shell/startup.h"

namespace tormel::python {

std::unique_ptr<Session> OpenSession(const std::string& programFolder, const std::string& dataFolder,
                                     std::string& error) {
    auto session = std::make_unique<Session>();
    AppFolders folders = ResolveFolders();
    folders.programFolder = WithFolderSeparator(programFolder);
    const UiServices& ui = session->log.Services();
    auto failed = [&session, &error](const std::string& fallback) {
        error = session->log.Text();
        if (error.empty()) error = fallback;
        return nullptr;
    };
    if (!ReachWorkingFolders(folders, ui, true)) return failed("the working folders cannot be used");
    if (!ReachLanguageFile(folders, ui, nullptr, true)) return failed("no language file");
    session->base = Workspace(folders, ui);
    Workspace& ws = session->base;
    if (dataFolder.empty()) {
        if (PrepareDatabase(ws.chem, folders, ws.language, ui).outcome != DatabaseStartup::Loaded)
            return failed("the database could not be loaded");
    } else {
        Database db;
        if (std::optional<DatabaseError> loadError = LoadDatabase(db, WithFolderSeparator(dataFolder), ui)) {
            error = LanguageTextOr(ws.language, "TOOLS", "ProblemDBLoad", "The database could not be loaded:") +
                    "\n" + loadError->Describe();
            return nullptr;
        }
        ws.chem = ChemicalSystem(std::make_shared<const Database>(std::move(db)));
    }
    LoadOutputOptions(ws.outputOptions, ws.settings);
    session->log.Clear();  // what loading said has been answered
    return session;
}

}  // namespace tormel::python
