// The main window: panels per tile with their enabled and disabled buttons,
// every command of the table reaching its action, accelerators, the status
// line, the question before closing, and the German texts.
#include <gtest/gtest.h>

#include <algorithm>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "ui/desktop_fixture.h"
#include "ui/main/command_table.h"
#include "ui/main/tile_image.h"

namespace tormel {
namespace {

struct PanelCase {
    int tile;
    std::vector<int> enabled;
    std::vector<int> disabled;
};

TEST(MainWindow, PanelsOpenPerTileWithTheirButtonsEnabledOrDisabled) {
    test::StartedDesktop fixture;
    MainWindow& window = fixture.Window();
    EXPECT_EQ(window.StatusText(), "Input data: program defaults");
    const PanelCase cases[] = {
        {0, {1111, 1211, 1112, 1113, 1114, 1115, 1116, 1117}, {1212}},
        {1, {1121}, {1122, 1123}},
        {2, {1132, 1133, 1137}, {1131, 1134, 1135, 1136, 1231, 1232, 1233, 1234}},
        {3, {1141, 1143, 1144}, {1142}},
        {4, {1151, 1152, 1153, 1154, 1155}, {}},
        {5, {1161, 1162, 1163, 1164, 1165, 1166, 1167, 1261, 1262, 1263, 1264}, {}},
    };
    for (const PanelCase& c : cases) {
        SCOPED_TRACE(c.tile);
        // pointing at the tile opens its panel (after the mouse has really moved)
        QTest::mouseMove(window.TileImageLabel(c.tile), QPoint(3, 3));
        QTest::mouseMove(window.TileImageLabel(c.tile), QPoint(10, 10));
        window.TileHovered(c.tile, QPoint(1, 1));
        window.TileHovered(c.tile, QPoint(2, 2));
        ASSERT_EQ(window.OpenTile(), c.tile);
        for (int command : c.enabled) {
            QPushButton* button = window.PanelButton(command);
            ASSERT_NE(button, nullptr) << command;
            EXPECT_TRUE(button->isEnabled()) << command;
        }
        for (int command : c.disabled) {
            QPushButton* button = window.PanelButton(command);
            ASSERT_NE(button, nullptr) << command;
            EXPECT_FALSE(button->isEnabled()) << command;
        }
    }
    // the recent lists sit in the Input and Output panels
    window.OpenPanel(0);
    EXPECT_NE(window.RecentList(kRecentInputList), nullptr);
    window.OpenPanel(2);
    EXPECT_NE(window.RecentList(kRecentOutputList), nullptr);
    // while busy no panel opens
    fixture.Ws().uiReady = false;
    window.TileLeft(3);
    window.TileHovered(3, QPoint(5, 5));
    EXPECT_EQ(window.OpenTile(), 2);
    fixture.Ws().uiReady = true;
}

TEST(MainWindow, EveryCommandOfTheTableReachesItsAction) {
    test::StartedDesktop fixture;
    MainWindow& window = fixture.Window();
    int fileDialogs = 0;
    window.Services().askFileName = [&](bool, const QString&, const std::string&) {
        ++fileDialogs;
        return std::optional<std::string>();
    };
    std::vector<int> helpTopics;
    window.Services().openHelp = [&](int topic) { helpTopics.push_back(topic); };
    // the printing dialog is modal: cancel it as soon as it shows
    QTimer cancelPrinting;
    QObject::connect(&cancelPrinting, &QTimer::timeout, [] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible() && w->objectName() == QStringLiteral("FrmPrintOutput")) w->close();
    });
    cancelPrinting.start(10);

    for (const MenuItem& item : CommandTable()) {
        SCOPED_TRACE(item.command);
        const size_t before = window.CommandLog().size();
        // the database windows and the options dialog are closed as soon as they show
        if ((item.command >= 1151 && item.command <= 1155) || item.command == 1141 || item.command == 1143)
            test::WhenWindowShows(QString(), [](QWidget* modal) { modal->close(); });
        if (item.command == 1114)  // the input editor: closed with Cancel
            test::WhenWindowShows(QStringLiteral("FrmEditInput"), [](QWidget* w) { static_cast<QDialog*>(w)->reject(); });
        window.DispatchCommand(item.command);
        if (AlwaysDisabled(item.command)) {
            EXPECT_EQ(window.CommandLog().size(), before) << "a disabled command has no action";
            continue;
        }
        ASSERT_EQ(window.CommandLog().size(), before + 1);
        EXPECT_EQ(window.CommandLog().back(), item.command);
        EXPECT_TRUE(fixture.Ws().uiReady);
    }
    EXPECT_EQ(helpTopics, (std::vector<int>{500, 0, -1, -2}));
    // the two documents open where the build ships them (the web site is unreachable here)
    const auto documents = std::count_if(fixture.links.begin(), fixture.links.end(),
                                         [](const std::string& link) { return link.ends_with("64.pdf"); });
    EXPECT_TRUE(documents == 0 || documents == 2);
    EXPECT_EQ(fixture.links.size() - documents, 4u) << "web site, e-mail and the two pages";
    EXPECT_GE(fileDialogs, 7) << "open and save dialogs of input, output and exports";
}

TEST(MainWindow, AcceleratorsOpenTheTilePanels) {
    test::StartedDesktop fixture;
    MainWindow& window = fixture.Window();
    QApplication::setActiveWindow(&window);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(window.OpenTile(), 1);
    QTest::keyClick(&window, Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(window.OpenTile(), 4);
    QTest::keyClick(&window, Qt::Key_F1);
    EXPECT_EQ(window.OpenTile(), 5);
}

TEST(MainWindow, ClosingWithModifiedInputAsksAndCancelKeepsTheWindow) {
    test::StartedDesktop fixture;
    MainWindow& window = fixture.Window();
    fixture.UseRealMessageBoxes();
    fixture.Ws().input.modified = true;
    window.UpdateStatusLine();
    EXPECT_EQ(window.StatusText(), "Input data: program defaults (modified)");

    QString caption;
    test::WhenWindowShows("FrmMesgBoxChk", [&](QWidget* box) {
        caption = box->windowTitle();
        QTest::keyClick(box, Qt::Key_Escape);
    });
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(caption.toStdString(), LanguageText(fixture.Ws().language, "Input", "AskSaveCaption"));

    // the second button leaves without saving
    test::WhenWindowShows("FrmMesgBoxChk", [](QWidget* box) { box->findChild<QPushButton*>("button2")->click(); });
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(std::filesystem::exists(fixture.Ws().folders.settingsFile)) << "settings saved at the end";
}

TEST(MainWindow, ClosingWithUnmodifiedInputAsksNothing) {
    test::StartedDesktop fixture;
    fixture.boxes.clear();
    EXPECT_TRUE(fixture.Window().close());
    EXPECT_TRUE(fixture.boxes.empty());
}

TEST(MainWindow, GermanLanguageFileDrivesTheTiles) {
    test::StartedDesktop fixture("deutsch.lang");
    MainWindow& window = fixture.Window();
    EXPECT_EQ(window.TileCaptionLabel(0)->text(), "<u>E</u>ingabe");
    EXPECT_EQ(window.TileCaptionLabel(1)->text(), "<u>B</u>erechnung");
    window.OpenPanel(1);
    ASSERT_NE(window.PanelButton(1121), nullptr);
    EXPECT_EQ(window.PanelButton(1121)->text().toStdString(), LanguageText(fixture.Ws().language, "CalcMenu", "Calc1"));
    EXPECT_NE(window.PanelButton(1121)->text(), "Calculate");
}

}  // namespace
}  // namespace tormel
