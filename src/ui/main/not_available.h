#pragma once
// The message shown by a command whose window this version does not have yet.
class QWidget;

namespace tormel {

struct Workspace;

// TOOLS/"NotAvailable" with the information icon.
void ShowNotAvailableYet(Workspace& ws);

}  // namespace tormel
