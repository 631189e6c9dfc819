#include <gtest/gtest.h>

#include <functional>

#include "core/c_number.h"
#include "input/consistency_check.h"
#include "output/golden_file.h"
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
    void Give(int32_t index, double value, InputType type) {
        input.components[static_cast<size_t>(index)] = {value, type};
    }

    Database chem;
    InputProblem input;
    Language language = test::English();
};

// Every check, each scenario from the program defaults, with the errors and
// warnings it gives compared with a golden file: hydrogen (free activity or
// concentration 0, OH fixed beside a free H), a ligand fixed by a gas, a
// redox solid without redox, organic matter (DOC, fulvic fraction, ionic
// strength), redox groups with two totals, two conflicting groups, a group
// member fixed by a gas, temperature bounds and correction modes,
// neutralisation without both ions, and the order of the findings.
TEST_F(InputConsistency, FindingsMatchTheirGoldenCopy) {
    std::string out;
    auto check = [&](const std::string& label) {
        const ConsistencyResult r = Check();
        out += "## " + label + "\nerrors: " + r.errors + "\nwarnings: " + r.warnings + "\n";
    };
    const std::vector<std::pair<const char*, std::function<void()>>> scenarios = {
        {"hydrogen",
         [&] {
             Give(I::H, 0, InputType::FreeAct), check("H free activity 0");
             Give(I::H, 0, InputType::FreeConc), check("H free concentration 0");
             Give(I::H, 0, InputType::TotalConc), check("H total 0: nothing");
             Give(I::H, 1e-7, InputType::FreeAct), Give(I::OH, 1e-7, InputType::FreeConc), check("OH free beside H free");
             Give(I::OH, 1e-7, InputType::TotalConc), check("OH total: nothing");
         }},
        {"gas",
         [&] {
             Give(I::CO2g, 3.5e-4, InputType::GasPres), check("CO3 without a value of its own: nothing");
             Give(I::CO3, 1e-3, InputType::TotalConc), check("CO3 with a total: warning");
             Give(I::CO2g, 0, InputType::GasPres), check("no gas pressure: nothing");
         }},
        {"redox solid",
         [&] {
             Give(I::S, 1e-3, InputType::TotalConc), check("S without redox: warning");
             input.redox = true, check("with redox: nothing");
         }},
        {"organic matter",
         [&] {
             input.docConcentration = 0, input.fulvicFraction = 2, check("complexation off: nothing judged");
             input.organicComplexation = true, input.ionicStrengthModel = 1, check("DOC 0, fraction 2");
             input.docConcentration = 5;
             for (double f : {0.0, 1.0, 0.5}) input.fulvicFraction = f, check("fraction " + FormatC("%g", f));
             input.fulvicFraction = -0.01, check("fraction -0.01");
             input.fulvicFraction = 0.5, input.ionicStrengthFixed = true, input.fixedIonicStrength = 0;
             check("fixed ionic strength 0");
             input.fixedIonicStrength = 0.01, check("fixed ionic strength 0.01: nothing");
         }},
        {"redox group",
         [&] {
             input.redox = true, Give(I::FeII, 1e-5, InputType::TotalConc), Give(I::FeIII, 2e-5, InputType::TotalConc);
             check("Fe(II) and Fe(III) totals");
             Give(I::FeII, 0, InputType::TotalConc), check("one member given: nothing");
             input.redox = false, Give(I::FeII, 1e-5, InputType::TotalConc), check("without redox: nothing");
         }},
        {"two groups",
         [&] {
             input.redox = true, Give(I::FeII, 1e-5, InputType::FreeConc), Give(I::FeIII, 2e-5, InputType::FreeAct);
             Give(I::SO4, 1e-3, InputType::TotalConc), Give(I::S, 1e-4, InputType::TotalConc);
             Give(I::HS, 7, InputType::NotSpecified);  // listed, but counted neither as total nor as free value
             check("iron and sulphur, two independent texts");
             Give(I::S, 0, InputType::TotalConc), check("SO4 and HS alone count one");
         }},
        {"group with a gas",
         [&] {
             chem.Coefficient(I::HS, 2) = 1;  // let the gas fix HS as well
             input.redox = true, Give(I::CO2g, 3.5e-4, InputType::GasPres), Give(I::SO4, 1e-3, InputType::TotalConc);
             check("HS fixed by the gas: warning");
         }},
        {"temperature",
         [&] {
             for (const auto& [temperature, mode] : std::vector<std::pair<double, int32_t>>{
                      {40, 2}, {40, 0}, {100, 1}, {0, 1}, {-5, 0}, {14.9, 1}, {15, 1}, {35, 2}, {99.9, 3}}) {
                 input.temperature = temperature, input.temperatureCorrection = mode;
                 check(FormatC("%g", temperature) + " mode " + std::to_string(mode));
             }
         }},
        {"neutralisation",
         [&] {
             input.forceNeutral = true, check("both ions missing: once");
             input.neutraliseCation = I::Na, check("anion missing");
             input.neutraliseAnion = I::Cl, check("both: nothing");
         }},
        {"order",
         [&] {
             Give(I::H, 0, InputType::FreeAct), input.organicComplexation = true, input.ionicStrengthFixed = true;
             input.fixedIonicStrength = 0.1, input.temperatureCorrection = 1, input.temperature = 100;
             input.forceNeutral = true, input.redox = true;
             Give(I::FeII, 1e-5, InputType::TotalConc), Give(I::FeIII, 1e-5, InputType::TotalConc);
             Give(I::CO2g, 1e-3, InputType::GasPres), Give(I::CO3, 1e-3, InputType::TotalConc);
             check("every kind at once, in the order of the checks");
         }},
    };
    for (const auto& [name, run] : scenarios) {
        out += "# " + std::string(name) + "\n";
        input = InputProblem{};
        SetUp();
        run();
    }
    test::ExpectMatchesGolden(out, "consistency_findings.txt");
}

TEST_F(InputConsistency, TextsComeFromTheLanguage) {
    Give(I::H, 0, InputType::FreeAct);
    Language german = test::German();
    const ConsistencyResult r = CheckConsistency(input, chem, german);
    EXPECT_EQ(r.errors, LanguageText(german, "Input", "ConsistencyError2") + "\n");
    EXPECT_NE(r.errors, Check().errors);
}

}  // namespace
}  // namespace tormel
