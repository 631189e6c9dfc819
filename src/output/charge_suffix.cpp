#include "output/charge_suffix.h"

#include <charconv>

namespace tormel {

std::string ChargeSuffix(int32_t charge) {
    std::string suffix;
    AppendChargeSuffix(suffix, charge);
    return suffix;
}

void AppendChargeSuffix(std::string& name, int32_t charge) {
    if (charge == 0) {
        name.append(" (aq)", 5);
    } else if (charge == 1 || charge == -1) {
        name.append(charge > 0 ? " +" : " -", 2);
    } else {
        char digits[24];
        const int64_t magnitude = charge < 0 ? -static_cast<int64_t>(charge) : charge;
        char* end = std::to_chars(digits, digits + sizeof digits, magnitude).ptr;
        *end++ = charge > 0 ? '+' : '-';
        name += ' ';
        name.append(digits, end);
    }
}

}  // namespace tormel
