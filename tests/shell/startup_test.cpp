// Start-up without windows: the order of the steps, the ends it can take,
// and the state it leaves behind.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/text_file.h"
#include "input/input_title.h"
#include "output/result_test_support.h"
#include "shell/startup.h"
#include "support/cli_home.h"

namespace tormel::test {
namespace {

struct Recorder {
    std::vector<std::string> steps;
    StartupHooks hooks;
    Recorder() {
        auto step = [this](const char* name) { return [this, name] { steps.push_back(name); }; };
        hooks.startUpdateCheck = step("update check");
        hooks.loadColours = step("colours");
        hooks.buildMainWindow = step("main window");
        hooks.setChartColours = step("chart colours");
        hooks.paintInformation = step("information");
        hooks.createInstanceMutex = step("mutex");
        hooks.updateStatusLine = step("status line");
        hooks.saveWindowPlacement = step("window placement");
        hooks.releaseResources = step("release");
        hooks.waitForUpdateCheck = [this] {
            steps.push_back("wait for update");
            return false;
        };
        hooks.offerGettingStarted = false;
    }
};

// A start in a fresh working folder with the built program's data.
struct Startup : ::testing::Test {
    TempFolder folder;
    RecordingUi ui;
    Workspace ws{FoldersIn(folder.File("home/"), TORMEL_PROGRAM_DIR), ui.services};
    Recorder recorder;
};

TEST_F(Startup, RunsItsStepsInOrderAndLeavesAReadyWorkspace) {
    std::vector<std::string> waits;
    ui.services.showWait = [&](std::string_view text) { waits.emplace_back(text); };
    const StartupOutcome outcome = InitializeApplication(ws, CommandLine{}, recorder.hooks, {});
    EXPECT_FALSE(outcome.endProcess);
    EXPECT_EQ(recorder.steps, (std::vector<std::string>{"update check", "colours", "main window", "chart colours",
                                                        "wait for update", "information", "mutex", "status line"}));
    EXPECT_TRUE(ws.uiReady);
    ASSERT_EQ(waits.size(), 1u);
    EXPECT_EQ(waits[0].rfind("\n", 0), 0u);
    for (const std::string* f : {&ws.folders.dataFolder, &ws.folders.inputFolder, &ws.folders.outputFolder})
        EXPECT_TRUE(std::filesystem::is_directory(*f)) << *f;
    EXPECT_TRUE(FileExists(ws.folders.languageFile));
    ASSERT_GT(ws.chem.db().ComponentCount(), 50);
    EXPECT_EQ(ws.input.components[ws.chem.db().hydrogenIndex].inputType, InputType::FreeAct) << "program defaults: pH 7";

    SaveSettingsAndShutDown(ws, recorder.hooks);
    EXPECT_EQ(recorder.steps.back(), "release");
    EXPECT_EQ(recorder.steps[recorder.steps.size() - 2], "window placement");
}

TEST_F(Startup, ArgumentsSkipTheUpdateCheckAndARunEndsTheProcess) {
    std::filesystem::create_directories(ws.folders.inputFolder);
    ASSERT_TRUE(WriteReferenceInput(ReferenceCaseFile("carbonate_soft_ph6"), ws.folders.inputFolder + "soft.i64"));
    const StartupOutcome outcome =
        InitializeApplication(ws, NormaliseCommandLine({"/run:soft.i64"}), recorder.hooks, {});
    EXPECT_TRUE(outcome.endProcess);
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_TRUE(FileExists(ws.folders.outputFolder + "soft.o64"));
    EXPECT_EQ(recorder.steps.front(), "colours") << "no update check with arguments";
    EXPECT_EQ(recorder.steps.back(), "release") << "the run ends with the orderly shutdown";
    EXPECT_EQ(std::count(recorder.steps.begin(), recorder.steps.end(), "mutex"), 0);
}

TEST_F(Startup, WithoutLanguageFilesOrDatabaseTheSessionEnds) {
    Workspace noLanguages(FoldersIn(folder.File("home/"), folder.File("empty/")), ui.services);
    const StartupOutcome noLanguage = InitializeApplication(noLanguages, CommandLine{}, recorder.hooks, {});
    EXPECT_TRUE(noLanguage.endProcess);
    EXPECT_EQ(noLanguage.exitCode, 0);
    EXPECT_EQ(noLanguages.chem.db().ComponentCount(), 0);
    EXPECT_EQ(recorder.steps.back(), "release");

    // languages but no raw data: the refresh fails and the session ends
    const std::string program = folder.File("program/");
    std::filesystem::create_directories(program + "Languages");
    std::filesystem::copy_file(std::string(TORMEL_SOURCE_DIR) + "/data/Languages/0default.lang",
                               program + "Languages/0default.lang");
    Workspace noDatabase(FoldersIn(folder.File("home/"), program), ui.services);
    const StartupOutcome refresh = InitializeApplication(noDatabase, CommandLine{}, recorder.hooks, {});
    EXPECT_TRUE(refresh.endProcess);
    EXPECT_EQ(noDatabase.chem.db().ComponentCount(), 0);
    ASSERT_FALSE(ui.messages.empty());
    EXPECT_EQ(ui.messages.back().icon, IconError);
}

TEST_F(Startup, TheGettingStartedOfferCanBeTurnedOff) {
    ui.answer = MessageBoxAnswer{1, true};
    StartupHooks hooks;
    int helpTopic = 0;
    hooks.openHelp = [&](int topic) { helpTopic = topic; };
    ASSERT_FALSE(InitializeApplication(ws, CommandLine{}, hooks, {}).endProcess);
    EXPECT_EQ(helpTopic, 500);
    EXPECT_FALSE(ws.settings.ReadSettingBool("Options", "OfferGetStarted"));
}

}  // namespace
}  // namespace tormel::test
