#include "ui/main/progress_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "core/c_number.h"
#include "core/language.h"
#include "ui/main/message_box.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"

namespace tormel {

int RatioDigits(double criterion) {
    if (criterion < 1 && criterion > 0) criterion = 1 / criterion;
    if (criterion <= 1) return 10;
    const int d = -static_cast<int>(std::trunc(std::log10(criterion - 1)));
    return std::clamp(d, 1, 10);
}

ProgressWindow::ProgressWindow(const Language& language, double criterion, bool withSolids,
                               DecimalSeparator separator, QWidget* owner)
    : QDialog(owner), digits_(RatioDigits(criterion)), separator_(std::move(separator)) {
    setObjectName(QStringLiteral("FrmProgress"));
    setWindowTitle(LangQ(language, "ProgressCalc", "ProgrCaption"));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::CustomizeWindowHint);
    setFont(UiFont());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Scaled(12), Scaled(12), Scaled(12), Scaled(12));

    auto* values = new QWidget(this);
    auto* grid = new QGridLayout(values);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnMinimumWidth(1, Scaled(180));
    iteration_ = AddValueRow(LangQ(language, "ProgressCalc", "ProgrLbl01"), 0, values);
    ratio_ = AddValueRow(LangQ(language, "ProgressCalc", "ProgrLbl03"), 1, values);
    component_ = AddValueRow(LangQ(language, "ProgressCalc", "ProgrLbl05"), 2, values);
    ionicStrength_ = AddValueRow(LangQ(language, "ProgressCalc", "ProgrLbl07"), 3, values);
    layout->addWidget(values);

    auto* frame = new QGroupBox(LangQ(language, "ProgressCalc", "ProgrFra1"), this);
    auto* frameLayout = new QVBoxLayout(frame);
    bar_ = new QProgressBar(frame);
    bar_->setObjectName(QStringLiteral("convergenceBar"));
    bar_->setRange(0, 100);
    bar_->setTextVisible(false);
    frameLayout->addWidget(bar_);
    layout->addWidget(frame);

    if (withSolids) {
        auto* solidFrame = new QGroupBox(LangQ(language, "ProgressCalc", "ProgrFra2"), this);
        auto* solidLayout = new QVBoxLayout(solidFrame);
        auto* solidValues = new QWidget(solidFrame);
        auto* solidGrid = new QGridLayout(solidValues);
        solidGrid->setContentsMargins(0, 0, 0, 0);
        solidsPresent_ = AddValueRow(LangQ(language, "ProgressCalc", "ProgrLbl09"), 0, solidValues);
        solidLayout->addWidget(solidValues);
        solidBar_ = new QProgressBar(solidFrame);
        solidBar_->setObjectName(QStringLiteral("solidBar"));
        solidBar_->setRange(0, 100);
        solidBar_->setTextVisible(false);
        solidLayout->addWidget(solidBar_);
        solidLayout->addWidget(new QLabel(LangQ(language, "ProgressCalc", "ProgrLbl10"), solidFrame));
        solids_ = new QListWidget(solidFrame);
        solids_->setObjectName(QStringLiteral("solidList"));
        solids_->setMinimumHeight(Scaled(80));
        solidLayout->addWidget(solids_);
        layout->addWidget(solidFrame);
    }

    cancel_ = new QPushButton(LangQ(language, "ProgressCalc", "ProgrCmd"), this);
    cancel_->setObjectName(QStringLiteral("cancelButton"));
    cancel_->setMinimumWidth(Scaled(81));
    connect(cancel_, &QPushButton::clicked, this, [this] { cancelled_ = true; });
    layout->addWidget(cancel_, 0, Qt::AlignHCenter);
    setMinimumWidth(Scaled(420));
    adjustSize();
    CentreOnOwner(this, owner);
}

QLabel* ProgressWindow::AddValueRow(const QString& label, int row, QWidget* parent) {
    auto* grid = static_cast<QGridLayout*>(parent->layout());
    grid->addWidget(new QLabel(label, parent), row, 0);
    auto* value = new QLabel(parent);
    value->setObjectName(QStringLiteral("value%1").arg(row));
    grid->addWidget(value, row, 1);
    return value;
}

bool ProgressWindow::Update(const SolverProgress& progress) {
    const std::string ratioFormat = "%." + std::to_string(digits_) + "E";
    iteration_->setText(QString::number(progress.iteration));
    ratio_->setText(Q(FormatNumber(progress.worstRatio, ratioFormat, false, separator_)));
    component_->setText(Q(progress.worstComponent));
    ionicStrength_->setText(Q(FormatNumber(progress.ionicStrength, "%.3E", false, separator_)));
    bar_->setValue(std::clamp(progress.barPosition, 0, 100));
    if (solids_) {
        solidsPresent_->setText(QString::number(progress.solidCount));
        solidBar_->setValue(std::clamp(progress.solidBarPosition, 0, 100));
        if (solids_->count() != static_cast<int>(progress.solidLines.size())) {
            solids_->clear();
            for (const std::string& line : progress.solidLines) solids_->addItem(Q(line));
        }
    }
    return cancelled_;
}

void ProgressWindow::closeEvent(QCloseEvent* event) {
    event->ignore();  // only Cancel stops a calculation
}

void ProgressWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        cancelled_ = true;
        return;
    }
    QDialog::keyPressEvent(event);
}

}  // namespace tormel
