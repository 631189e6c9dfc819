#include "updates/open_document.h"

#include "ui/main/not_available.h"

namespace tormel {

void OpenDocument(Workspace& ws, QWidget* /*owner*/, const std::string& /*name*/) { ShowNotAvailableYet(ws); }

}  // namespace tormel
