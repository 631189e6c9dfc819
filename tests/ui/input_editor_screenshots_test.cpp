// Pictures of the input editor on each page, its search window and the unit
// options dialog with and without the output part: run by
// scripts/screenshots.sh under Xvfb (TORMEL_SCREENSHOTS=1), skipped otherwise.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QScreen>
#include <QTest>

#include "ui/desktop_fixture.h"
#include "ui/input/input_editor.h"
#include "ui/input/input_option_pages.h"
#include "ui/input/input_search_window.h"
#include "ui/options/unit_options_dialog.h"

namespace tormel {
namespace {

void SaveShot(QWidget* widget, const QString& name) {
    const QByteArray dir = qgetenv("TORMEL_SCREENSHOT_DIR");
    const QString folder = dir.isEmpty() ? QString::fromLatin1(TORMEL_SCREENSHOT_DIR) : QString::fromLocal8Bit(dir);
    QDir().mkpath(folder);
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    const QString path =
        folder + QLatin1Char('/') + name + QString::fromLocal8Bit(qgetenv("TORMEL_SCREENSHOT_SUFFIX")) + ".png";
    ASSERT_TRUE(widget->grab().save(path)) << path.toStdString();
}

TEST(Screenshots, InputEditorAndUnitOptions) {
    if (qgetenv("TORMEL_SCREENSHOTS") != "1") GTEST_SKIP() << "run by scripts/screenshots.sh";
    const std::string language = qgetenv("TORMEL_SCREENSHOT_LANG") == "de" ? "deutsch.lang" : "0default.lang";
    test::DesktopFixture fixture(language);
    ASSERT_FALSE(fixture.Start().endProcess);
    Workspace& ws = fixture.Ws();
    fixture.Window().ReceiveHandover(275, QString::fromStdString(fixture.ExampleInput()));
    ws.input.redox = true;
    ws.input.organicComplexation = true;
    ws.input.docConcentration = 2.5;

    InputEditor editor(ws, &fixture.Window());
    editor.setGeometry(QApplication::primaryScreen()->availableGeometry());
    editor.show();
    for (int page = 0; page < 5; ++page) {
        editor.Pages()->setCurrentIndex(page);
        if (page == 0) {
            InputList* cations = editor.List(InputEditor::CationList);
            QTest::mouseClick(cations->viewport(), Qt::LeftButton, {}, cations->visualItemRect(cations->item(1, 1)).center());
        }
        SaveShot(&editor, QStringLiteral("input_editor_page%1").arg(page + 1));
    }

    InputSearchWindow search(ws, &editor);
    search.show();
    QTest::keyClicks(search.Field(), QStringLiteral("c"));
    SaveShot(&search, QStringLiteral("input_search"));
    search.close();

    UnitOptionsDialog plain(ws, false, &editor);
    plain.show();
    SaveShot(&plain, QStringLiteral("unit_options"));
    plain.close();
    UnitOptionsDialog withOutput(ws, true, &editor);
    withOutput.show();
    SaveShot(&withOutput, QStringLiteral("unit_options_output"));
    withOutput.close();
    ws.input.modified = false;
}

}  // namespace
}  // namespace tormel
