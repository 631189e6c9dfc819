#include "shell/database_summary.h"

#include "core/c_number.h"
#include "core/database_files.h"

namespace tormel {

namespace {

const char* ComponentTypeName(ComponentType type) {
    static const char* names[] = {"?", "cation", "electron", "ligand", "adsorbent", "redox solid", "gas", "organic"};
    return ComponentTypeFromCode(CodeOf(type)) ? names[CodeOf(type)] : names[0];
}

const char* EquilibriumTypeName(EquilibriumType type) {
    static const char* names[] = {"?", "water", "complex", "adsorption", "redox", "gas", "solid", "organic"};
    return EquilibriumTypeFromCode(CodeOf(type)) ? names[CodeOf(type)] : names[0];
}

const char* ModelName(int32_t code) { return code == Model5 ? "Model 5" : code == Model6 ? "Model 6" : "Model 7"; }

std::string Reaction(const Database& db, int32_t e) {
    std::string text;
    for (int32_t c = 0; c < db.ComponentCount(); ++c) {
        int32_t v = db.Coefficient(c, e);
        if (v == 0) continue;
        if (!text.empty()) text += v > 0 ? " + " : " - ";
        else if (v < 0) text += "-";
        int32_t a = v < 0 ? -v : v;
        if (a != 1) text += std::to_string(a) + " ";
        text += db.components[static_cast<size_t>(c)].name;
    }
    const Equilibrium& q = db.equilibria[static_cast<size_t>(e)];
    if (q.type == EquilibriumType::Redox || q.type == EquilibriumType::Gas)
        text +=
            " = " + FormatC("%g ", q.linkedCoefficient) + db.components[static_cast<size_t>(q.linkedComponent)].name;
    return text;
}

}  // namespace

std::string DatabaseSummary(const Database& db, const std::string& dataFolder) {
    std::string out = "Database in " + dataFolder + "\n\nComponents: " + std::to_string(db.ComponentCount()) + "\n";
    for (int32_t code = CodeOf(ComponentType::Cation); code <= CodeOf(ComponentType::Organic); ++code) {
        const ComponentType type = *ComponentTypeFromCode(code);
        int n = 0;
        for (const Component& c : db.components) n += c.type == type;
        out += FormatC("  %-12s %6d\n", ComponentTypeName(type), n);
    }
    out += "Equilibria: " + std::to_string(db.EquilibriumCount()) + "\n";
    for (int32_t code = CodeOf(EquilibriumType::Water); code <= CodeOf(EquilibriumType::Organic); ++code) {
        const EquilibriumType type = *EquilibriumTypeFromCode(code);
        int n = 0;
        for (const Equilibrium& q : db.equilibria) n += q.type == type;
        out += FormatC("  %-12s %6d\n", EquilibriumTypeName(type), n);
    }
    for (int32_t model = Model5; model <= Model7; ++model) {
        int n = 0;
        for (const Equilibrium& q : db.equilibria) n += q.type == EquilibriumType::Organic && q.organicModel == model;
        out += FormatC("    %s: %d equilibria, %zu parameters per fraction\n", ModelName(model), n,
                       db.Organic(model).values.size());
    }
    out += "Literature references: " + std::to_string(db.LiteratureReferenceCount()) + "\n";
    out += "Most components in one equilibrium: " + std::to_string(db.maxComponentsPerEquilibrium) + "\n\nFiles:\n";
    for (int position = 0; position < 6; ++position) {
        std::string path = WorkingCopyPath(dataFolder, position);
        auto header = ReadDatabaseHeader(path);
        out += "  " + std::string(kDatabaseBaseNames[position]) + "D64";
        if (!header) {
            out += "  (cannot be read)\n";
            continue;
        }
        out += "\n    Contents: " + header->contents + "\n    Version:  " + header->versionText +
               "\n    Records:  " + header->countText + "\n";
    }
    return out;
}

std::string ComponentListing(const Database& db) {
    std::string out;
    for (int32_t i = 0; i < db.ComponentCount(); ++i) {
        const Component& c = db.components[static_cast<size_t>(i)];
        out += FormatC("%5d  %-11s %+3d  %s\n", i + 1, ComponentTypeName(c.type), c.charge, c.name.c_str());
    }
    return out;
}

std::string EquilibriumListing(const Database& db) {
    std::string out;
    for (int32_t e = 0; e < db.EquilibriumCount(); ++e) {
        const Equilibrium& q = db.equilibria[static_cast<size_t>(e)];
        out += FormatC("%5d  %-10s %-28s log K %9.3f  %s\n", e + 1, EquilibriumTypeName(q.type), q.name.c_str(), q.logK,
                       Reaction(db, e).c_str());
    }
    return out;
}

std::string LiteratureListing(const Database& db) {
    std::string out;
    for (int32_t i = 0; i < db.LiteratureReferenceCount(); ++i)
        out += FormatC("%5d  ", i + 1) + db.literature[static_cast<size_t>(i)].str() + "\n";
    return out;
}

}  // namespace tormel
