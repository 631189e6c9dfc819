#pragma once
// Loads the shipped raw database (data/RawData/*.RW64) through the program's
// own loader, as working copies in a temporary folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/database_files.h"
#include "support/recording_ui.h"
#include "support/temp_folder.h"

namespace tormel::test {

// The folder that holds RawData/, as the program folder does after installation.
inline std::string SourceDataFolder() { return std::string(TORMEL_SOURCE_DIR) + "/data/"; }

// The loaded real database; `messages` receives what the loader showed.
struct RealDatabase {
    ChemicalSystem chem;
    size_t messages = 0;
    std::string error;

    RealDatabase() {
        TempFolder dir;
        for (int position = 0; position < 6; ++position) {
            std::filesystem::copy_file(ShippedCopyPath(SourceDataFolder(), position),
                                       WorkingCopyPath(dir.Path(), position),
                                       std::filesystem::copy_options::overwrite_existing);
        }
        RecordingUi ui;
        auto failure = LoadDatabase(chem, dir.Path(), ui.services);
        if (failure) error = failure->Describe();
        messages = ui.messages.size();
    }
};

// One load shared by all tests of a binary run.
inline const RealDatabase& Real() {
    static const RealDatabase db;
    return db;
}

// Index of the equilibrium of this type, name and charge; -1 when absent.
inline int FindEquilibrium(const ChemicalSystem& chem, int type, const std::string& name, int charge = 0) {
    for (int i = 0; i < chem.EquilibriumCount(); ++i) {
        const Equilibrium& e = chem.equilibria[i];
        if (e.type == type && e.name == name && (e.charge == charge || type == EqSolid || type == EqGas ||
                                                 type == EqRedox))
            return i;
    }
    return -1;
}

}  // namespace tormel::test
