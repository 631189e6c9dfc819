#pragma once
// Opens the input editor on the current input problem.
class QWidget;

namespace tormel {

struct Workspace;

void OpenInputEditor(Workspace& ws, QWidget* owner);

}  // namespace tormel
