#include "ui/main/image_resources.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "ui/screenshot.h"

namespace tormel {
namespace {

// Every image name the windows ask for, with the size it must come in.
struct NamedImage {
    const char* name;
    int width;
    int height;
};
constexpr NamedImage kImages[] = {
    {"IMG_NEW24", 24, 24},        {"IMG_OPEN24", 24, 24},      {"IMG_EDIT24", 24, 24},
    {"IMG_SAVE24", 24, 24},       {"IMG_CALC24", 24, 24},      {"IMG_TITR24", 24, 24},
    {"IMG_CLBR24", 24, 24},       {"IMG_VIEW24", 24, 24},      {"IMG_PRNT24", 24, 24},
    {"IMG_XPRT24", 24, 24},       {"IMG_VIEWCOMP24", 24, 24},  {"IMG_MANAGEDB24", 24, 24},
    {"IMG_INFO24", 24, 24},       {"IMG_CONTENT24", 24, 24},   {"IMG_OPTS24", 24, 24},
    {"IMG_GETSTART24", 24, 24},   {"IMG_INDX24", 24, 24},      {"IMG_SEARCH24", 24, 24},
    {"IMG_CONTACT24", 24, 24},    {"IMG_WWW24", 24, 24},       {"IMG_EMAIL24", 24, 24},
    {"IMG_FB24", 24, 24},         {"IMG_YT24", 24, 24},
    {"IMG_INPUT96", 96, 96},      {"IMG_CALC96", 96, 96},      {"IMG_OUTPUT96", 96, 96},
    {"IMG_DATAB96", 96, 96},      {"IMG_OPTIONS96", 96, 96},   {"IMG_HELP96", 96, 96},
    {"IMG_ICONCANCEL", 32, 32},   {"IMG_ICONCSV", 32, 32},     {"IMG_ICONDB", 32, 32},
    {"IMG_ICONEQARROWS", 24, 16}, {"IMG_ICONHELP", 32, 32},    {"IMG_ICONINPUT", 32, 32},
    {"IMG_ICONOK", 32, 32},       {"IMG_ICONOPT", 32, 32},     {"IMG_ICONOUTPUT", 32, 32},
    {"IMG_ICONPIESDBOTTOM", 32, 32}, {"IMG_ICONPIESDRIGHT", 32, 32}, {"IMG_ICONPLUS", 32, 32},
    {"IMG_ICONPRINT", 32, 32},    {"IMG_ICONSAVE", 32, 32},    {"IMG_ICONSRCH", 32, 32},
    {"IMG_ICONVIEWSBS", 32, 32},  {"IMG_ICONXML", 32, 32},     {"IMAGE_TORMEL", 32, 32},
};

// Share of pixels that are drawn (not fully transparent).
double CoveredShare(const QImage& image) {
    int covered = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 0) ++covered;
    return double(covered) / (image.width() * image.height());
}

TEST(ImageResources, EveryNameRendersAVisibleImageAtItsSize) {
    for (const NamedImage& entry : kImages) {
        SCOPED_TRACE(entry.name);
        const QPixmap pixmap = ResourceImage(QString::fromLatin1(entry.name));
        ASSERT_FALSE(pixmap.isNull());
        EXPECT_EQ(pixmap.size(), QSize(entry.width, entry.height));
        // Drawn, yet not a filled square: a drawing that fails to parse or
        // overflows its box shows here.
        const double share = CoveredShare(pixmap.toImage());
        EXPECT_GT(share, 0.12);
        EXPECT_LT(share, 0.98);
        EXPECT_FALSE(ResourceIcon(QString::fromLatin1(entry.name)).isNull());
        // a display scale enlarges the image
        EXPECT_EQ(ResourceImage(QString::fromLatin1(entry.name), 1.5).size(),
                  QSize(entry.width * 3 / 2, entry.height * 3 / 2));
    }
}

// A sheet of every image at its own size on the main window's default
// background (grey), and enlarged to 96 pixels on white, for a person to
// judge the icons' legibility.
TEST(Screenshots, Icons) {
    if (!test::ScreenshotsWanted()) GTEST_SKIP() << "run by scripts/screenshots.sh";
    const int cell = 104;
    const int count = static_cast<int>(std::size(kImages));
    const int rows = (count + 11) / 12;
    QImage sheet(cell * 12, cell * rows * 2, QImage::Format_ARGB32);
    sheet.fill(QColor(127, 140, 141));
    QPainter painter(&sheet);
    painter.fillRect(0, cell * rows, sheet.width(), cell * rows, Qt::white);
    for (int i = 0; i < count; ++i) {
        const QString name = QString::fromLatin1(kImages[i].name);
        const QPoint at((i % 12) * cell + 4, (i / 12) * cell + 4);
        painter.drawPixmap(at, ResourceImage(name));
        painter.drawPixmap(at + QPoint(0, cell * rows), ResourceImage(name, 96.0 / kImages[i].width));
    }
    painter.end();
    ASSERT_TRUE(sheet.save(test::ScreenshotPath(QStringLiteral("icons"))));
}

TEST(ImageResources, UnknownNamesGiveNothing) {
    for (const char* name : {"", "IMG_", "IMG_NOSUCH24", "NEW24", "IMG_NEW24X"}) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(ResourceImage(QString::fromLatin1(name)).isNull());
        EXPECT_TRUE(ResourceIcon(QString::fromLatin1(name)).isNull());
        EXPECT_TRUE(ResourceImageSize(QString::fromLatin1(name)).isEmpty());
    }
}

}  // namespace
}  // namespace tormel
