#include "ui/options/open_options_dialog.h"

#include "ui/main/not_available.h"

namespace tormel {

void OpenOptionsDialog(Workspace& ws, QWidget* /*owner*/, int /*page*/) { ShowNotAvailableYet(ws); }

}  // namespace tormel
