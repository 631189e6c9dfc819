// The unit options dialog: decimals clamped, unit buttons with the pressure
// unit that goes with them, the output part, and Cancel never confirming.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>

#include "ui/desktop_fixture.h"
#include "ui/options/unit_options.h"
#include "ui/options/unit_options_dialog.h"

namespace tormel {
namespace {

QPushButton* Button(QWidget* dialog, const std::string& text) {
    for (QPushButton* b : dialog->findChildren<QPushButton*>())
        if (b->text() == QString::fromStdString(text)) return b;
    return nullptr;
}

TEST(UnitOptions, OkTakesTheControlsCancelNeverConfirms) {
    test::StartedDesktop fixture;
    Workspace& ws = fixture.Ws();
    const std::string ok = LanguageText(ws.language, "UnitOptions", "OK");
    const std::string cancel = LanguageText(ws.language, "UnitOptions", "Cancel");
    struct Case {
        const char* decimals;
        int unitButton;
        int numDec, units, order;
        const char* pressure;
    } cases[] = {{"12", 6, 9, 1, 2, "µ-atm"}, {"0", 1, 1, 0, 1, "m-atm"}, {"abc", 4, 1, 1, 0, "atm"}, {"5", 3, 5, 0, 3, "n-atm"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.decimals);
        test::WhenWindowShows(QStringLiteral("FrmUnitPlus"), [&](QWidget* window) {
            auto* dialog = static_cast<UnitOptionsDialog*>(window);
            dialog->Decimals()->selectAll();
            QTest::keyClicks(dialog->Decimals(), QString::fromLatin1(c.decimals));
            QTest::mouseClick(dialog->UnitButton(c.unitButton), Qt::LeftButton, {}, QPoint(5, 5));
            EXPECT_EQ(dialog->PressureUnit()->text(), QString::fromUtf8(c.pressure));
            EXPECT_EQ(dialog->ShowAll(), nullptr) << "no output part";
            Button(dialog, ok)->click();
        });
        EXPECT_TRUE(OpenUnitOptions(ws, false, &fixture.Window()));
        EXPECT_EQ(ws.outputOptions.units.numDec, c.numDec);
        EXPECT_EQ(ws.outputOptions.units.units, c.units);
        EXPECT_EQ(ws.outputOptions.units.order, c.order);
        EXPECT_EQ(ws.outputOptions.formats.scientific, "%." + std::to_string(c.numDec) + "E");
    }

    test::WhenWindowShows(QStringLiteral("FrmUnitPlus"), [&](QWidget* window) {
        auto* dialog = static_cast<UnitOptionsDialog*>(window);
        dialog->OnlyAbove()->click();
        EXPECT_TRUE(dialog->CutOff()->isEnabled());
        EXPECT_TRUE(dialog->FreeAlways()->isEnabled());
        dialog->CutOff()->setText(QStringLiteral("0.01"));
        if (dialog->ShowLogs()->isChecked()) dialog->ShowLogs()->click();
        Button(dialog, ok)->click();
    });
    EXPECT_TRUE(OpenUnitOptions(ws, true, &fixture.Window()));
    EXPECT_FALSE(ws.outputOptions.showAll);
    EXPECT_DOUBLE_EQ(ws.outputOptions.cutOff, 0.0001);
    EXPECT_FALSE(ws.outputOptions.showLogs);

    const OutputOptions before = ws.outputOptions;
    test::WhenWindowShows(QStringLiteral("FrmUnitPlus"), [&](QWidget* window) {
        auto* dialog = static_cast<UnitOptionsDialog*>(window);
        EXPECT_EQ(dialog->CutOff()->text(), QStringLiteral("0.010"));
        dialog->ShowAll()->click();
        EXPECT_FALSE(dialog->CutOff()->isEnabled());
        QTest::mouseClick(dialog->UnitButton(0), Qt::LeftButton, {}, QPoint(5, 5));
        Button(dialog, cancel)->click();
    });
    EXPECT_FALSE(OpenUnitOptions(ws, true, &fixture.Window()));
    EXPECT_EQ(ws.outputOptions.units.order, before.units.order);
    EXPECT_EQ(ws.outputOptions.showAll, before.showAll);
}

}  // namespace
}  // namespace tormel
