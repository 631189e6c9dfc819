#include "input/consistency_check.h"

#include <vector>

#include "core/language.h"

namespace tormel {

namespace {

bool IsFreeValue(InputType inputType) { return inputType == InputType::FreeConc || inputType == InputType::FreeAct; }

const Component* ComponentAt(const Database& db, int32_t index) {
    if (index < 0 || index >= db.ComponentCount()) return nullptr;
    return &db.components[static_cast<size_t>(index)];
}

const ComponentInput* InputAt(const InputProblem& input, const Database& db, int32_t index) {
    if (!ComponentAt(db, index)) return nullptr;
    return &input.components[static_cast<size_t>(index)];
}

void CheckHydrogen(const InputProblem& input, const Database& db, const Language& lang,
                   std::string& errors) {
    const ComponentInput* h = InputAt(input, db, db.hydrogenIndex);
    const ComponentInput* oh = InputAt(input, db, db.hydroxideIndex);
    if (!h) return;
    if (h->inputValue == 0) {
        if (h->inputType == InputType::FreeConc)
            errors += LanguageText(lang, "Input", "ConsistencyError1") + "\n";
        else if (h->inputType == InputType::FreeAct)
            errors += LanguageText(lang, "Input", "ConsistencyError2") + "\n";
    }
    if (oh && IsFreeValue(h->inputType) && IsFreeValue(oh->inputType))
        errors += LanguageText(lang, "Input", "ConsistencyError3") + "\n";
}

// Marks the ligands whose free concentration a gas with a given partial
// pressure fixes, and warns about those that carry a value of their own.
std::vector<bool> CheckGasFixedLigands(const InputProblem& input, const Database& db, const Language& lang,
                                       std::string& warnings) {
    std::vector<bool> fixedByGas(db.components.size(), false);
    for (const int32_t e : EquilibriaOfType(db, EquilibriumType::Gas)) {
        const Equilibrium& eq = db.equilibria[static_cast<size_t>(e)];
        const Component* gas = ComponentAt(db, eq.linkedComponent);
        if (!gas || !(input.components[static_cast<size_t>(eq.linkedComponent)].inputValue > 0)) continue;
        for (int32_t k = 0; k < db.ComponentCount(); ++k) {
            const Component& ligand = db.components[static_cast<size_t>(k)];
            if (db.Coefficient(k, e) == 0 || ligand.type != ComponentType::Ligand) continue;
            fixedByGas[static_cast<size_t>(k)] = true;
            if (input.components[static_cast<size_t>(k)].inputValue == 0) continue;
            warnings += LanguageText(lang, "Input", "ConsistencyError4") + " " + gas->name + "\n" +
                        LanguageText(lang, "Input", "ConsistencyError5") + " " + ligand.name + ".\n" +
                        LanguageText(lang, "Input", "ConsistencyError6") + " " + ligand.name + ".\n";
        }
    }
    return fixedByGas;
}

void CheckRedoxSolids(const InputProblem& input, const Database& db, const Language& lang,
                      std::string& warnings) {
    if (input.redox) return;
    for (size_t k = 0; k < db.components.size(); ++k) {
        const Component& c = db.components[k];
        if (c.type != ComponentType::RedSol || !(input.components[k].inputValue > 0)) continue;
        warnings += LanguageText(lang, "Input", "ConsistencyError7") + ".\n" +
                    LanguageText(lang, "Input", "ConsistencyError8") + " " + c.name + ".\n" +
                    LanguageText(lang, "Input", "ConsistencyError9") + "\n";
    }
}

void CheckOrganicMatter(const InputProblem& input, const Language& lang, std::string& errors) {
    if (!input.organicComplexation) return;
    if (input.docConcentration <= 0) errors += LanguageText(lang, "Input", "ConsistencyError10") + "\n";
    if (input.fulvicFraction < 0 || input.fulvicFraction > 1)
        errors += LanguageText(lang, "Input", "ConsistencyError11") + "\n";
    if (input.ionicStrengthFixed && input.fixedIonicStrength == 0)
        errors += LanguageText(lang, "Input", "ConsistencyError12") + "\n";
}

// One text per redox group in which two or more members are given.
void CheckRedoxGroups(const InputProblem& input, const Database& db, const std::vector<bool>& fixedByGas,
                      const Language& lang, std::string& errors, std::string& warnings) {
    if (!input.redox) return;
    const int32_t count = db.ComponentCount();
    for (int32_t c = 0; c < count; ++c) {
        const Component& first = db.components[static_cast<size_t>(c)];
        if (first.redoxNext == 0 || first.redoxPrev != 0) continue;
        std::string members, gasText, valueText;
        int totals = 0, freeValues = 0;
        bool gasFixed = false;
        // The links run in ascending index order; the step bound guards
        // against a damaged chain.
        for (int32_t m = c, steps = 0; steps < count; ++steps) {
            const Component& member = db.components[static_cast<size_t>(m)];
            const bool hasNext = member.redoxNext != 0;
            members += member.name;
            if (hasNext) members += " / ";
            if (fixedByGas[static_cast<size_t>(m)]) {
                ++freeValues;
                gasText += "- " + member.name + " " + LanguageText(lang, "Input", "ConsistencyError13") + "\n";
                gasFixed = true;
            } else if (const ComponentInput& given = input.components[static_cast<size_t>(m)];
                       given.inputValue != 0) {
                if (given.inputType == InputType::TotalConc) {
                    ++totals;
                    valueText += LanguageText(lang, "Input", "ConsistencyError17");
                } else if (given.inputType == InputType::FreeConc) {
                    ++freeValues;
                    valueText += LanguageText(lang, "Input", "ConsistencyError15");
                } else if (given.inputType == InputType::FreeAct) {
                    ++freeValues;
                    valueText += LanguageText(lang, "Input", "ConsistencyError16");
                }
                valueText += " " + member.name + (hasNext ? ".\n" : ";\n");
            }
            m = member.redoxNext;
            if (m <= 0 || m >= count) break;
        }
        if (totals + freeValues < 2) continue;
        std::string text = LanguageText(lang, "Input", "ConsistencyError14") + " " + members + "\n" + gasText +
                           valueText + LanguageText(lang, "Input", "ConsistencyError18");
        (gasFixed ? warnings : errors) += text;
    }
}

void CheckIonicStrengthModel(const InputProblem& input, const Language& lang, std::string& errors) {
    if (input.ionicStrengthModel == 2 && input.ionicStrengthFixed)
        errors += LanguageText(lang, "Input", "ConsistencyError19") + "\n";
}

void CheckTemperature(const InputProblem& input, const Language& lang, std::string& errors, std::string& warnings) {
    if (input.temperatureCorrection != 1 && input.temperatureCorrection != 2) return;
    if (input.temperature <= 0 || input.temperature >= 100)
        errors += LanguageText(lang, "Input", "ConsistencyError20") + "\n";
    else if (input.temperature < 15 || input.temperature > 35)
        warnings += LanguageText(lang, "Input", "ConsistencyError21") + "\n";
}

void CheckNeutralisation(const InputProblem& input, const Language& lang, std::string& errors) {
    if (input.forceNeutral && (input.neutraliseCation == 0 || input.neutraliseAnion == 0))
        errors += LanguageText(lang, "Input", "ConsistencyError22") + "\n";
}

}  // namespace

ConsistencyResult CheckConsistency(const InputProblem& input, const Database& db, const Language& language) {
    ConsistencyResult result;
    CheckHydrogen(input, db, language, result.errors);
    std::vector<bool> fixedByGas = CheckGasFixedLigands(input, db, language, result.warnings);
    CheckRedoxSolids(input, db, language, result.warnings);
    CheckOrganicMatter(input, language, result.errors);
    CheckRedoxGroups(input, db, fixedByGas, language, result.errors, result.warnings);
    CheckIonicStrengthModel(input, language, result.errors);
    CheckTemperature(input, language, result.errors, result.warnings);
    CheckNeutralisation(input, language, result.errors);
    return result;
}

}  // namespace tormel
