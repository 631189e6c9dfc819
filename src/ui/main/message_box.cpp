#include "ui/main/message_box.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <algorithm>

#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"

namespace tormel {

namespace {

// Design sizes of the client area (the window's 450 by 194 or 160 less its frame).
constexpr int kClientWidth = 434;
constexpr int kClientHeightWithCheck = 155;
constexpr int kClientHeightPlain = 121;
constexpr int kTextLeft = 60;
constexpr int kLineHeight = 18;

QStringList SplitLines(const std::vector<std::string>& entries) {
    QStringList lines;
    for (const std::string& entry : entries) lines += Q(entry).split(QLatin1Char('\n'));
    return lines;
}

QStyle::StandardPixmap IconPixmap(int32_t icon) {
    switch (icon) {
        case IconError: return QStyle::SP_MessageBoxCritical;
        case IconQuestion: return QStyle::SP_MessageBoxQuestion;
        case IconWarning: return QStyle::SP_MessageBoxWarning;
        default: return QStyle::SP_MessageBoxInformation;
    }
}

}  // namespace

void CentreOnOwner(QWidget* window, const QWidget* owner) {
    if (!owner) return;
    const QRect o = owner->frameGeometry();
    window->move(o.left() + (o.width() - window->width()) / 2, o.top() + (o.height() - window->height()) / 2);
}

MessageBoxWindow::MessageBoxWindow(const MessageBoxRequest& request, QWidget* owner)
    : QDialog(owner), request_(request) {
    setObjectName(QStringLiteral("FrmMesgBoxChk"));
    setWindowTitle(Q(request.caption));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    setFont(UiFont());

    const QStringList lines = SplitLines(request.lines);
    const QFontMetrics metrics(font());
    int widest = 0;
    for (int n = 0; n < lines.size(); ++n) {
        auto* label = new QLabel(lines[n], this);
        label->setObjectName(QStringLiteral("line%1").arg(n));
        const int width = metrics.horizontalAdvance(lines[n]) + Scaled(4);
        widest = std::max(widest, width);
        label->setGeometry(Scaled(kTextLeft), Scaled(13 + kLineHeight * n), width,
                           std::max(Scaled(kLineHeight), metrics.height()));
    }
    extraHeight_ = lines.size() > 4 ? kLineHeight * static_cast<int>(lines.size() - 4) : 0;

    // A line wider than the text column widens the box so that it shows whole.
    int clientWidth = std::max(Scaled(kClientWidth), Scaled(kTextLeft + 16) + widest);

    if (request.showCheckBox) {
        checkBox_ = new QCheckBox(Q(request.checkBoxText), this);
        checkBox_->setObjectName(QStringLiteral("checkBox"));
        clientWidth = std::max(clientWidth, Scaled(kTextLeft + 16) + checkBox_->sizeHint().width());
    }
    int buttonWidth = Scaled(81);
    for (const std::string& text : request.buttons)
        buttonWidth = std::max(buttonWidth, metrics.horizontalAdvance(Q(text)) + Scaled(12) + Scaled(12));
    const int count = static_cast<int>(request.buttons.size());
    clientWidth = std::max(clientWidth, count * buttonWidth + (count + 1) * Scaled(16));
    const int buttonTop = Scaled(89 + extraHeight_);
    for (int k = 0; k < count; ++k) {
        auto* button = new QPushButton(Q(request.buttons[k]), this);
        button->setObjectName(QStringLiteral("button%1").arg(k + 1));
        button->setAutoDefault(false);
        int x = (clientWidth - buttonWidth) / 2;
        if (count > 1) {
            const int gap = (clientWidth - 2 * Scaled(16) - count * buttonWidth) / (count - 1);
            x = Scaled(16) + k * (buttonWidth + gap);
            if (k == count - 1) x = clientWidth - Scaled(16) - buttonWidth;
        }
        button->setGeometry(x, buttonTop, buttonWidth, Scaled(28));
        button->setDefault(k + 1 == request.enterResult);
        connect(button, &QPushButton::clicked, this, [this, k] { Finish(k + 1); });
        buttons_.push_back(button);
    }

    int clientHeight = Scaled(kClientHeightPlain + extraHeight_);
    if (checkBox_) {
        checkBox_->setGeometry(Scaled(kTextLeft), Scaled(129 + extraHeight_), clientWidth - Scaled(kTextLeft + 8),
                               Scaled(24));
        clientHeight = Scaled(kClientHeightWithCheck + extraHeight_);
    }
    setFixedSize(clientWidth, clientHeight);

    if (!buttons_.empty()) {
        const int focused = request.enterResult >= 2 && request.enterResult <= count ? request.enterResult - 1 : 0;
        buttons_[static_cast<size_t>(focused)]->setFocus();
    }
    CentreOnOwner(this, owner);
}

MessageBoxAnswer MessageBoxWindow::Answer() const { return MessageBoxAnswer{result_, checked_}; }

void MessageBoxWindow::Finish(int result) {
    result_ = result;
    checked_ = checkBox_ && checkBox_->isChecked();
    done(result);
}

void MessageBoxWindow::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        if (request_.enterResult > 0) return Finish(request_.enterResult);
        for (size_t k = 0; k < buttons_.size(); ++k)
            if (buttons_[k]->hasFocus()) return Finish(static_cast<int>(k + 1));
        return;
    }
    if (key == Qt::Key_Escape) {
        if (request_.escapeResult > 0) Finish(request_.escapeResult);
        return;  // without an Escape answer the box stays
    }
    QDialog::keyPressEvent(event);
}

void MessageBoxWindow::closeEvent(QCloseEvent* event) {
    // the close box answers 0
    checked_ = checkBox_ && checkBox_->isChecked();
    result_ = 0;
    QDialog::closeEvent(event);
}

void MessageBoxWindow::paintEvent(QPaintEvent* event) {
    QDialog::paintEvent(event);
    QPainter painter(this);
    const int size = Scaled(32);
    painter.drawPixmap(Scaled(10), Scaled(10), style()->standardIcon(IconPixmap(request_.icon)).pixmap(size, size));
}

MessageBoxAnswer ShowMessageBoxWindow(const MessageBoxRequest& request, QWidget* owner, bool* uiReady) {
    if (uiReady) *uiReady = false;
    MessageBoxWindow box(request, owner);
    box.exec();
    if (uiReady) *uiReady = true;
    return box.Answer();
}

}  // namespace tormel
