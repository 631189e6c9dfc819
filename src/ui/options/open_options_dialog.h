#pragma once
// Opens the options dialog at one of its pages (0 to 4).
class QWidget;

namespace tormel {

struct Workspace;

void OpenOptionsDialog(Workspace& ws, QWidget* owner, int page);

}  // namespace tormel
