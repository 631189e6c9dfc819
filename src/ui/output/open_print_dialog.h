#pragma once
// Opens the printing dialog for result set 0.
class QWidget;

namespace tormel {

struct Workspace;

void OpenPrintDialog(Workspace& ws, QWidget* owner);

}  // namespace tormel
