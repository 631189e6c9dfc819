#include "ui/input/input_option_pages.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabBar>
#include <QVBoxLayout>

#include "shell/input_editing.h"
#include "shell/workspace.h"
#include "ui/input/button_label.h"
#include "ui/input/input_list.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"

namespace tormel {
namespace {

// A radio button or check box whose text wraps within the page: the button
// and its label share one row widget (disable the row to grey both).
template <typename Button>
Button* AddButton(QBoxLayout* layout, const QString& text, QButtonGroup* group = nullptr, int id = 0) {
    auto* row = new QWidget;
    auto* rowLayout = new QHBoxLayout(row);
    rowLayout->setContentsMargins(0, 0, 0, 0);
    auto* button = new Button(row);
    rowLayout->addWidget(button, 0, Qt::AlignTop);
    rowLayout->addWidget(new ButtonLabel(text, button, row), 1);
    if (group) group->addButton(button, id);
    layout->addWidget(row);
    return button;
}

QVBoxLayout* GroupLayout(QVBoxLayout* page, const QString& caption) {
    auto* group = new QGroupBox(caption);
    page->addWidget(group);
    return new QVBoxLayout(group);
}

// A page that scrolls when its content is taller than the tab.
QScrollArea* ScrollPage(QVBoxLayout*& layout) {
    auto* area = new QScrollArea;
    area->setObjectName(QStringLiteral("FrmEditInputTab"));
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    auto* content = new QWidget;
    layout = new QVBoxLayout(content);
    area->setWidget(content);
    return area;
}

}  // namespace

InputOptionPages::InputOptionPages(Workspace& ws, std::function<void(const QString&)> showHint, QWidget* parent)
    : QTabWidget(parent), ws_(ws), showHint_(std::move(showHint)) {
    // five captions side by side in a third of the screen
    tabBar()->setStyleSheet(QStringLiteral("QTabBar::tab { padding: %1px %2px; }").arg(Scaled(4)).arg(Scaled(5)));
    addTab(GeneralPage(), Text("CaptionTab1"));
    addTab(OrganicPage(), Text("CaptionTab2"));
    addTab(RedoxPage(), Text("CaptionTab3"));
    addTab(ListPage("Tab4GroupBoxCaption", gasList_, "Pres", "GasPP"), Text("CaptionTab4"));
    addTab(ListPage("Tab5GroupBoxCaption", adsList_, "Conc", "AdsTotal"), Text("CaptionTab5"));
}

QString InputOptionPages::Text(const char* key) const { return LangQ(ws_.language, "InputEdit", key); }

QLineEdit* InputOptionPages::Field(TypedRange range, std::function<void(double)> store) {
    auto* field = new QLineEdit;
    field->setMaximumWidth(Scaled(150));
    // Text that is refused puts back the value the field held before the
    // typing began ("lastGood", set when the field is filled or left).
    connect(field, &QLineEdit::textChanged, this, [this, field, range, store](const QString& text) {
        if (filling_) return;
        const TypedNumber typed = ReadTypedNumber(S(text), ws_.decimalSeparator, range);
        field->setStyleSheet(typed.value ? QString() : QStringLiteral("QLineEdit { background: #ffd8d8; }"));
        showHint_(typed.value ? QString() : Text(typed.hintKey.c_str()));
        filling_ = true;  // the partner field is rewritten once, without echo
        store(typed.value ? *typed.value : field->property("lastGood").toDouble());
        filling_ = false;
    });
    connect(field, &QLineEdit::editingFinished, this, [this, field, range] {
        const TypedNumber typed = ReadTypedNumber(S(field->text()), ws_.decimalSeparator, range);
        if (typed.value) {
            field->setProperty("lastGood", *typed.value);
            return;
        }
        filling_ = true;
        SetField(field, field->property("lastGood").toDouble(), field->property("format").toByteArray().constData());
        filling_ = false;
    });
    return field;
}

void InputOptionPages::SetField(QLineEdit* field, double value, const char* format) {
    field->setText(Q(FormatNumber(value, format, false, ws_.decimalSeparator)));
    field->setStyleSheet(QString());
    field->setProperty("lastGood", value);
    field->setProperty("format", QByteArray(format));
}

QWidget* InputOptionPages::GeneralPage() {
    InputProblem& in = ws_.input;
    QVBoxLayout* page = nullptr;
    QScrollArea* area = ScrollPage(page);

    QVBoxLayout* g1 = GroupLayout(page, Text("Tab1GroupBox1Caption"));
    model_ = new QButtonGroup(this);
    AddButton<QRadioButton>(g1, Text("Tab1Radio1aCaption"), model_, kMsaModel);
    AddButton<QRadioButton>(g1, Text("Tab1Radio1bCaption"), model_, kDaviesModel);
    fixed_ = new QButtonGroup(this);
    calculatedRadio_ = AddButton<QRadioButton>(g1, Text("Tab1Radio2aCaption"), fixed_, 0);
    auto* fixedRadio = AddButton<QRadioButton>(g1, Text("Tab1Radio2bCaption"), fixed_, 1);
    fixedRow_ = new QWidget;
    auto* fixedLayout = new QHBoxLayout(fixedRow_);
    fixedLayout->setContentsMargins(Scaled(24), 0, 0, 0);
    fixedIonicStrength_ = Field(TypedRange::NonNegative, [&in](double v) { in.fixedIonicStrength = v; });
    fixedIonicStrength_->setObjectName(QStringLiteral("FixedIonicStrength"));
    fixedLayout->addWidget(fixedIonicStrength_);
    fixedLayout->addWidget(new QLabel(QStringLiteral("M")));
    fixedLayout->addStretch();
    g1->addWidget(fixedRow_);
    connect(model_, &QButtonGroup::idClicked, this, [this, &in](int id) {
        in.ionicStrengthModel = id;
        UpdateEnabling();
    });
    connect(fixed_, &QButtonGroup::idClicked, this, [this, &in](int id) {
        in.ionicStrengthFixed = id == 1;
        UpdateEnabling();
    });
    (void)fixedRadio;

    QVBoxLayout* g2 = GroupLayout(page, Text("Tab1GroupBox2Caption"));
    auto* grid = new QGridLayout;
    g2->addLayout(grid);
    absolute_ = Field(TypedRange::Positive, [this, &in](double v) {
        in.convergenceCriterion = CriterionOfAbsolute(v);
        SetField(percent_, PercentOfCriterion(in.convergenceCriterion), "%.3E");
    });
    percent_ = Field(TypedRange::Positive, [this, &in](double v) {
        in.convergenceCriterion = CriterionOfPercent(v);
        SetField(absolute_, AbsoluteOfCriterion(in.convergenceCriterion), "%.3E");
    });
    absolute_->setObjectName(QStringLiteral("Absolute"));
    percent_->setObjectName(QStringLiteral("Percent"));
    grid->addWidget(new QLabel(Text("Tab1Absolute")), 0, 0);
    grid->addWidget(absolute_, 0, 1);
    grid->addWidget(new QLabel(Text("Tab1Percent")), 1, 0);
    grid->addWidget(percent_, 1, 1);
    grid->setColumnStretch(2, 1);

    QVBoxLayout* g3 = GroupLayout(page, Text("Tab1GroupBox3Caption"));
    precipitation_ = AddButton<QCheckBox>(g3, Text("Tab1ChkBoxSolids"));
    connect(precipitation_, &QCheckBox::toggled, this, [this, &in](bool on) {
        if (!filling_) in.precipitation = on;
    });

    QVBoxLayout* g4 = GroupLayout(page, Text("Tab1GroupBox4Caption"));
    temperatureChoice_ = new QButtonGroup(this);
    AddButton<QRadioButton>(g4, Text("Tab1Radio4aCaption"), temperatureChoice_, 0);
    AddButton<QRadioButton>(g4, Text("Tab1Radio4bCaption"), temperatureChoice_, 1);
    AddButton<QRadioButton>(g4, Text("Tab1Radio4cCaption"), temperatureChoice_, 2);
    temperatureRow_ = new QWidget;
    auto* temperatureLayout = new QHBoxLayout(temperatureRow_);
    temperatureLayout->setContentsMargins(0, 0, 0, 0);
    temperature_ = Field(TypedRange::Any, [&in](double v) { in.temperature = v; });
    temperature_->setObjectName(QStringLiteral("Temperature"));
    temperatureLayout->addWidget(new QLabel(Text("Tab1Temperature")));
    temperatureLayout->addWidget(temperature_);
    temperatureLayout->addStretch();
    g4->addWidget(temperatureRow_);
    connect(temperatureChoice_, &QButtonGroup::idClicked, this, [this, &in](int id) {
        ApplyTemperatureChoice(in, id);
        UpdateEnabling();
    });

    QVBoxLayout* g5 = GroupLayout(page, Text("Tab1GroupBox5Caption"));
    neutral_ = new QButtonGroup(this);
    AddButton<QRadioButton>(g5, Text("Tab1Radio5aCaption"), neutral_, 0);
    AddButton<QRadioButton>(g5, Text("Tab1Radio5bCaption"), neutral_, 1);
    neutraliseLists_ = new QWidget;
    auto* listsLayout = new QVBoxLayout(neutraliseLists_);
    listsLayout->setContentsMargins(Scaled(24), 0, 0, 0);
    cation_ = new QComboBox;
    anion_ = new QComboBox;
    listsLayout->addWidget(cation_);
    listsLayout->addWidget(anion_);
    g5->addWidget(neutraliseLists_);
    const EditorRows rows = EditorRowsOf(ws_.chem.db());
    for (int32_t i : rows.neutraliseCations) cation_->addItem(Q(ws_.chem.db().components[size_t(i)].name), i);
    for (int32_t i : rows.neutraliseAnions) anion_->addItem(Q(ws_.chem.db().components[size_t(i)].name), i);
    connect(neutral_, &QButtonGroup::idClicked, this, [this, &in](int id) {
        in.forceNeutral = id == 1;
        UpdateEnabling();
    });
    connect(cation_, &QComboBox::activated, this,
            [this, &in](int position) { in.neutraliseCation = cation_->itemData(position).toInt(); });
    connect(anion_, &QComboBox::activated, this,
            [this, &in](int position) { in.neutraliseAnion = anion_->itemData(position).toInt(); });
    page->addStretch();
    return area;
}

QWidget* InputOptionPages::OrganicPage() {
    InputProblem& in = ws_.input;
    QVBoxLayout* page = nullptr;
    QScrollArea* area = ScrollPage(page);
    QVBoxLayout* g = GroupLayout(page, Text("Tab2GroupBoxCaption"));
    auto* intro = new QLabel(Text("Tab2Static"));
    intro->setWordWrap(true);
    g->addWidget(intro);
    organic_ = new QButtonGroup(this);
    const char* keys[] = {"Tab2RadioOrg1Caption", "Tab2RadioOrg2Caption", "Tab2RadioOrg3Caption",
                          "Tab2RadioOrg4Caption"};
    for (int i = 0; i < 4; ++i) AddButton<QRadioButton>(g, Text(keys[i]), organic_, i);
    organicFields_ = new QWidget;
    auto* grid = new QGridLayout(organicFields_);
    grid->setContentsMargins(0, Scaled(8), 0, 0);
    doc_ = Field(TypedRange::NonNegative, [&in](double v) { in.docConcentration = v; });
    fraction_ = Field(TypedRange::Fraction, [&in](double v) { in.fulvicFraction = v; });
    doc_->setObjectName(QStringLiteral("Doc"));
    fraction_->setObjectName(QStringLiteral("Fraction"));
    auto* docLabel = new QLabel(Text("Tab2StaticConc"));
    auto* fractionLabel = new QLabel(Text("Tab2StaticFrac"));
    docLabel->setWordWrap(true);
    fractionLabel->setWordWrap(true);
    grid->addWidget(docLabel, 0, 0);
    grid->addWidget(doc_, 0, 1);
    grid->addWidget(new QLabel(Text("Tab2StaticUnit")), 0, 2);
    grid->addWidget(fractionLabel, 1, 0);
    grid->addWidget(fraction_, 1, 1);
    grid->setColumnStretch(0, 1);
    g->addWidget(organicFields_);
    connect(organic_, &QButtonGroup::idClicked, this, [this, &in](int id) {
        ApplyOrganicChoice(in, id);
        UpdateEnabling();
    });
    page->addStretch();
    return area;
}

QWidget* InputOptionPages::RedoxPage() {
    InputProblem& in = ws_.input;
    QVBoxLayout* page = nullptr;
    QScrollArea* area = ScrollPage(page);
    area->setWidgetResizable(true);
    QVBoxLayout* g1 = GroupLayout(page, Text("Tab3GroupBox1Caption"));
    redox_ = AddButton<QCheckBox>(g1, Text("Tab3ChkIncl"));
    redoxFields_ = new QWidget;
    auto* grid = new QGridLayout(redoxFields_);
    grid->setContentsMargins(0, 0, 0, 0);
    const int32_t electron = ws_.chem.db().electronIndex;
    auto electronValue = [&in, electron]() -> double& { return in.components[size_t(electron)].inputValue; };
    pe_ = Field(TypedRange::Any, [this, electronValue](double pe) {
        electronValue() = ElectronOfPe(pe);
        SetField(mv_, MvOfPe(pe), "%.3f");
    });
    mv_ = Field(TypedRange::Any, [this, electronValue](double mv) {
        electronValue() = ElectronOfPe(PeOfMv(mv));
        SetField(pe_, PeOfMv(mv), "%.3f");
    });
    pe_->setObjectName(QStringLiteral("pE"));
    mv_->setObjectName(QStringLiteral("mV"));
    grid->addWidget(new QLabel(Text("Tab3StatpE")), 0, 0);
    grid->addWidget(pe_, 0, 1);
    grid->addWidget(new QLabel(Text("Tab3StatmV")), 1, 0);
    grid->addWidget(mv_, 1, 1);
    grid->setColumnStretch(2, 1);
    g1->addWidget(redoxFields_);
    connect(redox_, &QCheckBox::toggled, this, [this, &in](bool on) {
        if (filling_) return;
        in.redox = on;
        UpdateEnabling();
    });

    QVBoxLayout* g2 = GroupLayout(page, Text("Tab3GroupBox2Caption"));
    redoxList_ = new InputList({Text("Name"), Text("Conc"), Text("Unit")}, nullptr);
    redoxList_->setMinimumHeight(Scaled(150));
    g2->addWidget(redoxList_, 1);
    auto* note = new QLabel(Text("AdsTotal"));
    note->setWordWrap(true);
    g2->addWidget(note);
    page->setStretch(1, 1);
    return area;
}

QWidget* InputOptionPages::ListPage(const char* groupKey, InputList*& list, const char* valueKey, const char* noteKey) {
    QVBoxLayout* page = nullptr;
    QScrollArea* area = ScrollPage(page);
    QVBoxLayout* g = GroupLayout(page, Text(groupKey));
    list = new InputList({Text("Name"), Text(valueKey), Text("Unit")}, nullptr);
    list->setMinimumHeight(Scaled(120));
    g->addWidget(list, 1);
    auto* note = new QLabel(Text(noteKey));
    note->setWordWrap(true);
    g->addWidget(note);
    return area;
}

void InputOptionPages::Fill() {
    const InputProblem& in = ws_.input;
    filling_ = true;
    model_->button(in.ionicStrengthModel == kDaviesModel ? kDaviesModel : kMsaModel)->setChecked(true);
    fixed_->button(in.ionicStrengthFixed ? 1 : 0)->setChecked(true);
    SetField(fixedIonicStrength_, in.fixedIonicStrength, "%.6G");
    SetField(absolute_, AbsoluteOfCriterion(in.convergenceCriterion), "%.3E");
    SetField(percent_, PercentOfCriterion(in.convergenceCriterion), "%.3E");
    precipitation_->setChecked(in.precipitation);
    temperatureChoice_->button(TemperatureChoiceOf(in))->setChecked(true);
    SetField(temperature_, in.temperature, "%.6G");
    neutral_->button(in.forceNeutral ? 1 : 0)->setChecked(true);
    // 0 means none chosen (not H+, which is component 0)
    cation_->setCurrentIndex(in.neutraliseCation == 0 ? -1 : cation_->findData(in.neutraliseCation));
    anion_->setCurrentIndex(in.neutraliseAnion == 0 ? -1 : anion_->findData(in.neutraliseAnion));
    organic_->button(OrganicChoiceOf(in))->setChecked(true);
    SetField(doc_, in.docConcentration, "%.6G");
    SetField(fraction_, in.fulvicFraction, "%.6G");
    redox_->setChecked(in.redox);
    const int32_t electron = ws_.chem.db().electronIndex;
    const double pe = PeOfElectron(in.components[size_t(electron)].inputValue);
    SetField(pe_, pe, "%.3f");
    SetField(mv_, MvOfPe(pe), "%.3f");
    UpdateEnabling();
    filling_ = false;
}

void InputOptionPages::UpdateEnabling() {
    const EditorEnabling e = EnablingOf(ws_.input);
    for (QAbstractButton* b : fixed_->buttons()) b->parentWidget()->setEnabled(e.ionicStrengthRadios);
    fixedRow_->setEnabled(e.fixedIonicStrength);
    temperatureRow_->setEnabled(e.temperature);
    neutraliseLists_->setEnabled(e.neutraliseLists);
    organicFields_->setEnabled(e.organicFields);
    redoxFields_->setEnabled(e.redoxFields);
    redoxList_->setEnabled(e.redoxFields);
}

}  // namespace tormel
