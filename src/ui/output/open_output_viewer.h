#pragma once
// Opens the output window on result set 0.
#include <cstdint>
#include <functional>

class QWidget;

namespace tormel {

struct Workspace;
class OutputViewer;

// The viewer of set 0, window-modal to `owner` (the main window stays
// disabled while it is open). An open viewer of set 0 is replaced.
void OpenOutputViewer(Workspace& ws, QWidget* owner);

// The viewer of set 0 opened last, or null once it is closed.
OutputViewer* OpenViewerOfSetZero();

// The help opener of the main window that `widget` belongs to (empty when none).
std::function<void(int)> HelpOf(QWidget* widget);

}  // namespace tormel
