#include "ui/main/wait_window.h"

#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <cmath>

#include "ui/main/message_box.h"
#include "ui/main/scaled.h"

namespace tormel {

namespace {

constexpr int kCircles = 12;
constexpr double kCentreX = 40;
constexpr double kCentreY = 68;
constexpr double kRadius = 30;

}  // namespace

WaitWindow::WaitWindow(const QString& caption, QWidget* owner) : QDialog(owner) {
    setObjectName(QStringLiteral("FrmDisplayWait"));
    setWindowTitle(caption);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowStaysOnTopHint | Qt::CustomizeWindowHint);
    setFont(UiFont());
    setFixedSize(Scaled(534), Scaled(141));  // 550 by 180 with its frame
    text_ = new QLabel(this);
    text_->setObjectName(QStringLiteral("waitText"));
    text_->setGeometry(Scaled(92), Scaled(45), Scaled(410), Scaled(57));
    text_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    text_->setWordWrap(true);
    timer_ = new QTimer(this);
    connect(timer_, &QTimer::timeout, this, &WaitWindow::Tick);
    timer_->start(200);
    CentreOnOwner(this, owner);
}

void WaitWindow::SetText(const QString& text) { text_->setText(text); }

QString WaitWindow::Text() const { return text_->text(); }

void WaitWindow::Tick() {
    if (++step_ == 13) step_ = 1;  // the dark end turns
    update();
}

void WaitWindow::paintEvent(QPaintEvent* event) {
    QDialog::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0xF0, 0xF0, 0xF0), Scaled(3)));
    for (int k = 1; k <= kCircles; ++k) {
        const int grey = 18 * (k - 1);
        painter.setBrush(QColor(grey, grey, grey));
        const double diameter = 2 * std::round(7 * (1 + (6.5 - k) * 0.4 / 11));
        const double angle = ((k - step_) * -30.0 + 30.0) * M_PI / 180.0;
        const double x = kCentreX + kRadius * std::cos(angle) - 4;
        const double y = kCentreY + kRadius * std::sin(angle) - 4;
        painter.drawEllipse(QRectF(Scaled(x), Scaled(y), Scaled(diameter), Scaled(diameter)));
    }
}

}  // namespace tormel
