#include "ui/output/open_print_dialog.h"

#include "ui/main/not_available.h"

namespace tormel {

void OpenPrintDialog(Workspace& ws, QWidget* /*owner*/) { ShowNotAvailableYet(ws); }

}  // namespace tormel
