// Pictures of the input editor on each page, its search window and the unit
// options dialog with and without the output part.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QScreen>
#include <QTest>

#include "ui/desktop_fixture.h"
#include "ui/screenshot.h"
#include "ui/input/input_editor.h"
#include "ui/input/input_option_pages.h"
#include "ui/input/input_search_window.h"
#include "ui/options/unit_options_dialog.h"

namespace tormel {
namespace {

TEST(Screenshots, InputEditorAndUnitOptions) {
    if (!test::ScreenshotsWanted()) GTEST_SKIP() << "run by scripts/screenshots.sh";
    test::StartedDesktop fixture(test::ScreenshotLanguage());
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
        test::SaveScreenshot(&editor, QStringLiteral("input_editor_page%1").arg(page + 1));
    }

    InputSearchWindow search(ws, &editor);
    search.show();
    QTest::keyClicks(search.Field(), QStringLiteral("c"));
    test::SaveScreenshot(&search, QStringLiteral("input_search"));
    search.close();

    UnitOptionsDialog plain(ws, false, &editor);
    plain.show();
    test::SaveScreenshot(&plain, QStringLiteral("unit_options"));
    plain.close();
    UnitOptionsDialog withOutput(ws, true, &editor);
    withOutput.show();
    test::SaveScreenshot(&withOutput, QStringLiteral("unit_options_output"));
    withOutput.close();
    ws.input.modified = false;
}

}  // namespace
}  // namespace tormel
