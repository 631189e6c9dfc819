#include "shell/database_startup.h"

#include "core/messages.h"

namespace tormel {

DatabaseStartupResult PrepareDatabase(ChemicalSystem& chem, const AppFolders& folders, const Language& language,
                                      const UiServices& ui) {
    DatabaseStartupResult result;
    if (RefreshDatabase(folders.dataFolder, folders.programFolder)) {
        result.refreshed = true;
        if (!CopyRawData(folders.dataFolder, folders.programFolder)) {
            ShowMessage(ui, language,
                        LanguageText(language, "TOOLS", "ProblemDB1") + "\n" + folders.dataFolder + "\n" +
                            LanguageText(language, "TOOLS", "ProblemDB2"),
                        {}, IconError);
            result.outcome = DatabaseStartup::RefreshFailed;
            return result;
        }
    }
    Database db;
    result.error = LoadDatabase(db, folders.dataFolder, ui);
    // from here on the database is only read, and shared by every calculation
    chem = ChemicalSystem(std::make_shared<const Database>(std::move(db)));
    if (result.error) {
        // the working copies are the user's: say which one is damaged and where
        ShowMessage(ui, language,
                    LanguageTextOr(language, "TOOLS", "ProblemDBLoad", "The database could not be loaded:") + "\n" +
                        result.error->Describe(),
                    {}, IconError);
        result.outcome = DatabaseStartup::LoadFailed;
    }
    return result;
}

}  // namespace tormel
