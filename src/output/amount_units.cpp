#include "output/amount_units.h"

namespace tormel {

double ConvertAmount(double value, double molarMass, int32_t units, int32_t order) {
    double amount = units == 1 ? value * molarMass : value;
    switch (order) {
        case 1: return amount * 1000;
        case 2: return amount * 1e6;
        case 3: return amount * 1e9;
        default: return amount;
    }
}

std::string UnitLabel(bool molarOnly, bool gas, bool massOnly, int32_t units, int32_t order) {
    return std::string(UnitLabelView(molarOnly, gas, massOnly, units, order));
}

std::string_view UnitLabelView(bool molarOnly, bool gas, bool massOnly, int32_t units, int32_t order) {
    // per order (none, milli, micro, nano): pressure, mass, molar
    static constexpr std::string_view kLabels[4][3] = {
        {"atm", "g/L", "M"},
        {"m-atm", "mg/L", "mM"},
        {"\u00B5-atm", "\u00B5g/L", "\u00B5M"},
        {"n-atm", "ng/L", "nM"},
    };
    const auto& labels = kLabels[order >= 1 && order <= 3 ? order : 0];
    if (gas) return labels[0];
    if (massOnly || (!molarOnly && units == 1)) return labels[1];
    return labels[2];
}

}  // namespace tormel
