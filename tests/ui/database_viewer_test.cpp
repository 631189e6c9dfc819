// The database viewer and information window on the delivered database.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTreeWidget>
#include <fstream>

#include "shell/workspace.h"
#include "ui/database/database_information_window.h"
#include "ui/database/database_viewer.h"
#include "ui/desktop_fixture.h"

namespace tormel {
namespace {

QStringList Items(const QListWidget* list) {
    QStringList items;
    for (int r = 0; r < list->count(); ++r) items << list->item(r)->text();
    return items;
}

// Selects the top-level tree item with `number`.
void SelectTreeNumber(DatabaseViewer& viewer, int number) {
    QTreeWidget* tree = viewer.Tree();
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        if (tree->topLevelItem(i)->data(0, Qt::UserRole).toInt() == number) tree->setCurrentItem(tree->topLevelItem(i));
}

TEST(DatabaseViewerWindow, ThreeModesWithSummaryLinesAndButtons) {
    test::StartedDesktop fixture;
    DatabaseViewer viewer(fixture.Ws(), &fixture.Window());

    // opened by component: H+ under the cations, with every equilibrium holding it counted
    ASSERT_NE(viewer.Tree()->currentItem(), nullptr);
    EXPECT_EQ(viewer.Tree()->currentItem()->text(0), QStringLiteral("H"));
    EXPECT_EQ(viewer.Tree()->currentItem()->parent(), viewer.Tree()->topLevelItem(0));
    const QStringList summary = Items(viewer.Summary());
    ASSERT_EQ(summary.size(), 4);
    EXPECT_EQ(summary[0], QStringLiteral("Component: H"));
    EXPECT_EQ(summary[3], QStringLiteral("There are %1 equilibria with H").arg(viewer.Equilibria()->count()));
    EXPECT_GT(viewer.Equilibria()->count(), 50);
    // the upper list shows exactly its lines; the lower one keeps its bottom
    const QListWidget* upper = viewer.Summary();
    EXPECT_EQ(upper->height() - 2 * upper->frameWidth(), 4 * upper->sizeHintForRow(0));
    EXPECT_EQ(viewer.Equilibria()->geometry().bottom(), viewer.Tree()->geometry().bottom());

    viewer.Equilibria()->setCurrentRow(0);
    EXPECT_TRUE(viewer.ShowButton()->isEnabled());
    EXPECT_FALSE(viewer.ChangeButton()->isEnabled());

    viewer.SetMode(2);
    EXPECT_FALSE(viewer.ShowButton()->isEnabled());
    EXPECT_EQ(viewer.Tree()->topLevelItemCount(), 7);
    // (what each mode lists is DatabaseView's matter)
    SelectTreeNumber(viewer, 7);  // organic matter: its model, and a message instead of a drawing
    ASSERT_GT(viewer.Equilibria()->count(), 0);
    EXPECT_TRUE(viewer.Equilibria()->item(0)->text().contains(QStringLiteral(" (Model ")));
    viewer.Equilibria()->setCurrentRow(0);
    viewer.ShowEquilibrium();
    ASSERT_EQ(fixture.boxes.size(), 1u);
    EXPECT_EQ(fixture.boxes[0].caption, LanguageText(fixture.Ws().language, "DB_VIEW", "Org_Caption"));
    EXPECT_EQ(fixture.boxes[0].lines.at(0), LanguageText(fixture.Ws().language, "DB_VIEW", "Org_Text"));

    viewer.SetMode(3);
    EXPECT_EQ(viewer.Tree()->topLevelItemCount(), fixture.Ws().chem.db().LiteratureReferenceCount());
    EXPECT_TRUE(Items(viewer.Summary()).value(0).endsWith(QStringLiteral("equilibria from this reference.")));
}

TEST(DatabaseViewerWindow, InformationWindowWithAndWithoutOwnData) {
    test::StartedDesktop fixture;
    const std::string noOwnData = LanguageText(fixture.Ws().language, "DB_ABOUT", "EditLine3a");
    {
        DatabaseInformationWindow window(fixture.Ws(), &fixture.Window());
        const QTableWidget* table = window.Table();
        EXPECT_EQ(table->horizontalHeaderItem(1)->text(), QStringLiteral("COMPON.RAW/D64"));
        for (int column = 1; column <= 6; ++column) {
            EXPECT_FALSE(table->item(0, column)->text().isEmpty()) << column;
            EXPECT_EQ(table->item(2, column)->text(), table->item(1, column)->text()) << column;
            EXPECT_EQ(table->item(3, column)->text(), QStringLiteral("0"));
        }
        EXPECT_TRUE(window.Text()->toPlainText().contains(QString::fromStdString(noOwnData)));
    }
    std::ofstream(fixture.Ws().folders.dataFolder + "UserData64.ini") << "[Data]\n";
    DatabaseInformationWindow window(fixture.Ws(), &fixture.Window());
    for (int row = 2; row <= 4; ++row) EXPECT_TRUE(window.Table()->item(row, 1)->text().isEmpty()) << row;
    EXPECT_FALSE(window.Table()->item(1, 1)->text().isEmpty());
    EXPECT_FALSE(window.Text()->toPlainText().contains(QString::fromStdString(noOwnData)));
}

}  // namespace
}  // namespace tormel
