#include "core/database_files.h"
#include "core/database_reader_support.h"

namespace tormel {

namespace {

void ClearEquilibria(ChemicalSystem& chem) {
    chem.equilibria.clear();
    chem.stoichiometry.clear();
    chem.equilibriumRange = {};
    chem.organicEquilibriumRange = {};
    chem.maxComponentsPerEquilibrium = 0;
    chem.waterEquilibriumIndex = 0;
    chem.hydrogenIndex = 0;
    chem.hydroxideIndex = 0;
}

}  // namespace

std::optional<DatabaseError> ReadEquilibriumFile(ChemicalSystem& chem, const std::string& path) {
    ClearEquilibria(chem);
    for (auto& c : chem.components) c.waterPartnerOfH = c.waterPartnerOfOH = 0;
    for (auto& p : chem.organicParameters) p.literatureRef = 0;

    std::optional<TokenReader> reader;
    int count = 0;
    if (auto error = OpenRecordFile(path, reader, count)) return error;
    const int32_t componentCount = chem.ComponentCount();
    chem.equilibria.resize(static_cast<size_t>(count));
    chem.stoichiometry.assign(static_cast<size_t>(componentCount) * static_cast<size_t>(count), 0);

    for (int i = 0; i < count; ++i) {
        Equilibrium& q = chem.equilibria[static_cast<size_t>(i)];
        std::string where = "equilibrium " + std::to_string(i + 1);
        auto fail = [&](const std::string& message) {
            ClearEquilibria(chem);
            return DatabaseError{path, reader->Line(), where, message};
        };
        if (!reader->ReadQuotedName(q.name, kNameLimit)) {
            if (reader->AtEnd() && q.name.empty())
                return fail("the file ends before this record (the header promises " + std::to_string(count) + ")");
            return fail("the name's closing quote is missing");
        }
        where += " (\"" + q.name + "\")";
        auto readInt = [&](int32_t& v, const char* field) -> std::optional<DatabaseError> {
            if (!reader->ReadInt(v)) return fail(std::string("the ") + field + " is missing or not an integer");
            return std::nullopt;
        };
        auto readReal = [&](double& v, const char* field) -> std::optional<DatabaseError> {
            if (!reader->ReadDouble(v)) return fail(std::string("the ") + field + " is missing or not a number");
            return std::nullopt;
        };
        if (auto e = readInt(q.type, "type")) return e;
        if (q.type < EqWater || q.type > EqOrganic) return fail("the type " + std::to_string(q.type) + " is not 1 to 7");
        if (q.type == EqRedox || q.type == EqGas) {
            int32_t linked = 0;
            if (auto e = readInt(linked, "linked component")) return e;
            if (linked < 1 || linked > componentCount)
                return fail("the linked component " + std::to_string(linked) + " is not a component number");
            q.linkedComponent = linked - 1;
            if (auto e = readReal(q.linkedCoefficient, "linked coefficient")) return e;
        }
        if (q.type == EqOrganic) {
            if (auto e = readInt(q.organicModel, "organic model code")) return e;
            if (q.organicModel < Model5 || q.organicModel > Model7)
                return fail("the organic model code " + std::to_string(q.organicModel) + " is not 2, 3 or 4");
        }
        if (q.type == EqWater || q.type == EqComplex || q.type == EqAdsorption || q.type == EqOrganic) {
            if (auto e = readInt(q.charge, "charge")) return e;
        }
        if (auto e = readReal(q.logK, "log K")) return e;
        if (auto e = readReal(q.secondReal, "second real")) return e;
        if (auto e = readReal(q.thirdReal, "third real")) return e;
        if (q.type != EqOrganic) {
            if (auto e = readInt(q.deltaZ2, "delta z squared")) return e;
        }
        int32_t flag = 0;
        if (auto e = readInt(flag, "enthalpy flag")) return e;
        q.hasEnthalpy = flag != 0;
        if (q.hasEnthalpy) {
            if (auto e = readReal(q.enthalpy, "enthalpy")) return e;
        }
        if (q.type == EqComplex) {
            if (auto e = readReal(q.complexDiameter, "ion diameter")) return e;
        }
        int32_t literature = 0;
        if (auto e = readInt(literature, "literature reference")) return e;
        q.literatureRef = literature - 1;
        if (q.literatureRef < -1) return fail("the literature reference " + std::to_string(literature) + " is negative");
        if (auto e = readInt(q.componentCount, "component count")) return e;
        if (q.componentCount < 0 || q.componentCount > componentCount)
            return fail("the component count " + std::to_string(q.componentCount) + " is not possible");
        for (int32_t k = 0; k < q.componentCount; ++k) {
            int32_t coefficient = 0, number = 0;
            if (auto e = readInt(coefficient, "coefficient")) return e;
            if (auto e = readInt(number, "component number")) return e;
            if (number < 1 || number > componentCount)
                return fail("the component number " + std::to_string(number) + " is not between 1 and " +
                            std::to_string(componentCount));
            chem.Coefficient(number - 1, i) = coefficient;
            if (q.type == EqWater) {
                if (chem.components[static_cast<size_t>(number - 1)].type == Cation)
                    chem.hydrogenIndex = number - 1;
                else
                    chem.hydroxideIndex = number - 1;
            }
        }
        if (q.type == EqOrganic && q.organicModel == Model6) {
            if (auto e = readReal(q.organicReal1, "first organic real")) return e;
            if (auto e = readReal(q.organicReal2, "second organic real")) return e;
        } else if (q.type == EqOrganic && q.organicModel == Model7) {
            if (auto e = readReal(q.organicReal2, "organic real")) return e;
        }

        if (q.componentCount > chem.maxComponentsPerEquilibrium) chem.maxComponentsPerEquilibrium = q.componentCount;
        if (q.type == EqWater) {
            chem.waterEquilibriumIndex = i;
            chem.components[static_cast<size_t>(chem.hydrogenIndex)].waterPartnerOfH = chem.hydroxideIndex;
            chem.components[static_cast<size_t>(chem.hydroxideIndex)].waterPartnerOfOH = chem.hydrogenIndex;
        } else if (q.type == EqOrganic) {
            TypeRange& r = chem.organicEquilibriumRange[q.organicModel - Model5];
            if (r.first == 0) r.first = i;
            r.last = i;
            OrganicModelParameters& p = chem.Organic(q.organicModel);
            if (p.literatureRef == 0 && q.literatureRef > 0) p.literatureRef = q.literatureRef;
        } else {
            TypeRange& r = chem.equilibriumRange[q.type];
            if (r.first == 0) r.first = i;
            r.last = i;
        }
    }
    return std::nullopt;
}

}  // namespace tormel
