#pragma once
// Opens one of the two PDF documents ("document64.pdf", "manual64.pdf"),
// fetching it first when needed.
#include <string>

class QWidget;

namespace tormel {

struct Workspace;

void OpenDocument(Workspace& ws, QWidget* owner, const std::string& name);

}  // namespace tormel
