#pragma once
// The progress window of a calculation: iteration, largest remaining ratio
// with its component, ionic strength, the convergence bar and, with
// precipitation, the solids bar and the list of solids that entered; its
// Cancel button asks the solver to stop.
#include <QDialog>

#include "core/ui_services.h"
#include "output/number_text.h"

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QGroupBox;

namespace tormel {

class Language;

class ProgressWindow : public QDialog {
    Q_OBJECT
public:
    // `criterion` is the convergence criterion of the input (it sets the
    // number of digits of the ratios); `withSolids` adds the solids part.
    ProgressWindow(const Language& language, double criterion, bool withSolids, DecimalSeparator separator,
                   QWidget* owner);

    // Shows one iteration's state; true once the user has cancelled.
    bool Update(const SolverProgress& progress);
    bool CancelRequested() const { return cancelled_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLabel* AddValueRow(const QString& label, int row, QWidget* parent);

    int digits_ = 3;
    DecimalSeparator separator_;
    QLabel* iteration_ = nullptr;
    QLabel* ratio_ = nullptr;
    QLabel* component_ = nullptr;
    QLabel* ionicStrength_ = nullptr;
    QProgressBar* bar_ = nullptr;
    QLabel* solidsPresent_ = nullptr;
    QProgressBar* solidBar_ = nullptr;
    QListWidget* solids_ = nullptr;
    QPushButton* cancel_ = nullptr;
    bool cancelled_ = false;
};

// Digits of the ratios shown: min(max(-trunc(log10(criterion - 1)), 1), 10).
int RatioDigits(double criterion);

}  // namespace tormel
