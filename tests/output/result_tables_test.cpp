// The summary and details tables of a component: which rows show, in which
// units, and the pie-chart texts behind them.
#include <gtest/gtest.h>

#include "core/language.h"
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
    ComponentResult h = MakeComponent(Cation, "H", 5e-4, 1.0079, "1=1;3=-1;");
    h.percentagesAllowed = false;
    h.amounts[AmountSolid] = 0;
    ComponentResult ca = MakeComponent(Cation, "Ca", 1e-3, 40.078, "2=1;3=1;4=1;5=1;6=1;7=1;");
    records.components = {h, ca};
    records.componentInfos.resize(2);
    SpeciesResult complex = MakeSpecies(ComplexSpecies, "CaOH +", complexConcentration);
    complex.reactionDefinition = 2;
    complex.intrinsicLogK = -12.697;
    complex.conditionalLogK = -12.78;
    complex.literature = "NIST";
    SpeciesResult solid = MakeSpecies(SolidSpecies, "Calcite", 0);
    solid.reactionDefinition = 3;
    records.species = {MakeSpecies(FreeComponent, "free H +", 1e-8), MakeSpecies(FreeComponent, "free Ca 2+", 9.99e-4),
                       complex, MakeSpecies(RedoxPartner, "free Ca(I)", 1e-12), solid,
                       MakeSpecies(ComplexSpecies, "CaSO4 (aq)", 5e-8), MakeSpecies(40, "HA-Ca", 1e-5)};
    StoreSetRecords(store, 0, std::move(records));
    store.sets[0].header.reportedComponentCount = 2;
    return store;
}

std::vector<std::string> Names(const std::vector<DetailsRow>& rows) {
    std::vector<std::string> names;
    for (const DetailsRow& row : rows) names.push_back(row.texts[0]);
    return names;
}

TEST(DetailsTable, CutOffHidesSmallSpeciesButNotFreeOnes) {
    TableFixture f;
    const ResultContext context = f.Context();

    ResultStore hidden = CalciumStore(5e-8);
    EXPECT_EQ(Names(DetailsTable(hidden, 0, 1, context)),
              (std::vector<std::string>{"free Ca 2+", "free Ca(I)"}))
        << "5e-8 of 1e-3 M lies below the cut-off; free species and partners always show; organic never";
    ResultStore shown = CalciumStore(2e-7);
    EXPECT_EQ(Names(DetailsTable(shown, 0, 1, context)),
              (std::vector<std::string>{"free Ca 2+", "CaOH +", "free Ca(I)"}));

    f.options.freeAlways = false;
    EXPECT_EQ(Names(DetailsTable(hidden, 0, 1, context)), (std::vector<std::string>{"free Ca 2+"}));
    f.options.showAll = true;
    EXPECT_EQ(Names(DetailsTable(hidden, 0, 1, context)),
              (std::vector<std::string>{"free Ca 2+", "CaOH +", "free Ca(I)", "CaSO4 (aq)"}))
        << "show all: everything except a solid that is not there";

    // without percentages (the proton in fixed-pH mode) every species shows
    f.options = OutputOptions{};
    LoadOutputOptions(f.options, f.settings);
    EXPECT_EQ(Names(DetailsTable(hidden, 0, 0, context)), (std::vector<std::string>{"free H +", "CaOH +"}));
}

TEST(DetailsTable, ColumnsKeysUnitsAndDecimalComma) {
    TableFixture f;
    f.options.units.units = 1;
    f.options.units.order = 1;
    const ResultContext context = f.Context(DecimalSeparator{","});
    ResultStore store = CalciumStore(2e-7);
    const std::vector<DetailsRow> rows = DetailsTable(store, 0, 1, context);
    ASSERT_EQ(rows.size(), 3u);
    const DetailsRow& complex = rows[1];
    EXPECT_EQ(complex.texts[1], "8,016E-03");
    EXPECT_EQ(complex.texts[2], "mg/L");
    EXPECT_EQ(complex.texts[3], "0,02%");
    EXPECT_EQ(complex.texts[4], "2,000E-04") << "activities are molar";
    EXPECT_EQ(complex.texts[5], "mM");
    EXPECT_EQ(complex.texts[6], "-12,697");
    EXPECT_EQ(complex.texts[8], "NIST");
    EXPECT_EQ(complex.rowClass, 2 * 10 + CategoryDissolved + 10);
    EXPECT_EQ(complex.constantsKey, 0);
    EXPECT_EQ(rows[0].constantsKey, -1);
    EXPECT_TRUE(rows[0].texts[6].empty());
    // the pie text keeps the point and ends with the converted total and the count
    EXPECT_EQ(store.sets[0].detailsPieText,
              "4.004E+01|\"free Ca 2+\"|8.016E-03|\"CaOH +\"|4.008E-08|\"free Ca(I)\"|4.008E+01|3");
}

TEST(SummaryTable, MassUnitsAndTheProtonRows) {
    TableFixture f;
    f.options.units.units = 1;
    f.options.units.order = 1;
    const ResultContext context = f.Context();
    ResultStore store = CalciumStore(2e-7);

    const std::vector<SummaryRow> ca = SummaryTable(store, 0, 1, context);
    ASSERT_EQ(ca.size(), 2u) << "dissolved and total: only the amounts above 0";
    EXPECT_EQ(ca[0].texts[0], "Dissolved Ca");
    EXPECT_EQ(ca[0].texts[1], "4.008E+01");
    EXPECT_EQ(ca[0].texts[2], "mg/L");
    EXPECT_EQ(ca[0].texts[3], "100.00%");
    EXPECT_EQ(ca[1].rowClass, 5);
    EXPECT_EQ(store.sets[0].summaryPieText, "4.008E+01|\"Dissolved Ca\"|1.000E-03|1");

    // the proton's total only in proton-balance mode, or with redox and a total
    auto rowClasses = [&] {
        std::vector<int32_t> classes;
        for (const SummaryRow& row : SummaryTable(store, 0, 0, context)) classes.push_back(row.rowClass);
        return classes;
    };
    EXPECT_EQ(rowClasses(), (std::vector<int32_t>{1}));
    store.sets[0].snapshot.protonBalance = true;
    EXPECT_EQ(rowClasses(), (std::vector<int32_t>{1, 5}));
    store.sets[0].snapshot.protonBalance = false;
    store.sets[0].snapshot.input.redox = true;
    store.sets[0].snapshot.input.adsorption = true;
    EXPECT_EQ(rowClasses(), (std::vector<int32_t>{1, 2, 5})) << "adsorption switch; redox with a total";
    EXPECT_TRUE(SummaryTable(store, 0, 0, context)[0].texts[3].empty()) << "no percentages for the proton";
}

TEST(DetailsTable, OrganicSiteRowsFollowTheSpecies) {
    TableFixture f;
    const ResultContext context = f.Context();
    ResultStore store = CalciumStore(2e-7);
    store.sets[0].snapshot.input.organicComplexation = true;
    store.sets[0].header.organicReference = "Tipping (1998)";
    ComponentResult& ca = store.records.components[1];
    ca.siteAmounts[SiteBiHumic] = 3e-4;
    ca.siteAmounts[SiteMonoFulvic] = 1e-9;  // below the cut-off
    const std::vector<DetailsRow> rows = DetailsTable(store, 0, 1, context);
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[3].texts[0], "HA-bidentate");
    EXPECT_EQ(rows[3].texts[3], "30.00%");
    EXPECT_EQ(rows[3].texts[8], "Tipping (1998)");
    EXPECT_EQ(rows[3].rowClass, 4);
}

}  // namespace
}  // namespace tormel::test
