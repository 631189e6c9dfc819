#include <gtest/gtest.h>

#include <filesystem>

#include "core/text_file.h"
#include "input/test_language.h"
#include "core/language.h"
#include "shell/language_files.h"
#include "support/recording_ui.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class LanguageSetupTest : public ::testing::Test {
protected:
    LanguageSetupTest() {
        folders.programFolder = temp.File("program/");
        folders.workingFolder = temp.File("work/");
        folders.languageFile = folders.workingFolder + "LANG.INI";
        fs::create_directories(LanguagesFolder(folders));
        fs::create_directories(folders.workingFolder);
    }

    void Deliver(const std::string& source, const std::string& asName) {
        fs::copy_file(test::DeliveredLanguagePath(source), LanguagesFolder(folders) + asName);
    }

    LanguageSetup Ensure() {
        return EnsureLanguageFile(folders, ui.services, [this](const std::vector<std::string>& names) {
            offered.push_back(names);
            return choice;
        });
    }

    std::optional<std::string> Installed() const { return ReadBinaryFile(folders.languageFile); }
    std::optional<std::string> Delivered(const std::string& name) const {
        return ReadBinaryFile(test::DeliveredLanguagePath(name));
    }

    test::TempFolder temp;
    AppFolders folders;
    test::RecordingUi ui;
    std::vector<std::vector<std::string>> offered;
    int choice = -1;
};

TEST_F(LanguageSetupTest, SingleLanguageIsInstalledWithoutAQuestion) {
    Deliver("0default.lang", "0default.lang");
    EXPECT_EQ(Ensure(), LanguageSetup::Installed);
    EXPECT_TRUE(offered.empty());
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(Installed(), Delivered("0default.lang"));
    EXPECT_EQ(fs::last_write_time(folders.languageFile), fs::last_write_time(DefaultLanguagePath(folders)));
}

TEST_F(LanguageSetupTest, SeveralLanguagesAreOfferedByDisplayName) {
    Deliver("0default.lang", "0default.lang");
    Deliver("deutsch.lang", "Deutsch.LANG");  // the extension in any letter case
    Deliver("deutsch.lang", "deutsch.lang.bak");
    choice = 1;
    EXPECT_EQ(Ensure(), LanguageSetup::Installed);
    ASSERT_EQ(offered.size(), 1u);
    EXPECT_EQ(offered[0], (std::vector<std::string>{"English", "Deutsch"}));
    EXPECT_EQ(Installed(), Delivered("deutsch.lang"));
    ASSERT_EQ(ui.messages.size(), 1u);  // told in the new language
    EXPECT_EQ(ui.messages[0].lines.at(0), LanguageText(test::German(), "Options", "MsgLangCopied"));
    EXPECT_EQ(ui.messages[0].buttons.at(0), LanguageText(test::German(), "TOOLS", "BtnOK"));
}

TEST_F(LanguageSetupTest, CancelOrNoChooserInstallsTheDefault) {
    Deliver("0default.lang", "0default.lang");
    Deliver("deutsch.lang", "deutsch.lang");
    choice = -1;
    EXPECT_EQ(Ensure(), LanguageSetup::Installed);
    EXPECT_EQ(Installed(), Delivered("0default.lang"));

    // without a chooser (a run without windows) nobody is told
    fs::remove(folders.languageFile);
    ui.messages.clear();
    EXPECT_EQ(EnsureLanguageFile(folders, ui.services, nullptr), LanguageSetup::Installed);
    EXPECT_EQ(Installed(), Delivered("0default.lang"));
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(LanguageSetupTest, InstalledFileNotOlderThanTheDefaultStays) {
    Deliver("0default.lang", "0default.lang");
    Deliver("deutsch.lang", "deutsch.lang");
    choice = 1;
    ASSERT_EQ(Ensure(), LanguageSetup::Installed);
    offered.clear();
    ui.messages.clear();

    // same age as 0default.lang (the German copy keeps its own time)
    fs::last_write_time(folders.languageFile, fs::last_write_time(DefaultLanguagePath(folders)));
    EXPECT_EQ(Ensure(), LanguageSetup::Unchanged);
    fs::last_write_time(folders.languageFile, fs::last_write_time(DefaultLanguagePath(folders)) + 1h);
    EXPECT_EQ(Ensure(), LanguageSetup::Unchanged);
    EXPECT_TRUE(offered.empty());
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(Installed(), Delivered("deutsch.lang"));

    // older: the choice is offered again
    fs::last_write_time(folders.languageFile, fs::last_write_time(DefaultLanguagePath(folders)) - 1h);
    choice = 0;
    EXPECT_EQ(Ensure(), LanguageSetup::Installed);
    EXPECT_EQ(offered.size(), 1u);
    EXPECT_EQ(Installed(), Delivered("0default.lang"));
}

TEST_F(LanguageSetupTest, AWorkingCopyLackingTextsIsCopiedAgainFromItsLanguageFile) {
    Deliver("0default.lang", "0default.lang");
    Deliver("deutsch.lang", "deutsch.lang");
    const std::string german = Delivered("deutsch.lang").value();
    const auto newer = fs::last_write_time(DefaultLanguagePath(folders)) + 1h;
    // (copy, the file it must come back as): a German copy cut in half keeps its
    // language; a copy of garbage (no display name) and an empty one get English
    const std::vector<std::pair<std::string, std::string>> damaged = {
        {german.substr(0, german.size() / 2), "deutsch.lang"},
        {std::string("\xFF\xFEx\0y\0\n\0[\0", 10), "0default.lang"},
        {std::string(), "0default.lang"},
    };
    for (const auto& [bytes, source] : damaged) {
        SCOPED_TRACE(source);
        ui.messages.clear();
        ASSERT_TRUE(WriteFileAtomically(folders.languageFile, bytes));
        fs::last_write_time(folders.languageFile, newer);
        EXPECT_EQ(Ensure(), LanguageSetup::Refreshed);
        EXPECT_EQ(Installed(), Delivered(source));
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0].icon, IconWarning);
        const std::string& text = ui.messages[0].lines.at(0);
        EXPECT_NE(text.find(folders.languageFile), std::string::npos) << text;
        EXPECT_NE(text.find(source), std::string::npos) << text;
        EXPECT_EQ(text.find('\n') > 10, true) << "the message has its text, not only the paths: " << text;
        // whole again: nothing more happens
        ui.messages.clear();
        EXPECT_EQ(Ensure(), LanguageSetup::Unchanged);
        EXPECT_TRUE(ui.messages.empty());
    }
    EXPECT_TRUE(offered.empty()) << "a refresh asks nothing";
}

TEST_F(LanguageSetupTest, NoLanguageFilesEndsStartUpWithAFixedMessage) {
    EXPECT_EQ(Ensure(), LanguageSetup::NoLanguageFiles);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].lines.at(0),
              "No language files found. Probably re-install is needed.\n" + LanguagesFolder(folders));
    EXPECT_EQ(ui.messages[0].icon, IconError);
    EXPECT_EQ(ui.messages[0].caption, "");
    EXPECT_FALSE(fs::exists(folders.languageFile));
}

TEST_F(LanguageSetupTest, ChangeLanguageInstallsTheFileWithThatDisplayName) {
    Deliver("0default.lang", "0default.lang");
    Deliver("deutsch.lang", "deutsch.lang");
    ASSERT_TRUE(InstallLanguageFile(DefaultLanguagePath(folders), folders));
    Language language(folders.languageFile);
    const std::string before = LanguageText(language, "Input", "InputSaved");

    EXPECT_FALSE(ChangeLanguage(folders, ui.services, "deutsch"));  // display names match exactly
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(LanguageText(language, "Input", "InputSaved"), before);

    EXPECT_TRUE(ChangeLanguage(folders, ui.services, "Deutsch"));
    EXPECT_EQ(LanguageText(language, "Input", "InputSaved"), LanguageText(test::German(), "Input", "InputSaved"));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].lines.at(0), LanguageText(test::German(), "Options", "MsgLangCopied"));
    EXPECT_EQ(ui.messages[0].icon, IconInformation);
}

}  // namespace
}  // namespace tormel
