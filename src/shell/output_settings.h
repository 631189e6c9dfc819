#pragma once
// The output options kept in the settings file: the units of section [Units]
// and the display options of section [Output]. Read once per run, on first
// need; the unit options dialog changes the values in memory and saves them.
#include "output/output_options.h"
#include "shell/settings.h"

namespace tormel {

// Loads the unit settings (rebuilding the formats when they are loaded now),
// then, on the first call, the four [Output] keys; both only while
// "Remember-Units" is set, otherwise the defaults stay.
void LoadOutputOptions(OutputOptions& options, const Settings& settings);

// Saves the unit settings, then, while "Remember-Units" is set, the four
// [Output] keys (booleans as 0/1, the cut-off as "%9.9E").
void SaveOutputOptions(const OutputOptions& options, Settings& settings);

}  // namespace tormel
