#pragma once
// Opens the output window on result set 0.
class QWidget;

namespace tormel {

struct Workspace;

void OpenOutputViewer(Workspace& ws, QWidget* owner);

}  // namespace tormel
