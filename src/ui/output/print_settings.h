#pragma once
// The printing choices of section [Output] of the settings file: what is
// printed, to which printer, and how the pages look.
#include <array>
#include <string>

#include <QMarginsF>
#include <QPageLayout>

#include "shell/settings.h"

namespace tormel {

// How tables are drawn on paper.
enum class PrintTableStyle {
    Coloured = 0,  // rows shaded by row class, with a grid
    Grid = 1,      // a grid, no shading
    Plain = 2,     // only a rule under the heading row
};

struct PrintSettings {
    bool summary = true;    // "PrintSummmary"
    bool details = true;    // "PrintDetails"
    bool otherInfo = true;  // "PrintOtherInfo"
    bool graphs = true;     // "PrintGraphs"
    bool graphsColour = true;  // "GraphsColor"
    std::string printer;    // "Printer": a printer name, a ".pdf" file name, or empty
    QPageLayout::Orientation orientation = QPageLayout::Portrait;  // "Orientation": 1 portrait, 2 landscape
    QMarginsF marginsMm{10, 10, 10, 10};  // "PrintMargin1" to "PrintMargin4": left, top, right, bottom in mm x 100
    PrintTableStyle tableStyle = PrintTableStyle::Coloured;  // "TableStyle"
    std::string fontFamily = "Cambria";  // "PrintFontType"
    int fontSize = 11;                   // "PrintFontSize", points
};

PrintSettings ReadPrintSettings(const Settings& settings);

// Stores the choices under [Output] as ReadPrintSettings reads them.
void WritePrintSettings(const PrintSettings& print, Settings& settings);

// Sets the page size (A4 for PDF files), orientation and margins of `layout`.
QPageLayout PrintPageLayout(QPageLayout layout, const PrintSettings& settings, bool toPdf);

// True when the printer setting asks for a PDF file rather than a printer:
// empty, or a name ending in ".pdf" (any letter case).
bool PrintsToPdf(const PrintSettings& settings);

}  // namespace tormel
