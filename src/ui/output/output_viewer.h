#pragma once
// The output viewer ("FrmViewOutput"): one result set with its component
// tree, the summary and details tables of the chosen component, the two pie
// charts and a toolbar for saving, exporting, printing and display options.
#include <array>
#include <cstdint>
#include <functional>

#include <QWidget>

#include "ui/output/viewer_toolbar.h"

class QComboBox;
class QSplitter;
class QToolButton;
class QTreeWidget;
class QPushButton;

namespace tormel {

struct Workspace;
class PiePanel;

class OutputViewer : public QWidget {
public:
    // `help` opens a help topic (may be empty).
    OutputViewer(Workspace& ws, int32_t set, QWidget* owner, std::function<void(int)> help);

    int32_t Set() const { return set_; }
    // After an earlier set of a comparison was removed.
    void SetSet(int32_t set) { set_ = set; }
    // The component shown (its position in the set), or -1.
    int32_t Shown() const { return shown_; }

    // Fills both lists for the component at `position` and repaints the pies.
    void ShowComponent(int32_t position);
    // Rebuilds the tables of the shown component and the set's "Other info"
    // (after the units or display options changed).
    void Refresh();
    // 0 no pies, 1 right, 2 bottom; stored under [Output] "ViewGraphs".
    void SetPiePlacement(int placement);
    int PiePlacement() const { return placement_; }
    // A click on the first column of details row `row`.
    void DetailsRowClicked(int row);
    // The toolbar's sixth button: the unit options, then a refresh when confirmed.
    void ChangeUnits();
    void OpenOtherInfo();

    // Called instead of storing the window's size when it closes during a comparison.
    std::function<void(OutputViewer*)> onClose;

    QTreeWidget* Tree() const { return tree_; }
    QTreeWidget* Summary() const { return summary_; }
    QTreeWidget* Details() const { return details_; }
    PiePanel* FractionsPie() const { return pies_[0]; }
    PiePanel* SpeciesPie() const { return pies_[1]; }
    QSplitter* Rows() const { return rows_; }
    const ViewerToolbar& Toolbar() const { return toolbar_; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildTree();
    void LayOut();
    void Save(int button);

    Workspace& ws_;
    int32_t set_;
    int32_t shown_ = -1;
    int placement_ = 0;
    int barTop_ = 0;   // until the first layout: the bars' stored distances from the tree's edges
    int barLeft_ = 0;
    std::function<void(int)> help_;
    std::array<QToolButton*, 7> buttons_{};
    QComboBox* placementBox_ = nullptr;
    QPushButton* otherInfo_ = nullptr;
    ViewerToolbar toolbar_;
    QSplitter* rows_ = nullptr;     // tree and summary above, details below
    QSplitter* columns_ = nullptr;  // tree | summary
    QTreeWidget* tree_ = nullptr;
    QTreeWidget* summary_ = nullptr;
    QTreeWidget* details_ = nullptr;
    std::array<PiePanel*, 2> pies_{};
};

}  // namespace tormel
