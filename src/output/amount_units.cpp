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
    std::string label;
    switch (order) {
        case 1: label = "m"; break;
        case 2: label = "\u00B5"; break;
        case 3: label = "n"; break;
        default: break;
    }
    if (gas) return label + (order == 0 ? "atm" : "-atm");
    if (massOnly || (!molarOnly && units == 1)) return label + "g/L";
    return label + "M";
}

}  // namespace tormel
