// Pictures of the windows for a person to look at: run by
// scripts/screenshots.sh under Xvfb (TORMEL_SCREENSHOTS=1), skipped otherwise.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QScreen>

#include "ui/desktop_fixture.h"
#include "ui/main/message_box.h"
#include "ui/main/progress_window.h"
#include "ui/main/wait_window.h"

namespace tormel {
namespace {

QString ShotPath(const char* name) {
    const QByteArray dir = qgetenv("TORMEL_SCREENSHOT_DIR");
    const QString folder = dir.isEmpty() ? QString::fromLatin1(TORMEL_SCREENSHOT_DIR) : QString::fromLocal8Bit(dir);
    QDir().mkpath(folder);
    return folder + QLatin1Char('/') + QLatin1String(name) + QString::fromLocal8Bit(qgetenv("TORMEL_SCREENSHOT_SUFFIX")) +
           QStringLiteral(".png");
}

void Save(QWidget* widget, const char* name) {
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    ASSERT_TRUE(widget->grab().save(ShotPath(name))) << name;
}

TEST(Screenshots, MainWindowAndDialogs) {
    if (qgetenv("TORMEL_SCREENSHOTS") != "1") GTEST_SKIP() << "run by scripts/screenshots.sh";
    const std::string language = qgetenv("TORMEL_SCREENSHOT_LANG") == "de" ? "deutsch.lang" : "0default.lang";
    test::DesktopFixture fixture(language);
    ASSERT_FALSE(fixture.Start().endProcess);
    MainWindow& window = fixture.Window();
    window.setGeometry(QApplication::primaryScreen()->availableGeometry());
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    window.ReceiveHandover(275, QString::fromStdString(fixture.ExampleInput()));
    Save(&window, "main_info");
    window.OpenPanel(0);
    Save(&window, "main_panel_input");
    window.DispatchCommand(1121);
    window.OpenPanel(2);
    Save(&window, "main_panel_output");
    window.OpenPanel(5);
    Save(&window, "main_panel_help");

    WaitWindow wait(QString::fromStdString(LanguageTextOr(fixture.Ws().language, "TOOLS", "WaitHead", "Please wait")),
                    &window);
    wait.SetText(QString::fromStdString("\n" + LanguageTextOr(fixture.Ws().language, "TOOLS", "Init", "Initializing...")));
    wait.show();
    for (int i = 0; i < 4; ++i) wait.Tick();
    Save(&wait, "wait_window");

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
    Save(&box, "message_box");

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
    Save(&progress, "progress_window");
    fixture.Ws().input.modified = false;
}

}  // namespace
}  // namespace tormel
