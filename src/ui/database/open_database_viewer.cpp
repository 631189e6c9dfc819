#include "ui/database/open_database_viewer.h"

#include "shell/workspace.h"
#include "ui/database/database_information_window.h"
#include "ui/database/database_viewer.h"

namespace tormel {

void OpenDatabaseViewer(Workspace& ws, QWidget* owner) {
    ws.uiReady = false;
    DatabaseViewer viewer(ws, owner);
    viewer.exec();
    ws.uiReady = true;
}

void OpenDatabaseInformation(Workspace& ws, QWidget* owner) {
    ws.uiReady = false;
    DatabaseInformationWindow window(ws, owner);
    window.exec();
    ws.uiReady = true;
}

}  // namespace tormel
