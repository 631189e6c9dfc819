#pragma once
// What the unit options dialog reads from its controls: the decimals field,
// the eight unit buttons (index = Order + 4 x Units) and the cut-off field.
#include <cstdint>
#include <string>
#include <string_view>

#include "output/number_text.h"
#include "shell/unit_settings.h"

namespace tormel {

// The decimals field read as a number (0 when it holds none), clamped to 1..9.
int32_t DecimalsOfText(std::string_view text);

// The unit button of the settings, and the settings of a button (0 to 7).
int32_t UnitButtonIndex(const UnitSettings& units);
void ApplyUnitButton(UnitSettings& units, int32_t index);
// The partial-pressure unit that goes with a button ("µ-atm" for "µg/L").
std::string PressureLabelOfButton(int32_t index);
// The label of a unit button: "M", "mM", "µM", "nM", "g/L", "mg/L", "µg/L", "ng/L".
std::string UnitButtonLabel(int32_t index);

// The cut-off fraction as the field shows it, in percent ("%2.3f").
std::string CutOffText(double fraction, const DecimalSeparator& separator);
// The fraction of a typed percentage.
double CutOffOfText(std::string_view text, const DecimalSeparator& separator);

}  // namespace tormel
