// Pictures of the output windows for a person to look at, and a printed PDF
// turned into PNG pages: run by scripts/screenshots.sh (TORMEL_SCREENSHOTS=1).
#include <gtest/gtest.h>

#include <cstdlib>

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QTabWidget>
#include <QTreeWidget>

#include "output/output_file.h"
#include "ui/desktop_fixture.h"
#include "ui/output/comparison_window.h"
#include "ui/output/open_output_viewer.h"
#include "ui/output/open_print_dialog.h"
#include "ui/output/other_info_window.h"
#include "ui/output/output_viewer.h"
#include "ui/output/reaction_definition_window.h"

namespace tormel {
namespace {

QString ShotFolder() {
    const QByteArray dir = qgetenv("TORMEL_SCREENSHOT_DIR");
    const QString folder = dir.isEmpty() ? QString::fromLatin1(TORMEL_SCREENSHOT_DIR) : QString::fromLocal8Bit(dir);
    QDir().mkpath(folder);
    return folder;
}

QString ShotName(const char* name) {
    return QLatin1String(name) + QString::fromLocal8Bit(qgetenv("TORMEL_SCREENSHOT_SUFFIX"));
}

void Save(QWidget* widget, const char* name) {
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    ASSERT_TRUE(widget->grab().save(ShotFolder() + QLatin1Char('/') + ShotName(name) + QStringLiteral(".png"))) << name;
}

OutputViewer* Calculate(test::DesktopFixture& fixture, const std::string& example) {
    fixture.Window().ReceiveHandover(275, QString::fromStdString(fixture.ExampleInput(example)));
    fixture.Window().DispatchCommand(1121);
    QApplication::processEvents();
    return OpenViewerOfSetZero();
}

std::string Language() { return qgetenv("TORMEL_SCREENSHOT_LANG") == "de" ? "deutsch.lang" : "0default.lang"; }

TEST(Screenshots, OutputViewerAndItsWindows) {
    if (qgetenv("TORMEL_SCREENSHOTS") != "1") GTEST_SKIP() << "run by scripts/screenshots.sh";
    test::DesktopFixture fixture(Language());
    ASSERT_FALSE(fixture.Start().endProcess);
    OutputViewer* viewer = Calculate(fixture, "river_doc.i64");
    ASSERT_NE(viewer, nullptr);
    viewer->setGeometry(0, 0, 1280, 800);
    for (QTreeWidgetItem* item : viewer->Tree()->findItems(QStringLiteral("Cu"), Qt::MatchRecursive | Qt::MatchStartsWith))
        viewer->Tree()->setCurrentItem(item);
    viewer->SetPiePlacement(1);
    Save(viewer, "viewer_pies_right");
    viewer->SetPiePlacement(2);
    Save(viewer, "viewer_pies_bottom");
    viewer->close();

    viewer = Calculate(fixture, "hard_water.i64");
    ASSERT_NE(viewer, nullptr);
    OtherInfoWindow* info = OpenOtherInfoWindow(fixture.Ws(), 0, viewer);
    info->Tabs()->setCurrentIndex(1);
    Save(info, "other_info_solids");
    info->close();
    for (QTreeWidgetItem* item : viewer->Tree()->findItems(QStringLiteral("Ca"), Qt::MatchRecursive))
        viewer->Tree()->setCurrentItem(item);
    for (int row = 0; row < viewer->Details()->topLevelItemCount(); ++row)
        if (viewer->Details()->topLevelItem(row)->text(0).startsWith(QStringLiteral("CaCO3")))
            viewer->DetailsRowClicked(row);
    ASSERT_NE(OpenReactionDefinitionWindow(), nullptr);
    Save(OpenReactionDefinitionWindow(), "reaction_caco3");
    ReactionDefinition longReference = OpenReactionDefinitionWindow()->Shown();
    std::string literature;
    for (int i = 0; i < 8; ++i)
        literature += "Plummer L.N., Busenberg E. (1982) The solubilities of calcite, aragonite and vaterite; ";
    longReference.literature = literature;
    ShowReactionDefinition(fixture.Ws(), longReference, viewer);
    Save(OpenReactionDefinitionWindow(), "reaction_long_reference");
    OpenReactionDefinitionWindow()->close();

    PrintDialog print(fixture.Ws(), 0, viewer);
    print.PdfFile()->setText(ShotFolder() + QLatin1Char('/') + ShotName("printed") + QStringLiteral(".pdf"));
    print.show();
    Save(&print, "print_dialog");
    const PrintJobOutcome printed = print.Print();
    EXPECT_GT(printed.pages, 1);
    const QString pages = ShotFolder() + QLatin1Char('/') + ShotName("printed_page");
    EXPECT_EQ(std::system(("pdftoppm -png -r 50 '" + print.PdfFile()->text() + "' '" + pages + "'").toLocal8Bit()), 0);
    viewer->close();
}

TEST(Screenshots, ComparisonOfThreeSets) {
    if (qgetenv("TORMEL_SCREENSHOTS") != "1") GTEST_SKIP() << "run by scripts/screenshots.sh";
    test::DesktopFixture fixture(Language());
    ASSERT_FALSE(fixture.Start().endProcess);
    std::vector<std::string> files;
    for (const char* example : {"hard_water.i64", "soft_water.i64", "river_doc.i64"}) {
        Calculate(fixture, example)->close();
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
    ASSERT_TRUE(screen.save(ShotFolder() + QLatin1Char('/') + ShotName("comparison") + QStringLiteral(".png")));
    window.close();
}

}  // namespace
}  // namespace tormel
