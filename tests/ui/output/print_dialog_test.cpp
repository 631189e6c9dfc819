// The printing dialog prints a result set to a PDF file and remembers the
// choices in [Output].
#include "ui/output/open_print_dialog.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>

#include "ui/desktop_fixture.h"
#include "ui/output/open_output_viewer.h"
#include "ui/output/output_viewer.h"

namespace tormel {
namespace {

TEST(PrintDialog, PrintsToAPdfFileAndRemembersTheChoices) {
    test::StartedDesktop fixture;
    fixture.Window().ReceiveHandover(275, QString::fromStdString(fixture.ExampleInput()));
    fixture.Window().DispatchCommand(1121);
    ASSERT_NE(OpenViewerOfSetZero(), nullptr);
    Settings& settings = fixture.Ws().settings;
    settings.WriteSettingInt("Output", "Orientation", 2);
    settings.WriteSettingInt("Output", "PrintMargin1", 2550);

    PrintDialog dialog(fixture.Ws(), 0, OpenViewerOfSetZero());
    EXPECT_EQ(dialog.Printer()->currentIndex(), 0) << "no printer named: a PDF file";
    const std::string pdf = fixture.folder.File("results");  // ".pdf" is added
    dialog.PdfFile()->setText(QString::fromStdString(pdf));
    const PrintJobOutcome printed = dialog.Print();
    EXPECT_TRUE(printed.toPdf);
    EXPECT_GT(printed.pages, 1);
    EXPECT_GT(std::filesystem::file_size(pdf + ".pdf"), 1000u);
    EXPECT_EQ(settings.ReadSettingString("Output", "Printer"), pdf + ".pdf");
    EXPECT_EQ(settings.ReadSettingInt("Output", "Orientation"), 2) << "the stored choices come back";
    EXPECT_EQ(settings.ReadSettingInt("Output", "PrintMargin1"), 2550);
    OpenViewerOfSetZero()->close();
}

}  // namespace
}  // namespace tormel
