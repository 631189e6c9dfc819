// Block 3: solids. With precipitation, the solids of the calculation with
// their amounts and saturation; without, the saturation index of every solid
// that could form from the components of the input.
#include <cmath>

#include "output/amount_units.h"
#include "output/other_info_blocks.h"
#include "output/other_info_writer.h"

namespace tormel {

namespace {

// Rows of solids that are present or oversaturated carry this key (plus ten
// times their reaction definition).
constexpr int64_t kSolidPresentKey = 3;
// Saturation indexes within this distance of 0 count as equilibrium.
constexpr double kSaturationBand = 0.0005;

// The last cells of a solid's row, from `column` on: log K, conditional
// log K and literature. The row key grows by ten times the solid's reaction
// definition.
void ConstantCells(InfoBlockWriter& w, int32_t column, double logK, double conditionalLogK,
                   const std::string& literature, int32_t reactionDefinition) {
    w.Logarithm(column, logK);
    w.Logarithm(column + 1, conditionalLogK);
    w.Text(column + 2, literature);
    w.AddToKey(10 * static_cast<int64_t>(reactionDefinition));
}

// A saturation index or value; minus infinity (a component of the solid is
// absent) as a text that says so.
void SaturationCell(const OtherInfoSource& source, InfoBlockWriter& w, int32_t column, double value) {
    if (std::isinf(value) && value < 0)
        w.Text(column, source.Text("SolidComponentAbsent"));
    else
        w.Logarithm(column, value);
}

void PrecipitatedSolids(const OtherInfoSource& source, InfoBlockWriter& w, InfoBlock& block) {
    block.columnCount = 8;
    const ResultHeader& header = source.set.header;
    const auto& species = source.view.species;
    const int32_t units = source.options.units.units, order = source.options.units.order;
    bool anyRow = false;
    for (int32_t s = std::max(0, header.firstPrecipitatedSolid); s <= header.lastPrecipitatedSolid; ++s) {
        if (static_cast<size_t>(s) >= species.size()) break;
        const SpeciesResult& solid = species[s];
        if (anyRow) w.NextRow();
        anyRow = true;
        w.Text(0, solid.name);
        w.Scientific(1, ConvertAmount(solid.concentration, 1, units, order));
        w.Text(2, UnitLabelView(true, false, false, units, order));
        SaturationCell(source, w, 3, solid.saturationValue);
        if (solid.concentration != 0) {
            w.Text(4, source.Text("SolidInEq"));
            w.SetKey(kSolidPresentKey);
        } else {
            w.Text(4, source.Text("SolidUnderSat"));
        }
        ConstantCells(w, 5, solid.intrinsicLogK, solid.conditionalLogK, solid.literature, solid.reactionDefinition);
    }
    block.longText += " ";
    if (anyRow) {
        block.longText += source.Text("SolidsConsid");
        block.gridHeader = source.Text("GridHeaderSolidsWithPrecip");
        w.Finish(w.Row() + 1);
    } else {
        block.longText += source.Text("SolidsNotPresentButConsid");
    }
}

void SolidSaturations(const OtherInfoSource& source, InfoBlockWriter& w, InfoBlock& block) {
    block.columnCount = 6;
    bool anyRow = false;
    for (const SolidSaturation& solid : source.view.solidChecks) {
        if (anyRow) w.NextRow();
        anyRow = true;
        w.Text(0, solid.name);
        SaturationCell(source, w, 1, solid.saturationIndex);
        if (solid.saturationIndex >= kSaturationBand) {
            w.Text(2, source.Text("SolidOverSat"));
            w.SetKey(kSolidPresentKey);
        } else if (solid.saturationIndex < -kSaturationBand) {
            w.Text(2, source.Text("SolidUnderSat"));
        } else {
            w.Text(2, source.Text("SolidInEq"));
        }
        ConstantCells(w, 3, solid.logK, solid.conditionalLogK, solid.literature, solid.reactionDefinition);
    }
    if (anyRow) {
        block.longText += " " + source.Text("SolidsNotConsid");
        block.gridHeader = source.Text("GridHeaderSolidsNoPrecip");
        w.Finish(w.Row() + 1);
    } else {
        block.longText.clear();
    }
}

}  // namespace

void BuildSolidsBlock(const OtherInfoSource& source, InfoBlock& block) {
    InfoBlockWriter w(block, source.options.formats, source.separator);
    block.title = source.Text("Solids");
    block.longText = block.title;
    if (source.Input().precipitation)
        PrecipitatedSolids(source, w, block);
    else
        SolidSaturations(source, w, block);
}

}  // namespace tormel
