#pragma once
// What the input editor computes, without its windows: which components its
// lists show, how a stored value appears in the chosen display unit and back,
// the linked fields (convergence in absolute and percent, pE and mV), the
// enabling rules of the option pages, the reading of typed numbers, the
// keyboard moves in the lists and the component search.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/database.h"
#include "input/input_problem.h"
#include "output/number_text.h"
#include "shell/unit_settings.h"

namespace tormel {

// Component indices of each list, in component order. Every adsorbent of
// the database gets a row of its own.
struct EditorRows {
    std::vector<int32_t> cations, ligands, redoxSolids, gases, adsorbents;
    std::vector<int32_t> neutraliseCations;  // every cation
    std::vector<int32_t> neutraliseAnions;   // ligands with a negative charge
};
EditorRows EditorRowsOf(const Database& db);

// The value shown for a stored one (mol/L, atm for gases) in the display
// units: gases in atm times 1e3/1e6/1e9 by the order; an adsorbent, which has
// no molar mass, always in molar units of the chosen order (mM when mg/L is
// chosen); everything else as ConvertAmount.
double ShownValue(const Component& component, double stored, const UnitSettings& units);
// The stored value for a shown one (the inverse of ShownValue); nullopt when
// a mass unit is chosen and the component has no molar mass.
std::optional<double> StoredValue(const Component& component, double shown, const UnitSettings& units);
// The unit text beside a value: "µ-atm", "mM", "mg/L" ...
std::string ShownUnitLabel(const Component& component, const UnitSettings& units);

// The eight entries of the concentration unit list, position p being
// Units = p mod 2 and Order = p div 2: "M", "g/L", "mM", "mg/L", ...
std::vector<std::string> ConcentrationUnitChoices();
// The four entries of the pressure unit list: "atm", "m-atm", "µ-atm", "n-atm".
std::vector<std::string> PressureUnitChoices();
int32_t ConcentrationUnitPosition(const UnitSettings& units);
void ChooseConcentrationUnit(UnitSettings& units, int32_t position);
void ChoosePressureUnit(UnitSettings& units, int32_t position);

// The type list of the main lists: total concentration, free concentration,
// free activity. The position that shows `inputType`, and the type chosen at
// a position.
int32_t TypeListPosition(InputType inputType);
InputType InputTypeAtPosition(int32_t position);
// Section "OtherInfo" key of the type text shown in the main lists.
std::string_view InputTypeLabelKey(InputType inputType);

// Convergence criterion and its two fields.
double AbsoluteOfCriterion(double criterion);
double PercentOfCriterion(double criterion);
double CriterionOfAbsolute(double absolute);
double CriterionOfPercent(double percent);

// The electron's activity and its pE and mV fields (59.159 mV per pE unit).
double PeOfElectron(double activity);
double MvOfPe(double pe);
double PeOfMv(double mv);
double ElectronOfPe(double pe);

// The organic radio buttons 0 (not included) to 3 and the model codes 4, 3, 2.
int32_t OrganicChoiceOf(const InputProblem& input);
void ApplyOrganicChoice(InputProblem& input, int32_t choice);
// The temperature radio buttons 0 to 2 and the corrections 0, 2, 1.
int32_t TemperatureChoiceOf(const InputProblem& input);
void ApplyTemperatureChoice(InputProblem& input, int32_t choice);

// Which controls of the option pages are enabled.
struct EditorEnabling {
    bool ionicStrengthRadios = true;  // not with Davies
    bool fixedIonicStrength = false;  // MSA and fixed
    bool temperature = false;         // a correction is chosen
    bool neutraliseLists = false;     // force neutral
    bool organicFields = false;       // organic complexation
    bool redoxFields = false;         // redox: pE, mV and the redox solid list
};
EditorEnabling EnablingOf(const InputProblem& input);

// What range a typed number must lie in.
enum class TypedRange { Any, NonNegative, Positive, Fraction };
// A typed number, or the InputEdit key of the hint that says why it was
// refused ("HintNotANumber", "HintNegative", "HintNotPositive", "HintFraction").
struct TypedNumber {
    std::optional<double> value;
    std::string hintKey;
};
// Reads text the user typed: blanks around it are ignored; the whole text
// must be one number written with the user's decimal separator (a "." under a
// comma locale, or a "," under a point locale, is refused) within `range`.
TypedNumber ReadTypedNumber(std::string_view text, const DecimalSeparator& separator, TypedRange range);

// The row the edit field moves to: Enter goes down, from the last row up;
// `step` rows (Up -1, Down +1, Page Up/Down minus/plus (visible rows - 1), at
// least 1) are kept within the list.
int32_t RowAfterEnter(int32_t row, int32_t rowCount);
int32_t RowAfterStep(int32_t row, int32_t step, int32_t rowCount);
int32_t PageStep(int32_t visibleRows);

// Components of the types Cation, Ligand, Ads, RedSol and Gas whose name
// contains `text` without regard to letter case (all of them for an empty
// text), in component order.
std::vector<int32_t> SearchComponents(const Database& db, std::string_view text);

// What OK does to the problem: adsorption switched on when any adsorbent
// has a value above 0, and the problem marked as modified.
void AcceptEditedInput(InputProblem& input, const Database& db);

}  // namespace tormel
