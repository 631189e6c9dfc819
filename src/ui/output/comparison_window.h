#pragma once
// The comparison window ("FrmViewSideBySide"): the output files taken into a
// comparison, one result set and one viewer per file, the viewers arranged
// side by side below it.
#include <cstdint>
#include <string>
#include <vector>

#include <QPointer>
#include <QWidget>

#include "output/result_set_list.h"

class QCheckBox;
class QTreeWidget;

namespace tormel {

struct Workspace;
class OutputViewer;

class ComparisonWindow : public QWidget {
public:
    ComparisonWindow(Workspace& ws, QWidget* owner);

    // Reads the file into a new set and opens its viewer; false (after the
    // reader's message) when the file is refused.
    bool AddFile(const std::string& path);
    // Asks for an output file and adds it.
    void AskAndAdd();
    // What a closing viewer asks: its set goes, the later ones move down.
    void RemoveSet(int32_t set);
    void ArrangeViewers();

    QTreeWidget* Files() const { return files_; }
    QCheckBox* AutoArrange() const { return auto_; }
    const std::vector<QPointer<OutputViewer>>& Viewers() const { return viewers_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ShowRows();

    Workspace& ws_;
    ComparisonList list_;
    std::vector<QPointer<OutputViewer>> viewers_;
    QTreeWidget* files_ = nullptr;
    QCheckBox* auto_ = nullptr;
    bool closing_ = false;
};

// The open comparison window, or null.
ComparisonWindow* OpenComparisonWindow();

}  // namespace tormel
