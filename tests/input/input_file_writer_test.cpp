#include <gtest/gtest.h>

#include <filesystem>

#include "core/text_file.h"
#include "core/utf16.h"
#include "input/input_file_reader.h"
#include "input/input_file_writer.h"
#include "input/program_defaults.h"
#include "input/test_language.h"
#include "input/input_test_system.h"
#include "output/golden_file.h"
#include "support/comma_locale.h"
#include "support/recording_ui.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

using I = test::InputTestIndex;

class InputFileWriter : public ::testing::Test {
protected:
    void SetUp() override {
        chem = test::InputTestSystem();
        SetProgramDefaults(input, chem);
    }

    // A problem that sets every option away from its default and gives
    // every kind of component line.
    void SetEveryOption() {
        input.description = "Probe Müller – 12,5 °C, Ω ≤ 1 𝄞";
        input.ionicStrengthFixed = true;
        input.fixedIonicStrength = 0.1;
        input.ionicStrengthModel = 1;
        input.convergenceCriterion = 1.001;
        input.temperature = 12.5;
        input.temperatureCorrection = 2;
        input.forceNeutral = true;
        input.neutraliseCation = I::Na;
        input.neutraliseAnion = I::Cl;
        input.precipitation = true;
        input.redox = true;
        input.adsorption = true;
        input.organicComplexation = true;
        input.organicModel = Model6;
        input.docConcentration = 2.5;
        input.fulvicFraction = 0.25;
        Give(input, I::H, 3.2e-3, InputType::TotalConc);
        Give(input, I::e, 1e-8, InputType::FreeAct);
        Give(input, I::Ca, 1e-3, InputType::TotalConc);
        Give(input, I::Na, 2.5e-6, InputType::FreeConc);
        Give(input, I::FeIII, 1e-9, InputType::FreeAct);
        Give(input, I::OH, 4e-4, InputType::NotSpecified);
        Give(input, I::CO2g, 3.5e-4, InputType::GasPres);
        Give(input, I::SurfOH, 0.125, InputType::TotalConc);
    }

    static void Give(InputProblem& problem, int32_t index, double value, InputType type) {
        problem.components[static_cast<size_t>(index)] = {value, type};
    }

    static void ExpectSameComponentInputs(const Database& chem, const InputProblem& expected,
                                          const InputProblem& actual) {
        ASSERT_EQ(expected.components.size(), chem.components.size());
        ASSERT_EQ(actual.components.size(), chem.components.size());
        for (size_t i = 0; i < expected.components.size(); ++i) {
            SCOPED_TRACE(chem.components[i].name);
            EXPECT_EQ(actual.components[i].inputValue, expected.components[i].inputValue);
            EXPECT_EQ(actual.components[i].inputType, expected.components[i].inputType);
        }
    }

    Database chem;
    InputProblem input;
    test::RecordingUi ui;
    Language language = test::English();
    test::TempFolder folder;
};

// Byte for byte as users get the file (UTF-16 with its byte-order mark and
// CR LF), compared with the golden texts: the program defaults, and a problem
// with every option away from its default and every kind of component line,
// which also reads back unchanged.
TEST_F(InputFileWriter, FilesMatchTheirGoldenCopiesAndReadBack) {
    const std::string path = folder.File("every option.i64");
    for (const std::string golden : {"input_defaults.i64.txt", "input_every_option.i64.txt"}) {
        SCOPED_TRACE(golden);
        if (golden == "input_every_option.i64.txt") SetEveryOption();
        const std::string text = FormatInputFile(input, chem);
        test::ExpectMatchesGolden(text, golden);
        ASSERT_TRUE(WriteInputFile(path, input, chem, ui.services, language));
        EXPECT_EQ(ReadBinaryFile(path), test::Utf16Bytes(text, true));
    }
    EXPECT_TRUE(ui.messages.empty());

    InputProblem back;
    back.modified = true;
    Database chemBack = test::InputTestSystem();
    ASSERT_FALSE(LoadInputFile(path, back, chemBack).has_value());
    // every option has a line, so equal texts mean equal options
    EXPECT_EQ(FormatInputFile(back, chemBack), FormatInputFile(input, chem));
    ExpectSameComponentInputs(chem, input, back);
    EXPECT_EQ(back.currentInputFile, path);
    EXPECT_FALSE(back.modified);
}

TEST_F(InputFileWriter, ElectronLineOnlyWithRedoxAndAlwaysAsFreeActivity) {
    Give(input, I::e, 1e-4, InputType::TotalConc);
    EXPECT_EQ(FormatInputFile(input, chem).find("\ne:"), std::string::npos);
    input.redox = true;
    EXPECT_NE(FormatInputFile(input, chem).find("\ne: 0.0001 (free activity)\n"), std::string::npos);
}

TEST_F(InputFileWriter, ModelOrCorrectionOutsideTheirSetsRunIntoTheNextLine) {
    input.ionicStrengthModel = 3;
    input.convergenceCriterion = 1.001;
    input.temperatureCorrection = 7;
    const std::string text = FormatInputFile(input, chem);
    EXPECT_NE(text.find("\nIonic strength model: 3Convergence criterion: 1.001\n"), std::string::npos);
    EXPECT_NE(text.find("\nTemperature correction: 7Force neutral solution: no\n"), std::string::npos);

    // Reading such a file back is refused at the run-on line instead of
    // losing the swallowed line.
    const std::string path = folder.File("odd.i64");
    ASSERT_TRUE(WriteInputFile(path, input, chem, ui.services, language));
    InputProblem back;
    Database chemBack = test::InputTestSystem();
    const std::optional<InputFileError> error = LoadInputFile(path, back, chemBack);
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->key, "ErrorNumber");
    EXPECT_EQ(error->line, "Ionic strength model: 3Convergence criterion: 1.001");
}

TEST_F(InputFileWriter, NumbersUseAPointWhateverTheLocale) {
    test::CommaLocale comma;
    if (!comma.active()) GTEST_SKIP() << "no locale with a decimal comma is installed";
    input.temperature = 12.5;
    Give(input, I::Ca, 1.5e-3, InputType::TotalConc);
    const std::string text = FormatInputFile(input, chem);
    InputProblem back;
    Database chemBack = test::InputTestSystem();
    auto error = ReadInputText(Utf8ToUtf16(text), ".i64", back, chemBack);
    EXPECT_NE(text.find("Temperature: 12.5 \u00B0C\n"), std::string::npos);
    EXPECT_NE(text.find("Ca: 0.0015 (total concentration)\n"), std::string::npos);
    ASSERT_FALSE(error.has_value());
    EXPECT_EQ(back.temperature, 12.5);
    EXPECT_EQ(back.components[I::Ca].inputValue, 1.5e-3);
}

TEST_F(InputFileWriter, OldExtensionIsSavedAsNewFormat) {
    const std::string path = folder.File("old sample.INP");
    ASSERT_TRUE(WriteInputFile(path, input, chem, ui.services, language));

    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].icon, IconWarning);
    EXPECT_EQ(ui.messages[0].lines.at(0), "\n" + LanguageText(language, "Input", "SaveOldAsNew"));
    EXPECT_TRUE(FileExists(folder.File("old sample.i64")));
    EXPECT_FALSE(FileExists(path));
    EXPECT_EQ(input.currentInputFile, path);  // the name as passed
    EXPECT_FALSE(input.modified);
}

TEST_F(InputFileWriter, FailedWriteIsReportedAndChangesNothing) {
    // A folder in the place of the file: the file cannot be replaced.
    const std::string path = folder.File("taken.i64");
    std::filesystem::create_directory(path);
    std::filesystem::create_directory(path + "/keep");
    input.modified = true;
    input.currentInputFile = "/elsewhere/before.i64";

    FileError error;
    EXPECT_FALSE(WriteInputFile(path, input, chem, ui.services, language, &error));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].icon, IconError);
    EXPECT_EQ(ui.messages[0].lines.at(0).rfind(LanguageText(language, "Input", "ErrorSave") + "\n" + path, 0), 0u);
    EXPECT_FALSE(error.message.empty());
    EXPECT_TRUE(std::filesystem::is_directory(path + "/keep"));
    EXPECT_TRUE(input.modified);
    EXPECT_EQ(input.currentInputFile, "/elsewhere/before.i64");
    // no temporary file is left behind
    size_t entries = 0;
    for ([[maybe_unused]] const auto& e : std::filesystem::directory_iterator(folder.Path())) ++entries;
    EXPECT_EQ(entries, 1u);
}

}  // namespace
}  // namespace tormel
