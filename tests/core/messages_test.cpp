#include <gtest/gtest.h>

#include <cstdio>

#include "input/test_language.h"
#include "shell/headless_ui.h"
#include "core/messages.h"
#include "input/consistency_report.h"
#include "support/recording_ui.h"

namespace tormel {
namespace {

class Messages : public ::testing::Test {
protected:
    std::string Tools(const char* key) { return LanguageText(language, "TOOLS", key); }
    std::string Input(const char* key) { return LanguageText(language, "Input", key); }

    Language language = test::English();
    test::RecordingUi ui;
};

TEST_F(Messages, ShowMessageHasOneOkButtonAndTheDefaultCaption) {
    ShowMessage(ui.services, language, "Line 1\nLine 2", "", IconWarning);
    ShowMessage(ui.services, language, "text", "My caption", IconError);
    ASSERT_EQ(ui.messages.size(), 2u);
    const MessageBoxRequest& first = ui.messages[0];
    EXPECT_EQ(first.caption, Tools("MsgHead"));
    EXPECT_EQ(first.icon, IconWarning);
    EXPECT_EQ(first.lines, std::vector<std::string>{"Line 1\nLine 2"});
    EXPECT_EQ(first.buttons, std::vector<std::string>{Tools("BtnOK")});
    EXPECT_EQ(first.enterResult, 0);
    EXPECT_EQ(first.escapeResult, 0);
    EXPECT_FALSE(first.showCheckBox);
    EXPECT_EQ(ui.messages[1].caption, "My caption");
}

// (which answers replace the file: InputCommands.ExistingUserDefaultsAreReplacedOnlyWhenConfirmed)
TEST_F(Messages, AskOverwriteNamesTheFileWithThreeButtons) {
    const std::string path = "/data/Input/defaults.i64";
    ui.answer.result = 1;
    EXPECT_TRUE(AskOverwrite(ui.services, language, path));
    const MessageBoxRequest& r = ui.messages.at(0);
    EXPECT_EQ(r.caption, Tools("OverWriteCaption"));
    EXPECT_EQ(r.icon, IconQuestion);
    EXPECT_EQ(r.lines, (std::vector<std::string>{Tools("OverWriteT1") + " " + path, Tools("OverWriteT2")}));
    EXPECT_EQ(r.buttons,
              (std::vector<std::string>{Tools("OverWriteB1"), Tools("OverWriteB2"), Tools("OverWriteB3")}));
    EXPECT_EQ(r.enterResult, 2);
    EXPECT_EQ(r.escapeResult, 3);
}

TEST_F(Messages, ConsistencyResultShowsErrorsThenWarningsThenTheFileRead) {
    ShowConsistencyResult(ui.services, language, {"E1\n", "W1\n"}, std::string("/x/a.i64"));
    ShowConsistencyResult(ui.services, language, {"", "W1\n"}, std::string("/x/a.i64"));
    ShowConsistencyResult(ui.services, language, {"", ""}, std::string("/x/a.i64"));
    ShowConsistencyResult(ui.services, language, {"", ""}, std::nullopt);  // after the editor: nothing
    ASSERT_EQ(ui.messages.size(), 3u);
    EXPECT_EQ(ui.messages[0].lines.at(0), Input("ConsistencyError") + "\nE1\n");
    EXPECT_EQ(ui.messages[0].icon, IconWarning);
    EXPECT_EQ(ui.messages[1].lines.at(0), Input("ConsistencyWarning") + "\nW1\n");
    EXPECT_EQ(ui.messages[1].icon, IconWarning);
    EXPECT_EQ(ui.messages[2].lines.at(0), Input("InputRead") + "\n/x/a.i64");
    EXPECT_EQ(ui.messages[2].icon, IconInformation);
    EXPECT_EQ(ConsistencyReportText(language, {"", ""}), "");
}

TEST(MessagesHeadless, AnswersTheDefaultButtonWithoutAsking) {
    MessageBoxRequest question;
    question.buttons = {"Replace", "Keep", "Cancel"};
    question.enterResult = 2;
    question.escapeResult = 3;
    EXPECT_EQ(HeadlessAnswer(question), 2);
    question.enterResult = 0;
    EXPECT_EQ(HeadlessAnswer(question), 0);  // never "yes" on the user's behalf
    question.enterResult = 7;                 // no such button
    EXPECT_EQ(HeadlessAnswer(question), 0);
    MessageBoxRequest message;
    message.buttons = {"OK"};
    EXPECT_EQ(HeadlessAnswer(message), 1);
}

TEST(MessagesHeadless, PrintsMessagesToItsStream) {
    std::FILE* stream = std::tmpfile();
    ASSERT_NE(stream, nullptr);
    UiServices ui = MakeHeadlessUi({stream, false});
    Language language = test::English();
    ShowMessage(ui, language, "\nFirst line\nsecond line", "", IconWarning);
    EXPECT_FALSE(AskOverwrite(ui, language, "/tmp/defaults.i64"));
    ui.showWait("\nwaiting");  // wait texts are off
    EXPECT_FALSE(ui.progress(SolverProgress{}));
    EXPECT_FALSE(ui.openExternal("https://example.org"));

    std::rewind(stream);
    std::string printed;
    char buffer[256];
    while (std::fgets(buffer, sizeof buffer, stream)) printed += buffer;
    std::fclose(stream);
    EXPECT_NE(printed.find("warning: [" + LanguageText(language, "TOOLS", "MsgHead") + "]\n  First line\n  second line\n"),
              std::string::npos);
    EXPECT_NE(printed.find(LanguageText(language, "TOOLS", "OverWriteT1") + " /tmp/defaults.i64"), std::string::npos);
    EXPECT_NE(printed.find("[*" + LanguageText(language, "TOOLS", "OverWriteB2") + "]"), std::string::npos);
    EXPECT_EQ(printed.find("waiting"), std::string::npos);
}

}  // namespace
}  // namespace tormel
