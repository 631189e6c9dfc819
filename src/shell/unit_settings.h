#pragma once
// The display units kept in section [Units] of the settings file: decimals of
// displayed values, molar or mass units, and the order of magnitude. They are
// read once per run, on first need, and then held in memory.
#include <cstdint>

#include "shell/settings.h"

namespace tormel {

struct UnitSettings {
    int32_t numDec = 3;  // "NumDec": digits after the point, 1 to 9
    int32_t units = 0;   // "Units": 0 molar (mol/L), 1 mass (g/L)
    int32_t order = 0;   // "Order": 0 none, 1 milli, 2 micro, 3 nano
    bool loaded = false;
};

// On the first call reads the three keys when "Remember-Units" is set and
// takes their defaults otherwise; a value outside its range also gives the
// default. Later calls keep the values in memory. Returns true when this call
// loaded them (the number formats are rebuilt then).
bool LoadUnitSettings(UnitSettings& units, const Settings& settings);

// Writes the three keys back, only when "Remember-Units" is set.
void SaveUnitSettings(const UnitSettings& units, Settings& settings);

}  // namespace tormel
