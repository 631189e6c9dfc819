#include "core/database_files.h"

namespace tormel {

namespace {

void ClearDatabase(Database& chem) {
    Database empty;
    chem = std::move(empty);
}

// References into tables are checked once everything is loaded, so that a
// damaged file gives a message instead of a crash later.
std::optional<DatabaseError> CheckReferences(const Database& chem, const std::string& dataFolder) {
    const std::string path = WorkingCopyPath(dataFolder, DbEquilibria);
    for (size_t i = 0; i < chem.equilibria.size(); ++i) {
        const Equilibrium& q = chem.equilibria[i];
        if (q.literatureRef >= chem.LiteratureReferenceCount())
            return DatabaseError{path, 0, "equilibrium " + std::to_string(i + 1) + " (\"" + q.name + "\")",
                                 "the literature reference " + std::to_string(q.literatureRef + 1) +
                                     " is not in the literature file (" +
                                     std::to_string(chem.LiteratureReferenceCount()) + " references)"};
    }
    if (chem.equilibria.empty() || chem.equilibria[0].type != EquilibriumType::Water)
        return DatabaseError{path, 0, "equilibrium 1", "the first equilibrium must be the dissociation of water"};
    if (chem.components.empty() || chem.components[0].type != ComponentType::Cation)
        return DatabaseError{WorkingCopyPath(dataFolder, DbComponents), 0, "component 1",
                             "the first component must be H+"};
    return std::nullopt;
}

}  // namespace

std::optional<DatabaseError> LoadDatabase(Database& chem, const std::string& dataFolder, const UiServices& ui) {
    ClearDatabase(chem);
    std::optional<DatabaseError> error = ReadComponentFile(chem, WorkingCopyPath(dataFolder, DbComponents));
    if (!error) error = ReadEquilibriumFile(chem, WorkingCopyPath(dataFolder, DbEquilibria));
    if (!error && chem.maxComponentsPerEquilibrium > 4)
        ShowPlainMessage(ui, "More than 4 BB; will throw errors.", "Please inform author", IconInformation);
    if (!error) error = ReadLiteratureFile(chem, WorkingCopyPath(dataFolder, DbLiterature));
    if (!error) error = ReadModelFile(chem, Model5, WorkingCopyPath(dataFolder, DbModel5));
    if (!error) error = ReadModelFile(chem, Model6, WorkingCopyPath(dataFolder, DbModel6));
    if (!error) error = ReadModelFile(chem, Model7, WorkingCopyPath(dataFolder, DbModel7));
    if (!error) error = CheckReferences(chem, dataFolder);
    if (error) {
        ClearDatabase(chem);
        return error;
    }
    LinkDatabase(chem);
    return std::nullopt;
}

}  // namespace tormel
