#include "ui/options/open_options_dialog.h"

#include "shell/workspace.h"
#include "ui/options/options_dialog.h"

namespace tormel {

void OpenOptionsDialog(Workspace& ws, QWidget* owner, int page) {
    ws.uiReady = false;
    OptionsDialog dialog(ws, owner, page);
    dialog.exec();
    ws.uiReady = true;
}

}  // namespace tormel
