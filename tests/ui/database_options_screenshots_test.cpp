// Pictures of the database viewer, the database information window, the
// options pages and the updates window.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QScreen>
#include <QTabWidget>
#include <QTreeWidget>

#include "ui/database/database_information_window.h"
#include "ui/database/database_viewer.h"
#include "ui/desktop_fixture.h"
#include "ui/screenshot.h"
#include "ui/options/options_dialog.h"
#include "updates/updates_window.h"

namespace tormel {
namespace {

TEST(Screenshots, DatabaseViewerAndOptions) {
    if (!test::ScreenshotsWanted()) GTEST_SKIP() << "run by scripts/screenshots.sh";
    test::StartedDesktop fixture(test::ScreenshotLanguage());
    MainWindow& window = fixture.Window();
    window.setGeometry(QApplication::primaryScreen()->availableGeometry());

    DatabaseViewer viewer(fixture.Ws(), &window);
    viewer.Equilibria()->setCurrentRow(2);
    test::SaveScreenshot(&viewer, QStringLiteral("db_viewer_components"));
    viewer.SetMode(2);
    viewer.Tree()->setCurrentItem(viewer.Tree()->topLevelItem(4));
    test::SaveScreenshot(&viewer, QStringLiteral("db_viewer_types"));
    viewer.SetMode(3);
    viewer.Tree()->setCurrentItem(viewer.Tree()->topLevelItem(2));
    test::SaveScreenshot(&viewer, QStringLiteral("db_viewer_literature"));
    viewer.hide();

    DatabaseInformationWindow information(fixture.Ws(), &window);
    test::SaveScreenshot(&information, QStringLiteral("db_information"));
    information.hide();

    OptionsDialog options(fixture.Ws(), &window, 0);
    for (int page = 0; page < 5; ++page) {
        options.Tabs()->setCurrentIndex(page);
        test::SaveScreenshot(&options, QStringLiteral("options_page%1").arg(page + 1));
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
    test::SaveScreenshot(&updates, QStringLiteral("updates_window"));
}

}  // namespace
}  // namespace tormel
