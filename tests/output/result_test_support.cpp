#include "result_test_support.h"

#include <gtest/gtest.h>

#include "calc/reference_case.h"
#include "calc/real_database.h"
#include "core/language.h"
#include "input/input_file_writer.h"
#include "output/output_file.h"
#include "support/cli_home.h"

namespace tormel::test {

std::string EnglishLanguageFile() { return std::string(TORMEL_SOURCE_DIR) + "/data/Languages/0default.lang"; }

std::string ReferenceCaseFile(std::string_view id) {
    return std::string(TORMEL_TEST_DATA) + "/reference/" + std::string(id) + ".json";
}

PreparedWorkspace::PreparedWorkspace() {
    ws.folders = FoldersIn(folder.Path(), folder.Path());
    ws.folders.languageFile = EnglishLanguageFile();
    CreateWorkingFolders(ws.folders);
    ws.settings = Settings(ws.folders.settingsFile);
    ws.language = Language(ws.folders.languageFile);
    if (const ChemicalSystem* database = RealDatabase()) ws.chem = *database;
    ws.ui = &ui.services;
}

bool CalculateReferenceCase(Workspace& ws, const std::string& file, int32_t ionicStrengthModel) {
    const auto reference = ReadJsonFile(file);
    const ChemicalSystem* database = RealDatabase();
    if (!reference || !database) return false;
    if (!PrepareReferenceCase(*reference, *database, 1.0001, ws.chem, ws.input)) return false;
    ws.input.ionicStrengthModel = ionicStrengthModel;
    ws.input.description = reference->TextOr("description", "");
    ResetSolverState(ws.solver);
    const CalculationOutcome outcome = CalculateInput(ws, false);
    return outcome.assembled && outcome.solve.converged;
}

void ExpectSetsEqual(const ResultStore& expected, int32_t expectedSet, const ResultStore& actual, int32_t actualSet) {
    EXPECT_EQ(FormatOutputFile(expected, expectedSet), FormatOutputFile(actual, actualSet));
}

ComponentResult MakeComponent(ComponentType kind, const std::string& name, double total, double molarMass,
                              const std::string& speciesList) {
    ComponentResult c;
    c.kind = kind;
    c.name = name;
    c.displayName = name;
    c.amounts[AmountDissolved] = total;
    c.amounts[AmountTotal] = total;
    c.molarMass = molarMass;
    c.percentagesAllowed = true;
    c.speciesList = speciesList;
    return c;
}

SpeciesResult MakeSpecies(SpeciesKind kind, const std::string& name, double concentration) {
    SpeciesResult s;
    s.kind = kind;
    s.name = name;
    s.concentration = concentration;
    s.category = kind == SpeciesKind::AdsorbedSpecies                                          ? CategoryAdsorbed
                 : kind == SpeciesKind::SolidSpecies || kind == SpeciesKind::RedoxPartnerSolid ? CategorySolid
                                                                                               : CategoryDissolved;
    s.hasActivity = s.category == CategoryDissolved;
    s.activity = concentration;
    s.hasConstants = kind >= SpeciesKind::FreeHydroxide && kind <= SpeciesKind::SolidSpecies;
    s.literatureIndex = kind == SpeciesKind::FreeComponent ? -1 : 0;
    return s;
}

bool WriteReferenceInput(const std::string& file, const std::string& path, double scale,
                         const std::string& description) {
    const auto reference = ReadJsonFile(file);
    const ChemicalSystem* database = RealDatabase();
    if (!reference || !database) return false;
    ChemicalSystem chem;
    InputProblem input;
    if (!PrepareReferenceCase(*reference, *database, 1.0001, chem, input)) return false;
    for (int32_t k = 0; k < chem.db().ComponentCount(); ++k) {
        ComponentInput& c = input.components[k];
        if (k != chem.db().hydrogenIndex && c.inputType == InputType::TotalConc) c.inputValue *= scale;
    }
    input.description = description.empty() ? reference->TextOr("description", "") : description;
    return WriteUtf16File(path, std::string_view(FormatInputFile(input, chem.db())));
}

}  // namespace tormel::test
