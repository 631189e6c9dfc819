#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "input/input_test_system.h"
#include "input/program_defaults.h"
#include "input/solvable_input.h"
#include "input/test_language.h"

namespace tormel {
namespace {

using I = test::InputTestIndex;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// Values no solve can start from are refused with one line per field, naming
// the field; everything a solve can start from passes.
TEST(SolvableInput, RefusesNegativeNonFiniteValuesAndCriteriaThatAreNoRatioAboveOne) {
    const Language language = test::English();
    const std::string heading = LanguageText(language, "Input", "InputUnsolvable");
    const std::string negative = LanguageText(language, "Input", "UnsolvableNegative");
    const std::string notFinite = LanguageText(language, "Input", "UnsolvableNotFinite");
    const std::string criterion = LanguageText(language, "Input", "UnsolvableCriterion") + " Convergence criterion";
    struct Case {
        const char* what;
        std::function<void(InputProblem&, Database&)> change;
        std::string lines;  // empty: accepted
    } cases[] = {
        {"program defaults", [](InputProblem&, Database&) {}, ""},
        {"criterion 1.0001", [](InputProblem& in, Database&) { in.convergenceCriterion = 1.0001; }, ""},
        {"criterion 0.9999, its reciprocal", [](InputProblem& in, Database&) { in.convergenceCriterion = 0.9999; }, ""},
        {"criterion 1", [](InputProblem& in, Database&) { in.convergenceCriterion = 1; }, criterion},
        {"criterion 0", [](InputProblem& in, Database&) { in.convergenceCriterion = 0; }, criterion},
        {"criterion -2", [](InputProblem& in, Database&) { in.convergenceCriterion = -2; }, criterion},
        {"criterion 1e-320", [](InputProblem& in, Database&) { in.convergenceCriterion = 1e-320; }, criterion},
        {"criterion NaN", [](InputProblem& in, Database&) { in.convergenceCriterion = kNaN; }, criterion},
        {"negative total",
         [](InputProblem& in, Database&) { in.components[I::Ca].inputValue = -0.001; },
         negative + " Ca"},
        {"negative free activity of H",
         [](InputProblem& in, Database&) { in.components[I::H].inputValue = -1e-7; }, negative + " H"},
        {"infinite gas pressure",
         [](InputProblem& in, Database&) { in.components[I::CO2g].inputValue = kInf; },
         notFinite + " CO2(g)"},
        {"temperature below zero", [](InputProblem& in, Database&) { in.temperature = -5; }, ""},
        {"temperature NaN", [](InputProblem& in, Database&) { in.temperature = kNaN; }, notFinite + " Temperature"},
        {"negative ionic strength, calculated",
         [](InputProblem& in, Database&) { in.fixedIonicStrength = -1; }, ""},
        {"negative ionic strength, fixed",
         [](InputProblem& in, Database&) {
             in.ionicStrengthFixed = true;
             in.fixedIonicStrength = -1;
         },
         negative + " Ionic strength"},
        {"organic values without organic matter",
         [](InputProblem& in, Database&) { in.docConcentration = kInf; }, ""},
        {"organic values with organic matter",
         [](InputProblem& in, Database&) {
             in.organicComplexation = true;
             in.docConcentration = -1;
             in.fulvicFraction = kNaN;
         },
         negative + " Concentration (mg/L C)\n" + notFinite + " Fraction of fulvic acids"},
        {"every field at once",
         [](InputProblem& in, Database&) {
             in.convergenceCriterion = 1;
             in.components[I::Na].inputValue = -1;
             in.components[I::Cl].inputValue = kNaN;
         },
         criterion + "\n" + negative + " Na\n" + notFinite + " Cl"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Database chem = test::InputTestSystem();
        InputProblem input;
        SetProgramDefaults(input, chem);
        c.change(input, chem);
        EXPECT_EQ(UnsolvableInputText(input, chem, language), c.lines.empty() ? "" : heading + "\n" + c.lines);
    }
}

}  // namespace
}  // namespace tormel
