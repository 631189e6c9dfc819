#include "shell/unit_choice.h"

#include <algorithm>
#include <cmath>

#include "output/amount_units.h"

namespace tormel {

int32_t DecimalsOfText(std::string_view text) {
    const DecimalSeparator point;
    const double value = ParseNumber(text, point);
    if (!std::isfinite(value)) return 1;
    return static_cast<int32_t>(std::clamp(value, 1.0, 9.0));
}

int32_t UnitButtonIndex(const UnitSettings& units) { return units.order + 4 * units.units; }

void ApplyUnitButton(UnitSettings& units, int32_t index) {
    units.units = index > 3 ? 1 : 0;
    units.order = index % 4;
}

std::string PressureLabelOfButton(int32_t index) { return UnitLabel(false, true, false, 0, index % 4); }

std::string UnitButtonLabel(int32_t index) { return UnitLabel(false, false, false, index > 3 ? 1 : 0, index % 4); }

std::string CutOffText(double fraction, const DecimalSeparator& separator) {
    return FormatNumber(fraction * 100, "%2.3f", false, separator);
}

double CutOffOfText(std::string_view text, const DecimalSeparator& separator) {
    return ParseNumber(text, separator) / 100;
}

}  // namespace tormel
