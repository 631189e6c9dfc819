#include "ui/output/open_print_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/messages.h"
#include "shell/workspace.h"
#include "ui/main/image_resources.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"
#include "ui/output/result_print.h"

namespace tormel {

PrintDialog::PrintDialog(Workspace& ws, int32_t set, QWidget* owner) : QDialog(owner), ws_(ws), set_(set) {
    const Language& lang = ws.language;
    auto text = [&](const char* key) { return LangQ(lang, "PrintOutput", key); };
    setObjectName(QStringLiteral("FrmPrintOutput"));
    setWindowTitle(text("WindowCaption"));
    setWindowIcon(ResourceIcon(QStringLiteral("IMG_ICONPRINT")));
    const PrintSettings stored = ReadPrintSettings(ws.settings);

    printer_ = new QComboBox;
    printer_->addItem(text("PdfFile"));
    printer_->addItems(QPrinterInfo::availablePrinterNames());
    pdfFile_ = new QLineEdit;
    pdfFile_->setMinimumWidth(Scaled(280));
    auto* browse = new QToolButton;
    browse->setText(QStringLiteral("…"));
    const bool toPdf = PrintsToPdf(stored) || printer_->findText(Q(stored.printer)) < 0;
    printer_->setCurrentIndex(toPdf ? 0 : printer_->findText(Q(stored.printer)));
    pdfFile_->setText(PrintsToPdf(stored) && !stored.printer.empty()
                          ? Q(stored.printer)
                          : Q(ws.folders.outputFolder) + QStringLiteral("results.pdf"));
    auto pdfShown = [this, browse] {
        pdfFile_->setEnabled(printer_->currentIndex() == 0);
        browse->setEnabled(printer_->currentIndex() == 0);
    };
    pdfShown();
    connect(printer_, &QComboBox::currentIndexChanged, this, pdfShown);
    connect(browse, &QToolButton::clicked, this, [this, text] {
        const QString path = QFileDialog::getSaveFileName(this, text("WindowCaption"), pdfFile_->text(),
                                                          QStringLiteral("PDF (*.pdf)"));
        if (!path.isEmpty()) pdfFile_->setText(path);
    });
    auto* pdfRow = new QHBoxLayout;
    pdfRow->addWidget(pdfFile_);
    pdfRow->addWidget(browse);

    auto* portrait = new QRadioButton(text("Portrait"));
    landscape_ = new QRadioButton(text("Landscape"));
    (stored.orientation == QPageLayout::Landscape ? landscape_ : portrait)->setChecked(true);
    auto* orientation = new QHBoxLayout;
    orientation->addWidget(portrait);
    orientation->addWidget(landscape_);

    static const char* const kWhat[5] = {"PrintSummary", "PrintDetails", "PrintOtherInfo", "PrintGraphs",
                                         "GraphsColor"};
    const bool values[5] = {stored.summary, stored.details, stored.otherInfo, stored.graphs, stored.graphsColour};
    auto* what = new QVBoxLayout;
    for (int i = 0; i < 5; ++i) {
        what_[static_cast<size_t>(i)] = new QCheckBox(text(kWhat[i]));
        what_[static_cast<size_t>(i)]->setChecked(values[i]);
        what->addWidget(what_[static_cast<size_t>(i)]);
    }

    style_ = new QComboBox;
    style_->addItems({text("StyleColoured"), text("StyleGrid"), text("StylePlain")});
    style_->setCurrentIndex(static_cast<int>(stored.tableStyle));
    font_ = new QFontComboBox;
    font_->setCurrentFont(QFont(Q(stored.fontFamily)));
    fontSize_ = new QSpinBox;
    fontSize_->setRange(6, 24);
    fontSize_->setValue(stored.fontSize);

    auto* marginsBox = new QGroupBox(LangQ(lang, "PrintMargins", "WindowCaption"));
    auto* marginsForm = new QFormLayout(marginsBox);
    static const char* const kSides[4] = {"Left", "Top", "Right", "Bottom"};
    const double stored4[4] = {stored.marginsMm.left(), stored.marginsMm.top(), stored.marginsMm.right(),
                               stored.marginsMm.bottom()};
    for (int i = 0; i < 4; ++i) {
        auto* spin = new QDoubleSpinBox;
        spin->setRange(0, 60);
        spin->setDecimals(1);
        spin->setSuffix(QStringLiteral(" ") + LangQ(lang, "PrintMargins", "Unit"));
        spin->setValue(stored4[i]);
        margins_[static_cast<size_t>(i)] = spin;
        marginsForm->addRow(LangQ(lang, "PrintMargins", kSides[i]), spin);
    }

    auto* form = new QFormLayout;
    form->addRow(text("Printer"), printer_);
    form->addRow(QString(), pdfRow);
    form->addRow(text("Orientation"), orientation);
    form->addRow(QString(), what);
    form->addRow(text("TableStyle"), style_);
    form->addRow(text("Font"), font_);
    form->addRow(text("FontSize"), fontSize_);

    auto* buttons = new QDialogButtonBox;
    buttons->addButton(text("OK"), QDialogButtonBox::AcceptRole);
    buttons->addButton(text("Cancel"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* columns = new QHBoxLayout;
    columns->addLayout(form);
    columns->addWidget(marginsBox, 0, Qt::AlignTop);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addWidget(buttons);
}

PrintSettings PrintDialog::Choices() const {
    PrintSettings p;
    p.summary = what_[0]->isChecked();
    p.details = what_[1]->isChecked();
    p.otherInfo = what_[2]->isChecked();
    p.graphs = what_[3]->isChecked();
    p.graphsColour = what_[4]->isChecked();
    const QString pdf = pdfFile_->text().trimmed().isEmpty() ? Q(ws_.folders.outputFolder) + QStringLiteral("results.pdf")
                                                             : pdfFile_->text().trimmed();
    p.printer = S(printer_->currentIndex() == 0 ? pdf : printer_->currentText());
    if (printer_->currentIndex() == 0 && !PrintsToPdf(p))
        p.printer += ".pdf";
    p.orientation = landscape_->isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait;
    p.marginsMm = QMarginsF(margins_[0]->value(), margins_[1]->value(), margins_[2]->value(), margins_[3]->value());
    p.tableStyle = static_cast<PrintTableStyle>(style_->currentIndex());
    p.fontFamily = S(font_->currentFont().family());
    p.fontSize = fontSize_->value();
    return p;
}

PrintJobOutcome PrintDialog::Print() {
    const PrintSettings settings = Choices();
    WritePrintSettings(settings, ws_.settings);
    PrintJobOutcome outcome;
    outcome.toPdf = PrintsToPdf(settings);
    outcome.target = settings.printer;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QStringLiteral("Output TORMEL Next (64 bits)"));
    printer.setCreator(QStringLiteral("TORMEL Next"));
    if (outcome.toPdf) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(Q(settings.printer));
    } else {
        printer.setPrinterName(Q(settings.printer));
    }
    printer.setPageLayout(PrintPageLayout(printer.pageLayout(), settings, outcome.toPdf));
    outcome.pages = PrintResultSet(printer, ws_, set_, settings, QString());
    return outcome;
}

void OpenPrintDialogForSet(Workspace& ws, int32_t set, QWidget* owner) {
    PrintDialog dialog(ws, set, owner);
    if (dialog.exec() == QDialog::Accepted) dialog.Print();
}

void OpenPrintDialog(Workspace& ws, QWidget* owner) { OpenPrintDialogForSet(ws, 0, owner); }

}  // namespace tormel
