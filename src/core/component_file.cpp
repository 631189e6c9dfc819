#include "core/database_files.h"
#include "core/database_reader_support.h"

namespace tormel {

namespace {

std::optional<DatabaseError> ReadComponent(RecordFieldReader& in, Component& c, int promised) {
    if (auto e = in.Name(c.name, promised)) return e;
    int32_t code = 0;
    if (auto e = in.Int(code, "type")) return e;
    const std::optional<ComponentType> type = ComponentTypeFromCode(code);
    if (!type) return in.Fail("the type " + std::to_string(code) + " is not 1 to 7");
    c.type = *type;
    if (c.type != ComponentType::RedSol && c.type != ComponentType::Gas) {
        if (auto e = in.Int(c.charge, "charge")) return e;
    }
    if (c.type == ComponentType::Cation || c.type == ComponentType::Ligand || c.type == ComponentType::RedSol) {
        if (auto e = in.Real(c.molarMass, "molar mass")) return e;
    }
    if (c.type == ComponentType::Cation || c.type == ComponentType::Ligand) {
        if (auto e = in.Real(c.ionDiameter, "ion diameter")) return e;
    }
    if (c.type == ComponentType::Organic) {
        if (auto e = in.Int(c.organicModel, "organic model code")) return e;
        if (c.organicModel < Model5 || c.organicModel > Model7)
            return in.Fail("the organic model code " + std::to_string(c.organicModel) + " is not 2, 3 or 4");
    }
    return std::nullopt;
}

}  // namespace

std::optional<DatabaseError> ReadComponentFile(Database& chem, const std::string& path) {
    chem.components.clear();
    chem.componentRange = {};
    chem.organicComponentRange = {};
    chem.electronIndex = 0;

    std::optional<TokenReader> reader;
    int count = 0;
    if (auto error = OpenRecordFile(path, reader, count)) return error;
    chem.components.resize(static_cast<size_t>(count));

    for (int i = 0; i < count; ++i) {
        Component& c = chem.components[static_cast<size_t>(i)];
        RecordFieldReader in(*reader, path, "component", i + 1);
        if (auto error = ReadComponent(in, c, count)) {
            chem.components.clear();
            return error;
        }
        if (c.type == ComponentType::Organic)
            ExtendTypeRange(chem.organicComponentRange[c.organicModel - Model5], i);
        else if (c.type == ComponentType::Electron)
            chem.electronIndex = i;
        else
            ExtendTypeRange(chem.componentRange[c.type], i);
    }
    return std::nullopt;
}

}  // namespace tormel
