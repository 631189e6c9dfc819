// Block 4: gases. First the gases whose partial pressure the input gives,
// with the dissolved ligand each one fixes; then the partial pressures in
// equilibrium with the solution of the gases the input leaves open. Absent
// when there is neither.
#include "output/amount_units.h"
#include "output/other_info_blocks.h"
#include "output/other_info_writer.h"
#include "output/result_tables.h"

namespace tormel {

namespace {

// `names` without its last two characters (each name was followed by " & ").
std::string WithoutLastTwo(const std::string& names) {
    return names.substr(0, names.size() >= 2 ? names.size() - 2 : 0);
}

// The part of a gas result's name after "gas / ".
std::string LigandPart(const std::string& name) {
    const size_t slash = name.find('/');
    if (slash == std::string::npos) return std::string();
    return name.substr(std::min(name.size(), slash + 2));
}

}  // namespace

void BuildGasesBlock(const OtherInfoSource& source, InfoBlock& block) {
    InfoBlockWriter w(block, source.options.formats, source.separator);
    block.columnCount = 8;
    const int32_t units = source.options.units.units, order = source.options.units.order;
    const std::string pressureUnit = UnitLabel(true, true, false, units, order);
    const std::string molarUnit = UnitLabel(true, false, false, units, order);
    const auto& components = source.view.components;
    const auto& infos = source.view.componentInfos;
    const auto& species = source.view.species;

    auto gasRow = [&](const std::string& name, double pressure, double concentration, double logK,
                      double conditionalLogK, const std::string& literature, int32_t reaction) {
        w.Text(0, name);
        w.Scientific(1, ConvertAmount(pressure, 1, units, order));
        w.Text(2, pressureUnit);
        w.Scientific(3, ConvertAmount(concentration, 1, units, order));
        w.Text(4, molarUnit);
        w.Logarithm(5, logK);
        w.Logarithm(6, conditionalLogK);
        w.Text(7, literature);
        w.SetKey(10 * static_cast<int64_t>(reaction));
        w.NextRow();
    };

    std::string givenNames;
    bool givenRows = false;
    for (size_t i = 0; i < components.size(); ++i) {
        const ComponentResult& component = components[i];
        if (component.kind != ComponentType::Gas) continue;
        const std::vector<SpeciesListEntry> entries = ParseSpeciesList(component.speciesList);
        if (entries.empty() || entries[0].species < 1 || static_cast<size_t>(entries[0].species) > species.size())
            continue;
        const SpeciesResult& p = species[entries[0].species - 1];
        const double pressure = i < infos.size() ? infos[i].inputValue : 0;
        gasRow(component.gasText, pressure, p.concentration, p.intrinsicLogK, p.conditionalLogK, p.literature,
               p.reactionDefinition);
        givenNames += component.name + " & ";
        givenRows = true;
    }
    if (givenRows) {
        block.longText = source.Text("GasLong1") + " " + WithoutLastTwo(givenNames) + source.Text("GasLong2");
        if (!source.view.gases.empty()) w.NextRow();
    }

    std::string ligandNames;
    for (const GasResult& gas : source.view.gases) {
        gasRow(gas.name, gas.partialPressure, gas.ligandConcentration, gas.logK, gas.conditionalLogK, gas.literature,
               gas.reactionDefinition);
        ligandNames += LigandPart(gas.name) + " & ";
    }
    if (!source.view.gases.empty()) {
        if (!block.longText.empty()) block.longText += " ";
        block.longText += source.Text("GasLong3") + " " + WithoutLastTwo(ligandNames) + source.Text("GasLong4");
    }

    if (!block.longText.empty()) {
        block.longText += " " + source.Text("GasLong5");
        block.title = source.Text("Gases");
        block.gridHeader = source.Text("GridHeaderGas");
    }
    w.Finish(w.Row());
}

}  // namespace tormel
