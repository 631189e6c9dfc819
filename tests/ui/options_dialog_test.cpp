// The options dialog: switches written by OK, reset deleting [Options], pages.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QTabWidget>

#include "shell/workspace.h"
#include "ui/desktop_fixture.h"
#include "ui/options/options_dialog.h"

namespace tormel {
namespace {

TEST(OptionsDialogWindow, OkWritesSwitchesAndColoursAndResetDeletesTheOptions) {
    test::StartedDesktop fixture;
    Settings& settings = fixture.Ws().settings;
    settings.WriteSettingBool("Options", "Remember-Folders", false);
    settings.WriteSettingInt("Options", "ColorHyperL", 0x0000FF);
    settings.WriteSettingInt("Options", "MainWindow_Left", 77);

    OptionsDialog dialog(fixture.Ws(), &fixture.Window(), 4);
    EXPECT_EQ(dialog.Tabs()->currentIndex(), 4);
    EXPECT_EQ(dialog.Colour(2), QColor(255, 0, 0));  // red in the low byte
    EXPECT_FALSE(dialog.Switch(4)->isChecked());
    EXPECT_TRUE(dialog.Switch(0)->isChecked());

    dialog.Reset();
    EXPECT_EQ(settings.ReadSettingString("Options", "MainWindow_Left", "gone"), "gone");
    EXPECT_EQ(settings.ReadSettingString("Options", "ColorHyperL", "gone"), "gone");
    EXPECT_TRUE(dialog.Switch(4)->isChecked());
    EXPECT_EQ(dialog.Colour(2), QColor(0x40, 0xFF, 0xFF));  // the default 0xFFFF40

    dialog.Switch(2)->setChecked(false);
    dialog.SetColour(0, QColor(1, 2, 3));
    dialog.Confirm();
    EXPECT_FALSE(settings.ReadSettingBool("Options", "Remember-InputFiles"));
    EXPECT_TRUE(settings.ReadSettingBool("Options", "Remember-Units"));
    EXPECT_EQ(settings.ReadSettingInt("Options", "ColorBackGr"), 0x030201);
    EXPECT_EQ(fixture.Window().palette().color(QPalette::Window), QColor(1, 2, 3));
}

}  // namespace
}  // namespace tormel
