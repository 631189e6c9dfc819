// Pictures of the database viewer, the database information window, the
// options pages and the updates window: run by scripts/screenshots.sh under
// Xvfb (TORMEL_SCREENSHOTS=1), skipped otherwise.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QListWidget>
#include <QScreen>
#include <QTabWidget>
#include <QTreeWidget>

#include "ui/database/database_information_window.h"
#include "ui/database/database_viewer.h"
#include "ui/desktop_fixture.h"
#include "ui/options/options_dialog.h"
#include "updates/updates_window.h"

namespace tormel {
namespace {

void Save(QWidget* widget, const QString& name) {
    widget->show();
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    const QByteArray dir = qgetenv("TORMEL_SCREENSHOT_DIR");
    const QString folder = dir.isEmpty() ? QString::fromLatin1(TORMEL_SCREENSHOT_DIR) : QString::fromLocal8Bit(dir);
    QDir().mkpath(folder);
    const QString path = folder + QLatin1Char('/') + name + QString::fromLocal8Bit(qgetenv("TORMEL_SCREENSHOT_SUFFIX")) +
                         QStringLiteral(".png");
    ASSERT_TRUE(widget->grab().save(path)) << path.toStdString();
}

std::string ScreenshotLanguage() {
    return qgetenv("TORMEL_SCREENSHOT_LANG") == "de" ? "deutsch.lang" : "0default.lang";
}

TEST(Screenshots, DatabaseViewerAndOptions) {
    if (qgetenv("TORMEL_SCREENSHOTS") != "1") GTEST_SKIP() << "run by scripts/screenshots.sh";
    test::DesktopFixture fixture(ScreenshotLanguage());
    ASSERT_FALSE(fixture.Start().endProcess);
    MainWindow& window = fixture.Window();
    window.setGeometry(QApplication::primaryScreen()->availableGeometry());

    DatabaseViewer viewer(fixture.Ws(), &window);
    viewer.Equilibria()->setCurrentRow(2);
    Save(&viewer, QStringLiteral("db_viewer_components"));
    viewer.SetMode(2);
    viewer.Tree()->setCurrentItem(viewer.Tree()->topLevelItem(4));
    Save(&viewer, QStringLiteral("db_viewer_types"));
    viewer.SetMode(3);
    viewer.Tree()->setCurrentItem(viewer.Tree()->topLevelItem(2));
    Save(&viewer, QStringLiteral("db_viewer_literature"));
    viewer.hide();

    DatabaseInformationWindow information(fixture.Ws(), &window);
    Save(&information, QStringLiteral("db_information"));
    information.hide();

    OptionsDialog options(fixture.Ws(), &window, 0);
    for (int page = 0; page < 5; ++page) {
        options.Tabs()->setCurrentIndex(page);
        Save(&options, QStringLiteral("options_page%1").arg(page + 1));
    }
    options.hide();

    UpdatesWindow updates(fixture.Ws(),
                          {{"TORMEL64.EXE", LanguageText(fixture.Ws().language, "Updates", "ProgFile"),
                            LanguageText(fixture.Ws().language, "Updates", "Version") + " 0.1.0.0",
                            LanguageText(fixture.Ws().language, "Updates", "Version") + " 0.2.0.0"},
                           {"EQUILIB.RW64", LanguageText(fixture.Ws().language, "Updates", "DataFile"),
                            LanguageText(fixture.Ws().language, "Updates", "NoExists"),
                            LanguageText(fixture.Ws().language, "Updates", "Version") + " 1.2"}},
                          &window);
    Save(&updates, QStringLiteral("updates_window"));
}

}  // namespace
}  // namespace tormel
