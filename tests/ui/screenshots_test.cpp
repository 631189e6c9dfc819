// Pictures of the main window, its panels and the small dialogs.
#include <gtest/gtest.h>

#include <QScreen>

#include "ui/desktop_fixture.h"
#include "ui/screenshot.h"
#include "ui/main/message_box.h"
#include "ui/main/progress_window.h"
#include "ui/main/wait_window.h"

namespace tormel {
namespace {

TEST(Screenshots, MainWindowAndDialogs) {
    if (!test::ScreenshotsWanted()) GTEST_SKIP() << "run by scripts/screenshots.sh";
    test::StartedDesktop fixture(test::ScreenshotLanguage());
    MainWindow& window = fixture.Window();
    window.setGeometry(QApplication::primaryScreen()->availableGeometry());
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    window.ReceiveHandover(275, QString::fromStdString(fixture.ExampleInput()));
    test::SaveScreenshot(&window, QStringLiteral("main_info"));
    window.OpenPanel(0);
    test::SaveScreenshot(&window, QStringLiteral("main_panel_input"));
    window.DispatchCommand(1121);
    window.OpenPanel(2);
    test::SaveScreenshot(&window, QStringLiteral("main_panel_output"));
    window.OpenPanel(5);
    test::SaveScreenshot(&window, QStringLiteral("main_panel_help"));

    WaitWindow wait(QString::fromStdString(LanguageTextOr(fixture.Ws().language, "TOOLS", "WaitHead", "Please wait")),
                    &window);
    wait.SetText(QString::fromStdString("\n" + LanguageTextOr(fixture.Ws().language, "TOOLS", "Init", "Initializing...")));
    wait.show();
    for (int i = 0; i < 4; ++i) wait.Tick();
    test::SaveScreenshot(&wait, QStringLiteral("wait_window"));

    MessageBoxRequest request;
    const Language& lang = fixture.Ws().language;
    request.caption = LanguageText(lang, "TOOLS", "StartCaption");
    request.icon = IconQuestion;
    request.lines = {LanguageText(lang, "TOOLS", "StartTxt1"), LanguageText(lang, "TOOLS", "StartTxt2")};
    request.buttons = {LanguageText(lang, "TOOLS", "StartBtn1"), LanguageText(lang, "TOOLS", "StartBtn2")};
    request.enterResult = 1;
    request.showCheckBox = true;
    request.checkBoxText = LanguageText(lang, "TOOLS", "StartChk");
    MessageBoxWindow box(request, &window);
    box.show();
    test::SaveScreenshot(&box, QStringLiteral("message_box"));

    ProgressWindow progress(lang, 1.0001, true, fixture.Ws().decimalSeparator, &window);
    SolverProgress state;
    state.iteration = 17;
    state.worstRatio = 1.0234;
    state.worstComponent = "CO3-2";
    state.ionicStrength = 8.1e-3;
    state.barPosition = 62;
    state.solidBarPosition = 40;
    state.solidCount = 2;
    state.solidLines = {"Iteration 9: Calcite", "Iteration 14: Dolomite"};
    progress.Update(state);
    progress.show();
    test::SaveScreenshot(&progress, QStringLiteral("progress_window"));
    fixture.Ws().input.modified = false;
}

}  // namespace
}  // namespace tormel
