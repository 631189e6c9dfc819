#pragma once
// The database information window ("FrmDB_About"): where the database files
// come from, and the header values of the six working copies.
#include <QDialog>

class QPlainTextEdit;
class QTableWidget;

namespace tormel {

struct Workspace;

class DatabaseInformationWindow : public QDialog {
    Q_OBJECT
public:
    DatabaseInformationWindow(Workspace& ws, QWidget* owner);

    QPlainTextEdit* Text() const { return text_; }
    QTableWidget* Table() const { return table_; }

private:
    QPlainTextEdit* text_ = nullptr;
    QTableWidget* table_ = nullptr;
};

}  // namespace tormel
