#include "ui/options/unit_options_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

#include "shell/unit_choice.h"
#include "shell/workspace.h"
#include "ui/input/button_label.h"
#include "ui/main/image_resources.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"

namespace tormel {
namespace {

// Up-down arrows step within 1..9, but the field takes whatever is typed:
// OK clamps it.
class DecimalsBox : public QSpinBox {
public:
    using QSpinBox::QSpinBox;

protected:
    QValidator::State validate(QString&, int&) const override { return QValidator::Acceptable; }
    int valueFromText(const QString& text) const override { return DecimalsOfText(S(text)); }
    void fixup(QString&) const override {}
};

QRect At(int x, int y, int w, int h) { return {Scaled(x), Scaled(y), Scaled(w), Scaled(h)}; }

constexpr int kWidth = 412;  // client width of the 428-pixel window

}  // namespace

UnitOptionsDialog::UnitOptionsDialog(Workspace& ws, bool withOutputPart, QWidget* owner)
    : QDialog(owner), ws_(ws), withOutputPart_(withOutputPart) {
    setObjectName(QStringLiteral("FrmUnitPlus"));
    setWindowTitle(LangQ(ws.language, "UnitOptions", "Caption"));
    setWindowIcon(ResourceIcon(QStringLiteral("IMG_ICONOPT")));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    setFont(UiFont());
    LoadOutputOptions(ws.outputOptions, ws.settings);
    const UnitSettings& units = ws.outputOptions.units;
    const int height = (withOutputPart ? 489 : 305) - 39;  // client height of the window
    setFixedSize(Scaled(kWidth), Scaled(height));
    auto text = [&](const char* key) { return LangQ(ws.language, "UnitOptions", key); };

    auto* decimalsGroup = new QGroupBox(this);
    decimalsGroup->setGeometry(At(16, 8, 390, 67));
    auto* decimalsLabel = new QLabel(text("TxtStaticNumDec"), decimalsGroup);
    decimalsLabel->setGeometry(At(16, 24, 260, 28));
    decimals_ = new DecimalsBox(decimalsGroup);
    decimals_->setObjectName(QStringLiteral("NumDec"));
    decimals_->setRange(1, 9);
    decimals_->setValue(units.numDec);
    decimals_->setGeometry(At(290, 24, 70, 28));

    auto* unitGroup = new QGroupBox(this);
    unitGroup->setGeometry(At(16, 82, 390, 138));
    auto* unitLabel = new QLabel(text("TxtStaticUnit"), unitGroup);
    unitLabel->setGeometry(At(16, 14, 360, 24));
    auto* buttons = new QButtonGroup(this);
    for (int i = 0; i < 8; ++i) {
        auto* button = new QRadioButton(Q(UnitButtonLabel(i)), this);
        button->setGeometry(At(32 + 100 * (i % 4), i < 4 ? 127 : 156, 90, 24));
        buttons->addButton(button, i);
        unitButtons_[static_cast<size_t>(i)] = button;
    }
    const int current = UnitButtonIndex(units);
    if (current >= 0 && current < 8) unitButtons_[static_cast<size_t>(current)]->setChecked(true);
    auto* gasLabel = new QLabel(text("TxtStaticGas"), unitGroup);
    gasLabel->setGeometry(Scaled(16), Scaled(104), gasLabel->sizeHint().width(), Scaled(24));
    pressureUnit_ = new QLabel(Q(PressureLabelOfButton(current)), unitGroup);
    pressureUnit_->setObjectName(QStringLiteral("PressureUnit"));
    pressureUnit_->setGeometry(gasLabel->geometry().right() + Scaled(8), Scaled(104), Scaled(100), Scaled(24));
    connect(buttons, &QButtonGroup::idClicked, this,
            [this](int id) { pressureUnit_->setText(Q(PressureLabelOfButton(id))); });

    if (withOutputPart) BuildOutputPart();

    auto* ok = new QPushButton(text("OK"), this);
    ok->setGeometry(At(15, height + 39 - 71, 100, 27));
    ok->setDefault(true);
    auto* cancel = new QPushButton(text("Cancel"), this);
    cancel->setGeometry(At(307 - 16, height + 39 - 71, 100, 27));
    connect(ok, &QPushButton::clicked, this, [this] {
        Confirm();
        accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void UnitOptionsDialog::BuildOutputPart() {
    const OutputOptions& options = ws_.outputOptions;
    auto text = [&](const char* key) { return LangQ(ws_.language, "UnitOptions", key); };
    auto* speciesGroup = new QGroupBox(this);
    speciesGroup->setGeometry(At(16, 227, 390, 114));
    showAll_ = new QRadioButton(text("OutputAllSpec"), speciesGroup);
    showAll_->setGeometry(At(16, 10, 360, 26));
    onlyAbove_ = new QRadioButton(text("OutputOnlyAbove1"), speciesGroup);
    const int radioWidth = std::min(onlyAbove_->sizeHint().width(), Scaled(220));
    onlyAbove_->setGeometry(Scaled(16), Scaled(42), radioWidth, Scaled(26));
    cutOff_ = new QLineEdit(Q(CutOffText(options.cutOff, ws_.decimalSeparator)), speciesGroup);
    cutOff_->setObjectName(QStringLiteral("CutOff"));
    cutOff_->setGeometry(Scaled(16) + radioWidth + Scaled(4), Scaled(42), Scaled(56), Scaled(26));
    auto* percent = new QLabel(text("OutputOnlyAbove2"), speciesGroup);
    const int percentX = cutOff_->geometry().right() + Scaled(6);
    percent->setWordWrap(true);
    percent->setGeometry(percentX, Scaled(36), Scaled(384) - percentX, Scaled(38));
    freeAlways_ = new QCheckBox(text("OutputOnlyAbove3"), speciesGroup);
    freeAlways_->setGeometry(At(40, 76, 340, 26));
    freeAlways_->setChecked(options.freeAlways);
    (options.showAll ? showAll_ : onlyAbove_)->setChecked(true);
    connect(showAll_, &QRadioButton::toggled, this, [this] { UpdateOutputEnabling(); });
    UpdateOutputEnabling();

    auto* logsGroup = new QGroupBox(this);
    logsGroup->setGeometry(At(16, 348, 390, 56));
    showLogs_ = new QCheckBox(logsGroup);
    showLogs_->setGeometry(At(16, 17, 20, 20));
    showLogs_->setChecked(options.showLogs);
    (new ButtonLabel(text("OutputShowLogs"), showLogs_, logsGroup))->setGeometry(At(40, 6, 340, 44));
}

void UnitOptionsDialog::UpdateOutputEnabling() {
    const bool onlyAbove = !showAll_->isChecked();
    cutOff_->setEnabled(onlyAbove);
    freeAlways_->setEnabled(onlyAbove);
}

void UnitOptionsDialog::Confirm() {
    OutputOptions& options = ws_.outputOptions;
    options.units.numDec = DecimalsOfText(S(decimals_->text()));
    int checked = 0;
    for (int i = 0; i < 8; ++i)
        if (unitButtons_[static_cast<size_t>(i)]->isChecked()) checked = i;
    ApplyUnitButton(options.units, checked);
    if (withOutputPart_) {
        options.showAll = showAll_->isChecked();
        options.cutOff = CutOffOfText(S(cutOff_->text()), ws_.decimalSeparator);
        options.freeAlways = freeAlways_->isChecked();
        options.showLogs = showLogs_->isChecked();
    }
    RebuildNumberFormats(options);
}

}  // namespace tormel
