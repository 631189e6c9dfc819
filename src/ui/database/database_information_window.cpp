#include "ui/database/database_information_window.h"

#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>

#include "shell/database_information.h"
#include "shell/workspace.h"
#include "ui/main/image_resources.h"
#include "ui/main/message_box.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"

namespace tormel {

DatabaseInformationWindow::DatabaseInformationWindow(Workspace& ws, QWidget* owner) : QDialog(owner) {
    setObjectName(QStringLiteral("FrmDB_About"));
    setWindowIcon(ResourceIcon(QStringLiteral("IMG_ICONDB")));
    setWindowTitle(LangQ(ws.language, "DB_ABOUT", "WindowCaption"));
    setFont(UiFont());
    const DatabaseInformation info = BuildDatabaseInformation(ws.folders, ws.language);

    text_ = new QPlainTextEdit(Q(info.text), this);
    text_->setObjectName(QStringLiteral("originText"));
    text_->setReadOnly(true);
    // 6.6 lines of text inside the field's frame and margins
    const int textHeight = static_cast<int>(6.6 * fontMetrics().lineSpacing()) + 2 * text_->frameWidth() +
                           2 * static_cast<int>(text_->document()->documentMargin());
    text_->setGeometry(Scaled(16), Scaled(16), Scaled(868), textHeight);

    table_ = new QTableWidget(6, 7, this);
    table_->setObjectName(QStringLiteral("headerTable"));
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + Scaled(8));
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setGeometry(Scaled(16), text_->geometry().bottom() + 1 + Scaled(16), Scaled(868), Scaled(200));
    for (int column = 0; column < 7; ++column) {
        table_->setHorizontalHeaderItem(column, new QTableWidgetItem(Q(info.headings[column])));
        for (int row = 0; row < 6; ++row) table_->setItem(row, column, new QTableWidgetItem(Q(info.cells[row][column])));
    }
    // Each column as wide as its heading or widest cell, plus 10.
    const QFontMetrics metrics = table_->fontMetrics();
    for (int column = 0; column < 7; ++column) {
        int width = table_->horizontalHeader()->fontMetrics().horizontalAdvance(Q(info.headings[column]));
        for (int row = 0; row < 6; ++row) width = std::max(width, metrics.horizontalAdvance(Q(info.cells[row][column])));
        table_->setColumnWidth(column, width + Scaled(10));
    }

    auto* ok = new QPushButton(LangQ(ws.language, "DB_ABOUT", "OK"), this);
    ok->setObjectName(QStringLiteral("okButton"));
    ok->setDefault(true);
    const int listBottom = table_->geometry().bottom() + 1;
    ok->setGeometry(Scaled(400), listBottom + Scaled(10), Scaled(100), Scaled(28));
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    setFixedSize(Scaled(884), listBottom + Scaled(84 - 39));  // the list's bottom + 84 with the frame
    CentreOnOwner(this, owner);
}

}  // namespace tormel
