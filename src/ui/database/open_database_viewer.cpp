#include "ui/database/open_database_viewer.h"

#include "ui/main/not_available.h"

namespace tormel {

void OpenDatabaseViewer(Workspace& ws, QWidget* /*owner*/) { ShowNotAvailableYet(ws); }

void OpenDatabaseInformation(Workspace& ws, QWidget* /*owner*/) { ShowNotAvailableYet(ws); }

}  // namespace tormel
