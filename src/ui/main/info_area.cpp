// The information area of the main window: the program's title drawn as
// outlined text, what it is and who made it, its folders with a link to the
// web site, and thanks. Also the lines that connect a panel to its tile.
#include <QCoreApplication>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QStatusBar>

#include "output/export_rows.h"
#include "shell/workspace.h"
#include "ui/main/command_table.h"
#include "ui/main/help_pages.h"
#include "ui/main/main_window.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"

namespace tormel {

namespace {

const char* kTitle = "This is TORMEL Next (64 bits)";

struct InfoAreaLines {
    QStringList one, two, three;
};

InfoAreaLines BlocksOf(const Workspace& ws) {
    InfoAreaLines blocks;
    blocks.one = {QStringLiteral("Chemical equilibria in natural and laboratory waters: speciation, precipitation,"),
                  QStringLiteral("redox, adsorption and binding by dissolved organic matter."),
                  QStringLiteral("Made by the TORMEL Next developers, with the thermodynamic data of MINTEQA2 v4."),
                  QStringLiteral("Version: ") + Q(ProgramFileVersion())};
    blocks.two = {QStringLiteral("Program directory: ") + Q(ws.folders.programFolder),
                  QStringLiteral("Working directory (input, data, output files): ") + Q(ws.folders.workingFolder),
                  QStringLiteral("PDF-documents: ") + Q(ws.folders.documentsFolder), QStringLiteral("Website: ")};
    blocks.three = {QStringLiteral("Thanks to:"),
                    QStringLiteral("the authors of MINTEQA2 and of the humic-ion binding models,"),
                    QStringLiteral("and everyone who reported problems and tested new versions.")};
    return blocks;
}

}  // namespace

void MainWindow::PaintInfoArea() {
    ClosePanel();
    infoShown_ = true;
    webLink_ = new QLabel(this);
    webLink_->setObjectName(QStringLiteral("webLink"));
    webLink_->setCursor(Qt::PointingHandCursor);
    webLink_->setText(WebLinkUrl(ws_.folders, ws_.settings, WebLink::Website).toString());
    QPalette palette = webLink_->palette();
    const auto colour = static_cast<uint32_t>(ws_.settings.ReadSettingInt("Options", "ColorHyperL"));
    palette.setColor(QPalette::WindowText, QColor(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                                                  static_cast<int>((colour >> 16) & 0xFF)));
    webLink_->setPalette(palette);
    webLink_->installEventFilter(this);
    webLink_->hide();
    update();
}

void MainWindow::paintEvent(QPaintEvent* event) {
    QMainWindow::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!panelLines_.empty()) {
        painter.setPen(QPen(QColor(231, 76, 60), Scaled(10), Qt::SolidLine, Qt::FlatCap));
        for (const QLine& line : panelLines_) painter.drawLine(line);
    }
    if (infoShown_) DrawInfoArea(painter);
}

void MainWindow::DrawInfoArea(QPainter& painter) {
    if (!tilesBuilt_) return;
    const int W = width();
    const QColor foreground = palette().color(QPalette::WindowText);
    const int top = captions_[0]->geometry().bottom() + Scaled(12);

    // the title, outlined, 97 % of the client width
    QFont titleFont = UiFontAt(20, false, QFont::Black);
    const double titleWidth = QFontMetricsF(titleFont).horizontalAdvance(QString::fromLatin1(kTitle));
    titleFont.setPointSizeF(std::max(6.0, titleFont.pointSizeF() * 0.97 * W / titleWidth));
    const QFontMetrics titleMetrics(titleFont);
    QPainterPath path;
    const double titleX = (W - titleMetrics.horizontalAdvance(QString::fromLatin1(kTitle))) / 2.0;
    path.addText(titleX, top + titleMetrics.ascent(), titleFont, QString::fromLatin1(kTitle));
    painter.setPen(QPen(foreground, Scaled(2)));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    const int titleBottom = top + titleMetrics.height();

    const InfoAreaLines blocks = BlocksOf(ws_);
    const int available = statusBar()->geometry().top() - titleBottom;
    int sizes[3] = {16, 14, 12};
    auto lineHeight = [](int points) { return QFontMetrics(UiFontAt(points)).lineSpacing(); };
    const QString link = webLink_ ? webLink_->text() : QString();
    const QStringList* texts[3] = {&blocks.one, &blocks.two, &blocks.three};
    // the widest line of any block, the web link behind the last line of block two
    auto fitsWidth = [&] {
        for (int b = 0; b < 3; ++b) {
            const QFontMetrics metrics(UiFontAt(sizes[b]));
            for (const QString& line : *texts[b]) {
                const bool withLink = b == 1 && line == texts[b]->back();
                if (Scaled(16) + metrics.horizontalAdvance(withLink ? line + link : line) > W - Scaled(8)) return false;
            }
        }
        return true;
    };
    while (sizes[2] > 4 &&
           (available < 5 * lineHeight(sizes[0]) + 4 * lineHeight(sizes[1]) + 7 * lineHeight(sizes[2]) || !fitsWidth()))
        for (int& size : sizes) --size;

    painter.setPen(foreground);
    int y = titleBottom + lineHeight(sizes[0]) / 2;
    for (int b = 0; b < 3; ++b) {
        const QFont font = UiFontAt(sizes[b]);
        painter.setFont(font);
        const QFontMetrics metrics(font);
        for (const QString& line : *texts[b]) {
            painter.drawText(Scaled(16), y + metrics.ascent(), line);
            if (b == 1 && line == texts[b]->back() && webLink_) {
                webLink_->setFont(font);
                webLink_->adjustSize();
                webLink_->move(Scaled(16) + metrics.horizontalAdvance(line), y);
                webLink_->show();
            }
            y += metrics.lineSpacing();
        }
        y += metrics.lineSpacing() / 2;
    }
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == webLink_ && event->type() == QEvent::MouseButtonRelease) {
        DispatchCommand(kWebLinkCommand);
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

}  // namespace tormel
