#pragma once
// The wait window ("FrmDisplayWait") shown during start-up and long
// operations: a text beside a turning spinner of twelve circles.
#include <QDialog>

class QLabel;
class QTimer;

namespace tormel {

class WaitWindow : public QDialog {
    Q_OBJECT
public:
    WaitWindow(const QString& caption, QWidget* owner);

    void SetText(const QString& text);
    QString Text() const;
    int Step() const { return step_; }
    // Advances the spinner by one (the timer does this every 200 ms).
    void Tick();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* text_ = nullptr;
    QTimer* timer_ = nullptr;
    int step_ = 1;
};

}  // namespace tormel
