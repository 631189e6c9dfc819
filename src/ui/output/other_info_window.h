#pragma once
// The "Other info" window ("FrmOtherInfo") of a viewer's result set: one tab
// per block of the report that applies, each with its explanation and a list.
#include <cstdint>
#include <vector>

#include <QWidget>

#include "output/result_store.h"

class QTabWidget;
class QTreeWidget;

namespace tormel {

struct Workspace;

// The blocks that get a tab, in order: general, MSA (not Davies), organic
// matter (organic complexation on), solids and gases (a long text),
// adsorption (adsorption on), input.
std::vector<int32_t> OtherInfoTabs(const ResultSet& set);

class OtherInfoWindow : public QWidget {
public:
    OtherInfoWindow(Workspace& ws, int32_t set, QWidget* viewer);
    QTabWidget* Tabs() const { return tabs_; }
    // The block shown on each tab.
    const std::vector<int32_t>& Blocks() const { return blocks_; }
    QTreeWidget* List(int tab) const { return lists_[static_cast<size_t>(tab)]; }
    // A click on the first column of `row` of the list on `tab`.
    void RowClicked(int tab, int row);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    Workspace& ws_;
    int32_t set_;
    QWidget* owner_;
    QTabWidget* tabs_ = nullptr;
    std::vector<int32_t> blocks_;
    std::vector<QTreeWidget*> lists_;
};

// Opens the window for `set`, window-modal to the viewer.
OtherInfoWindow* OpenOtherInfoWindow(Workspace& ws, int32_t set, QWidget* viewer);

}  // namespace tormel
