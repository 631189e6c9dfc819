#pragma once
// The unit options dialog ("FrmUnitPlus"): decimals, concentration unit with
// the partial-pressure unit that goes with it, and, when opened from an
// output display, which species the result tables show.
#include <QDialog>
#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QSpinBox;

namespace tormel {

struct Workspace;

class UnitOptionsDialog : public QDialog {
    Q_OBJECT
public:
    UnitOptionsDialog(Workspace& ws, bool withOutputPart, QWidget* owner);

    QSpinBox* Decimals() const { return decimals_; }
    QRadioButton* UnitButton(int index) const { return unitButtons_[static_cast<size_t>(index)]; }
    QLabel* PressureUnit() const { return pressureUnit_; }
    QRadioButton* ShowAll() const { return showAll_; }
    QRadioButton* OnlyAbove() const { return onlyAbove_; }
    QLineEdit* CutOff() const { return cutOff_; }
    QCheckBox* FreeAlways() const { return freeAlways_; }
    QCheckBox* ShowLogs() const { return showLogs_; }
    // Takes the values of the controls (the OK button).
    void Confirm();

private:
    void BuildOutputPart();
    void UpdateOutputEnabling();

    Workspace& ws_;
    bool withOutputPart_;
    QSpinBox* decimals_ = nullptr;
    std::array<QRadioButton*, 8> unitButtons_{};
    QLabel* pressureUnit_ = nullptr;
    QRadioButton* showAll_ = nullptr;
    QRadioButton* onlyAbove_ = nullptr;
    QLineEdit* cutOff_ = nullptr;
    QCheckBox* freeAlways_ = nullptr;
    QCheckBox* showLogs_ = nullptr;
};

}  // namespace tormel
