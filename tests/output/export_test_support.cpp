#include "export_test_support.h"

#include "result_test_support.h"

namespace tormel::test {

ResultStore ExportSampleStore(const ExportSampleOptions& options) {
    ResultStore store;
    ResultSet& set = store.sets[0];
    set.snapshot.input.organicComplexation = options.organic;
    set.header.organicReference = options.organic ? "Tipping 1998" : "";

    SetRecords records;
    ComponentResult proton = MakeComponent(ComponentType::Cation, "H", 1e-7, 1.008, "1=1;");
    proton.percentagesAllowed = false;
    const double quarter = 1.0 / 4096, total = 1.0 / 1024;
    ComponentResult calcium = MakeComponent(ComponentType::Cation, "Ca", total, 40.078, "2=1;4=1;");
    calcium.amounts[AmountDissolved] = quarter;
    calcium.amounts[AmountSolid] = 3 * quarter;
    if (options.organic) calcium.siteAmounts[SiteMonoFulvic] = 2e-6;
    ComponentResult carbonate = MakeComponent(ComponentType::Ligand, "CO3", 2e-3, 60.009, "3=1;4=1;");
    records.components = {proton, calcium, carbonate};
    records.componentInfos = {{"H", ComponentType::Cation, 1e-7, 1.008, InputType::FreeAct},
                              {"Ca", ComponentType::Cation, total, 40.078, InputType::TotalConc},
                              {"CO3", ComponentType::Ligand, 2e-3, 60.009, InputType::TotalConc}};

    SpeciesResult complex = MakeSpecies(SpeciesKind::ComplexSpecies, "CaCO3 (aq)", 1.0 / 8192);
    complex.intrinsicLogK = 3.22;
    complex.conditionalLogK = 3.1;
    complex.literature = "Plummer & Busenberg <1982>";
    complex.reactionDefinition = 0;
    records.species = {MakeSpecies(SpeciesKind::FreeComponent, "H +", 1e-7), MakeSpecies(SpeciesKind::FreeComponent, "Ca 2+", 1.0 / 8192),
                       MakeSpecies(SpeciesKind::FreeComponent, "CO3 2-", 1.5e-3), complex};
    if (options.gas) {
        ComponentResult gas = MakeComponent(ComponentType::Gas, "CO2(g)", 5e-4, 44.01, "5=1;");
        gas.displayName = "HCO3";
        gas.gasText = "CO2(g) / HCO3 -";
        records.components.push_back(gas);
        records.componentInfos.push_back({"CO2(g)", ComponentType::Gas, 3.16e-4, 44.01, InputType::GasPres});
        records.species.push_back(MakeSpecies(SpeciesKind::GasLigand, "HCO3 -", 5e-4));
    }
    set.header.reportedComponentCount = static_cast<int32_t>(records.components.size());
    StoreSetRecords(store, 0, records);
    return store;
}

InfoBlock SolidsInfoBlock() {
    InfoBlock block;
    block.title = "Solids";
    block.longText = "Long text";
    block.gridHeader = "Solid,Saturation index,State";
    block.columnCount = 3;
    block.rowCount = 2;
    block.Cell(0, 0).text = "Calcite";
    InfoCell& number = block.Cell(1, 0);
    number.text = "0,563";
    number.format = CellFormat::OwnText;
    number.number = 0.5632;
    block.Cell(2, 0).text = "oversaturated";
    block.Cell(0, 1).text = "Gypsum";  // columns 1 and 2 never filled
    return block;
}

}  // namespace tormel::test
