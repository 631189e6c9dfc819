#include <gtest/gtest.h>

#include "core/database_files.h"
#include "support/database_builder.h"
#include "support/recording_ui.h"
#include "support/synthetic_database.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

using test::RecordingUi;
using test::SyntheticDatabase;
using test::TempFolder;

Database LoadSynthetic(const Database& source, RecordingUi& ui) {
    TempFolder dir;
    test::WriteSyntheticWorkingCopies(source, dir.Path());
    Database chem;
    auto error = LoadDatabase(chem, dir.Path(), ui.services);
    EXPECT_FALSE(error) << (error ? error->Describe() : "");
    return chem;
}

TEST(CoreDatabaseLoad, RecordsAndStoichiometryRoundTripThroughTheFiles) {
    RecordingUi ui;
    Database source = SyntheticDatabase();
    Database chem = LoadSynthetic(source, ui);
    ASSERT_EQ(chem.ComponentCount(), source.ComponentCount());
    ASSERT_EQ(chem.EquilibriumCount(), source.EquilibriumCount());
    // every field the files hold: what was read, written again, gives the text of the source
    const DatabaseFileHeader header{"x", "1"};
    EXPECT_EQ(FormatComponentFile(chem, header), FormatComponentFile(source, header));
    EXPECT_EQ(FormatEquilibriumFile(chem, header), FormatEquilibriumFile(source, header));
    EXPECT_EQ(FormatLiteratureFile(chem, header), FormatLiteratureFile(source, header));
    for (int32_t model = Model5; model <= Model7; ++model)
        EXPECT_EQ(FormatModelFile(chem, model, header), FormatModelFile(source, model, header));
    EXPECT_TRUE(ui.messages.empty());
}

TEST(CoreDatabaseLoad, TypeRangesNeverStartAtIndexZero) {
    RecordingUi ui;
    Database chem = LoadSynthetic(SyntheticDatabase(), ui);
    // H+ is component 0: the cation range starts at the first cation after it
    EXPECT_EQ(chem.componentRange[ComponentType::Cation].first, 1);
    EXPECT_EQ(chem.componentRange[ComponentType::Cation].last, 5);
    EXPECT_EQ(chem.componentRange[ComponentType::Ligand].first, 7);
    EXPECT_EQ(chem.componentRange[ComponentType::Ligand].last, 9);
    EXPECT_EQ(chem.componentRange[ComponentType::Ads].first, 10);
    EXPECT_EQ(chem.componentRange[ComponentType::RedSol].first, 11);
    EXPECT_EQ(chem.componentRange[ComponentType::Gas].first, 12);
    EXPECT_EQ(chem.electronIndex, 6);
    EXPECT_EQ(chem.organicComponentRange[Model5 - Model5].first, 13);
    EXPECT_EQ(chem.organicComponentRange[Model5 - Model5].last, 14);
    EXPECT_TRUE(chem.organicComponentRange[Model6 - Model5].empty());
    EXPECT_EQ(chem.organicComponentRange[Model7 - Model5].last, 16);
    // the water equilibrium is 0 and never starts a range
    EXPECT_EQ(chem.waterEquilibriumIndex, 0);
    EXPECT_EQ(chem.equilibriumRange[EquilibriumType::Complex].first, 1);
    EXPECT_EQ(chem.equilibriumRange[EquilibriumType::Complex].last, 9);
    EXPECT_EQ(chem.equilibriumRange[EquilibriumType::Adsorption].first, 10);
    EXPECT_EQ(chem.equilibriumRange[EquilibriumType::Redox].first, 12);
    EXPECT_EQ(chem.equilibriumRange[EquilibriumType::Redox].last, 13);
    EXPECT_EQ(chem.equilibriumRange[EquilibriumType::Solid].first, 15);
    EXPECT_EQ(chem.organicEquilibriumRange[Model7 - Model5].first, 17);
    EXPECT_EQ(chem.maxComponentsPerEquilibrium, 4);
}

TEST(CoreDatabaseLoad, WaterPartnersAndOrganicLiteratureAreRecorded) {
    RecordingUi ui;
    Database chem = LoadSynthetic(SyntheticDatabase(), ui);
    EXPECT_EQ(chem.hydrogenIndex, 0);
    EXPECT_EQ(chem.hydroxideIndex, 7);
    EXPECT_EQ(chem.components[0].waterPartnerOfH, 7);
    EXPECT_EQ(chem.components[7].waterPartnerOfOH, 0);  // H+ is index 0
    EXPECT_EQ(chem.equilibria[0].literatureRef, 0);     // 1-based 1 in the file
    EXPECT_EQ(chem.equilibria[1].literatureRef, -1);    // 0 in the file: none
    // Model 5's only equilibrium has no reference; Model 7's has reference 4 (index 3)
    EXPECT_EQ(chem.Organic(Model5).literatureRef, 0);
    EXPECT_EQ(chem.Organic(Model7).literatureRef, 3);
}

TEST(CoreDatabaseLoad, GasAndRedoxGroupsAreLinked) {
    // a third iron state joins the Fe(II)/Fe(III) group; its equilibrium is
    // written towards Fe(III), the linked component below its partner
    Database grown = SyntheticDatabase();
    grown.components.push_back(test::MakeComponent(ComponentType::Cation, "Fe(VI)", 6));
    grown.stoichiometry.resize(grown.components.size() * grown.equilibria.size(), 0);
    Equilibrium q = test::MakeEquilibrium(EquilibriumType::Redox, "Fe(III)/Fe(VI)", 0, 0);
    q.linkedComponent = grown.FindComponent("Fe(III)");
    q.linkedCoefficient = 1;
    test::AppendEquilibrium(grown, q, {{grown.ComponentCount() - 1, 1}, {grown.FindComponent("e"), 3}});
    RecordingUi ui;
    Database chem = LoadSynthetic(grown, ui);
    auto at = [&](const char* name) -> const Component& { return chem.components[chem.FindComponent(name)]; };
    EXPECT_EQ(at("CO3").gasPartner, chem.FindComponent("CO2(g)"));
    EXPECT_EQ(at("CO2(g)").linkedLigand, chem.FindComponent("CO3"));
    // Fe(II)/Fe(III)/Fe(VI) form one group, Mn(II)/MnO2(s) another; members
    // chained in index order whichever way the equilibrium is written
    const int32_t fe2 = chem.FindComponent("Fe(II)"), fe3 = chem.FindComponent("Fe(III)"),
                  fe6 = chem.FindComponent("Fe(VI)");
    EXPECT_EQ(at("Fe(II)").redoxPrev, 0);
    EXPECT_EQ(at("Fe(II)").redoxNext, fe3);
    EXPECT_EQ(at("Fe(III)").redoxPrev, fe2);
    EXPECT_EQ(at("Fe(III)").redoxNext, fe6);
    EXPECT_EQ(at("Fe(VI)").redoxPrev, fe3);
    EXPECT_EQ(at("Fe(VI)").redoxNext, 0);
    EXPECT_EQ(at("Mn(II)").redoxNext, chem.FindComponent("MnO2(s)"));
    EXPECT_EQ(at("MnO2(s)").redoxPrev, chem.FindComponent("Mn(II)"));
    EXPECT_EQ(at("Ca").redoxNext, 0);
}

TEST(CoreDatabaseLoad, MoreThanFourComponentsWarnsOnceAndKeepsLoading) {
    Database chem = SyntheticDatabase();
    const int32_t e = chem.FindEquilibrium("MnCl(CO3)OH-2");
    chem.Coefficient(chem.FindComponent("Ca"), e) = 1;
    chem.Coefficient(chem.FindComponent("Hfo_wOH"), e) = 1;  // six components now
    RecordingUi ui;
    Database loaded = LoadSynthetic(chem, ui);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].lines.at(0), "More than 4 BB; will throw errors.");
    EXPECT_EQ(ui.messages[0].caption, "Please inform author");
    EXPECT_EQ(loaded.maxComponentsPerEquilibrium, 6);
    EXPECT_EQ(loaded.EquilibriumCount(), chem.EquilibriumCount());
}

TEST(CoreDatabaseLoad, ASecondLoadReplacesTheFirst) {
    TempFolder dir;
    Database source = SyntheticDatabase();
    test::WriteSyntheticWorkingCopies(source, dir.Path());
    RecordingUi ui;
    Database chem;
    ASSERT_FALSE(LoadDatabase(chem, dir.Path(), ui.services));
    chem.components[3].molarMass += 5;
    ASSERT_FALSE(LoadDatabase(chem, dir.Path(), ui.services));
    EXPECT_EQ(chem.ComponentCount(), source.ComponentCount());
    EXPECT_EQ(chem.components[3].molarMass, source.components[3].molarMass);
    EXPECT_EQ(chem.literature.size(), source.literature.size());
}

}  // namespace
}  // namespace tormel
