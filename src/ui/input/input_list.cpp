#include "ui/input/input_list.h"

#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "shell/input_editing.h"
#include "ui/main/scaled.h"

namespace tormel {

InputList::InputList(const QStringList& headers, QWidget* parent) : QTableWidget(0, headers.size(), parent) {
    setHorizontalHeaderLabels(headers);
    verticalHeader()->hide();
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    setTextElideMode(Qt::ElideRight);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);

    editor_ = new QLineEdit(viewport());
    editor_->setObjectName(QStringLiteral("CellEdit"));
    editor_->hide();
    editor_->installEventFilter(this);
    unitList_ = new QComboBox(viewport());
    unitList_->hide();
    typeList_ = new QComboBox(viewport());
    typeList_->hide();
    connect(unitList_, &QComboBox::activated, this, [this](int position) {
        unitList_->hide();
        if (callbacks_.chooseUnit) callbacks_.chooseUnit(position);
    });
    connect(typeList_, &QComboBox::activated, this, [this](int position) {
        typeList_->hide();
        if (callbacks_.chooseType && listRow_ >= 0) callbacks_.chooseType(listRow_, position);
    });
}

InputList::~InputList() {
    // the edit field loses the focus while it is destroyed: nothing to commit then
    editor_->removeEventFilter(this);
    callbacks_ = {};
}

void InputList::SetRows(const std::vector<Row>& rows) {
    CloseEditor();
    clearContents();
    setRowCount(static_cast<int>(rows.size()));
    for (int r = 0; r < rowCount(); ++r) {
        const Row& row = rows[static_cast<size_t>(r)];
        const QString texts[] = {row.name, row.value, row.unit, row.type};
        for (int c = 0; c < columnCount(); ++c) {
            auto* cell = new QTableWidgetItem(texts[c]);
            if (c == 0 || c == 3) cell->setToolTip(texts[c]);  // may be elided
            setItem(r, c, cell);
        }
    }
    FitColumns();
}

void InputList::FitColumns() {
    QHeaderView* header = horizontalHeader();
    const int n = columnCount();
    std::vector<int> widths(static_cast<size_t>(n));
    for (int c = 0; c < n; ++c)
        widths[static_cast<size_t>(c)] = std::max(sizeHintForColumn(c), header->sectionSizeHint(c));
    // the room with the vertical scroll bar, shown or not, so that the widths stay put when it comes
    int name = width() - 2 * frameWidth() - verticalScrollBar()->sizeHint().width();
    for (int c = 1; c < n; ++c) name -= widths[static_cast<size_t>(c)];
    const int pad = Scaled(8);
    auto widthOf = [&](const char* text) { return fontMetrics().horizontalAdvance(QLatin1String(text)) + pad; };
    const int nameWanted = std::min(widths[0], widthOf("Benzoate"));
    if (n == 4 && name < nameWanted) {
        int& type = widths[3];
        const int given = std::min(nameWanted - name, type - std::min(type, widthOf("Total")));
        type -= given;
        name += given;
    }
    widths[0] = std::max(name, std::min(widths[0], widthOf("Co(III)")));
    for (int c = 0; c < n; ++c) header->resizeSection(c, widths[static_cast<size_t>(c)]);
    if (editedRow_ >= 0) PlaceOver(editor_, editedRow_, 1);
}

void InputList::resizeEvent(QResizeEvent* event) {
    QTableWidget::resizeEvent(event);
    FitColumns();
}


void InputList::SetUnitChoices(const QStringList& units, int current) {
    unitList_->clear();
    unitList_->addItems(units);
    unitList_->setCurrentIndex(current);
}

void InputList::MakeCurrent(int row) {
    if (callbacks_.becameCurrent) callbacks_.becameCurrent();
    selectRow(row);
    scrollToItem(item(row, 0));
}

void InputList::ClearCurrent() {
    CommitEditor();
    CloseEditor();
    clearSelection();
}

void InputList::PlaceOver(QWidget* widget, int row, int column) {
    widget->setGeometry(visualRect(model()->index(row, column)));
    widget->show();
    widget->raise();
}

void InputList::OpenEditor(int row) {
    if (row < 0 || row >= rowCount()) return;
    if (editedRow_ >= 0 && editedRow_ != row) CommitEditor();
    MakeCurrent(row);
    editedRow_ = row;
    editor_->setText(item(row, 1)->text());
    PlaceOver(editor_, row, 1);
    editor_->selectAll();
    editor_->setFocus();
}

bool InputList::CommitEditor() {
    if (editedRow_ < 0 || committing_) return true;
    committing_ = true;
    const QString text = editor_->text();
    const bool accepted = !callbacks_.commitValue || callbacks_.commitValue(editedRow_, text);
    if (accepted) item(editedRow_, 1)->setText(text);
    committing_ = false;
    return accepted;
}

void InputList::CloseEditor() {
    editedRow_ = -1;
    editor_->hide();
    unitList_->hide();
    typeList_->hide();
}

void InputList::OpenUnitList(int row) {
    if (CommitEditor()) CloseEditor();
    MakeCurrent(row);
    listRow_ = row;
    PlaceOver(unitList_, row, 2);
    unitList_->showPopup();
}

void InputList::OpenTypeList(int row, int position) {
    if (CommitEditor()) CloseEditor();
    MakeCurrent(row);
    listRow_ = row;
    typeList_->clear();
    typeList_->addItems(typeChoices_);
    typeList_->setCurrentIndex(position);
    PlaceOver(typeList_, row, 3);
    typeList_->showPopup();
}

void InputList::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid()) return QTableWidget::mousePressEvent(event);
    if (index.column() <= 1) {
        OpenEditor(index.row());
    } else if (index.column() == 2) {
        OpenUnitList(index.row());
    } else if (callbacks_.typePosition) {
        OpenTypeList(index.row(), callbacks_.typePosition(index.row()));
    }
}

int InputList::VisibleRows() const {
    const int rowHeight = std::max(1, verticalHeader()->defaultSectionSize());
    return std::max(1, viewport()->height() / rowHeight);
}

void InputList::Move(int row) {
    if (!CommitEditor()) return;
    editedRow_ = -1;
    OpenEditor(row);
}

bool InputList::eventFilter(QObject* watched, QEvent* event) {
    if (watched != editor_) return QTableWidget::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut && editedRow_ >= 0 && !committing_) {
        CommitEditor();
        CloseEditor();
        return false;
    }
    if (event->type() != QEvent::KeyPress || editedRow_ < 0) return false;
    const int count = rowCount();
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter: Move(RowAfterEnter(editedRow_, count)); return true;
        case Qt::Key_Up: Move(RowAfterStep(editedRow_, -1, count)); return true;
        case Qt::Key_Down: Move(RowAfterStep(editedRow_, 1, count)); return true;
        case Qt::Key_PageUp: Move(RowAfterStep(editedRow_, -PageStep(VisibleRows()), count)); return true;
        case Qt::Key_PageDown: Move(RowAfterStep(editedRow_, PageStep(VisibleRows()), count)); return true;
        default: return false;
    }
}

}  // namespace tormel
