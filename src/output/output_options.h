#pragma once
// How results are shown: the display units, the display options and the
// three number formats built from them. The shell loads them from the
// settings file (sections [Units] and [Output]) and hands them down.
#include <cstdint>
#include <string>

namespace tormel {

struct UnitSettings {
    int32_t numDec = 3;  // "NumDec": digits after the point, 1 to 9
    int32_t units = 0;   // "Units": 0 molar (mol/L), 1 mass (g/L)
    int32_t order = 0;   // "Order": 0 none, 1 milli, 2 micro, 3 nano
    bool loaded = false;
};

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

}  // namespace tormel
