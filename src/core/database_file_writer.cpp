#include "core/c_number.h"
#include "core/database_files.h"
#include "core/utf16.h"

namespace tormel {

namespace {

std::string Real(double v) { return FormatC("%.16G", v); }

std::string Header(const DatabaseFileHeader& header, size_t count) {
    return "Contents: " + header.contents + "\nVersion: " + header.version + "\nNumber of records: " +
           std::to_string(count) + "\n";
}

// Quoted names and references keep at most 258 characters when read.
std::string Cut(const std::string& text) {
    std::u16string wide = Utf8ToUtf16(text);
    if (wide.size() > 258) wide.resize(258);
    return Utf16ToUtf8(wide);
}

}  // namespace

std::string FormatComponentFile(const Database& chem, const DatabaseFileHeader& header) {
    std::string out = Header(header, chem.components.size());
    for (const Component& c : chem.components) {
        out += "\"" + Cut(c.name) + "\" " + std::to_string(CodeOf(c.type));
        if (c.type != ComponentType::RedSol && c.type != ComponentType::Gas) out += " " + std::to_string(c.charge);
        if (c.type == ComponentType::Cation || c.type == ComponentType::Ligand || c.type == ComponentType::RedSol)
            out += " " + Real(c.molarMass);
        if (c.type == ComponentType::Cation || c.type == ComponentType::Ligand) out += " " + Real(c.ionDiameter);
        if (c.type == ComponentType::Organic) out += " " + std::to_string(c.organicModel);
        out += "\n";
    }
    return out;
}

std::string FormatEquilibriumFile(const Database& chem, const DatabaseFileHeader& header) {
    std::string out = Header(header, chem.equilibria.size());
    for (int32_t e = 0; e < chem.EquilibriumCount(); ++e) {
        const Equilibrium& q = chem.equilibria[static_cast<size_t>(e)];
        out += "\"" + Cut(q.name) + "\" " + std::to_string(CodeOf(q.type));
        if (q.type == EquilibriumType::Redox || q.type == EquilibriumType::Gas)
            out += " " + std::to_string(q.linkedComponent + 1) + " " + Real(q.linkedCoefficient);
        if (q.type == EquilibriumType::Organic) out += " " + std::to_string(q.organicModel);
        if (q.type == EquilibriumType::Water || q.type == EquilibriumType::Complex ||
            q.type == EquilibriumType::Adsorption || q.type == EquilibriumType::Organic)
            out += " " + std::to_string(q.charge);
        out += " " + Real(q.logK) + " " + Real(q.secondReal) + " " + Real(q.thirdReal);
        if (q.type != EquilibriumType::Organic) out += " " + std::to_string(q.deltaZ2);
        out += q.hasEnthalpy ? " 1 " + Real(q.enthalpy) : std::string(" 0");
        if (q.type == EquilibriumType::Complex) out += " " + Real(q.complexDiameter);
        out += " " + std::to_string(q.literatureRef + 1);
        std::string pairs;
        int32_t n = 0;
        for (int32_t c = 0; c < chem.ComponentCount(); ++c) {
            int32_t coefficient = chem.Coefficient(c, e);
            if (coefficient == 0) continue;
            pairs += " " + std::to_string(coefficient) + " " + std::to_string(c + 1);
            ++n;
        }
        out += " " + std::to_string(n) + pairs;
        if (q.type == EquilibriumType::Organic && q.organicModel == Model6)
            out += " " + Real(q.organicReal1) + " " + Real(q.organicReal2);
        if (q.type == EquilibriumType::Organic && q.organicModel == Model7) out += " " + Real(q.organicReal2);
        out += "\n";
    }
    return out;
}

std::string FormatLiteratureFile(const Database& chem, const DatabaseFileHeader& header) {
    std::string out = Header(header, chem.literature.size());
    for (const std::string& reference : chem.literature) {
        std::string line = Cut(reference);
        for (char& ch : line)
            if (ch == '\n' || ch == '\r') ch = ' ';
        out += line + "\n";
    }
    return out;
}

std::string FormatModelFile(const Database& chem, int32_t modelCode, const DatabaseFileHeader& header,
                            const OrganicParameterDescriptions& descriptions) {
    const int32_t count = OrganicParameterCount(modelCode);
    const OrganicModelParameters& params = chem.Organic(modelCode);
    std::string out = Header(header, static_cast<size_t>(count) * 2);
    for (int block = 0; block < 2; ++block) {
        for (int32_t k = 0; k < count; ++k) {
            double v = static_cast<size_t>(k) < params.values.size() ? params.values[static_cast<size_t>(k)][static_cast<size_t>(block)] : 0.0;
            out += Real(v);
            if (static_cast<size_t>(k) < descriptions.size() && !descriptions[static_cast<size_t>(k)][static_cast<size_t>(block)].empty())
                out += "  " + descriptions[static_cast<size_t>(k)][static_cast<size_t>(block)];
            out += "\n";
        }
    }
    return out;
}

bool WriteDatabaseFiles(const Database& chem, const std::string& folder, const std::string& extension,
                        const std::array<DatabaseFileHeader, 6>& headers,
                        const std::array<OrganicParameterDescriptions, 3>& descriptions, FileError* error) {
    const std::string texts[6] = {
        FormatComponentFile(chem, headers[DbComponents]),
        FormatEquilibriumFile(chem, headers[DbEquilibria]),
        FormatLiteratureFile(chem, headers[DbLiterature]),
        FormatModelFile(chem, Model5, headers[DbModel5], descriptions[0]),
        FormatModelFile(chem, Model6, headers[DbModel6], descriptions[1]),
        FormatModelFile(chem, Model7, headers[DbModel7], descriptions[2]),
    };
    for (int position = 0; position < 6; ++position) {
        std::string path = folder + kDatabaseBaseNames[position] + extension;
        if (!WriteUtf16File(path, std::string_view(texts[position]), error)) return false;
    }
    return true;
}

}  // namespace tormel
