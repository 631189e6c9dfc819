#pragma once
// The database viewer ("FrmDB_View"): the equilibria of the loaded database by
// component, by equilibrium type or by literature reference, with summary
// lines, and any equilibrium drawn in the reaction definition window.
#include <QDialog>

#include "output/result_records.h"

class QListWidget;
class QPushButton;
class QRadioButton;
class QTreeWidget;

namespace tormel {

struct Workspace;

class DatabaseViewer : public QDialog {
    Q_OBJECT
public:
    DatabaseViewer(Workspace& ws, QWidget* owner);

    // Checks the radio button of the mode (1 to 3) and fills the tree.
    void SetMode(int mode);
    int Mode() const { return mode_; }
    // Draws the equilibrium of the selected lower line ("CmdEqDef").
    void ShowEquilibrium();

    QTreeWidget* Tree() const { return tree_; }
    QListWidget* Summary() const { return upper_; }
    QListWidget* Equilibria() const { return lower_; }
    QPushButton* ShowButton() const { return showButton_; }
    QPushButton* ChangeButton() const { return changeButton_; }
    const ReactionDefinition& Definition() const { return definition_; }

private:
    void FillTree();
    void SelectTreeItem();
    void FitSummary();

    Workspace& ws_;
    int mode_ = 0;
    int fittedCount_ = -1;
    ReactionDefinition definition_;
    QRadioButton* modes_[3] = {};
    QTreeWidget* tree_ = nullptr;
    QListWidget* upper_ = nullptr;
    QListWidget* lower_ = nullptr;
    QPushButton* showButton_ = nullptr;
    QPushButton* changeButton_ = nullptr;
};

}  // namespace tormel
