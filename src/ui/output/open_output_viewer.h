#pragma once
// Opens the output window on result set 0.
#include <cstdint>

class QWidget;

namespace tormel {

struct Workspace;
class OutputViewer;

// The viewer of set 0, window-modal to `owner` (the main window stays
// disabled while it is open); while a comparison window is open it is not
// modal and the comparison's viewers are arranged when auto-arrange is on.
// An open viewer of set 0 is replaced.
void OpenOutputViewer(Workspace& ws, QWidget* owner);

// The viewer of set 0 opened last, or null once it is closed.
OutputViewer* OpenViewerOfSetZero();

}  // namespace tormel
