#pragma once
// The printing dialog ("FrmPrintOutput") for a result set: printer or PDF
// file, what is printed, orientation, margins, font and table style; the
// choices are remembered in [Output].
#include <cstdint>

#include <QDialog>

#include "ui/output/print_settings.h"
#include "ui/output/print_without_dialog.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFontComboBox;
class QLineEdit;
class QRadioButton;
class QSpinBox;

namespace tormel {

struct Workspace;

class PrintDialog : public QDialog {
public:
    PrintDialog(Workspace& ws, int32_t set, QWidget* owner);
    // The choices as the controls show them.
    PrintSettings Choices() const;
    // Stores the choices and prints the set; answers what was printed.
    PrintJobOutcome Print();

    QComboBox* Printer() const { return printer_; }
    QLineEdit* PdfFile() const { return pdfFile_; }

private:
    Workspace& ws_;
    int32_t set_;
    QComboBox* printer_ = nullptr;
    QLineEdit* pdfFile_ = nullptr;
    QRadioButton* landscape_ = nullptr;
    std::array<QCheckBox*, 5> what_{};
    QComboBox* style_ = nullptr;
    QFontComboBox* font_ = nullptr;
    QSpinBox* fontSize_ = nullptr;
    std::array<QDoubleSpinBox*, 4> margins_{};
};

// Opens the dialog for result set 0.
void OpenPrintDialog(Workspace& ws, QWidget* owner);
// Opens the dialog for `set` (modal).
void OpenPrintDialogForSet(Workspace& ws, int32_t set, QWidget* owner);

}  // namespace tormel
