#pragma once
// The input editor ("FrmEditInput"): covers the work area of the main
// window's screen; the cation and ligand lists, the description and the five
// option pages, with a toolbar for OK, Cancel, unit options, search and help.
// Everything is edited in the current input problem at once; Cancel puts
// back the problem as it was when the editor opened.
#include <QDialog>
#include <array>
#include <vector>

#include "input/input_problem.h"
#include "ui/input/input_list.h"

class QLabel;
class QLineEdit;
class QToolButton;

namespace tormel {

struct Workspace;
class InputOptionPages;

class InputEditor : public QDialog {
    Q_OBJECT
public:
    enum ListId { CationList, LigandList, RedoxList, GasList, AdsorbentList };

    InputEditor(Workspace& ws, QWidget* owner);
    ~InputEditor() override;

    // Clears and refills the five lists in the current display units.
    void FillLists();
    // OK: consistency report, adsorption, modified flag, unit settings; closes.
    void Confirm();
    // Cancel: puts the problem back and closes.
    void Discard();
    void OpenUnitOptionsDialog();
    void OpenSearch();
    // Makes the component the current cell (its page selected) and opens the
    // edit field on it; false for a redox solid while redox is off (warned).
    bool SelectComponent(int32_t component);

    InputList* List(ListId id) const { return lists_[id]; }
    InputOptionPages* Pages() const { return pages_; }
    QLineEdit* Description() const { return description_; }
    QToolButton* ToolButton(int k) const { return tools_[static_cast<size_t>(k)]; }
    QString Hint() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    // Escape and the close box cancel.
    void reject() override;

private:
    void BindList(ListId id);
    bool CommitValue(ListId id, int row, const QString& text);
    void ShowHint(const QString& hint);
    const std::vector<int32_t>& Rows(ListId id) const;

    Workspace& ws_;
    InputProblem snapshot_;
    std::array<InputList*, 5> lists_{};
    std::array<std::vector<int32_t>, 5> rows_;
    std::array<QToolButton*, 5> tools_{};
    QWidget* toolGroup_ = nullptr;
    QLabel* hint_ = nullptr;
    QWidget* cationGroup_ = nullptr;
    QWidget* ligandGroup_ = nullptr;
    QLabel* descriptionLabel_ = nullptr;
    QLineEdit* description_ = nullptr;
    InputOptionPages* pages_ = nullptr;
    bool closed_ = false;
};

}  // namespace tormel
