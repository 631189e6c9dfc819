// Block 0: iterations, ionic strength and charge balance, and with organic
// matter the charges, enrichment factors and volume fractions of the two
// organic fractions.
#include "output/other_info_blocks.h"
#include "output/other_info_writer.h"

namespace tormel {

namespace {

constexpr int32_t kGeneralRows = 6;
constexpr int32_t kGeneralRowsWithOrganic = 16;

}  // namespace

void BuildGeneralBlock(const OtherInfoSource& source, InfoBlock& block) {
    InfoBlockWriter w(block, source.options.formats, source.separator);
    const ResultHeader& header = source.set.header;
    const InputSnapshot& snapshot = source.set.snapshot;
    block.title = source.Text("General");
    block.columnCount = 3;

    w.Text(0, source.Text("NumIt"));
    w.Integer(1, header.iterationCount);
    w.NextRow();
    w.Text(0, source.Text("I"));
    w.Scientific(1, snapshot.ReportedIonicStrength());
    w.Text(2, "M");
    w.NextRow();
    w.Text(0, source.Text("ChrgPos"));
    w.Scientific(1, header.cationCharge);
    w.Text(2, "eq");
    w.NextRow();
    w.Text(0, source.Text("ChrgNeg"));
    w.Scientific(1, header.anionCharge);
    w.Text(2, "eq");
    w.NextRow();
    w.Text(0, source.Text("ChrgDiff"));
    w.Scientific(1, header.cationCharge - header.anionCharge);
    w.Text(2, "eq");
    w.NextRow();
    w.Text(0, source.Text("ChrgRatio"));
    w.Scientific(1, header.cationCharge / header.anionCharge);

    if (!source.Input().organicComplexation) {
        w.Finish(kGeneralRows);
        return;
    }
    const OrganicFractionValues& fulvic = snapshot.fractions[0];
    const OrganicFractionValues& humic = snapshot.fractions[1];
    w.MoveTo(7);  // row 6 stays empty
    w.Text(0, source.Text("OrgChrgGrid1FA"));
    w.Scientific(1, fulvic.charge);
    w.Text(2, source.Text("OrgChrgUnitFA"));
    w.NextRow();
    w.Text(0, source.Text("OrgRatio"));
    w.Scientific(1, fulvic.enrichment);
    w.NextRow();
    w.Text(0, source.Text("OrgChrgGrid1HA"));
    w.Scientific(1, humic.charge);
    w.Text(2, source.Text("OrgChrgUnitHA"));
    w.NextRow();
    w.Text(0, source.Text("OrgRatio"));
    w.Scientific(1, humic.enrichment);
    w.MoveTo(12);  // row 11 stays empty
    w.Text(0, source.Text("OrgVolTxt"));
    w.NextRow();
    w.Text(0, source.Text("OrgVolFA"));
    w.Scientific(1, fulvic.volumeFraction);
    w.Text(2, "L/L");
    w.NextRow();
    w.Text(0, source.Text("OrgVolHA"));
    w.Scientific(1, humic.volumeFraction);
    w.Text(2, "L/L");
    w.NextRow();
    w.Text(0, source.Text("OrgVolSolut"));
    w.Scientific(1, snapshot.bulkFraction);
    w.Text(2, "L/L");
    w.Finish(kGeneralRowsWithOrganic);
}

}  // namespace tormel
