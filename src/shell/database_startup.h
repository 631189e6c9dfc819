#pragma once
// Puts the database in place at start-up: refreshes the working copies from
// the raw data files beside the program when they are missing or older, then
// loads them.
#include <optional>
#include <string>

#include "core/chemical_system.h"
#include "core/database_files.h"
#include "core/ui_services.h"
#include "shell/app_folders.h"
#include "core/language.h"

namespace tormel {

enum class DatabaseStartup {
    Loaded,
    RefreshFailed,  // the working copies could not be made; the program must stop
    LoadFailed,     // a working copy could not be read; the program must stop
};

struct DatabaseStartupResult {
    DatabaseStartup outcome = DatabaseStartup::Loaded;
    bool refreshed = false;             // working copies were (re)made from the raw data
    std::optional<DatabaseError> error;  // for LoadFailed
};

// Refresh, and load into a new database that `chem` then reads. Failures are
// reported to the user through `ui` (the language's "ProblemDB1"/"ProblemDB2"
// texts for a failed refresh, the reader's error for a failed load); the
// caller then shuts down in order.
DatabaseStartupResult PrepareDatabase(ChemicalSystem& chem, const AppFolders& folders, const Language& language,
                                      const UiServices& ui);

}  // namespace tormel
