#pragma once
// Shared by the output and batch tests: workspaces on the real database,
// reference waters calculated into result set 0, and a record-by-record
// comparison of two result sets as far as an output file keeps them.
#include <string>
#include <string_view>

#include "golden_file.h"
#include "output/result_store.h"
#include "shell/workspace.h"
#include "support/recording_ui.h"
#include "support/temp_folder.h"

namespace tormel::test {

// The path of the English language file.
std::string EnglishLanguageFile();

// The path of the reference case `id` (a file of tests/data/reference).
std::string ReferenceCaseFile(std::string_view id);

// Calculates the reference case in `file` into the workspace's result set 0
// with the given activity model (1 Davies, 2 MSA). False when the case cannot
// be set up or does not converge.
bool CalculateReferenceCase(Workspace& ws, const std::string& file, int32_t ionicStrengthModel = 1);

// A workspace on a copy of the real database, with English texts, folders
// under a temporary folder of its own (input and output folders created) and
// the recording UI.
struct PreparedWorkspace {
    TempFolder folder;
    RecordingUi ui;
    Workspace ws;

    PreparedWorkspace();
};

// A prepared workspace with the reference case in `file` calculated into
// result set 0; `ok` as CalculateReferenceCase returned it.
struct CalculatedWorkspace : PreparedWorkspace {
    bool ok = false;

    explicit CalculatedWorkspace(const std::string& file, int32_t ionicStrengthModel = 1)
        : ok(CalculateReferenceCase(ws, file, ionicStrengthModel)) {}
};

// Every field an output file keeps agrees: both sets are written alike.
void ExpectSetsEqual(const ResultStore& expected, int32_t expectedSet, const ResultStore& actual, int32_t actualSet);

// One component result, ready for hand-built stores.
ComponentResult MakeComponent(ComponentType kind, const std::string& name, double total, double molarMass,
                              const std::string& speciesList);
SpeciesResult MakeSpecies(SpeciesKind kind, const std::string& name, double concentration);

}  // namespace tormel::test

namespace tormel::test {

// Writes the reference case in `file` as an input file at `path`, every
// given total concentration (H+ excepted) multiplied by `scale`.
bool WriteReferenceInput(const std::string& file, const std::string& path, double scale = 1.0,
                         const std::string& description = "");

}  // namespace tormel::test
