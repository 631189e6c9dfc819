#include "shell/input_editing.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "input/value_text.h"
#include "output/amount_units.h"

namespace tormel {
namespace {

constexpr double kMillivoltsPerPe = 59.159;

double OrderFactor(int32_t order) {
    switch (order) {
        case 1: return 1e3;
        case 2: return 1e6;
        case 3: return 1e9;
        default: return 1;
    }
}

bool IsMass(const Component& component, const UnitSettings& units) {
    return units.units == 1 && component.type != ComponentType::Gas && component.type != ComponentType::Ads;
}

std::string Lower(std::string_view text) {
    std::string out(text);
    for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

}  // namespace

EditorRows EditorRowsOf(const Database& db) {
    EditorRows rows;
    for (int32_t i = 0; i < static_cast<int32_t>(db.components.size()); ++i) {
        const Component& c = db.components[static_cast<size_t>(i)];
        switch (c.type) {
            case ComponentType::Cation:
                rows.cations.push_back(i);
                rows.neutraliseCations.push_back(i);
                break;
            case ComponentType::Ligand:
                rows.ligands.push_back(i);
                if (c.charge < 0) rows.neutraliseAnions.push_back(i);
                break;
            case ComponentType::RedSol: rows.redoxSolids.push_back(i); break;
            case ComponentType::Gas: rows.gases.push_back(i); break;
            case ComponentType::Ads: rows.adsorbents.push_back(i); break;
            default: break;
        }
    }
    return rows;
}

double ShownValue(const Component& component, double stored, const UnitSettings& units) {
    const double amount = IsMass(component, units) ? stored * component.molarMass : stored;
    return amount * OrderFactor(units.order);
}

std::optional<double> StoredValue(const Component& component, double shown, const UnitSettings& units) {
    double amount = shown / OrderFactor(units.order);
    if (IsMass(component, units)) {
        if (!(component.molarMass > 0)) return std::nullopt;
        amount /= component.molarMass;
    }
    return amount;
}

std::string ShownUnitLabel(const Component& component, const UnitSettings& units) {
    return UnitLabel(component.type == ComponentType::Ads, component.type == ComponentType::Gas, false, units.units, units.order);
}

std::vector<std::string> ConcentrationUnitChoices() {
    std::vector<std::string> labels;
    for (int32_t p = 0; p < 8; ++p) labels.push_back(UnitLabel(false, false, false, p % 2, p / 2));
    return labels;
}

std::vector<std::string> PressureUnitChoices() {
    std::vector<std::string> labels;
    for (int32_t order = 0; order < 4; ++order) labels.push_back(UnitLabel(false, true, false, 0, order));
    return labels;
}

int32_t ConcentrationUnitPosition(const UnitSettings& units) { return units.order * 2 + units.units; }

void ChooseConcentrationUnit(UnitSettings& units, int32_t position) {
    units.units = position % 2;
    units.order = position / 2;
}

void ChoosePressureUnit(UnitSettings& units, int32_t position) { units.order = position; }

int32_t TypeListPosition(InputType inputType) {
    if (inputType == InputType::FreeConc) return 1;
    if (inputType == InputType::FreeAct) return 2;
    return 0;
}

InputType InputTypeAtPosition(int32_t position) {
    if (position == 1) return InputType::FreeConc;
    if (position == 2) return InputType::FreeAct;
    return InputType::TotalConc;
}

std::string_view InputTypeLabelKey(InputType inputType) {
    if (inputType == InputType::FreeConc) return "InpTypeFreeConc";
    if (inputType == InputType::FreeAct) return "InpTypeFreeAct";
    return "InpTypeTotalConc";
}

double AbsoluteOfCriterion(double criterion) { return criterion - 1; }
double PercentOfCriterion(double criterion) { return (criterion - 1) * 100; }
double CriterionOfAbsolute(double absolute) { return 1 + absolute; }
double CriterionOfPercent(double percent) { return 1 + percent / 100; }

double PeOfElectron(double activity) { return activity > 0 ? -std::log10(activity) : 0; }
double MvOfPe(double pe) { return pe * kMillivoltsPerPe; }
double PeOfMv(double mv) { return mv / kMillivoltsPerPe; }
double ElectronOfPe(double pe) { return std::pow(10.0, -pe); }

int32_t OrganicChoiceOf(const InputProblem& input) {
    if (!input.organicComplexation) return 0;
    if (input.organicModel == Model6) return 2;
    if (input.organicModel == Model5) return 3;
    return 1;
}

void ApplyOrganicChoice(InputProblem& input, int32_t choice) {
    input.organicComplexation = choice > 0;
    if (choice == 1) input.organicModel = Model7;
    if (choice == 2) input.organicModel = Model6;
    if (choice == 3) input.organicModel = Model5;
}

int32_t TemperatureChoiceOf(const InputProblem& input) {
    if (input.temperatureCorrection == 2) return 1;
    if (input.temperatureCorrection == 1) return 2;
    return 0;
}

void ApplyTemperatureChoice(InputProblem& input, int32_t choice) {
    input.temperatureCorrection = choice == 1 ? 2 : choice == 2 ? 1 : 0;
}

EditorEnabling EnablingOf(const InputProblem& input) {
    EditorEnabling e;
    e.ionicStrengthRadios = input.ionicStrengthModel != kDaviesModel;
    e.fixedIonicStrength = e.ionicStrengthRadios && input.ionicStrengthFixed;
    e.temperature = input.temperatureCorrection != 0;
    e.neutraliseLists = input.forceNeutral;
    e.organicFields = input.organicComplexation;
    e.redoxFields = input.redox;
    return e;
}

TypedNumber ReadTypedNumber(std::string_view text, const DecimalSeparator& separator, TypedRange range) {
    std::string plain(TrimBlanksAndLineFeeds(text));
    TypedNumber result;
    if (!separator.IsPoint()) {
        if (plain.find('.') != std::string::npos) {
            result.hintKey = "HintNotANumber";
            return result;
        }
        const size_t at = plain.find(separator.symbol);
        if (at != std::string::npos) plain.replace(at, separator.symbol.size(), ".");
    }
    const std::optional<double> value = CompleteReal(plain);
    if (!value) {
        result.hintKey = "HintNotANumber";
    } else if (range == TypedRange::NonNegative && *value < 0) {
        result.hintKey = "HintNegative";
    } else if (range == TypedRange::Positive && *value <= 0) {
        result.hintKey = "HintNotPositive";
    } else if (range == TypedRange::Fraction && (*value < 0 || *value > 1)) {
        result.hintKey = "HintFraction";
    } else {
        result.value = *value;
    }
    return result;
}

int32_t RowAfterEnter(int32_t row, int32_t rowCount) {
    if (row + 1 < rowCount) return row + 1;
    return std::max(0, row - 1);
}

int32_t RowAfterStep(int32_t row, int32_t step, int32_t rowCount) {
    if (rowCount <= 0) return 0;
    return std::clamp(row + step, 0, rowCount - 1);
}

int32_t PageStep(int32_t visibleRows) { return std::max(1, visibleRows - 1); }

std::vector<int32_t> SearchComponents(const Database& db, std::string_view text) {
    const std::string needle = Lower(text);
    std::vector<int32_t> found;
    for (int32_t i = 0; i < static_cast<int32_t>(db.components.size()); ++i) {
        const Component& c = db.components[static_cast<size_t>(i)];
        if (c.type != ComponentType::Cation && c.type != ComponentType::Ligand && c.type != ComponentType::Ads && c.type != ComponentType::RedSol && c.type != ComponentType::Gas) continue;
        if (Lower(c.name).find(needle) != std::string::npos) found.push_back(i);
    }
    return found;
}

void AcceptEditedInput(InputProblem& input, const Database& db) {
    for (size_t i = 0; i < db.components.size() && i < input.components.size(); ++i)
        if (db.components[i].type == ComponentType::Ads && input.components[i].inputValue > 0) input.adsorption = true;
    input.modified = true;
}

}  // namespace tormel
