#pragma once
// The search window of the input editor ("FrmEditInputSearch"): the
// components whose name contains the typed text, refreshed as one types; a
// click on one chooses it.
#include <QDialog>
#include <cstdint>
#include <vector>

class QLineEdit;
class QTreeWidget;

namespace tormel {

struct Workspace;

class InputSearchWindow : public QDialog {
    Q_OBJECT
public:
    InputSearchWindow(Workspace& ws, QWidget* editor);
    // The chosen component, -1 when none was chosen.
    int32_t Chosen() const { return chosen_; }
    QLineEdit* Field() const { return field_; }
    QTreeWidget* Results() const { return results_; }
    // Chooses the entry at `position` and closes (a click on it).
    void Choose(int position);

private:
    void Refresh();

    Workspace& ws_;
    QLineEdit* field_ = nullptr;
    QTreeWidget* results_ = nullptr;
    std::vector<int32_t> found_;
    int32_t chosen_ = -1;
};

}  // namespace tormel
