#include "core/database_files.h"
#include "core/database_reader_support.h"

namespace tormel {

namespace {

void ClearEquilibria(Database& chem) {
    chem.equilibria.clear();
    chem.stoichiometry.clear();
    chem.equilibriumRange = {};
    chem.organicEquilibriumRange = {};
    chem.maxComponentsPerEquilibrium = 0;
    chem.waterEquilibriumIndex = 0;
    chem.hydrogenIndex = 0;
    chem.hydroxideIndex = 0;
}

// Reads one record; its stoichiometry pairs go straight into the matrix.
std::optional<DatabaseError> ReadEquilibrium(RecordFieldReader& in, Database& chem, int32_t index, int promised) {
    Equilibrium& q = chem.equilibria[static_cast<size_t>(index)];
    const int32_t componentCount = chem.ComponentCount();
    if (auto e = in.Name(q.name, promised)) return e;
    int32_t code = 0;
    if (auto e = in.Int(code, "type")) return e;
    const std::optional<EquilibriumType> type = EquilibriumTypeFromCode(code);
    if (!type) return in.Fail("the type " + std::to_string(code) + " is not 1 to 7");
    q.type = *type;
    if (q.type == EquilibriumType::Redox || q.type == EquilibriumType::Gas) {
        int32_t linked = 0;
        if (auto e = in.Int(linked, "linked component")) return e;
        if (linked < 1 || linked > componentCount)
            return in.Fail("the linked component " + std::to_string(linked) + " is not a component number");
        q.linkedComponent = linked - 1;
        if (auto e = in.Real(q.linkedCoefficient, "linked coefficient")) return e;
    }
    if (q.type == EquilibriumType::Organic) {
        if (auto e = in.Int(q.organicModel, "organic model code")) return e;
        if (q.organicModel < Model5 || q.organicModel > Model7)
            return in.Fail("the organic model code " + std::to_string(q.organicModel) + " is not 2, 3 or 4");
    }
    if (q.type == EquilibriumType::Water || q.type == EquilibriumType::Complex ||
        q.type == EquilibriumType::Adsorption || q.type == EquilibriumType::Organic) {
        if (auto e = in.Int(q.charge, "charge")) return e;
    }
    if (auto e = in.Real(q.logK, "log K")) return e;
    if (auto e = in.Real(q.secondReal, "second real")) return e;
    if (auto e = in.Real(q.thirdReal, "third real")) return e;
    if (q.type != EquilibriumType::Organic) {
        if (auto e = in.Int(q.deltaZ2, "delta z squared")) return e;
    }
    int32_t flag = 0;
    if (auto e = in.Int(flag, "enthalpy flag")) return e;
    q.hasEnthalpy = flag != 0;
    if (q.hasEnthalpy) {
        if (auto e = in.Real(q.enthalpy, "enthalpy")) return e;
    }
    if (q.type == EquilibriumType::Complex) {
        if (auto e = in.Real(q.complexDiameter, "ion diameter")) return e;
    }
    int32_t literature = 0;
    if (auto e = in.Int(literature, "literature reference")) return e;
    if (literature < 0) return in.Fail("the literature reference " + std::to_string(literature) + " is negative");
    q.literatureRef = literature - 1;
    if (auto e = in.Int(q.componentCount, "component count")) return e;
    if (q.componentCount < 0 || q.componentCount > componentCount)
        return in.Fail("the component count " + std::to_string(q.componentCount) + " is not possible");
    for (int32_t k = 0; k < q.componentCount; ++k) {
        int32_t coefficient = 0, number = 0;
        if (auto e = in.Int(coefficient, "coefficient")) return e;
        if (auto e = in.Int(number, "component number")) return e;
        if (number < 1 || number > componentCount)
            return in.Fail("the component number " + std::to_string(number) + " is not between 1 and " +
                           std::to_string(componentCount));
        chem.Coefficient(number - 1, index) = coefficient;
        if (q.type == EquilibriumType::Water) {
            if (chem.components[static_cast<size_t>(number - 1)].type == ComponentType::Cation)
                chem.hydrogenIndex = number - 1;
            else
                chem.hydroxideIndex = number - 1;
        }
    }
    if (q.type == EquilibriumType::Organic && q.organicModel == Model6) {
        if (auto e = in.Real(q.organicReal1, "first organic real")) return e;
        if (auto e = in.Real(q.organicReal2, "second organic real")) return e;
    } else if (q.type == EquilibriumType::Organic && q.organicModel == Model7) {
        if (auto e = in.Real(q.organicReal2, "organic real")) return e;
    }
    return std::nullopt;
}

// What the loader records about each equilibrium once it is read.
void Record(Database& chem, int32_t index) {
    const Equilibrium& q = chem.equilibria[static_cast<size_t>(index)];
    if (q.componentCount > chem.maxComponentsPerEquilibrium) chem.maxComponentsPerEquilibrium = q.componentCount;
    if (q.type == EquilibriumType::Water) {
        chem.waterEquilibriumIndex = index;
        chem.components[static_cast<size_t>(chem.hydrogenIndex)].waterPartnerOfH = chem.hydroxideIndex;
        chem.components[static_cast<size_t>(chem.hydroxideIndex)].waterPartnerOfOH = chem.hydrogenIndex;
    } else if (q.type == EquilibriumType::Organic) {
        ExtendTypeRange(chem.organicEquilibriumRange[q.organicModel - Model5], index);
        OrganicModelParameters& p = chem.Organic(q.organicModel);
        if (p.literatureRef == 0 && q.literatureRef > 0) p.literatureRef = q.literatureRef;
    } else {
        ExtendTypeRange(chem.equilibriumRange[q.type], index);
    }
}

}  // namespace

std::optional<DatabaseError> ReadEquilibriumFile(Database& chem, const std::string& path) {
    ClearEquilibria(chem);
    for (auto& c : chem.components) c.waterPartnerOfH = c.waterPartnerOfOH = 0;
    for (auto& p : chem.organicParameters) p.literatureRef = 0;

    std::optional<TokenReader> reader;
    int count = 0;
    if (auto error = OpenRecordFile(path, reader, count)) return error;
    chem.equilibria.resize(static_cast<size_t>(count));
    chem.stoichiometry.assign(static_cast<size_t>(chem.ComponentCount()) * static_cast<size_t>(count), 0);

    for (int32_t i = 0; i < count; ++i) {
        RecordFieldReader in(*reader, path, "equilibrium", i + 1);
        if (auto error = ReadEquilibrium(in, chem, i, count)) {
            ClearEquilibria(chem);
            return error;
        }
        Record(chem, i);
    }
    return std::nullopt;
}

}  // namespace tormel
