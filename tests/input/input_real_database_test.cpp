#include <gtest/gtest.h>

#include <filesystem>

#include "core/database_files.h"
#include "input/consistency_check.h"
#include "input/input_file_reader.h"
#include "input/input_file_writer.h"
#include "input/program_defaults.h"
#include "input/test_language.h"
#include "support/recording_ui.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

namespace fs = std::filesystem;

// The database delivered with the program, loaded once from copies of its
// raw data files.
const ChemicalSystem* DeliveredDatabase() {
    static const ChemicalSystem* loaded = [] {
        const std::string programFolder = std::string(TORMEL_SOURCE_DIR) + "/data/";
        if (!fs::exists(ShippedCopyPath(programFolder, DbComponents))) return static_cast<ChemicalSystem*>(nullptr);
        test::TempFolder data;
        for (int position = 0; position < 6; ++position)
            fs::copy_file(ShippedCopyPath(programFolder, position), WorkingCopyPath(data.Path(), position));
        auto* chem = new ChemicalSystem;
        test::RecordingUi ui;
        if (LoadDatabase(*chem, data.Path(), ui.services)) {
            delete chem;
            return static_cast<ChemicalSystem*>(nullptr);
        }
        return chem;
    }();
    return loaded;
}

class InputRealDatabase : public ::testing::Test {
protected:
    void SetUp() override {
        if (!DeliveredDatabase()) GTEST_SKIP() << "the delivered database is not available";
        chem = *DeliveredDatabase();
        SetProgramDefaults(input, chem);
    }

    int32_t Index(const char* name) const {
        const int32_t index = chem.FindComponent(name);
        EXPECT_GE(index, 0) << name;
        return index;
    }
    Component& C(const char* name) { return chem.components[static_cast<size_t>(Index(name))]; }
    std::string T(const std::string& key) { return LanguageText(language, "Input", key); }

    ChemicalSystem chem;
    InputProblem input;
    Language language = test::English();
    test::RecordingUi ui;
};

TEST_F(InputRealDatabase, ProgramDefaultsFollowTheComponentKinds) {
    ASSERT_EQ(chem.hydrogenIndex, 0);
    EXPECT_EQ(chem.components[0].inputValue, 1e-7);
    EXPECT_EQ(chem.components[0].inputType, InpTypeFreeAct);
    EXPECT_EQ(C("e").inputValue, 1.0);
    EXPECT_EQ(C("e").inputType, InpTypeFreeAct);
    EXPECT_EQ(C("OH").inputType, InpTypeTotalConc);
    EXPECT_EQ(C("CO2(g)").inputType, InpTypeGasPres);
    EXPECT_EQ(C("Ca").inputType, InpTypeTotalConc);
    EXPECT_TRUE(CheckConsistency(input, chem, language).Empty());
}

TEST_F(InputRealDatabase, FileRoundTripKeepsEveryComponent) {
    input.description = "Seewasser – Probe 7";
    input.redox = input.adsorption = input.precipitation = input.organicComplexation = true;
    input.docConcentration = 3.5;
    input.forceNeutral = true;
    input.neutraliseCation = Index("Na");
    input.neutraliseAnion = Index("Cl");
    C("H").inputValue = 2e-3;
    C("H").inputType = InpTypeTotalConc;
    C("e").inputValue = 1e-12;
    C("Ca").inputValue = 1e-3;
    C("Fe(II)").inputValue = 3e-6;
    C("CO3").inputValue = 2e-3;
    C("Na").inputValue = 5e-3;
    C("Cl").inputValue = 5e-3;
    C("Cu(II)").inputValue = 1e-7;
    C("Cu(II)").inputType = InpTypeFreeAct;
    C("Hfo_wOH").inputValue = 2e-4;
    C("CO2(g)").inputValue = 3.9e-4;

    test::TempFolder folder;
    const std::string path = folder.File("lake.i64");
    ASSERT_TRUE(WriteInputFile(path, input, chem, ui.services, language));
    ChemicalSystem back = *DeliveredDatabase();
    InputProblem backInput;
    ASSERT_FALSE(LoadInputFile(path, backInput, back));
    EXPECT_EQ(FormatInputFile(backInput, back), FormatInputFile(input, chem));
    for (size_t i = 0; i < chem.components.size(); ++i) {
        SCOPED_TRACE(chem.components[i].name);
        EXPECT_EQ(back.components[i].inputValue, chem.components[i].inputValue);
        EXPECT_EQ(back.components[i].inputType, chem.components[i].inputType);
    }
    EXPECT_EQ(backInput.neutraliseCation, Index("Na"));
    EXPECT_EQ(backInput.neutraliseAnion, Index("Cl"));
}

TEST_F(InputRealDatabase, IronGivenTwiceAndCarbonateFixedByTheGas) {
    input.redox = true;
    C("Fe(II)").inputValue = 1e-5;
    C("Fe(III)").inputValue = 1e-5;
    C("CO3").inputValue = 1e-3;
    C("CO2(g)").inputValue = 3.9e-4;
    const ConsistencyResult r = CheckConsistency(input, chem, language);

    // one group text naming both iron forms, one total line each
    EXPECT_EQ(r.errors.rfind(T("ConsistencyError14") + " ", 0), 0u) << r.errors;
    EXPECT_NE(r.errors.find("Fe(III)"), std::string::npos);
    EXPECT_NE(r.errors.find(" Fe(II)"), std::string::npos) << r.errors;
    size_t totals = 0;
    for (size_t at = r.errors.find(T("ConsistencyError17")); at != std::string::npos;
         at = r.errors.find(T("ConsistencyError17"), at + 1))
        ++totals;
    EXPECT_EQ(totals, 2u);
    EXPECT_EQ(r.errors.substr(r.errors.size() - T("ConsistencyError18").size()), T("ConsistencyError18"));

    EXPECT_NE(r.warnings.find(T("ConsistencyError4") + " CO2(g)\n" + T("ConsistencyError5") + " CO3.\n"),
              std::string::npos)
        << r.warnings;
}

}  // namespace
}  // namespace tormel
