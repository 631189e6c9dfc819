// The summary and details tables of a component: which rows show, in which
// units, and the pie-chart texts behind them, compared with a golden copy.
#include <gtest/gtest.h>

#include "core/language.h"
#include "golden_file.h"
#include "output/result_tables.h"
#include "result_test_support.h"

namespace tormel::test {
namespace {

// English texts and the output options loaded from empty settings.
struct TableFixture {
    Language language{EnglishLanguageFile()};
    Settings settings;
    OutputOptions options;

    TableFixture() { LoadOutputOptions(options, settings); }
    ResultContext Context(DecimalSeparator separator = {}) {
        return ResultContext{language, options, std::move(separator)};
    }
};

// Ca (total 1e-3 M) with free Ca, a complex at `complexConcentration`, a
// free-like partner below the cut-off and a dissolved-out solid; H+ first.
ResultStore CalciumStore(double complexConcentration) {
    ResultStore store;
    SetRecords records;
    ComponentResult h = MakeComponent(ComponentType::Cation, "H", 5e-4, 1.0079, "1=1;3=-1;");
    h.percentagesAllowed = false;
    h.amounts[AmountSolid] = 0;
    ComponentResult ca = MakeComponent(ComponentType::Cation, "Ca", 1e-3, 40.078, "2=1;3=1;4=1;5=1;6=1;7=1;");
    records.components = {h, ca};
    records.componentInfos.resize(2);
    SpeciesResult complex = MakeSpecies(SpeciesKind::ComplexSpecies, "CaOH +", complexConcentration);
    complex.reactionDefinition = 2;
    complex.intrinsicLogK = -12.697;
    complex.conditionalLogK = -12.78;
    complex.literature = "NIST";
    SpeciesResult solid = MakeSpecies(SpeciesKind::SolidSpecies, "Calcite", 0);
    solid.reactionDefinition = 3;
    records.species = {MakeSpecies(SpeciesKind::FreeComponent, "free H +", 1e-8),
                       MakeSpecies(SpeciesKind::FreeComponent, "free Ca 2+", 9.99e-4),
                       complex,
                       MakeSpecies(SpeciesKind::RedoxPartner, "free Ca(I)", 1e-12),
                       solid,
                       MakeSpecies(SpeciesKind::ComplexSpecies, "CaSO4 (aq)", 5e-8),
                       MakeSpecies(SpeciesKindFromCode(40).value(), "HA-Ca", 1e-5)};
    StoreSetRecords(store, 0, std::move(records));
    store.sets[0].header.reportedComponentCount = 2;
    return store;
}

// The rows as text: one line per row, the row class (and constants key) then
// the cell texts separated by " | ".
std::string Text(const std::vector<DetailsRow>& rows) {
    std::string out;
    for (const DetailsRow& row : rows) {
        out += std::to_string(row.rowClass) + " " + std::to_string(row.constantsKey) + ":";
        for (const std::string& text : row.texts) out += " | " + text;
        out += "\n";
    }
    return out;
}
std::string Text(const std::vector<SummaryRow>& rows) {
    std::string out;
    for (const SummaryRow& row : rows) {
        out += std::to_string(row.rowClass) + ":";
        for (const std::string& text : row.texts) out += " | " + text;
        out += "\n";
    }
    return out;
}

// Every case of the details and summary tables in one golden file, each
// under a heading: the cut-off (free species and redox partners always show,
// organic species never; without "free always" only the free one; "show
// all" everything but a solid that is not there; every species for the
// proton, which has no percentages), mass units with a decimal comma (the
// pie text keeps the point and ends with the converted total and the count;
// activities stay molar), the proton's summary rows by mode, and the
// organic site rows after the species.
TEST(ResultTables, MatchTheirGoldenCopy) {
    std::string out;
    auto section = [&](const std::string& title, const std::string& text) { out += "## " + title + "\n" + text; };
    {
        TableFixture f;
        const ResultContext context = f.Context();
        ResultStore hidden = CalciumStore(5e-8);
        ResultStore shown = CalciumStore(2e-7);
        section("details, complex below the cut-off", Text(DetailsTable(hidden, 0, 1, context)));
        section("details, complex above the cut-off", Text(DetailsTable(shown, 0, 1, context)));
        section("details of the proton", Text(DetailsTable(hidden, 0, 0, context)));
        f.options.freeAlways = false;
        section("details, free not always", Text(DetailsTable(hidden, 0, 1, context)));
        f.options.showAll = true;
        section("details, show all", Text(DetailsTable(hidden, 0, 1, context)));
    }
    {
        TableFixture f;
        f.options.units.units = 1;
        f.options.units.order = 1;
        ResultStore store = CalciumStore(2e-7);
        section("details in mg/L with a decimal comma", Text(DetailsTable(store, 0, 1, f.Context(DecimalSeparator{","}))));
        section("details pie text", store.sets[0].detailsPieText + "\n");
        const ResultContext context = f.Context();
        section("summary in mg/L", Text(SummaryTable(store, 0, 1, context)));
        section("summary pie text", store.sets[0].summaryPieText + "\n");
        section("summary of the proton at fixed pH", Text(SummaryTable(store, 0, 0, context)));
        store.sets[0].snapshot.protonBalance = true;
        section("summary of the proton by proton balance", Text(SummaryTable(store, 0, 0, context)));
        store.sets[0].snapshot.protonBalance = false;
        store.sets[0].snapshot.input.redox = true;
        store.sets[0].snapshot.input.adsorption = true;
        section("summary of the proton with redox and adsorption", Text(SummaryTable(store, 0, 0, context)));
    }
    {
        TableFixture f;
        ResultStore store = CalciumStore(2e-7);
        store.sets[0].snapshot.input.organicComplexation = true;
        store.sets[0].header.organicReference = "Tipping (1998)";
        ComponentResult& ca = store.records.components[1];
        ca.siteAmounts[SiteBiHumic] = 3e-4;
        ca.siteAmounts[SiteMonoFulvic] = 1e-9;  // below the cut-off
        section("details with organic sites", Text(DetailsTable(store, 0, 1, f.Context())));
    }
    ExpectMatchesGolden(out, "result_tables.txt");
}

}  // namespace
}  // namespace tormel::test
