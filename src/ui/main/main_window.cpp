#include "ui/main/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <algorithm>

#include "input/input_title.h"
#include "shell/command_line_handler.h"
#include "shell/workspace.h"
#include "ui/main/command_table.h"
#include "ui/main/scaled.h"
#include "ui/main/tile_image.h"
#include "ui/main/ui_text.h"

namespace tormel {

namespace {

// "&Input" as rich text with the accelerator letter underlined.
QString CaptionMarkup(const QString& caption) {
    const qsizetype amp = caption.indexOf(QLatin1Char('&'));
    if (amp < 0 || amp + 1 >= caption.size()) return caption.toHtmlEscaped();
    return caption.left(amp).toHtmlEscaped() + QStringLiteral("<u>") + caption.mid(amp + 1, 1).toHtmlEscaped() +
           QStringLiteral("</u>") + caption.mid(amp + 2).toHtmlEscaped();
}

QString PlainCaption(const QString& caption) {
    QString plain = caption;
    return plain.remove(QLatin1Char('&'));
}

QColor ColourSetting(const Settings& settings, const char* key) {
    const auto value = static_cast<uint32_t>(settings.ReadSettingInt("Options", key));
    return QColor(static_cast<int>(value & 0xFF), static_cast<int>((value >> 8) & 0xFF),
                  static_cast<int>((value >> 16) & 0xFF));
}

}  // namespace

MainWindow::MainWindow(Workspace& ws, MainWindowServices services) : ws_(ws), services_(std::move(services)) {
    setObjectName(QStringLiteral("TORMEL64C"));
    setWindowTitle(QStringLiteral("TORMEL Next 64"));
    setFont(UiFont());
    setCentralWidget(new QWidget(this));
    centralWidget()->setAttribute(Qt::WA_TransparentForMouseEvents);
    status_ = new QLabel(this);
    status_->setObjectName(QStringLiteral("statusLine"));
    statusBar()->addWidget(status_, 1);
    statusBar()->setSizeGripEnabled(true);
    statusBar()->setAutoFillBackground(true);
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, QColor(0x7F, 0x8C, 0x8D));
    setPalette(palette);
    statusBar()->setPalette(QApplication::palette());
    resize(640, 480);
    move(200, 200);
}

MainWindow::~MainWindow() = default;

int MainWindow::AvailableHeight() const { return height() - statusBar()->height(); }

bool MainWindow::ResultsAvailable() const { return ws_.solver.resultExists || ws_.results.holdsLoadedOutput; }

void MainWindow::BuildTiles() {
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, ColourSetting(ws_.settings, "ColorBackGr"));
    palette.setColor(QPalette::WindowText, ColourSetting(ws_.settings, "ColorForeGr"));
    setPalette(palette);
    statusBar()->setPalette(QApplication::palette());

    const int H = AvailableHeight();
    if (!heading_) {
        heading_ = new QLabel(this);
        heading_->setObjectName(QStringLiteral("heading"));
    }
    heading_->setText(LangQ(ws_.language, "MainMenu", "TextOnTop"));
    QFont headingFont = UiFont();
    for (double points = 10; points > 4 && QFontMetrics(headingFont).height() >= 0.05 * H; points -= 0.5)
        headingFont = UiFontAt(points);
    heading_->setFont(headingFont);
    heading_->adjustSize();
    heading_->show();
    headingHeight_ = heading_->height();

    int T = Scaled(96);
    QFontMetrics uiMetrics(UiFont());
    int widestCaption = 1;
    for (int k = 0; k < 6; ++k)
        widestCaption = std::max(widestCaption, uiMetrics.horizontalAdvance(PlainCaption(Q(TileCaption(ws_.language, k)))));
    int captionPoints = std::max(6, 10 * T / widestCaption);
    auto captionFontWidth = [&](int points) {
        QFontMetrics metrics(UiFontAt(points));
        int widest = 0;
        for (int k = 0; k < 6; ++k)
            widest = std::max(widest, metrics.horizontalAdvance(PlainCaption(Q(TileCaption(ws_.language, k)))));
        return widest;
    };
    captionPoints = std::min(captionPoints, 14);
    while (captionPoints > 6 && captionFontWidth(captionPoints) > T) --captionPoints;
    auto captionHeight = [&] { return QFontMetrics(UiFontAt(captionPoints)).height(); };
    while (headingHeight_ + T + captionHeight() > 0.229 * H && T > Scaled(24)) {
        --T;
        if (captionFontWidth(captionPoints) > T && captionPoints > 6) --captionPoints;
    }
    tileSize_ = T;
    captionHeight_ = captionHeight();

    for (int k = 0; k < 6; ++k) {
        if (!tileImages_[k]) {
            tileImages_[k] = new TileImage(this, k);
            captions_[k] = new QLabel(this);
            captions_[k]->setObjectName(QStringLiteral("tileCaption%1").arg(k));
            captions_[k]->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
            captions_[k]->setTextFormat(Qt::RichText);
        }
        const QString caption = Q(TileCaption(ws_.language, k));
        captions_[k]->setText(CaptionMarkup(caption));
        captions_[k]->setFont(UiFontAt(captionPoints));
        QPixmap image = services_.image ? services_.image(TileImageName(k), T) : QPixmap();
        if (image.isNull()) {
            tileImages_[k]->setText(PlainCaption(caption).left(1));
            tileImages_[k]->setFont(UiFontAt(std::max(8, T / 3)));
            tileImages_[k]->setStyleSheet(QStringLiteral("border: 2px solid palette(window-text); border-radius: 8px;"));
        } else {
            tileImages_[k]->setPixmap(image.scaled(T, T, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        }
        // Alt + the letter after "&" opens the tile's panel
        const qsizetype amp = caption.indexOf(QLatin1Char('&'));
        if (amp >= 0 && amp + 1 < caption.size() && !tilesBuilt_) {
            auto* shortcut = new QShortcut(QKeySequence(QStringLiteral("Alt+") + caption.mid(amp + 1, 1).toUpper()), this);
            connect(shortcut, &QShortcut::activated, this, [this, k] { DispatchCommand(kTileCaptionCommand + k); });
        }
        tileImages_[k]->show();
        captions_[k]->show();
    }
    if (!tilesBuilt_) {
        auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
        connect(help, &QShortcut::activated, this, [this] { DispatchCommand(kTileCaptionCommand + 5); });
    }
    tilesBuilt_ = true;
    LayoutTiles();
    ApplyMinimumSize();
}

void MainWindow::LayoutTiles() {
    const int W = width();
    heading_->move((W - heading_->width()) / 2, 0);
    const int T = tileSize_;
    const int G = (W - (6 * T + Scaled(32))) / 5;
    for (int k = 0; k < 6; ++k) {
        const int x = Scaled(16) + k * (T + G);
        tileImages_[k]->setGeometry(x, headingHeight_, T, T);
        captions_[k]->setGeometry(x - G / 2, headingHeight_ + T, T + G, captionHeight_);
    }
}

void MainWindow::ApplyMinimumSize() {
    const QScreen* screen = this->screen() ? this->screen() : QApplication::primaryScreen();
    const QRect work = screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
    const int width = tilesBuilt_ ? 6 * tileSize_ + Scaled(82) : work.width() * 7 / 10;
    setMinimumSize(width, work.height() * 7 / 10);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (!tilesBuilt_) return;
    ws_.uiReady = false;
    ClosePanel();
    LayoutTiles();
    ws_.uiReady = true;
}

void MainWindow::TileHovered(int tile, const QPoint& globalPosition) {
    if (!firstMouse_) firstMouse_ = globalPosition;
    if (!mouseMoved_) {
        // a pointer resting over a tile at start-up opens nothing
        if (globalPosition == *firstMouse_) return;
        mouseMoved_ = true;
    }
    if (!ws_.uiReady || hoverTile_ == tile) return;
    hoverTile_ = tile;
    if (panelTile_ != tile) OpenPanel(tile);
}

void MainWindow::TileLeft(int tile) {
    if (hoverTile_ == tile) hoverTile_ = -1;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (AskSaveInput()) {
        event->ignore();
        return;
    }
    event->accept();
}

void MainWindow::UpdateStatusLine() {
    std::string title = InputTitle(ws_.input, ws_.folders.inputFolder);
    if (title.size() > 259) title.resize(259);
    status_->setText(Q(title));
}

QString MainWindow::StatusText() const { return status_->text(); }

QLabel* MainWindow::TileCaptionLabel(int tile) const { return captions_.at(static_cast<size_t>(tile)); }

TileImage* MainWindow::TileImageLabel(int tile) const { return tileImages_.at(static_cast<size_t>(tile)); }

int MainWindow::ReceiveHandover(int dataCode, const QString& path) {
    if (!ws_.uiReady) return 0;
    if (dataCode != 275) return 0;
    const std::string file = S(path.left(260));
    if (path.endsWith(QStringLiteral(".i64"), Qt::CaseInsensitive)) {
        OpenInputFromCommandLine(ws_, file);
        UpdateStatusLine();
    } else if (path.endsWith(QStringLiteral(".o64"), Qt::CaseInsensitive)) {
        CommandLineServices services;
        services.showOutput = [this](Workspace&) { DispatchCommand(1131); };
        OpenOutputFromCommandLine(ws_, file, services);
    }
    return 1;
}

std::optional<std::string> MainWindow::AskFileName(bool save, const QString& filter, const std::string& folder) {
    if (services_.askFileName) return services_.askFileName(save, filter, folder);
    const QString name = save ? QFileDialog::getSaveFileName(this, QString(), Q(folder), filter)
                              : QFileDialog::getOpenFileName(this, QString(), Q(folder), filter);
    if (name.isEmpty()) return std::nullopt;
    return S(name);
}

}  // namespace tormel
