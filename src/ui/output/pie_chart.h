#pragma once
// The pie charts of a component: the fractions pie (from the summary table's
// data text) and the species pie (from the details table's). Drawn by the
// output viewer's panels and by printing alike: a tilted pie with a lower
// rim, and a legend to its right.
#include <string_view>
#include <vector>

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QString>

namespace tormel {

struct PieEntry {
    double amount = 0;
    QString label;
};

// A parsed pie-chart data text: entries "amount|"label"|" ..., then the
// total, "|" and the number of entries.
struct PieData {
    std::vector<PieEntry> entries;
    double total = 0;
};

// Reads a data text; malformed tails are dropped (the entries read so far stay).
PieData ParsePieText(std::string_view text);

// The design size of one pie panel; DrawPieChart scales it to its rectangle.
inline constexpr double kPiePanelWidth = 480;
inline constexpr double kPiePanelHeight = 260;

// One visible slice: its entry, its colour index, and its angles in degrees
// counter-clockwise from the positive horizontal axis.
struct PieSlice {
    int entry = 0;
    int colour = 0;
    double startDegrees = 0;
    double spanDegrees = 0;
};

// The slices that are drawn for a pie of horizontal radius `radiusPixels`:
// entries whose fraction of the total is 0.001 or less (or not a number) are
// left out, and so are slices under 0.99 whose ends fall on the same pixel.
std::vector<PieSlice> VisiblePieSlices(const PieData& data, double radiusPixels);

// True when any entry is negative: the panel then shows a note instead.
bool PieHasNegativeAmount(const PieData& data);

// Fill colour and the darker shade of the rim for colour index `index`; in
// grey when `colour` is false (printing without colours).
QColor PieFillColour(int index, bool colour = true);
QColor PieRimColour(int index, bool colour = true);

struct PieChartStyle {
    QString caption;       // "PieFractions" / "PieSpecies" text, drawn at the top left
    QString negativeNote;  // "PieNegativeConc" text, shown instead of a pie
    bool colour = true;
    bool frame = true;     // outline around the panel
};

// Draws one pie panel into `panel` (the 480 x 260 design layout, scaled
// uniformly to fit and placed at the panel's top left).
void DrawPieChart(QPainter& painter, const QRectF& panel, const PieData& data, const PieChartStyle& style);

}  // namespace tormel
