// Calculate from the main window: the progress window shows the solve and
// its Cancel stops it without results; a neutral-solution input runs the
// neutralisation window.
#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "ui/desktop_fixture.h"
#include "ui/main/progress_window.h"

namespace tormel {
namespace {

// Watches the desktop's windows while a command runs.
struct WindowWatch {
    QTimer timer;
    bool sawProgress = false, sawNeutralise = false;
    QString iteration, neutraliseCaption;
    WindowWatch(DesktopUi& ui, bool cancel) {
        QObject::connect(&timer, &QTimer::timeout, [this, &ui, cancel] {
            if (ProgressWindow* progress = ui.Progress()) {
                sawProgress = progress->isVisible();
                if (auto* label = progress->findChild<QLabel*>("value0")) iteration = label->text();
                if (cancel) progress->findChild<QPushButton*>("cancelButton")->click();
            }
            if (NeutraliseWindow* neutral = ui.Neutralise()) {
                sawNeutralise = neutral->isVisible();
                neutraliseCaption = neutral->windowTitle();
            }
        });
        timer.start(0);
    }
};

TEST(DesktopCalculation, CancelInTheProgressWindowStopsWithoutResults) {
    test::StartedDesktop fixture;
    Workspace& ws = fixture.Ws();
    fixture.Window().ReceiveHandover(275, QString::fromStdString(fixture.ExampleInput()));
    WindowWatch watch(fixture.session->Ui(), true);
    fixture.Window().DispatchCommand(1121);
    EXPECT_TRUE(watch.sawProgress);
    EXPECT_FALSE(watch.iteration.isEmpty());
    EXPECT_FALSE(fixture.Window().ResultsAvailable());
    EXPECT_EQ(fixture.session->Ui().Progress(), nullptr) << "the progress window closes";
    EXPECT_TRUE(ws.uiReady);

    // without Cancel the same water gives results and enables the Output commands
    watch.timer.stop();
    fixture.Window().DispatchCommand(1121);
    EXPECT_TRUE(fixture.Window().ResultsAvailable());
    fixture.Window().OpenPanel(2);
    ASSERT_NE(fixture.Window().PanelButton(1134), nullptr);
    EXPECT_TRUE(fixture.Window().PanelButton(1134)->isEnabled());
}

TEST(DesktopCalculation, NeutralSolutionRunsTheNeutralisationWindow) {
    test::StartedDesktop fixture;
    Workspace& ws = fixture.Ws();
    ChemicalSystem& chem = ws.chem;
    ws.input.components[chem.db().FindComponent("Ca")].inputValue = 1e-3;
    ws.input.components[chem.db().FindComponent("Cl")].inputValue = 1e-3;
    ws.input.forceNeutral = true;
    ws.input.neutraliseCation = chem.db().FindComponent("Na");
    ws.input.neutraliseAnion = chem.db().FindComponent("Cl");
    WindowWatch watch(fixture.session->Ui(), false);
    fixture.Window().DispatchCommand(1121);
    EXPECT_TRUE(watch.sawNeutralise);
    EXPECT_TRUE(watch.neutraliseCaption.startsWith(
        QString::fromStdString(LanguageText(ws.language, "NeutralCalc", "NeutrCaption1"))));
    EXPECT_TRUE(watch.sawProgress);
    EXPECT_TRUE(fixture.Window().ResultsAvailable());
    EXPECT_EQ(fixture.session->Ui().Neutralise(), nullptr) << "the window closes at the end";
}

TEST(DesktopCalculation, RatioDigitsFollowTheCriterion) {
    EXPECT_EQ(RatioDigits(1.0001), 4);
    EXPECT_EQ(RatioDigits(1.5), 1);
    EXPECT_EQ(RatioDigits(1 + 1e-14), 10);
    EXPECT_EQ(RatioDigits(1 / 1.001), 3) << "a criterion below 1 is its reciprocal";
}

}  // namespace
}  // namespace tormel
