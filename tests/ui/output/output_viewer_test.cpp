// The output viewer, its "Other info" and reaction windows and the comparison
// window on example waters calculated in a desktop session.
#include "ui/output/output_viewer.h"

#include <gtest/gtest.h>

#include <cmath>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QSplitter>
#include <QTabWidget>
#include <QTreeWidget>

#include "output/output_file.h"
#include "ui/desktop_fixture.h"
#include "ui/main/scaled.h"
#include "ui/output/comparison_window.h"
#include "ui/output/open_comparison.h"
#include "ui/output/open_output_viewer.h"
#include "ui/output/pie_panel.h"
#include "ui/output/other_info_window.h"
#include "ui/output/reaction_definition_window.h"
#include "ui/output/viewer_rows.h"

namespace tormel {
namespace {

std::vector<QTreeWidgetItem*> Rows(QTreeWidget* list) {
    std::vector<QTreeWidgetItem*> rows;
    for (int i = 0; i < list->topLevelItemCount(); ++i) rows.push_back(list->topLevelItem(i));
    return rows;
}

TEST(ViewerRows, ColoursByRowClass) {
    const struct {
        int rowClass;
        QColor colour;
    } cases[] = {{1, {255, 255, 192}}, {2, {223, 255, 255}}, {3, {255, 239, 239}}, {4, {223, 255, 223}},
                 {5, {224, 224, 224}}, {13, {255, 239, 239}}, {21, {255, 255, 192}}, {0, {}}, {-3, {}}, {10, {}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.rowClass);
        const std::optional<QColor> colour = RowClassColour(c.rowClass);
        EXPECT_EQ(colour.has_value(), c.colour.isValid());
        if (colour) {
            EXPECT_EQ(*colour, c.colour);
        }
    }
    EXPECT_EQ(DetailsRowReaction(31), 2);
    EXPECT_EQ(DetailsRowReaction(4), -1);
}

TEST(OutputViewer, TreeTablesTipsReactionsAndUnits) {
    test::StartedDesktop fixture;
    Workspace& ws = fixture.Ws();
    OutputViewer* viewer = fixture.CalculateExample("hard_water.i64");
    ASSERT_NE(viewer, nullptr);
    EXPECT_EQ(viewer->windowModality(), Qt::WindowModal);

    // the tree: cations and ligands, one leaf per listed component, the first cation shown
    const SetView view = ViewSet(ws.results, 0);
    QTreeWidget* tree = viewer->Tree();
    ASSERT_EQ(tree->topLevelItemCount(), 2);
    EXPECT_EQ(tree->topLevelItem(0)->text(0).toStdString(), LanguageText(ws.language, "Output", "Cations"));
    int leaves = 0;
    for (QTreeWidgetItem* root : Rows(tree)) leaves += root->childCount();
    EXPECT_EQ(leaves, ws.results.sets[0].header.listedComponentCount);
    EXPECT_EQ(view.components[static_cast<size_t>(viewer->Shown())].kind, ComponentType::Cation);

    // Ca: the summary ends with the grey total; species rows coloured and with logarithm tips
    for (QTreeWidgetItem* item : tree->findItems(QStringLiteral("Ca"), Qt::MatchRecursive)) tree->setCurrentItem(item);
    ASSERT_GT(viewer->Summary()->topLevelItemCount(), 1);
    EXPECT_EQ(Rows(viewer->Summary()).back()->background(0).color(), QColor(224, 224, 224));
    EXPECT_EQ(Rows(viewer->Summary()).front()->background(3).color(), QColor(255, 255, 192));
    int tips = 0;
    int complex = -1;
    for (QTreeWidgetItem* row : Rows(viewer->Details())) {
        for (const SpeciesResult& s : view.species) {
            if (s.name.c_str() != row->text(0) || s.concentration <= 0) continue;
            const QString tip = row->toolTip(1);
            ASSERT_TRUE(tip.startsWith("log10(" + row->text(1) + ") = ")) << tip.toStdString();
            EXPECT_NEAR(tip.section(QStringLiteral(" = "), 1).toDouble(), std::log10(s.concentration), 0.0006);
            ++tips;
        }
        const int rowClass = row->data(0, Qt::UserRole).toInt();
        if (complex < 0 && rowClass > 5) complex = viewer->Details()->indexOfTopLevelItem(row);
        EXPECT_EQ(row->background(2).color(), RowClassColour(rowClass).value_or(QColor()));
    }
    EXPECT_GE(tips, 3);

    // a click on a complex shows its reaction
    ASSERT_GE(complex, 0);
    QTreeWidgetItem* complexRow = viewer->Details()->topLevelItem(complex);
    viewer->DetailsRowClicked(complex);
    ReactionDefinitionWindow* reaction = OpenReactionDefinitionWindow();
    ASSERT_NE(reaction, nullptr);
    const ReactionDefinition& expected =
        view.reactions[static_cast<size_t>(DetailsRowReaction(complexRow->data(0, Qt::UserRole).toInt()))];
    EXPECT_EQ(reaction->Shown().logK, expected.logK);
    EXPECT_TRUE(complexRow->text(0).startsWith(QString::fromStdString(reaction->Shown().products[0].name)));
    reaction->close();

    // the units change: micromoles, and the tables are built again
    const QString before = Rows(viewer->Details()).front()->text(2);
    ws.outputOptions.units.order = 2;
    ws.outputOptions.showLogs = false;
    viewer->Refresh();
    EXPECT_NE(Rows(viewer->Details()).front()->text(2), before);
    EXPECT_TRUE(Rows(viewer->Details()).front()->toolTip(1).isEmpty()) << "no logarithms when switched off";

    // pies right enlarge the window; the choice is remembered
    viewer->resize(Scaled(1000), Scaled(600));
    viewer->SetPiePlacement(1);
    EXPECT_GE(viewer->width(), Scaled(1180));
    EXPECT_GE(viewer->height(), Scaled(648));
    EXPECT_TRUE(viewer->FractionsPie()->isVisibleTo(viewer));
    EXPECT_EQ(ws.settings.ReadSettingInt("Output", "ViewGraphs", 0), 1);
    // a bar dragged to the edge stops at 15% of its span
    viewer->resize(Scaled(1200), Scaled(1000));
    QSplitter* rows = viewer->Rows();
    const int span = rows->sizes().value(0) + rows->sizes().value(1);
    rows->setSizes({1, span - 1});
    emit rows->splitterMoved(1, 1);
    EXPECT_NEAR(rows->sizes().value(0), span * 0.15, 1);

    viewer->close();
    QApplication::processEvents();
    EXPECT_GT(ws.settings.ReadSettingInt("Options", "OutputWindow_Width", 0), 0) << "the size is stored on closing";
    EXPECT_NEAR(ws.settings.ReadSettingInt("Options", "HorBarTop", 0), span * 0.15 / DpiScale(), 1);
}

TEST(OtherInfoWindow, SolidsTabColoursAndReactions) {
    test::StartedDesktop fixture;
    OutputViewer* viewer = fixture.CalculateExample("hard_water.i64");
    ASSERT_NE(viewer, nullptr);
    OtherInfoWindow* info = OpenOtherInfoWindow(fixture.Ws(), 0, viewer);
    // Davies, no organic matter, no adsorption: general, solids, gases (the
    // calculated partial pressures), input
    EXPECT_EQ(info->Blocks(), (std::vector<int32_t>{0, 3, 4, 6}));
    const int solids = 1;
    int coloured = 0;
    int opened = 0;
    for (QTreeWidgetItem* row : Rows(info->List(solids))) {
        const qlonglong key = row->data(0, Qt::UserRole).toLongLong();
        const bool shaded = row->background(0).color() == QColor(255, 239, 239);
        EXPECT_EQ(shaded, key > 5 && key % 10 == 3) << key;
        coloured += shaded;
        if (key >= 6 && !opened++) {
            info->RowClicked(solids, info->List(solids)->indexOfTopLevelItem(row));
            ASSERT_NE(OpenReactionDefinitionWindow(), nullptr);
            EXPECT_EQ(OpenReactionDefinitionWindow()->Shown().note,
                      LanguageText(fixture.Ws().language, "EqDef", "AddInfoSolid"));
        }
    }
    EXPECT_GT(coloured, 0) << "calcite is oversaturated in the hard water";
    EXPECT_GT(opened, 0);
    info->close();
    viewer->close();
}

TEST(ComparisonWindow, RemovingTheSecondOfThreeSets) {
    test::StartedDesktop fixture;
    Workspace& ws = fixture.Ws();
    std::vector<std::string> files;
    for (const char* example : {"hard_water.i64", "soft_water.i64", "river_doc.i64"}) {
        fixture.CalculateExample(example)->close();
        files.push_back(fixture.folder.File(std::string(example) + ".o64"));
        ASSERT_TRUE(WriteOutputFile(files.back(), ws.results, 0));
    }
    auto& window = *new ComparisonWindow(ws, &fixture.Window());  // deletes itself on closing
    window.show();
    for (const std::string& file : files) ASSERT_TRUE(window.AddFile(file));
    ASSERT_EQ(ws.results.SetCount(), 3);
    window.Viewers()[1]->close();
    QApplication::processEvents();
    ASSERT_EQ(ws.results.SetCount(), 2);
    // (the list's numbers and texts: ResultSets.RemovingTheSecondOfThreeMovesTheThirdDownIntact)
    ASSERT_EQ(window.Files()->topLevelItemCount(), 2);
    EXPECT_EQ(window.Files()->topLevelItem(1)->text(1).toStdString(), files[2]);
    EXPECT_EQ(window.Viewers()[1]->Set(), 1);
    EXPECT_FALSE(window.Viewers()[1]->Tree()->findItems(QStringLiteral("Cu"), Qt::MatchRecursive | Qt::MatchStartsWith).isEmpty())
        << "the river water's viewer shows the river water";
    EXPECT_NEAR(window.Viewers()[0]->geometry().right() + 1 - window.Viewers()[1]->geometry().left(),
                7 * (DpiScale() + 1), 2)
        << "arranged side by side again";
    EXPECT_EQ(ws.recentFiles.output.places[0].Path(), files[2]) << "a compared file enters the recent files";
    window.close();
    EXPECT_EQ(ws.results.SetCount(), 1);
    EXPECT_FALSE(ws.results.holdsLoadedOutput);
}

// However narrow the viewer (three side by side, or at a large display scale),
// each toolbar control is either whole on screen or offered by the overflow menu.
TEST(OutputViewer, NarrowToolbarKeepsEveryControlReachable) {
    test::StartedDesktop fixture;
    OutputViewer* viewer = fixture.CalculateExample("hard_water.i64");
    const ViewerToolbar& bar = viewer->Toolbar();
    for (int width : {1280, 640, 430, 213}) {
        SCOPED_TRACE(width);
        viewer->setMinimumSize(0, 0);
        viewer->resize(width, 600);
        QApplication::processEvents();
        std::vector<QWidget*> controls(bar.buttons.begin(), bar.buttons.end());
        controls.insert(controls.begin() + 6, {bar.placement, bar.otherInfo});
        int hidden = 0, lastRight = 0;
        for (QWidget* control : controls) {
            if (control->isHidden()) {
                ++hidden;
                continue;
            }
            EXPECT_GT(control->x(), lastRight) << control->toolTip().toStdString();
            lastRight = control->geometry().right();
        }
        EXPECT_EQ(bar.overflow->isHidden(), hidden == 0);
        if (hidden > 0) lastRight = bar.overflow->geometry().right();
        EXPECT_LT(lastRight, width);
        emit bar.overflow->menu()->aboutToShow();
        EXPECT_EQ(bar.overflow->menu()->actions().size(), hidden);
        EXPECT_EQ(hidden == 0, width >= 430) << "three viewers side by side on 1280 pixels show everything";
    }
    viewer->close();
}

// A viewer opened from the main window during a comparison leaves the main
// window usable and arranges the compared viewers only when auto-arrange is on.
TEST(ComparisonWindow, ViewerOpenedMeanwhileArrangesOnlyWithAutoArrange) {
    test::StartedDesktop fixture;
    Workspace& ws = fixture.Ws();
    fixture.CalculateExample("hard_water.i64")->close();
    const std::string file = fixture.folder.File("hard_water.o64");
    ASSERT_TRUE(WriteOutputFile(file, ws.results, 0));
    OpenComparison(ws, &fixture.Window());
    ComparisonWindow* window = OpenComparisonWindow();
    ASSERT_TRUE(window && window->AddFile(file));
    QWidget* compared = window->Viewers()[0];
    window->ArrangeViewers();
    QApplication::processEvents();
    const QRect arranged = compared->geometry();
    for (bool autoArrange : {true, false}) {
        window->AutoArrange()->setChecked(autoArrange);
        compared->setGeometry(arranged.translated(50, 50));
        OpenOutputViewer(ws, &fixture.Window());
        QApplication::processEvents();
        EXPECT_EQ(compared->geometry() == arranged, autoArrange);
        EXPECT_EQ(OpenViewerOfSetZero()->windowModality(), Qt::NonModal);
        EXPECT_TRUE(fixture.Window().isEnabled());
    }
    OpenViewerOfSetZero()->close();
    window->close();
}

}  // namespace
}  // namespace tormel
