#pragma once
// How results are shown: the units of section [Units] and the display
// options of section [Output] of the settings file, with the three number
// formats built from them. Read once per run, on first need; the unit
// options dialog changes the values in memory and saves them.
#include <string>

#include "shell/settings.h"
#include "shell/unit_settings.h"

namespace tormel {

struct NumberFormats {
    std::string scientific = "%.3E";  // digits after the point from "NumDec"
    std::string percentage = "%.2f%%";
    std::string logarithm = "%9.3f";
};

struct OutputOptions {
    UnitSettings units;       // "NumDec", "Units", "Order"
    bool showAll = false;     // "OutpShowAll": every species, whatever the cut-off
    double cutOff = 0.0001;   // "OutpCutOff": relative cut-off of the details table
    bool freeAlways = true;   // "OutpFreeAlways": free species even below the cut-off
    bool showLogs = true;     // "OutpShowLogs": logarithms as tool tips in the viewer
    bool loaded = false;      // the [Output] keys have been read
    NumberFormats formats;
};

// The scientific format for `numDec` digits after the point: "%.3E" with its
// digit replaced ("%.5E" for 5).
std::string ScientificFormat(int32_t numDec);

// Rebuilds the three formats from the unit settings.
void RebuildNumberFormats(OutputOptions& options);

// Loads the unit settings (rebuilding the formats when they are loaded now),
// then, on the first call, the four [Output] keys; both only while
// "Remember-Units" is set, otherwise the defaults stay.
void LoadOutputOptions(OutputOptions& options, const Settings& settings);

// Saves the unit settings, then, while "Remember-Units" is set, the four
// [Output] keys (booleans as 0/1, the cut-off as "%9.9E").
void SaveOutputOptions(const OutputOptions& options, Settings& settings);

}  // namespace tormel
