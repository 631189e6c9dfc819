#include "ui/output/pie_chart.h"

#include <gtest/gtest.h>

#include <string>

#include <QImage>
#include <QPainter>

#include "ui/screenshot.h"

namespace tormel {
namespace {

std::string Entries(int count, const std::string& amount) {
    std::string text;
    for (int i = 0; i < count; ++i) text += amount + "|\"s" + std::to_string(i) + "\"|";
    return text;
}

TEST(PieChartText, ParsesEntriesAndTotal) {
    struct Case {
        const char* text;
        size_t entries;
        double total;
        const char* firstLabel;
    };
    const Case cases[] = {
        {"1.000E-03|\"Dissolved Ca\"|2.000E-03|\"Solid Ca\"|3.000E-03|2", 2, 3e-3, "Dissolved Ca"},
        {"-5.000E-04|\"free OH -\"|1.0E-03|1", 1, 1e-3, "free OH -"},
        {"1.0|\"a|b\"|2.0|1", 1, 2.0, "a|b"},  // a bar inside a label
        {"0|0", 0, 0, nullptr},
        {"", 0, 0, nullptr},
        {"1.0|\"unterminated", 0, 0, nullptr},
        {"junk|\"x\"|1|1", 0, 0, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const PieData data = ParsePieText(c.text);
        ASSERT_EQ(data.entries.size(), c.entries);
        EXPECT_DOUBLE_EQ(data.total, c.total);
        if (c.firstLabel) {
            EXPECT_EQ(data.entries[0].label, QString::fromUtf8(c.firstLabel));
        }
    }
}

TEST(PieChartSlices, HiddenAndVisibleSlices) {
    struct Case {
        const char* name;
        std::string text;
        int width;  // of the pie in pixels
        size_t visible;
        double firstSpan;  // degrees, when a slice is visible
        int firstEntry = 0;
    };
    const Case cases[] = {
        {"empty set", "0|0", 150, 0, 0},
        {"one slice fills the pie", "2.0|\"a\"|2.0|1", 150, 1, 360},
        {"zero shares are hidden", "0|\"a\"|1.0|\"b\"|0|\"c\"|1.0|3", 150, 1, 360, 1},
        {"a share of exactly 0.001 is hidden", "0.001|\"a\"|0.999|\"b\"|1.0|2", 150, 1, 359.64, 1},
        {"zero total: no slice", "1.0|\"a\"|0|1", 150, 0, 0},
        {"a thousand tiny slices are all hidden", Entries(1000, "1.0") + "1000|1000", 150, 0, 0},
        {"halves", "1|\"a\"|1|\"b\"|2|2", 150, 2, 180},
        // 0.2 % of a pie 10 pixels wide ends on the pixel it starts on
        {"too thin for one pixel", "0.002|\"thin\"|0.998|\"rest\"|1.0|2", 5, 1, 359.28, 1},
        {"wide enough", "0.002|\"thin\"|0.998|\"rest\"|1.0|2", 1500, 2, 0.72},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::vector<PieSlice> slices = VisiblePieSlices(ParsePieText(c.text), c.width);
        ASSERT_EQ(slices.size(), c.visible);
        if (c.visible) {
            EXPECT_NEAR(slices[0].spanDegrees, c.firstSpan, 0.01);
            EXPECT_EQ(slices[0].entry, c.firstEntry);
        }
        // the colours of the visible slices stay consecutive
        for (size_t k = 0; k < slices.size(); ++k) EXPECT_EQ(slices[k].colour, static_cast<int>(k));
    }
}

QImage Draw(const std::string& text) {
    QImage image(480, 260, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    DrawPieChart(painter, QRectF(0, 0, 480, 260), ParsePieText(text),
                 {QStringLiteral("Species"), QStringLiteral("Negative amounts cannot be shown."), true, true});
    return image;
}

TEST(PieChartDrawing, WhatThePanelShows) {
    const QPoint centre(170, 118);        // the pie's centre: 20 + r, middle - 12
    const QPoint upperRight(230, 80);     // in the first quarter (counter-clockwise from 3 o'clock)
    const QPoint rim(170, 118 + 98 + 7);  // under the pie's lower edge
    const QColor background(251, 251, 251);
    struct Case {
        const char* name;
        std::string text;
        bool pie;  // a pie is drawn
    };
    const Case cases[] = {
        {"empty set", "0|0", false},
        {"one slice", "1|\"only\"|1|1", true},
        {"zero shares", "0|\"a\"|0|\"b\"|1|2", false},
        {"negative amount", "-1|\"OH\"|2|\"H\"|1|2", false},
        {"a thousand tiny slices", Entries(1000, "1.0") + "1000|1000", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const QImage image = Draw(c.text);
        EXPECT_EQ(image.pixelColor(centre) != background, c.pie);
        EXPECT_EQ(image.pixelColor(rim) != background, c.pie) << "the rim below the pie";
    }
    // One slice: the whole pie in the first colour, the rim in its shade.
    const QImage one = Draw("1|\"only\"|1|1");
    EXPECT_EQ(one.pixelColor(upperRight).rgb(), PieFillColour(0).rgb());
    EXPECT_EQ(one.pixelColor(rim).rgb(), PieRimColour(0).rgb());
    // Two halves: the upper half is the first slice, the lower the second.
    const QImage halves = Draw("1|\"a\"|1|\"b\"|2|2");
    EXPECT_EQ(halves.pixelColor(170, 60).rgb(), PieFillColour(0).rgb());
    EXPECT_EQ(halves.pixelColor(170, 170).rgb(), PieFillColour(1).rgb());
    // The negative note replaces the pie: dark text near the top left.
    const QImage negative = Draw("-1|\"OH\"|2|\"H\"|1|2");
    bool text = false;
    for (int x = 5; x < 200 && !text; ++x)
        for (int y = 5; y < 22 && !text; ++y) text = negative.pixelColor(x, y).lightness() < 128;
    EXPECT_TRUE(text);
}

TEST(PieChartDrawing, GreyForPrintingWithoutColours) {
    for (int k = 0; k < 8; ++k) {
        const QColor c = PieFillColour(k, false);
        EXPECT_EQ(c.red(), c.green());
        EXPECT_EQ(c.green(), c.blue());
        EXPECT_LT(PieRimColour(k, false).lightness(), c.lightness());
        if (k > 0) {
            EXPECT_NE(c, PieFillColour(k - 1, false));
        }
    }
}

// The pie charts of a water, a negative amount and a single slice, for a
// person to look at.
TEST(Screenshots, PieCharts) {
    if (!test::ScreenshotsWanted()) GTEST_SKIP() << "run by scripts/screenshots.sh";
    QImage sheet(960, 520, QImage::Format_ARGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    const char* texts[] = {
        "6.1E-04|\"Dissolved Ca\"|2.0E-04|\"Adsorbed Ca\"|1.5E-04|\"Precipitated Ca\"|4.0E-05|\"Organically bound Ca\"|1.0E-03|4",
        "8.0E-04|\"free Ca 2+\"|1.2E-04|\"CaHCO3 +\"|6.0E-05|\"CaCO3 (aq)\"|1.8E-05|\"CaSO4 (aq)\"|2.0E-06|\"CaOH +\"|1.0E-03|5",
        "-1|\"free OH -\"|2|\"free H +\"|1|2",
        "1|\"only one\"|1|1",
    };
    for (int k = 0; k < 4; ++k)
        DrawPieChart(painter, QRectF((k % 2) * 480, (k / 2) * 260, 480, 260), ParsePieText(texts[k]),
                     {QStringLiteral("Fractions"), QStringLiteral("Negative amounts cannot be shown in a pie chart."),
                      k != 1, true});
    painter.end();
    ASSERT_TRUE(sheet.save(test::ScreenshotPath(QStringLiteral("pie_charts"))));
}

}  // namespace
}  // namespace tormel
