#pragma once
// Opens the database viewer and the database information window.
class QWidget;

namespace tormel {

struct Workspace;

void OpenDatabaseViewer(Workspace& ws, QWidget* owner);
void OpenDatabaseInformation(Workspace& ws, QWidget* owner);

}  // namespace tormel
