#pragma once
// The text of a radio button or check box as a label of its own, so that it
// wraps within narrow pages: a click on it clicks the button.
#include <QAbstractButton>
#include <QLabel>

namespace tormel {

class ButtonLabel : public QLabel {
public:
    ButtonLabel(const QString& text, QAbstractButton* button, QWidget* parent) : QLabel(text, parent), button_(button) {
        setWordWrap(true);
        button->setAccessibleName(text);
    }

protected:
    void mousePressEvent(QMouseEvent*) override {
        if (button_->isEnabled()) button_->click();
    }

private:
    QAbstractButton* button_;
};

}  // namespace tormel
