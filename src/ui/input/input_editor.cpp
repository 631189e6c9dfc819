#include "ui/input/input_editor.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/messages.h"
#include "input/consistency_report.h"
#include "shell/input_editing.h"
#include "shell/workspace.h"
#include "ui/input/input_option_pages.h"
#include "ui/input/input_search_window.h"
#include "ui/main/help_of.h"
#include "ui/main/image_resources.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"
#include "ui/options/unit_options.h"

namespace tormel {
namespace {

constexpr int kHelpTopic = 2001;
const char* const kToolImages[] = {"IMG_ICONOK", "IMG_ICONCANCEL", "IMG_ICONOPT", "IMG_ICONSRCH", "IMG_ICONHELP"};

QWidget* ListGroup(const QString& caption, InputList* list, QWidget* parent) {
    auto* group = new QGroupBox(caption, parent);
    auto* layout = new QVBoxLayout(group);
    layout->setContentsMargins(Scaled(4), Scaled(4), Scaled(4), Scaled(4));  // the list's columns need the room
    layout->addWidget(list);
    return group;
}

}  // namespace

InputEditor::InputEditor(Workspace& ws, QWidget* owner) : QDialog(owner), ws_(ws), snapshot_(ws.input) {
    setObjectName(QStringLiteral("FrmEditInput"));
    setWindowTitle(LangQ(ws.language, "InputEdit", "WindowCaption"));
    setWindowIcon(ResourceIcon(QStringLiteral("IMG_ICONINPUT")));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    setFont(UiFont());
    LoadOutputOptions(ws.outputOptions, ws.settings);
    auto text = [&](const char* key) { return LangQ(ws.language, "InputEdit", key); };

    toolGroup_ = new QGroupBox(this);
    for (int k = 0; k < 5; ++k) {
        auto* button = new QToolButton(this);
        button->setIcon(ResourceIcon(QString::fromLatin1(kToolImages[k])));
        button->setIconSize(QSize(Scaled(28), Scaled(28)));
        button->setToolTip(text(("ToolTip" + std::to_string(k + 1)).c_str()));
        button->setAutoRaise(true);
        tools_[static_cast<size_t>(k)] = button;
    }
    connect(tools_[0], &QToolButton::clicked, this, &InputEditor::Confirm);
    connect(tools_[1], &QToolButton::clicked, this, &InputEditor::Discard);
    connect(tools_[2], &QToolButton::clicked, this, &InputEditor::OpenUnitOptionsDialog);
    connect(tools_[3], &QToolButton::clicked, this, &InputEditor::OpenSearch);
    connect(tools_[4], &QToolButton::clicked, this, [this] {
        if (const std::function<void(int)> help = HelpOf(parentWidget())) help(kHelpTopic);
    });
    hint_ = new QLabel(this);
    hint_->setObjectName(QStringLiteral("InputHint"));
    hint_->setWordWrap(true);
    hint_->setStyleSheet(QStringLiteral("QLabel { color: #b00000; }"));

    const QStringList mainHeaders = {text("Name"), text("Conc"), text("Unit"), text("Type")};
    lists_[CationList] = new InputList(mainHeaders, nullptr);
    lists_[LigandList] = new InputList(mainHeaders, nullptr);
    cationGroup_ = ListGroup(text("Cations"), lists_[CationList], this);
    ligandGroup_ = ListGroup(text("Ligands"), lists_[LigandList], this);
    descriptionLabel_ = new QLabel(text("Description"), this);
    description_ = new QLineEdit(Q(ws.input.description), this);
    description_->setObjectName(QStringLiteral("Description"));
    description_->setMaxLength(static_cast<int>(kDescriptionLimit));
    description_->setCursorPosition(0);  // a long description shows its beginning
    connect(description_, &QLineEdit::textEdited, this,
            [this](const QString& value) { ws_.input.description = S(value); });
    pages_ = new InputOptionPages(ws, [this](const QString& hint) { ShowHint(hint); }, this);
    lists_[RedoxList] = pages_->RedoxList();
    lists_[GasList] = pages_->GasList();
    lists_[AdsorbentList] = pages_->AdsorbentList();

    const EditorRows rows = EditorRowsOf(ws.chem.db());
    rows_ = {rows.cations, rows.ligands, rows.redoxSolids, rows.gases, rows.adsorbents};
    const QString typeKeys[] = {QStringLiteral("InpTypeTotalConc"), QStringLiteral("InpTypeFreeConc"),
                                QStringLiteral("InpTypeFreeAct")};
    QStringList types;
    for (const QString& key : typeKeys) types << LangQ(ws.language, "OtherInfo", S(key));
    for (int id = 0; id < 5; ++id) {
        BindList(static_cast<ListId>(id));
        lists_[static_cast<size_t>(id)]->SetTypeChoices(types);
    }

    auto* next = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Tab), this);
    connect(next, &QShortcut::activated, this,
            [this] { pages_->setCurrentIndex((pages_->currentIndex() + 1) % pages_->count()); });
    auto* previous = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), this);
    connect(previous, &QShortcut::activated, this, [this] {
        pages_->setCurrentIndex((pages_->currentIndex() + pages_->count() - 1) % pages_->count());
    });

    pages_->Fill();
    FillLists();
}

InputEditor::~InputEditor() {
    // hiding the window moves the focus out of an open edit field: nothing
    // may be committed into an editor that is going away
    for (InputList* list : lists_) {
        list->SetCallbacks({});
        list->CloseEditor();
    }
}

const std::vector<int32_t>& InputEditor::Rows(ListId id) const { return rows_[static_cast<size_t>(id)]; }

void InputEditor::BindList(ListId id) {
    InputList* list = lists_[static_cast<size_t>(id)];
    InputList::Callbacks callbacks;
    callbacks.commitValue = [this, id](int row, const QString& text) { return CommitValue(id, row, text); };
    callbacks.chooseUnit = [this, id](int position) {
        if (id == GasList)
            ChoosePressureUnit(ws_.outputOptions.units, position);
        else
            ChooseConcentrationUnit(ws_.outputOptions.units, position);
        FillLists();
    };
    callbacks.becameCurrent = [this, list] {
        for (InputList* other : lists_)
            if (other != list) other->ClearCurrent();
    };
    if (id == CationList || id == LigandList) {
        callbacks.typePosition = [this, id](int row) {
            return TypeListPosition(ws_.input.components[size_t(Rows(id)[size_t(row)])].inputType);
        };
        callbacks.chooseType = [this, id, list](int row, int position) {
            const int32_t component = Rows(id)[size_t(row)];
            ws_.input.components[size_t(component)].inputType = InputTypeAtPosition(position);
            const QString type =
                LangQ(ws_.language, "OtherInfo", InputTypeLabelKey(ws_.input.components[size_t(component)].inputType));
            list->item(row, 3)->setText(type);
            list->item(row, 3)->setToolTip(type);
        };
    }
    list->SetCallbacks(std::move(callbacks));
}

bool InputEditor::CommitValue(ListId id, int row, const QString& text) {
    const Component& component = ws_.chem.db().components[size_t(Rows(id)[size_t(row)])];
    const TypedNumber typed = ReadTypedNumber(S(text), ws_.decimalSeparator, TypedRange::NonNegative);
    std::optional<double> stored;
    if (typed.value) stored = StoredValue(component, *typed.value, ws_.outputOptions.units);
    if (!stored) {
        const std::string key = typed.value ? "HintNoMolarMass" : typed.hintKey;
        ShowHint(Q(component.name) + QStringLiteral(": ") + LangQ(ws_.language, "InputEdit", key));
        return false;
    }
    ws_.input.components[size_t(Rows(id)[size_t(row)])].inputValue = *stored;
    ShowHint(QString());
    return true;
}

void InputEditor::FillLists() {
    const Database& db = ws_.chem.db();
    const UnitSettings& units = ws_.outputOptions.units;
    QStringList concentrationUnits, pressureUnits;
    for (const std::string& label : ConcentrationUnitChoices()) concentrationUnits << Q(label);
    for (const std::string& label : PressureUnitChoices()) pressureUnits << Q(label);
    for (int id = 0; id < 5; ++id) {
        std::vector<InputList::Row> rows;
        for (int32_t c : Rows(static_cast<ListId>(id))) {
            const Component& component = db.components[size_t(c)];
            const ComponentInput& input = ws_.input.components[size_t(c)];
            InputList::Row row;
            row.name = Q(component.name);
            row.value = Q(FormatNumber(ShownValue(component, input.inputValue, units),
                                       ws_.outputOptions.formats.scientific, false, ws_.decimalSeparator));
            row.unit = Q(ShownUnitLabel(component, units));
            row.type = LangQ(ws_.language, "OtherInfo", InputTypeLabelKey(input.inputType));
            rows.push_back(row);
        }
        InputList* list = lists_[static_cast<size_t>(id)];
        list->SetRows(rows);
        if (id == GasList)
            list->SetUnitChoices(pressureUnits, units.order);
        else
            list->SetUnitChoices(concentrationUnits, ConcentrationUnitPosition(units));
    }
}

void InputEditor::ShowHint(const QString& hint) { hint_->setText(hint); }

QString InputEditor::Hint() const { return hint_->text(); }

void InputEditor::Confirm() {
    if (closed_) return;
    for (InputList* list : lists_) list->CommitEditor();
    closed_ = true;
    const ConsistencyResult result = CheckConsistency(ws_.input, ws_.chem.db(), ws_.language);
    ShowConsistencyResult(ws_.Ui(), ws_.language, result, std::nullopt);
    AcceptEditedInput(ws_.input, ws_.chem.db());
    SaveUnitSettings(ws_.outputOptions.units, ws_.settings);
    accept();
}

void InputEditor::Discard() {
    if (closed_) return;
    closed_ = true;
    for (InputList* list : lists_) list->CloseEditor();
    ws_.input = snapshot_;
    QDialog::reject();
}

void InputEditor::keyPressEvent(QKeyEvent* event) {
    // Enter belongs to the edit fields; Escape cancels like the Cancel button
    if (event->key() == Qt::Key_Escape) return Discard();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
    QDialog::keyPressEvent(event);
}

void InputEditor::reject() { Discard(); }

void InputEditor::OpenUnitOptionsDialog() {
    for (InputList* list : lists_) list->CommitEditor();
    if (OpenUnitOptions(ws_, false, this)) {
        SaveUnitSettings(ws_.outputOptions.units, ws_.settings);
        FillLists();
    }
}

void InputEditor::OpenSearch() {
    setEnabled(false);
    InputSearchWindow search(ws_, this);
    const int32_t chosen = search.exec() == QDialog::Accepted ? search.Chosen() : -1;
    setEnabled(true);
    if (chosen >= 0) SelectComponent(chosen);
}

bool InputEditor::SelectComponent(int32_t component) {
    const Component& c = ws_.chem.db().components[size_t(component)];
    if (c.type == ComponentType::RedSol && !ws_.input.redox) {
        ShowMessage(ws_.Ui(), ws_.language, LanguageText(ws_.language, "InputEditSearch", "TurnOnRedox"), {},
                    IconWarning);
        return false;
    }
    for (int id = 0; id < 5; ++id) {
        const std::vector<int32_t>& rows = Rows(static_cast<ListId>(id));
        for (size_t row = 0; row < rows.size(); ++row) {
            if (rows[row] != component) continue;
            if (id >= RedoxList) pages_->setCurrentIndex(id);  // pages 3, 4, 5
            lists_[static_cast<size_t>(id)]->OpenEditor(static_cast<int>(row));
            return true;
        }
    }
    return false;
}

void InputEditor::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    toolGroup_->setGeometry(Scaled(12), Scaled(8), Scaled(214), Scaled(56));
    for (int k = 0; k < 5; ++k)
        tools_[static_cast<size_t>(k)]->setGeometry(Scaled(20 + 40 * k), Scaled(16), Scaled(36), Scaled(36));
    const int h = height() - Scaled(87);
    int w = (width() - Scaled(64)) / 3;
    int x = 2 * w + Scaled(48);
    if (w >= Scaled(330)) {  // cations, ligands and the pages side by side
        cationGroup_->setGeometry(Scaled(16), Scaled(72), w, h);
        ligandGroup_->setGeometry(w + Scaled(32), Scaled(72), w, h);
    } else {  // too narrow for three columns (a large display scale): the two lists one above the other
        w = (width() - Scaled(48)) / 2;
        x = w + Scaled(32);
        const int half = (h - Scaled(8)) / 2;
        cationGroup_->setGeometry(Scaled(16), Scaled(72), w, half);
        ligandGroup_->setGeometry(Scaled(16), Scaled(80) + half, w, h - half - Scaled(8));
    }
    hint_->setGeometry(Scaled(240), Scaled(12), x + w - Scaled(240), Scaled(52));
    descriptionLabel_->setGeometry(x, Scaled(72), w, Scaled(24));
    description_->setGeometry(x, Scaled(98), w, Scaled(43));
    pages_->setGeometry(x, Scaled(149), w, h - Scaled(77));
}

}  // namespace tormel
