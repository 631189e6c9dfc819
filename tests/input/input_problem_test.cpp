#include <gtest/gtest.h>

#include "core/text_file.h"
#include "shell/input_commands.h"
#include "input/input_file_writer.h"
#include "input/input_test_system.h"
#include "input/input_title.h"
#include "input/program_defaults.h"
#include "input/test_language.h"
#include "support/recording_ui.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

using I = test::InputTestIndex;

TEST(InputProgramDefaults, EveryComponentGetsTheDefaultOfItsKind) {
    Database chem = test::InputTestSystem();
    // a water partner that is not a cation (its link is non-zero here)
    chem.components[I::Cl].waterPartnerOfOH = I::Na;
    InputProblem input;
    input.components.assign(chem.components.size() + 3, ComponentInput{42, InputType::FreeConc});
    SetProgramDefaults(input, chem);
    ASSERT_EQ(input.components.size(), chem.components.size());

    auto expect = [&](int32_t index, double value, InputType type) {
        SCOPED_TRACE(chem.components[static_cast<size_t>(index)].name);
        EXPECT_EQ(input.components[static_cast<size_t>(index)].inputValue, value);
        EXPECT_EQ(input.components[static_cast<size_t>(index)].inputType, type);
    };
    expect(I::H, 1e-7, InputType::FreeAct);
    expect(I::e, 1.0, InputType::FreeAct);
    expect(I::CO2g, 0, InputType::GasPres);
    expect(I::Cl, 0, InputType::NotSpecified);
    expect(I::OH, 0, InputType::TotalConc);  // its link to H+ at index 0 reads as none
    for (int32_t k : {I::Ca, I::FeIII, I::SO4, I::SurfOH, I::S}) expect(k, 0, InputType::TotalConc);
}

TEST(InputTitleLine, NamesTheSourceOfTheInput) {
    InputProblem input;
    EXPECT_EQ(InputTitle(input, "/home/u/Input/"), "Input data: program defaults");
    input.currentInputFile = "/home/u/Input/DEFAULTS.I64";
    EXPECT_EQ(InputTitle(input, "/home/u/Input/"), "Input data: user defaults (/home/u/Input/DEFAULTS.I64)");
    input.currentInputFile = "/home/u/other/defaults.i64";
    EXPECT_EQ(InputTitle(input, "/home/u/Input/"), "Input data: /home/u/other/defaults.i64");
    input.modified = true;
    EXPECT_EQ(InputTitle(input, "/home/u/Input/"), "Input data: /home/u/other/defaults.i64 (modified)");
}

class InputCommands : public ::testing::Test {
protected:
    InputCommands() {
        folders.inputFolder = temp.Path();
        chem = test::InputTestSystem();
        SetProgramDefaults(input, chem);
    }

    InputSession Session() {
        return InputSession{input, chem, folders, language, ui.services,
                            [this](const std::string& path) { recent.push_back(path); },
                            [this] { ++titleRefreshes; }};
    }

    std::string Text(const char* key) { return LanguageText(language, "Input", key); }

    test::TempFolder temp;
    AppFolders folders;
    Database chem;
    InputProblem input;
    Language language = test::English();
    test::RecordingUi ui;
    std::vector<std::string> recent;
    int titleRefreshes = 0;
};

TEST_F(InputCommands, ResetKeepsTheFixedIonicStrengthValue) {
    input.ionicStrengthFixed = true;
    input.fixedIonicStrength = 0.05;
    input.currentInputFile = temp.File("x.i64");
    input.modified = true;
    input.components[I::H].inputValue = 0.5;

    ResetToProgramDefaults(Session());
    EXPECT_FALSE(input.ionicStrengthFixed);
    EXPECT_EQ(input.fixedIonicStrength, 0.05);
    EXPECT_EQ(input.components[I::H].inputValue, 1e-7);
    EXPECT_EQ(input.components[I::H].inputType, InputType::FreeAct);
    EXPECT_EQ(InputTitle(input, folders.inputFolder), "Input data: program defaults");
    EXPECT_EQ(titleRefreshes, 1);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].lines.at(0), "\n" + Text("InputWasReset"));
    EXPECT_EQ(ui.messages[0].icon, IconInformation);
}

TEST_F(InputCommands, UserDefaultsAreSavedLoadedAndTitled) {
    const std::string path = UserDefaultsPath(folders.inputFolder);
    // nothing saved yet
    EXPECT_FALSE(LoadUserDefaults(Session()));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].lines.at(0), Text("FileNotFound"));
    EXPECT_EQ(ui.messages[0].icon, IconWarning);

    input.components[I::Ca].inputValue = 0.002;
    input.modified = true;
    ASSERT_TRUE(SaveAsUserDefaults(Session()));  // no question: the file is new
    EXPECT_EQ(ui.messages.back().lines.at(0), "\n" + Text("InputSaved"));
    EXPECT_EQ(InputTitle(input, folders.inputFolder), "Input data: user defaults (" + path + ")");
    EXPECT_EQ(recent, std::vector<std::string>{path});

    ResetToProgramDefaults(Session());
    ui.messages.clear();
    ASSERT_TRUE(LoadUserDefaults(Session()));
    EXPECT_EQ(input.components[I::Ca].inputValue, 0.002);
    EXPECT_EQ(input.currentInputFile, path);
    EXPECT_FALSE(input.modified);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].lines.at(0), Text("InputRead") + "\n" + path);
    EXPECT_EQ(ui.messages[0].icon, IconInformation);
    EXPECT_EQ(recent.back(), path);
}

TEST_F(InputCommands, ExistingUserDefaultsAreReplacedOnlyWhenConfirmed) {
    const std::string path = UserDefaultsPath(folders.inputFolder);
    ASSERT_TRUE(SaveAsUserDefaults(Session()));
    const auto before = ReadBinaryFile(path);
    input.components[I::Ca].inputValue = 0.003;
    input.currentInputFile.clear();
    input.modified = true;

    for (int32_t answer : {2, 3, 0}) {
        ui.messages.clear();
        ui.answer.result = answer;
        EXPECT_FALSE(SaveAsUserDefaults(Session()));
        ASSERT_EQ(ui.messages.size(), 1u);  // the question only
        EXPECT_EQ(ui.messages[0].caption, LanguageText(language, "TOOLS", "OverWriteCaption"));
        EXPECT_EQ(ReadBinaryFile(path), before);
        EXPECT_TRUE(input.modified);
    }
    ui.answer.result = 1;
    EXPECT_TRUE(SaveAsUserDefaults(Session()));
    EXPECT_NE(ReadBinaryFile(path), before);
    EXPECT_FALSE(input.modified);
}

TEST_F(InputCommands, OpenReportsConsistencyFindingsAndFailures) {
    const std::string good = temp.File("two totals.i64");
    input.redox = true;
    input.components[I::FeII].inputValue = 1e-5;
    input.components[I::FeIII].inputValue = 2e-5;
    ASSERT_TRUE(WriteInputFile(good, input, chem, ui.services, language));
    ResetToProgramDefaults(Session());
    ui.messages.clear();
    recent.clear();

    ASSERT_TRUE(OpenInputFile(Session(), good));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].icon, IconWarning);
    EXPECT_EQ(ui.messages[0].lines.at(0).rfind(Text("ConsistencyError") + "\n" + Text("ConsistencyError14"), 0), 0u);
    EXPECT_EQ(recent, std::vector<std::string>{good});
    EXPECT_EQ(input.currentInputFile, good);

    // a file the reader refuses: only its message, nothing else changes
    const std::string bad = temp.File("bad.txt");
    test::WriteBytes(bad, test::Utf16Bytes("TORMEL NEXT (64 bits) input file\nFormat version: 1\n"));
    ui.messages.clear();
    const int refreshes = titleRefreshes;
    EXPECT_FALSE(OpenInputFile(Session(), bad));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].lines.at(0), "\n" + Text("ErrorOpen5") + "\n" + bad);
    EXPECT_EQ(recent.size(), 1u);
    EXPECT_EQ(input.currentInputFile, good);
    EXPECT_EQ(titleRefreshes, refreshes);
}

TEST_F(InputCommands, SaveAsksForANameOnlyWithoutCurrentFile) {
    int asked = 0;
    std::optional<std::string> answer;
    AskInputFileName ask = [&] {
        ++asked;
        return answer;
    };
    EXPECT_FALSE(SaveInput(Session(), ask));  // cancelled
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(ui.messages.empty());

    answer = temp.File("first.i64");
    input.modified = true;
    ASSERT_TRUE(SaveInput(Session(), ask));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(input.currentInputFile, temp.File("first.i64"));
    EXPECT_FALSE(input.modified);

    input.modified = true;
    ASSERT_TRUE(SaveInput(Session(), ask));  // to the current file, no question
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(InputTitle(input, folders.inputFolder), "Input data: " + temp.File("first.i64"));

    answer = temp.File("second.i64");
    ASSERT_TRUE(SaveInputAs(Session(), ask));
    EXPECT_EQ(asked, 3);
    EXPECT_TRUE(FileExists(temp.File("second.i64")));
    EXPECT_EQ(recent.back(), temp.File("second.i64"));
    EXPECT_EQ(ui.messages.back().lines.at(0), "\n" + Text("InputSaved"));
}

}  // namespace
}  // namespace tormel
