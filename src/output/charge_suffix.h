#pragma once
// The charge written after a name in the result tables.
#include <cstdint>
#include <string>

namespace tormel {

// " (aq)" for 0, " +" for 1, " -" for -1, otherwise a blank, the magnitude
// and the sign (" 2+", " 3-").
std::string ChargeSuffix(int32_t charge);
// Appends ChargeSuffix(charge) to `name`.
void AppendChargeSuffix(std::string& name, int32_t charge);

}  // namespace tormel
