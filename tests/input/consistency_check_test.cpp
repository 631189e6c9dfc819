#include <gtest/gtest.h>

#include "input/consistency_check.h"
#include "input/input_test_system.h"
#include "input/program_defaults.h"
#include "input/test_language.h"

namespace tormel {
namespace {

using I = test::InputTestIndex;

class InputConsistency : public ::testing::Test {
protected:
    void SetUp() override {
        chem = test::InputTestSystem();
        SetProgramDefaults(input, chem);
    }

    ConsistencyResult Check() { return CheckConsistency(input, chem, language); }
    std::string T(const std::string& key) { return LanguageText(language, "Input", key); }
    void Give(int32_t index, double value, int32_t type) {
        input.components[static_cast<size_t>(index)] = {value, type};
    }

    Database chem;
    InputProblem input;
    Language language = test::English();
};

TEST_F(InputConsistency, HydrogenChecks) {
    Give(I::H, 0, InpTypeFreeAct);
    EXPECT_EQ(Check().errors, T("ConsistencyError2") + "\n");
    Give(I::H, 0, InpTypeFreeConc);
    EXPECT_EQ(Check().errors, T("ConsistencyError1") + "\n");
    Give(I::H, 0, InpTypeTotalConc);
    EXPECT_TRUE(Check().Empty());

    Give(I::H, 1e-7, InpTypeFreeAct);
    Give(I::OH, 1e-7, InpTypeFreeConc);
    EXPECT_EQ(Check().errors, T("ConsistencyError3") + "\n");
    Give(I::OH, 1e-7, InpTypeTotalConc);
    EXPECT_TRUE(Check().Empty());
}

TEST_F(InputConsistency, LigandWithAValueFixedByAGasIsAWarning) {
    Give(I::CO2g, 3.5e-4, InpTypeGasPres);
    EXPECT_TRUE(Check().Empty());  // CO3 without a value of its own
    Give(I::CO3, 1e-3, InpTypeTotalConc);
    const ConsistencyResult r = Check();
    EXPECT_EQ(r.errors, "");
    EXPECT_EQ(r.warnings, T("ConsistencyError4") + " CO2(g)\n" + T("ConsistencyError5") + " CO3.\n" +
                              T("ConsistencyError6") + " CO3.\n");
    Give(I::CO2g, 0, InpTypeGasPres);
    EXPECT_TRUE(Check().Empty());
}

TEST_F(InputConsistency, RedoxSolidWithoutRedoxIsAWarning) {
    Give(I::S, 1e-3, InpTypeTotalConc);
    EXPECT_EQ(Check().warnings, T("ConsistencyError7") + ".\n" + T("ConsistencyError8") + " S.\n" +
                                    T("ConsistencyError9") + "\n");
    input.redox = true;
    EXPECT_TRUE(Check().Empty());
}

TEST_F(InputConsistency, OrganicMatterChecks) {
    input.docConcentration = 0;
    input.fulvicFraction = 2;
    EXPECT_TRUE(Check().Empty());  // organic complexation off: nothing is judged

    input.organicComplexation = true;
    input.ionicStrengthModel = 1;
    EXPECT_EQ(Check().errors, T("ConsistencyError10") + "\n" + T("ConsistencyError11") + "\n");
    input.docConcentration = 5;
    for (double f : {0.0, 1.0, 0.5}) {
        input.fulvicFraction = f;
        EXPECT_TRUE(Check().Empty()) << f;
    }
    input.fulvicFraction = -0.01;
    EXPECT_EQ(Check().errors, T("ConsistencyError11") + "\n");
    input.fulvicFraction = 0.5;
    input.ionicStrengthFixed = true;
    input.fixedIonicStrength = 0;
    EXPECT_EQ(Check().errors, T("ConsistencyError12") + "\n");
    input.fixedIonicStrength = 0.01;
    EXPECT_TRUE(Check().Empty());
}

TEST_F(InputConsistency, RedoxGroupWithTwoTotalsListsItsMembers) {
    input.redox = true;
    Give(I::FeII, 1e-5, InpTypeTotalConc);
    Give(I::FeIII, 2e-5, InpTypeTotalConc);
    EXPECT_EQ(Check().errors, T("ConsistencyError14") + " Fe(II) / Fe(III)\n" + T("ConsistencyError17") +
                                  " Fe(II).\n" + T("ConsistencyError17") + " Fe(III);\n" + T("ConsistencyError18"));

    Give(I::FeII, 0, InpTypeTotalConc);
    EXPECT_TRUE(Check().Empty());  // one member given: nothing

    input.redox = false;
    Give(I::FeII, 1e-5, InpTypeTotalConc);
    EXPECT_TRUE(Check().Empty());  // groups are judged only with redox
}

TEST_F(InputConsistency, TwoConflictingGroupsGiveTwoIndependentTexts) {
    input.redox = true;
    Give(I::FeII, 1e-5, InpTypeFreeConc);
    Give(I::FeIII, 2e-5, InpTypeFreeAct);
    Give(I::SO4, 1e-3, InpTypeTotalConc);
    Give(I::HS, 7, InpTypeNotSpecified);  // listed, but counted neither as total nor as free value
    Give(I::S, 1e-4, InpTypeTotalConc);
    const std::string iron = T("ConsistencyError14") + " Fe(II) / Fe(III)\n" + T("ConsistencyError15") +
                             " Fe(II).\n" + T("ConsistencyError16") + " Fe(III);\n" + T("ConsistencyError18");
    const std::string sulphur = T("ConsistencyError14") + " SO4 / HS / S\n" + T("ConsistencyError17") + " SO4.\n" +
                                " HS.\n" + T("ConsistencyError17") + " S;\n" + T("ConsistencyError18");
    EXPECT_EQ(Check().errors, iron + sulphur);
    EXPECT_EQ(Check().warnings, "");

    Give(I::S, 0, InpTypeTotalConc);  // SO4 and HS alone count one
    EXPECT_EQ(Check().errors, iron);
}

TEST_F(InputConsistency, GroupWithAMemberFixedByAGasIsAWarning) {
    // let the gas fix HS as well
    chem.Coefficient(I::HS, 2) = 1;
    input.redox = true;
    Give(I::CO2g, 3.5e-4, InpTypeGasPres);
    Give(I::SO4, 1e-3, InpTypeTotalConc);
    const ConsistencyResult r = Check();
    EXPECT_EQ(r.errors, "");
    EXPECT_EQ(r.warnings, T("ConsistencyError14") + " SO4 / HS / S\n" + "- HS " + T("ConsistencyError13") + "\n" +
                              T("ConsistencyError17") + " SO4.\n" + T("ConsistencyError18"));
}

TEST_F(InputConsistency, TemperatureChecks) {
    struct Case {
        double temperature;
        int32_t mode;
        const char* error;
        const char* warning;
    } cases[] = {
        {40, 2, nullptr, "ConsistencyError21"}, {40, 0, nullptr, nullptr},
        {100, 1, "ConsistencyError20", nullptr}, {0, 1, "ConsistencyError20", nullptr},
        {-5, 0, nullptr, nullptr},               {14.9, 1, nullptr, "ConsistencyError21"},
        {15, 1, nullptr, nullptr},               {35, 2, nullptr, nullptr},
        {99.9, 3, nullptr, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.temperature << " mode " << c.mode);
        input.temperature = c.temperature;
        input.temperatureCorrection = c.mode;
        const ConsistencyResult r = Check();
        EXPECT_EQ(r.errors, c.error ? T(c.error) + "\n" : "");
        EXPECT_EQ(r.warnings, c.warning ? T(c.warning) + "\n" : "");
    }
}

TEST_F(InputConsistency, NeutralisationNeedsBothIons) {
    input.forceNeutral = true;
    EXPECT_EQ(Check().errors, T("ConsistencyError22") + "\n");  // once, though both are missing
    input.neutraliseCation = I::Na;
    EXPECT_EQ(Check().errors, T("ConsistencyError22") + "\n");
    input.neutraliseAnion = I::Cl;
    EXPECT_TRUE(Check().Empty());
}

TEST_F(InputConsistency, FindingsKeepTheOrderOfTheChecks) {
    Give(I::H, 0, InpTypeFreeAct);
    input.organicComplexation = true;
    input.ionicStrengthFixed = true;
    input.fixedIonicStrength = 0.1;
    input.temperatureCorrection = 1;
    input.temperature = 100;
    input.forceNeutral = true;
    input.redox = true;
    Give(I::FeII, 1e-5, InpTypeTotalConc);
    Give(I::FeIII, 1e-5, InpTypeTotalConc);
    Give(I::CO2g, 1e-3, InpTypeGasPres);
    Give(I::CO3, 1e-3, InpTypeTotalConc);
    const ConsistencyResult r = Check();
    const std::string group = T("ConsistencyError14") + " Fe(II) / Fe(III)\n" + T("ConsistencyError17") +
                              " Fe(II).\n" + T("ConsistencyError17") + " Fe(III);\n" + T("ConsistencyError18");
    EXPECT_EQ(r.errors, T("ConsistencyError2") + "\n" + T("ConsistencyError10") + "\n" + group +
                            T("ConsistencyError19") + "\n" + T("ConsistencyError20") + "\n" +
                            T("ConsistencyError22") + "\n");
    EXPECT_EQ(r.warnings.rfind(T("ConsistencyError4"), 0), 0u);
}

TEST_F(InputConsistency, TextsComeFromTheLanguage) {
    Give(I::H, 0, InpTypeFreeAct);
    Language german = test::German();
    const ConsistencyResult r = CheckConsistency(input, chem, german);
    EXPECT_EQ(r.errors, LanguageText(german, "Input", "ConsistencyError2") + "\n");
    EXPECT_NE(r.errors, Check().errors);
}

}  // namespace
}  // namespace tormel
