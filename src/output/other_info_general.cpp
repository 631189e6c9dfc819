// Block 0: iterations, ionic strength and charge balance, and with organic
// matter the charges, enrichment factors and volume fractions of the two
// organic fractions.
#include "output/other_info_blocks.h"
#include "output/other_info_writer.h"

namespace tormel {

namespace {

constexpr int32_t kGeneralRows = 6;
constexpr int32_t kGeneralRowsWithOrganic = 16;

// Fills the current row with a label, a value in the scientific format and
// the value's unit (empty for a ratio), then moves to the next row.
void ValueRow(InfoBlockWriter& w, std::string_view label, double value, std::string_view unit) {
    w.Text(0, label);
    w.Scientific(1, value);
    w.Text(2, unit);
    w.NextRow();
}

}  // namespace

void BuildGeneralBlock(const OtherInfoSource& source, InfoBlock& block) {
    InfoBlockWriter w(block, source.options.formats, source.separator);
    const ResultHeader& header = source.set.header;
    const InputSnapshot& snapshot = source.set.snapshot;
    block.title = source.Text("General");
    block.columnCount = 3;

    w.Text(0, source.Text("NumIt"));
    w.Integer(1, header.iterationCount);
    if (header.fallbackIteration > 0)
        w.Text(2, source.Text("NumItFallback") + " " + std::to_string(header.fallbackIteration));
    w.NextRow();
    ValueRow(w, source.Text("I"), snapshot.ReportedIonicStrength(), "M");
    ValueRow(w, source.Text("ChrgPos"), header.cationCharge, "eq");
    ValueRow(w, source.Text("ChrgNeg"), header.anionCharge, "eq");
    ValueRow(w, source.Text("ChrgDiff"), header.cationCharge - header.anionCharge, "eq");
    ValueRow(w, source.Text("ChrgRatio"), header.cationCharge / header.anionCharge, "");

    if (!source.Input().organicComplexation) {
        w.Finish(kGeneralRows);
        return;
    }
    const OrganicFractionValues& fulvic = snapshot.fractions[0];
    const OrganicFractionValues& humic = snapshot.fractions[1];
    w.MoveTo(7);  // row 6 stays empty
    ValueRow(w, source.Text("OrgChrgGrid1FA"), fulvic.charge, source.Text("OrgChrgUnitFA"));
    ValueRow(w, source.Text("OrgRatio"), fulvic.enrichment, "");
    ValueRow(w, source.Text("OrgChrgGrid1HA"), humic.charge, source.Text("OrgChrgUnitHA"));
    ValueRow(w, source.Text("OrgRatio"), humic.enrichment, "");
    w.MoveTo(12);  // row 11 stays empty
    w.Text(0, source.Text("OrgVolTxt"));
    w.NextRow();
    ValueRow(w, source.Text("OrgVolFA"), fulvic.volumeFraction, "L/L");
    ValueRow(w, source.Text("OrgVolHA"), humic.volumeFraction, "L/L");
    ValueRow(w, source.Text("OrgVolSolut"), snapshot.bulkFraction, "L/L");
    w.Finish(kGeneralRowsWithOrganic);
}

}  // namespace tormel
