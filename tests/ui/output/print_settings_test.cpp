#include "ui/output/print_settings.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace tormel {
namespace {

TEST(PrintSettings, DefaultsOfTheSettingsFile) {
    const PrintSettings p = ReadPrintSettings(Settings());
    EXPECT_TRUE(p.summary && p.details && p.otherInfo && p.graphs && p.graphsColour);
    EXPECT_EQ(p.orientation, QPageLayout::Portrait);
    EXPECT_EQ(p.marginsMm, QMarginsF(10, 10, 10, 10));
    EXPECT_EQ(p.tableStyle, PrintTableStyle::Coloured);
    EXPECT_EQ(p.fontFamily, "Cambria");
    EXPECT_EQ(p.fontSize, 11);
    EXPECT_TRUE(PrintsToPdf(p)) << "no printer named";
}

TEST(PrintSettings, StoredValuesAndTheirLimits) {
    test::TempFolder home;
    Settings settings(home.File("TORMEL64.INI"));
    settings.WriteSettingBool("Output", "PrintSummmary", false);
    settings.WriteSettingBool("Output", "GraphsColor", false);
    settings.WriteSettingInt("Output", "Orientation", 2);
    settings.WriteSettingInt("Output", "PrintMargin1", 2550);   // 25.5 mm
    settings.WriteSettingInt("Output", "PrintMargin2", -300);   // below 0: no margin
    settings.WriteSettingInt("Output", "PrintMargin3", 999999); // more than a page can spare
    settings.WriteSettingInt("Output", "PrintMargin4", 0);
    settings.WriteSettingInt("Output", "TableStyle", 2);
    settings.WriteSettingString("Output", "PrintFontType", "DejaVu Serif");
    settings.WriteSettingInt("Output", "PrintFontSize", 200);
    settings.WriteSettingString("Output", "Printer", "Office Laser");
    const PrintSettings p = ReadPrintSettings(settings);
    EXPECT_FALSE(p.summary);
    EXPECT_TRUE(p.details);
    EXPECT_FALSE(p.graphsColour);
    EXPECT_EQ(p.orientation, QPageLayout::Landscape);
    EXPECT_EQ(p.marginsMm, QMarginsF(25.5, 0, 60, 0));
    EXPECT_EQ(p.tableStyle, PrintTableStyle::Plain);
    EXPECT_EQ(p.fontFamily, "DejaVu Serif");
    EXPECT_EQ(p.fontSize, 24);
    EXPECT_EQ(p.printer, "Office Laser");
}

TEST(PrintSettings, WhichPrinterNamesMeanPdf) {
    struct Case {
        const char* printer;
        bool pdf;
    };
    const Case cases[] = {
        {"", true},          {"   ", true},           {"results.pdf", true}, {"C:\\out\\Results.PDF ", true},
        {"pdf", false},      {"Office Laser", false}, {"my.pdf.printer", false}, {".pd", false},
    };
    for (const Case& c : cases) {
        PrintSettings p;
        p.printer = c.printer;
        EXPECT_EQ(PrintsToPdf(p), c.pdf) << '"' << c.printer << '"';
    }
}

}  // namespace
}  // namespace tormel
