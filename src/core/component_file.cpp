#include "core/database_files.h"
#include "core/database_reader_support.h"

namespace tormel {

std::optional<DatabaseError> ReadComponentFile(ChemicalSystem& chem, const std::string& path) {
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
        std::string where = "component " + std::to_string(i + 1);
        auto fail = [&](const std::string& message) {
            chem.components.clear();
            return DatabaseError{path, reader->Line(), where, message};
        };
        int startLine = reader->Line();
        if (!reader->ReadQuotedName(c.name, kNameLimit)) {
            if (reader->AtEnd() && c.name.empty())
                return fail("the file ends before this record (the header promises " + std::to_string(count) + ")");
            return fail("the name's closing quote is missing");
        }
        where += " (\"" + c.name + "\")";
        (void)startLine;
        auto readInt = [&](int32_t& v, const char* field) -> std::optional<DatabaseError> {
            if (!reader->ReadInt(v)) return fail(std::string("the ") + field + " is missing or not an integer");
            return std::nullopt;
        };
        auto readReal = [&](double& v, const char* field) -> std::optional<DatabaseError> {
            if (!reader->ReadDouble(v)) return fail(std::string("the ") + field + " is missing or not a number");
            return std::nullopt;
        };
        if (auto e = readInt(c.type, "type")) return e;
        if (c.type < Cation || c.type > Organic) return fail("the type " + std::to_string(c.type) + " is not 1 to 7");
        if (c.type != RedSol && c.type != Gas) {
            if (auto e = readInt(c.charge, "charge")) return e;
        }
        if (c.type == Cation || c.type == Ligand || c.type == RedSol) {
            if (auto e = readReal(c.molarMass, "molar mass")) return e;
        }
        if (c.type == Cation || c.type == Ligand) {
            if (auto e = readReal(c.ionDiameter, "ion diameter")) return e;
        }
        if (c.type == Organic) {
            if (auto e = readInt(c.organicModel, "organic model code")) return e;
            if (c.organicModel < Model5 || c.organicModel > Model7)
                return fail("the organic model code " + std::to_string(c.organicModel) + " is not 2, 3 or 4");
            TypeRange& r = chem.organicComponentRange[c.organicModel - Model5];
            if (r.first == 0) r.first = i;
            r.last = i;
        }
        if (c.type == Electron) {
            chem.electronIndex = i;
        } else if (c.type != Organic) {
            TypeRange& r = chem.componentRange[c.type];
            if (r.first == 0) r.first = i;
            r.last = i;
        }
    }
    return std::nullopt;
}

}  // namespace tormel
