#include "ui/output/open_output_viewer.h"

#include "ui/main/not_available.h"

namespace tormel {

void OpenOutputViewer(Workspace& ws, QWidget* /*owner*/) { ShowNotAvailableYet(ws); }

}  // namespace tormel
