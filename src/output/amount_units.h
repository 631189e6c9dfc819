#pragma once
// Conversion of amounts to the units the user chose, and the unit labels.
#include <cstdint>
#include <string>
#include <string_view>

namespace tormel {

// `value` (mol/L) in the chosen units: times the molar mass for mass units
// (units 1), then times 1e3, 1e6 or 1e9 for the orders 1, 2, 3 (milli, micro,
// nano).
double ConvertAmount(double value, double molarMass, int32_t units, int32_t order);

// The unit text: "m", "µ" or "n" for the orders 1 to 3, then for a gas "atm"
// (order 0) or "-atm"; otherwise "g/L" when `massOnly`, or when neither
// `molarOnly` nor molar units (0) are chosen; else "M".
std::string UnitLabel(bool molarOnly, bool gas, bool massOnly, int32_t units, int32_t order);
// The same text, held by the program.
std::string_view UnitLabelView(bool molarOnly, bool gas, bool massOnly, int32_t units, int32_t order);

}  // namespace tormel
