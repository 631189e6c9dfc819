// Pictures of the output windows, and a printed PDF turned into PNG pages.
#include <gtest/gtest.h>

#include <cstdlib>

#include <QLineEdit>
#include <QPainter>
#include <QTabWidget>
#include <QTreeWidget>

#include "output/output_file.h"
#include "ui/desktop_fixture.h"
#include "ui/screenshot.h"
#include "ui/output/comparison_window.h"
#include "ui/output/open_print_dialog.h"
#include "ui/output/other_info_window.h"
#include "ui/output/output_viewer.h"
#include "ui/output/reaction_definition_window.h"

namespace tormel {
namespace {

TEST(Screenshots, OutputViewerAndItsWindows) {
    if (!test::ScreenshotsWanted()) GTEST_SKIP() << "run by scripts/screenshots.sh";
    test::StartedDesktop fixture(test::ScreenshotLanguage());
    OutputViewer* viewer = fixture.CalculateExample("river_doc.i64");
    ASSERT_NE(viewer, nullptr);
    viewer->setGeometry(0, 0, 1280, 800);
    for (QTreeWidgetItem* item : viewer->Tree()->findItems(QStringLiteral("Cu"), Qt::MatchRecursive | Qt::MatchStartsWith))
        viewer->Tree()->setCurrentItem(item);
    viewer->SetPiePlacement(1);
    test::SaveScreenshot(viewer, QStringLiteral("viewer_pies_right"));
    viewer->SetPiePlacement(2);
    test::SaveScreenshot(viewer, QStringLiteral("viewer_pies_bottom"));
    viewer->close();

    viewer = fixture.CalculateExample("hard_water.i64");
    ASSERT_NE(viewer, nullptr);
    OtherInfoWindow* info = OpenOtherInfoWindow(fixture.Ws(), 0, viewer);
    info->Tabs()->setCurrentIndex(1);
    test::SaveScreenshot(info, QStringLiteral("other_info_solids"));
    info->close();
    for (QTreeWidgetItem* item : viewer->Tree()->findItems(QStringLiteral("Ca"), Qt::MatchRecursive))
        viewer->Tree()->setCurrentItem(item);
    for (int row = 0; row < viewer->Details()->topLevelItemCount(); ++row)
        if (viewer->Details()->topLevelItem(row)->text(0).startsWith(QStringLiteral("CaCO3")))
            viewer->DetailsRowClicked(row);
    ASSERT_NE(OpenReactionDefinitionWindow(), nullptr);
    test::SaveScreenshot(OpenReactionDefinitionWindow(), QStringLiteral("reaction_caco3"));
    ReactionDefinition longReference = OpenReactionDefinitionWindow()->Shown();
    std::string literature;
    for (int i = 0; i < 8; ++i)
        literature += "Plummer L.N., Busenberg E. (1982) The solubilities of calcite, aragonite and vaterite; ";
    longReference.literature = literature;
    ShowReactionDefinition(fixture.Ws(), longReference, viewer);
    test::SaveScreenshot(OpenReactionDefinitionWindow(), QStringLiteral("reaction_long_reference"));
    OpenReactionDefinitionWindow()->close();

    PrintDialog print(fixture.Ws(), 0, viewer);
    print.PdfFile()->setText(test::ScreenshotPath(QStringLiteral("printed"), QStringLiteral(".pdf")));
    print.show();
    test::SaveScreenshot(&print, QStringLiteral("print_dialog"));
    const PrintJobOutcome printed = print.Print();
    EXPECT_GT(printed.pages, 1);
    const QString pages = test::ScreenshotPath(QStringLiteral("printed_page"), {});
    EXPECT_EQ(std::system(("pdftoppm -png -r 50 '" + print.PdfFile()->text() + "' '" + pages + "'").toLocal8Bit()), 0);
    viewer->close();
}

TEST(Screenshots, ComparisonOfThreeSets) {
    if (!test::ScreenshotsWanted()) GTEST_SKIP() << "run by scripts/screenshots.sh";
    test::StartedDesktop fixture(test::ScreenshotLanguage());
    std::vector<std::string> files;
    for (const char* example : {"hard_water.i64", "soft_water.i64", "river_doc.i64"}) {
        fixture.CalculateExample(example)->close();
        files.push_back(fixture.Ws().folders.outputFolder + example + ".o64");
        ASSERT_TRUE(WriteOutputFile(files.back(), fixture.Ws().results, 0));
    }
    auto& window = *new ComparisonWindow(fixture.Ws(), &fixture.Window());  // deletes itself on closing
    window.show();
    for (const std::string& file : files) ASSERT_TRUE(window.AddFile(file));
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    // the screen as the user sees it: the comparison on top, the viewers below
    QPixmap screen(1280, 800);
    screen.setDevicePixelRatio(window.devicePixelRatioF());  // the windows' positions are in scaled pixels
    screen.fill(Qt::darkGray);
    QPainter painter(&screen);
    for (const QPointer<OutputViewer>& viewer : window.Viewers()) painter.drawPixmap(viewer->pos(), viewer->grab());
    painter.drawPixmap(window.pos(), window.grab());
    painter.end();
    ASSERT_TRUE(screen.save(test::ScreenshotPath(QStringLiteral("comparison"))));
    window.close();
}

}  // namespace
}  // namespace tormel
