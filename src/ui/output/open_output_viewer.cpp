#include "ui/output/open_output_viewer.h"

#include <QPointer>

#include "ui/main/main_window.h"
#include "ui/output/output_viewer.h"

namespace tormel {

namespace {
QPointer<OutputViewer> viewerOfSetZero;
}

std::function<void(int)> HelpOf(QWidget* widget) {
    for (QWidget* w = widget; w; w = w->parentWidget())
        if (auto* main = dynamic_cast<MainWindow*>(w)) return main->Services().openHelp;
    return {};
}

void OpenOutputViewer(Workspace& ws, QWidget* owner) {
    if (viewerOfSetZero) {
        viewerOfSetZero->close();
        delete viewerOfSetZero.data();
    }
    auto* viewer = new OutputViewer(ws, 0, owner, HelpOf(owner));
    viewer->setWindowModality(Qt::WindowModal);
    viewerOfSetZero = viewer;
    viewer->show();
}

OutputViewer* OpenViewerOfSetZero() { return viewerOfSetZero.data(); }

}  // namespace tormel
