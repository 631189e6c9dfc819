#pragma once
// The small window ("FrmNeutr") of a neutral-solution calculation: which
// ions are adjusted (the caption), the pass and the amount added so far.
#include <QDialog>

#include "core/ui_services.h"

class QLabel;

namespace tormel {

class NeutraliseWindow : public QDialog {
    Q_OBJECT
public:
    explicit NeutraliseWindow(QWidget* owner);
    void Show(const NeutraliseWindowText& text);
    QString Line1() const;
    QString Line2() const;

private:
    QLabel* line1_ = nullptr;
    QLabel* line2_ = nullptr;
};

}  // namespace tormel
