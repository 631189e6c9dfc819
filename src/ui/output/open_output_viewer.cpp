#include "ui/output/open_output_viewer.h"

#include <QCheckBox>
#include <QPointer>

#include "ui/main/help_of.h"
#include "ui/output/comparison_window.h"
#include "ui/output/output_viewer.h"

namespace tormel {

namespace {
QPointer<OutputViewer> viewerOfSetZero;
}

void OpenOutputViewer(Workspace& ws, QWidget* owner) {
    if (viewerOfSetZero) {
        viewerOfSetZero->close();
        delete viewerOfSetZero.data();
    }
    auto* viewer = new OutputViewer(ws, 0, owner, HelpOf(owner));
    viewerOfSetZero = viewer;
    ComparisonWindow* comparison = OpenComparisonWindow();
    // during a comparison the main window stays usable and the viewers are only arranged
    if (!comparison) viewer->setWindowModality(Qt::WindowModal);
    viewer->show();
    if (comparison && comparison->AutoArrange()->isChecked()) comparison->ArrangeViewers();
}

OutputViewer* OpenViewerOfSetZero() { return viewerOfSetZero.data(); }

}  // namespace tormel
