#include <gtest/gtest.h>

#include "core/text_file.h"
#include "core/utf16.h"
#include "input/input_file_reader.h"
#include "input/input_test_system.h"
#include "input/program_defaults.h"
#include "input/test_language.h"
#include "support/recording_ui.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

using I = test::InputTestIndex;

const std::string kHeader = "TORMEL NEXT (64 bits) input file\nFormat version: 1\n";

class InputFileReader : public ::testing::Test {
protected:
    void SetUp() override {
        chem = test::InputTestSystem();
        SetProgramDefaults(input, chem);
    }

    std::optional<InputFileError> Read(const std::string& text, std::string_view extension = ".i64") {
        return ReadInputText(Utf8ToUtf16(text), extension, input, chem);
    }

    std::optional<InputFileError> ReadFileBytes(const std::string& name, const std::string& bytes) {
        test::WriteBytes(folder.File(name), bytes);
        return LoadInputFile(folder.File(name), input, chem);
    }

    const Component& C(int32_t index) const { return chem.components[static_cast<size_t>(index)]; }

    ChemicalSystem chem;
    InputProblem input;
    test::TempFolder folder;
};

TEST_F(InputFileReader, KeysAndValuesIgnoreLetterCase) {
    input.ionicStrengthFixed = true;
    ASSERT_FALSE(Read(kHeader +
                      "IONIC STRENGTH: CALCULATED\n"
                      "redox EQUILIBRIA: Included\n"
                      "FORCE NEUTRAL SOLUTION: YES\n"
                      "cation to neutralise: na\n"
                      "ca: 0.002 (Total Concentration)\n"
                      "NA: 1e-5 (FREE ACTIVITY)\n"));
    EXPECT_FALSE(input.ionicStrengthFixed);
    EXPECT_TRUE(input.redox);
    EXPECT_TRUE(input.forceNeutral);
    EXPECT_EQ(input.neutraliseCation, I::Na);
    EXPECT_EQ(C(I::Ca).inputValue, 0.002);
    EXPECT_EQ(C(I::Na).inputValue, 1e-5);
    EXPECT_EQ(C(I::Na).inputType, InpTypeFreeAct);
}

TEST_F(InputFileReader, LabelledValuesAreReadByTheirLabels) {
    ASSERT_FALSE(Read(kHeader +
                      "Ionic strength: fixed at 0.01 M\n"
                      "Ionic strength model: 1'Davies\n"
                      "Temperature: 37.5 \u00B0C\n"
                      "Temperature correction: 1'only if all are known\n"
                      "Organic complexation: included\n"
                      "Model to use: 2\n"
                      "Concentration (mg/L C): 2.5\n"
                      "Fraction of fulvic acids: 0.75\n"
                      "Description:   spaced out   \n"));
    EXPECT_TRUE(input.ionicStrengthFixed);
    EXPECT_EQ(input.fixedIonicStrength, 0.01);
    EXPECT_EQ(input.ionicStrengthModel, 1);
    EXPECT_EQ(input.temperature, 37.5);
    EXPECT_EQ(input.temperatureCorrection, 1);
    EXPECT_TRUE(input.organicComplexation);
    EXPECT_EQ(input.organicModel, 2);
    EXPECT_EQ(input.docConcentration, 2.5);
    EXPECT_EQ(input.fulvicFraction, 0.75);
    EXPECT_EQ(input.description, "spaced out");
}

TEST_F(InputFileReader, ComponentLineWithoutTypeTextKeepsTheProgramDefault) {
    // A type left over from before the read does not survive: the reader
    // sets the program defaults first.
    chem.components[I::Ca].inputType = InpTypeFreeConc;
    ASSERT_FALSE(Read(kHeader + "Ca: 0.001\nNa: 0.003 (something else)\nCl: 0.004 (total concentration)\n"));
    EXPECT_EQ(C(I::Ca).inputValue, 0.001);
    EXPECT_EQ(C(I::Ca).inputType, InpTypeTotalConc);
    EXPECT_EQ(C(I::Na).inputValue, 0.003);
    EXPECT_EQ(C(I::Na).inputType, InpTypeTotalConc);
    EXPECT_EQ(C(I::Cl).inputType, InpTypeTotalConc);
    EXPECT_EQ(C(I::H).inputValue, 1e-7);  // not in the file: program default
    EXPECT_EQ(C(I::H).inputType, InpTypeFreeAct);
}

TEST_F(InputFileReader, LaterLinesOverrideEarlierOnesAndOrderDoesNotMatter) {
    ASSERT_FALSE(Read(kHeader + "Ca: 0.001 (total concentration)\nAdsorption: included; fixed concentration\n"
                                "Temperature: 30 \u00B0C\nCa: 0.002 (free concentration)\n"
                                "Adsorption: sometimes\nTemperature: 20 \u00B0C\n"));
    EXPECT_EQ(C(I::Ca).inputValue, 0.002);
    EXPECT_EQ(C(I::Ca).inputType, InpTypeFreeConc);
    EXPECT_TRUE(input.adsorption);  // an unknown adsorption value changes nothing
    EXPECT_EQ(input.temperature, 20);
}

TEST_F(InputFileReader, LastLineWithoutLineEndIsLostButEmptyLinesAreSkipped) {
    ASSERT_FALSE(Read(kHeader + "\nNa: 0.001 (total concentration)\n\nCa: 0.001 (total concentration)"));
    EXPECT_EQ(C(I::Na).inputValue, 0.001);
    EXPECT_EQ(C(I::Ca).inputValue, 0);
}

TEST_F(InputFileReader, NumbersAreLeadingPrefixesReadInTheCLocale) {
    ASSERT_FALSE(Read(kHeader + "Ca: 1.5E-3mol (total concentration)\nNa: abc (total concentration)\n"
                                "Temperature correction: -2x\nConvergence criterion: inf\n"));
    EXPECT_EQ(C(I::Ca).inputValue, 1.5e-3);
    EXPECT_EQ(C(I::Ca).inputType, InpTypeTotalConc);  // rest "mol (total ...)" names no type
    EXPECT_EQ(C(I::Na).inputValue, 0);
    EXPECT_EQ(input.temperatureCorrection, -2);
    EXPECT_EQ(input.convergenceCriterion, 0);  // "inf" is no decimal number
}

TEST_F(InputFileReader, HeaderErrorsLeaveTheProblemUntouched) {
    input.description = "before";
    struct Case {
        std::string text;
        std::string extension;
        std::string key;
    } cases[] = {
        {"TORMEL NEXT (64 bits) output file\nFormat version: 1\n", ".i64", "ErrorOpen1"},
        {"tormel next (64 bits) input file\nFormat version: 1\n", ".i64", "ErrorOpen1"},
        {"", ".i64", "ErrorOpen1"},
        {"TORMEL NEXT (64 bits) input file\nFormat version: 2\n", ".i64", "ErrorOpen2"},
        {"TORMEL NEXT (64 bits) input file\nFormat version 1\n", ".i64", "ErrorOpen2"},
        {"TORMEL NEXT (64 bits) input file\n: 1\n", ".i64", "ErrorOpen2"},
        {"TORMEL NEXT (64 bits) input file\n", ".i64", "ErrorOpen2"},
        {"TORMEL input file \nx\nx\n", ".inp", "ErrorOpen1"},
        {"TORMEL input file\n" + std::string(42, ' ') + "200.9\nx\n", ".inp", "ErrorOpen4"},
        {"TORMEL input file\nshort line\nx\n", ".inp", "ErrorOpen4"},
        {kHeader, ".txt", "ErrorOpen5"},
        {kHeader, "", "ErrorOpen5"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text + c.extension);
        auto error = Read(c.text, c.extension);
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->key, c.key);
        EXPECT_FALSE(error->hasLine);
        EXPECT_EQ(input.description, "before");
    }
}

TEST_F(InputFileReader, OldFormatIsReadFromItsFourthLine) {
    const std::string versionLine = std::string(42, '.').replace(0, 20, "TORMEL, version info") + "  201 (1999)\n";
    ASSERT_FALSE(Read("TORMEL input file\n" + versionLine + "Redox equilibria: included\n"
                      "Redox equilibria: not included\nCa: 0.001 (total concentration)\n",
                      ".INP"));
    EXPECT_FALSE(input.redox);  // line 3 is skipped, line 4 is read
    EXPECT_EQ(C(I::Ca).inputValue, 0.001);
}

TEST_F(InputFileReader, UnknownLinesAreErrorOpen3WithTheLine) {
    // an unknown key: the line as read, line end included
    auto unknown = Read(kHeader + "Ca: 0.001\nMg: 0.002 (total concentration)\nNa: 1\n");
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->key, "ErrorOpen3");
    EXPECT_TRUE(unknown->hasLine);
    EXPECT_EQ(unknown->line, "Mg: 0.002 (total concentration)\n");
    EXPECT_EQ(unknown->lineNumber, 4);
    EXPECT_EQ(C(I::Ca).inputValue, 0.001);  // read up to the error
    EXPECT_EQ(C(I::Na).inputValue, 0);

    // an unknown ion to neutralise: the line without its line end
    auto anion = Read(kHeader + "Anion to neutralise: Br\n");
    ASSERT_TRUE(anion);
    EXPECT_EQ(anion->key, "ErrorOpen3");
    EXPECT_EQ(anion->line, "Anion to neutralise: Br");

    // a line that begins with a colon: no line in the message
    auto colon = Read(kHeader + ": 0.001 (total concentration)\n");
    ASSERT_TRUE(colon);
    EXPECT_EQ(colon->key, "ErrorOpen3");
    EXPECT_FALSE(colon->hasLine);

    // a line without a colon is all key
    auto bare = Read(kHeader + "Ca\n");
    ASSERT_TRUE(bare);
    EXPECT_EQ(bare->line, "Ca\n");
}

TEST_F(InputFileReader, MessageQuotesTheOffendingLine) {
    test::RecordingUi ui;
    Language language = test::English();
    test::WriteBytes(folder.File("bad.i64"), test::Utf16Bytes(kHeader + "Cation to neutralise: Zz\n"));
    input.currentInputFile = "previous.i64";
    EXPECT_FALSE(ReadInputFile(folder.File("bad.i64"), input, chem, ui.services, language));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].icon, IconWarning);
    EXPECT_EQ(ui.messages[0].caption, LanguageText(language, "TOOLS", "MsgHead"));
    EXPECT_EQ(ui.messages[0].lines.at(0),
              "\n" + LanguageText(language, "Input", "ErrorOpen3") + "\n(Cation to neutralise: Zz)");
    EXPECT_EQ(input.currentInputFile, "previous.i64");
}

TEST_F(InputFileReader, MalformedFilesGiveAnErrorNeverACrash) {
    std::string garbage;
    for (int i = 0; i < 4096; ++i) garbage += static_cast<char>((i * 7919 + 13) & 0xFF);
    auto binary = ReadFileBytes("garbage.i64", garbage);
    ASSERT_TRUE(binary);
    EXPECT_EQ(binary->key, "ErrorOpen1");

    auto utf8 = ReadFileBytes("utf8.i64", kHeader + "Ca: 0.001 (total concentration)\n");
    ASSERT_TRUE(utf8);
    EXPECT_EQ(utf8->key, "ErrorOpen1");

    auto missing = LoadInputFile(folder.File("missing.i64"), input, chem);
    ASSERT_TRUE(missing);
    EXPECT_EQ(missing->key, "ErrorOpen1");
    EXPECT_FALSE(missing->detail.empty());
    EXPECT_EQ(missing->path, folder.File("missing.i64"));

    // A 10,000-character line is read in pieces of 258 characters: the
    // first piece is the description, the next has no colon and names no
    // component.
    std::string longLine = "Description: " + std::string(10000, 'x') + "\n";
    auto longer = ReadFileBytes("long.i64", test::Utf16Bytes(kHeader + longLine));
    ASSERT_TRUE(longer);
    EXPECT_EQ(longer->key, "ErrorOpen3");
    EXPECT_EQ(longer->line, std::string(258, 'x'));
    EXPECT_EQ(input.description, std::string(258 - 13, 'x'));

    // odd byte count, lone surrogates and NULs
    std::string odd = test::Utf16Bytes(kHeader) + std::string("\x00\xD8:\x00\x00\x00\n\x00\x41", 9);
    auto broken = ReadFileBytes("odd.i64", odd);
    ASSERT_TRUE(broken);
    EXPECT_EQ(broken->key, "ErrorOpen3");
}

}  // namespace
}  // namespace tormel
