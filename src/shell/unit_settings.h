#pragma once
// The display units kept in section [Units] of the settings file: decimals of
// displayed values, molar or mass units, and the order of magnitude. They are
// read once per run, on first need, and then held in memory.
#include "output/output_options.h"
#include "shell/settings.h"

namespace tormel {

// On the first call reads the three keys when "Remember-Units" is set and
// takes their defaults otherwise; a value outside its range also gives the
// default. Later calls keep the values in memory. Returns true when this call
// loaded them (the number formats are rebuilt then).
bool LoadUnitSettings(UnitSettings& units, const Settings& settings);

// Writes the three keys back, only when "Remember-Units" is set.
void SaveUnitSettings(const UnitSettings& units, Settings& settings);

}  // namespace tormel
