#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/text_file.h"
#include "core/utf16.h"
#include "input/input_file_reader.h"
#include "input/input_file_writer.h"
#include "input/input_test_system.h"
#include "input/program_defaults.h"
#include "input/test_language.h"
#include "output/golden_file.h"
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

    const ComponentInput& C(int32_t index) const { return input.components[static_cast<size_t>(index)]; }

    Database chem;
    InputProblem input;
    test::TempFolder folder;
};

// Accepted files, each read over a problem with leftovers from before, and
// compared as the writer writes them back (every option has a line there) with
// their golden copies in tests/data/golden/input_read/.
TEST_F(InputFileReader, AcceptedFilesReadAsTheirGoldenCopies) {
    const std::pair<const char*, std::string> cases[] = {
        // keys and values ignore letter case
        {"letter_case.txt", "IONIC STRENGTH: CALCULATED\nredox EQUILIBRIA: Included\nFORCE NEUTRAL SOLUTION: YES\n"
                            "cation to neutralise: na\nca: 0.002 (Total Concentration)\nNA: 1e-5 (FREE ACTIVITY)\n"},
        // labelled values are read by their labels; the description is trimmed
        {"labelled_values.txt",
         "Ionic strength: fixed at 0.01 M\nIonic strength model: 1'Davies\nTemperature: 37.5 \u00B0C\n"
         "Temperature correction: 1'only if all are known\nOrganic complexation: included\nModel to use: 2\n"
         "Concentration (mg/L C): 2.5\nFraction of fulvic acids: 0.75\nDescription:   spaced out   \n"},
        // a component line without a known type text keeps the program default (total concentration;
        // free activity for H, which is not in the file)
        {"component_types.txt", "Ca: 0.001\nNa: 0.003 (something else)\nCl: 0.004 (total concentration)\n"},
        // later option lines override earlier ones, order does not matter, an unknown adsorption value
        // changes nothing
        {"later_lines.txt", "Ca: 0.001 (total concentration)\nAdsorption: included; fixed concentration\n"
                            "Temperature: 30 \u00B0C\nAdsorption: sometimes\nTemperature: 20 \u00B0C\n"},
        // what the writer writes, and numbers with a sign, exponent or unit left out (a negative
        // value is refused later, before a calculation)
        {"number_forms.txt", "Ca: 1E-07 (total concentration)\nNa: -0.5\nCl: +2.5e+3  (free activity)\n"
                             "Temperature: 25\nIonic strength: fixed at 0.1 M\nConvergence criterion: .5\n"
                             "Ionic strength model: 1'Davies\nTemperature correction: 2\n"},
    };
    for (const auto& [golden, body] : cases) {
        SCOPED_TRACE(golden);
        input.ionicStrengthFixed = true;
        input.components[I::Ca].inputType = InputType::FreeConc;
        ASSERT_FALSE(Read(kHeader + body));
        test::ExpectMatchesGolden(FormatInputFile(input, chem), std::string("input_read/") + golden);
    }
}

TEST_F(InputFileReader, LastLineIsReadWithOrWithoutLineEnd) {
    for (const std::string end : {"", "\n", "\n\n"}) {
        SCOPED_TRACE("ending [" + end + "]");
        SetProgramDefaults(input, chem);
        ASSERT_FALSE(Read(kHeader + "\nNa: 0.001 (total concentration)\n\nCa: 0.002 (free concentration)" + end));
        EXPECT_EQ(C(I::Na).inputValue, 0.001);
        EXPECT_EQ(C(I::Ca).inputValue, 0.002);
        EXPECT_EQ(C(I::Ca).inputType, InputType::FreeConc);
    }
    // a file from disk with CR LF line ends and none after its last line
    ASSERT_FALSE(ReadFileBytes("crlf.i64", test::Utf16Bytes(kHeader + "Temperature: 12.5 \u00B0C")));
    EXPECT_EQ(input.temperature, 12.5);
}

// Files the reader refuses (and a few it takes) with what it reports, in
// tests/data/golden/input_errors.txt: each case is "== <extension>", the
// file's lines and "-> " what the reader says; "#" lines are comments.
TEST_F(InputFileReader, RefusedFilesReportWhatTheirGoldenCopySays) {
    std::ifstream in(std::string(TORMEL_TEST_DATA) + "/golden/input_errors.txt", std::ios::binary);
    std::string report, text, extension;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("== ")) {
            extension = line.substr(3);
            text.clear();
        } else if (line.starts_with("-> ")) {
            SetProgramDefaults(input, chem);
            input.description = "before";
            const std::string untouched = FormatInputFile(input, chem);
            const auto error = Read(text, extension);
            line = "-> " + (error ? error->key : "read");
            if (error && error->hasLine) line += ", line " + std::to_string(error->lineNumber) + " [" + error->line + "]";
            if (error && error->earlierLineNumber > 0)
                line += ", earlier line " + std::to_string(error->earlierLineNumber) + " [" + error->earlierLine + "]";
            if (FormatInputFile(input, chem) == untouched) line += ", problem untouched";
            for (size_t at; (at = line.find('\n')) != std::string::npos;) line.replace(at, 1, "\\n");
        } else if (!line.empty() && !line.starts_with("#")) {
            text += line + "\n";
        }
        report += line + "\n";
    }
    test::ExpectMatchesGolden(report, "input_errors.txt");
}

TEST_F(InputFileReader, ComponentGivenTwiceNamesBothLines) {
    auto twice = Read(kHeader + "H: 1E-07 (free activity)\nNa: 0.001\nh: 0.002 (total concentration)\n");
    ASSERT_TRUE(twice);
    twice->path = "/data/water.i64";
    EXPECT_EQ(InputFileErrorText(test::English(), *twice),
              "\nA component is given twice in the input file:\n/data/water.i64, line 3\n(H: 1E-07 (free activity))"
              "\n/data/water.i64, line 5\n(h: 0.002 (total concentration))");
}

TEST_F(InputFileReader, OldFormatIsReadFromItsFourthLine) {
    const std::string versionLine = std::string(42, '.').replace(0, 20, "TORMEL, version info") + "  201 (1999)\n";
    ASSERT_FALSE(Read("TORMEL input file\n" + versionLine + "Redox equilibria: included\n"
                      "Redox equilibria: not included\nCa: 0.001 (total concentration)\n",
                      ".INP"));
    EXPECT_FALSE(input.redox);  // line 3 is skipped, line 4 is read
    EXPECT_EQ(C(I::Ca).inputValue, 0.001);
}

TEST_F(InputFileReader, LinesBeforeAnErrorAreRead) {
    ASSERT_TRUE(Read(kHeader + "Ca: 0.001\nMg: 0.002 (total concentration)\nNa: 1\n"));
    EXPECT_EQ(C(I::Ca).inputValue, 0.001);
    EXPECT_EQ(C(I::Na).inputValue, 0);
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
    EXPECT_EQ(ui.messages[0].lines.at(0), "\n" + LanguageText(language, "Input", "ErrorOpen3") + "\n" +
                                              folder.File("bad.i64") + ", line 3\n(Cation to neutralise: Zz)");
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

    // A 10,000-character line is read in pieces of kInputLineLimit
    // characters: the first piece is the description, cut to its limit, the
    // next has no colon and names no component.
    std::string longLine = "Description: " + std::string(10000, 'x') + "\n";
    auto longer = ReadFileBytes("long.i64", test::Utf16Bytes(kHeader + longLine));
    ASSERT_TRUE(longer);
    EXPECT_EQ(longer->key, "ErrorOpen3");
    EXPECT_EQ(longer->line, std::string(kInputLineLimit, 'x'));
    EXPECT_EQ(input.description, std::string(kDescriptionLimit, 'x'));

    // odd byte count, lone surrogates and NULs
    std::string odd = test::Utf16Bytes(kHeader) + std::string("\x00\xD8:\x00\x00\x00\n\x00\x41", 9);
    auto broken = ReadFileBytes("odd.i64", odd);
    ASSERT_TRUE(broken);
    EXPECT_EQ(broken->key, "ErrorOpen3");
}

TEST_F(InputFileReader, MessagesNameTheFileAndAMissingFileSaysSo) {
    const Language language = test::English();
    struct Case {
        std::string name;
        std::optional<std::string> text;  // nullopt: no file
        std::string message;              // after the path
    } cases[] = {
        {"missing.i64", std::nullopt, "The input file does not exist:\n{}"},
        {"folder.i64", "", "The input file cannot be read:\n{}"},
        {"old.txt", kHeader, "Only input files with the extension .i64 or .inp can be read.\n{}"},
        {"header.i64", "TORMEL NEXT (64 bits) output file\n", "{}, line 1"},
        {"unknown.i64", kHeader + "Xx: 1\n", "{}, line 3\n(Xx: 1)"},
    };
    std::filesystem::create_directories(folder.File("folder.i64"));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string path = folder.File(c.name);
        if (c.text && !c.text->empty()) test::WriteBytes(path, test::Utf16Bytes(*c.text));
        auto error = LoadInputFile(path, input, chem);
        ASSERT_TRUE(error);
        std::string expected = c.message;
        expected.replace(expected.find("{}"), 2, path);
        EXPECT_NE(InputFileErrorText(language, *error).find(expected), std::string::npos)
            << InputFileErrorText(language, *error);
    }
}

TEST_F(InputFileReader, DescriptionTheWriterWritesIsReadBack) {
    const std::string surrogatePair = "\xF0\x9D\x84\x9E";  // one character, two UTF-16 units
    struct Case {
        std::string written;
        std::string read;
    } cases[] = {
        {"", ""},
        {std::string(kDescriptionLimit, 'd'), std::string(kDescriptionLimit, 'd')},
        {std::string(250, 'd') + "\u00E4" + std::string(100, 'e'), std::string(250, 'd') + "\u00E4" + std::string(8, 'e')},
        // a pair that would be split by the cut is left out whole
        {std::string(kDescriptionLimit - 1, 'd') + surrogatePair, std::string(kDescriptionLimit - 1, 'd')},
        {"two\nlines", "two lines"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.written.size());
        InputProblem written;
        SetProgramDefaults(written, chem);
        written.description = c.written;
        const std::string file = FormatInputFile(written, chem);
        ASSERT_FALSE(Read(file)) << file.substr(0, 400);
        EXPECT_EQ(input.description, c.read);
    }
}

}  // namespace
}  // namespace tormel
