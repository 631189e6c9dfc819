#include "output/charge_suffix.h"

namespace tormel {

std::string ChargeSuffix(int32_t charge) {
    if (charge == 0) return " (aq)";
    if (charge == 1) return " +";
    if (charge == -1) return " -";
    const int64_t magnitude = charge < 0 ? -static_cast<int64_t>(charge) : charge;
    return " " + std::to_string(magnitude) + (charge > 0 ? "+" : "-");
}

}  // namespace tormel
