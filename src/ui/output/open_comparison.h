#pragma once
// Opens the side-by-side comparison of output files.
class QWidget;

namespace tormel {

struct Workspace;

void OpenComparison(Workspace& ws, QWidget* owner);

}  // namespace tormel
